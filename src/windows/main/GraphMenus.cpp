#include "DisplayState.h"
#include "Menus.h"
#include "WorkbenchState.h"
#include "frmGraph.h"
#include "frmMain.h"
#include "modFileCommands.h"
#include "modKeepResults.h"
#include "modRenumbering.h"
#include "modWorkedTruss.h"

// The menus of the truss display, and its pop-up menu.

namespace strutwright {

namespace {

class GraphMenus : public FrameMenus {
 public:
  GraphMenus(frmMain& frame, frmGraph& graph) : FrameMenus(graph, frame), Frame(frame), Graph(graph) {}

  void Build();

 private:
  void AddAnalysisMenu();
  void AddToolsMenu();
  void AddLive(QMenu& analysis);
  void AddEditMenu();
  void AddDrawingMenu();
  void AddSymbolMenus(QMenu& drawing);
  void AddSelectionMenu(QMenu& drawing);
  void AddViewMenu();
  void BuildPopUp();

  frmMain& Frame;
  frmGraph& Graph;
};

void GraphMenus::Build() {
  AddFileMenu();
  AddEditMenu();
  AddDrawingMenu();
  AddViewMenu();
  AddAnalysisMenu();
  AddToolsMenu();
  AddHelpMenu();
  BuildPopUp();
}

void GraphMenus::AddAnalysisMenu() {
  QMenu& analysis = *AddMenu("mnuAnalysis", "&Analysis");
  AddAnalyse(analysis);
  AddLive(analysis);
  Add(
      analysis, "mnuAnimate", "A&nimate", {}, [&frame = Frame] { frame.AnimateDSD(); },
      "Lets the deflected shape grow and shrink");
  AddCheck(analysis);
  Add(
      analysis, "mnuInfluence", "&Influence Lines...", {}, [&frame = Frame] { frame.ShowInfluence(); },
      "What a member, a reaction or a displacement hears of a load that moves over the truss");
  Add(
      analysis, "mnuResults", "&Results Report", {}, [&graph = Graph] { graph.mnuResults_Click(); },
      "Model, drawing, results and check as a document to save or print");
}

void GraphMenus::AddToolsMenu() {
  QMenu& tools = *AddMenu("mnuTools", "&Tools");
  Add(
      tools, "mnuGenerator", "&Bracefold", {}, [&graph = Graph] { graph.mnuGenerator_Click(); },
      "Starts the companion program that generates trusses");
  Add(
      tools, "mnuWorked", "&Worked Solution...", {}, [&frame = Frame] { SaveWorkedTruss(frame.ModelName()); },
      "Saves every step of the stiffness method with the numbers of the truss, as PDF, HTML or LaTeX");
  Add(
      tools, "mnuRenumber", "&Renumber Nodes Along the Span", {},
      [&frame = Frame] {
        frame.Edit("Renumber Nodes", [] {
          RebuildKeepingResults();
          RenumberNodesAlongSpan();
        });
      },
      "Numbers the nodes by x and then by y; large trusses are analysed faster so");
  Add(
      tools, "mnuHand", "&Hand Methods...", {}, [&frame = Frame] { frame.ShowHand(); },
      "Reactions, joints, sections and the force diagram as one finds them by hand");
  Add(
      tools, "mnuVary", "&Vary...", {}, [&frame = Frame] { frame.ShowVary(); },
      "Changes one quantity with a slider and plots a result over it");
  Add(
      tools, "mnuClassSet", "&Class Set...", {}, [&frame = Frame] { frame.ShowClassSet(); },
      "Makes a problem of one's own for every student, with the key");
  Add(
      tools, "mnuOptions", "&Options...", {}, [&frame = Frame] { frame.ShowOptions(); },
      "The drawing grid, snapping, the size of the grids and the list of recent files");
}

void GraphMenus::AddLive(QMenu& analysis) {
  QAction* live = Add(
      analysis, "mnuLive", "&Live", Qt::CTRL | Qt::Key_L, [&frame = Frame] { frame.SwitchLive(!TheLive.on); },
      "Analyses the truss after every edit, and while it is being dragged");
  live->setCheckable(true);
  Frame.addAction(live); // for the key, whichever child window is active
}

void GraphMenus::AddEditMenu() {
  QMenu& edit = *AddMenu("mnuEdit", "&Edit");
  Frame.AddHistoryActions(*this, edit);
  edit.addSeparator();
  Frame.AddGridActions(edit);
}

void GraphMenus::AddDrawingMenu() {
  QMenu& drawing = *AddMenu("mnuDraw", "&Drawing");
  const auto add = [&](const QString& name, const QString& text, MouseMode mode, const QString& toolTip,
                       const QKeySequence& key = {}) {
    return Add(
        drawing, name, text, key, [&graph = Graph, mode] { graph.Choose(mode); }, toolTip);
  };
  Frame.addActions( // for the keys, whichever child window is active
      {add("mnuDrawNodes", "Draw &Nodes", MouseMode::DrawNode, "A click adds a node at the nearest grid point",
           Qt::Key_F7),
       add("mnuDrawMembers", "Draw &Members", MouseMode::DrawMember, "Two clicks on nodes add a member", Qt::Key_F8)});
  add("mnuSelNode", "&Select Node", MouseMode::SelectNode, "A click shows the details of a node");
  add("mnuSelMember", "Se&lect Member", MouseMode::SelectMember, "A click shows the details of a member");
  add("mnuDelete", "&Delete", MouseMode::Delete, "A click deletes a node, or else a member");
  AddSymbolMenus(drawing);
  AddSelectionMenu(drawing);
  drawing.addSeparator();
  Add(
      drawing, "mnuSavePic", "Save &picture", {}, [&frame = Frame] { frame.SavePicture(); },
      "Saves the truss display as a picture");
}

void GraphMenus::AddSymbolMenus(QMenu& drawing) {
  drawing.addSeparator();
  QMenu& supports = *AddSubmenu(drawing, "mnuSupports", "S&upports");
  const auto addSupport = [&](const char* name, const QString& text, int code) {
    Add(
        supports, name, text, {},
        [&graph = Graph, code] {
          TheMouse.SupportSymbol = code;
          graph.Choose(MouseMode::Supports);
        },
        "Clicks on nodes give them this support");
  };
  addSupport("mnuSupportPin", "&Pin", 3);
  addSupport("mnuSupportRollerX", "Roller (free in &x)", 1);
  addSupport("mnuSupportRollerY", "Roller (free in &y)", 2);
  addSupport("mnuSupportFree", "&Free", 0);
  QMenu& loads = *AddSubmenu(drawing, "mnuLoads", "L&oads");
  const auto addLoad = [&](const char* name, const QString& text, LoadSymbol symbol) {
    Add(
        loads, name, text, {},
        [&graph = Graph, symbol] {
          TheMouse.ClickedLoad = symbol;
          graph.Choose(MouseMode::Loads);
        },
        "Clicks on nodes give them this load; dragging the end of an arrow changes it");
  };
  addLoad("mnuLoadDown", "&Down", LoadSymbol::Down);
  addLoad("mnuLoadUp", "&Up", LoadSymbol::Up);
  addLoad("mnuLoadRight", "To the &Right", LoadSymbol::Right);
  addLoad("mnuLoadLeft", "To the &Left", LoadSymbol::Left);
  addLoad("mnuLoadNone", "&None", LoadSymbol::None);
}

void GraphMenus::AddSelectionMenu(QMenu& drawing) {
  drawing.addSeparator();
  const auto add = [&](const char* name, const QString& text, const QKeySequence& key,
                       const std::function<void()>& command,
                       const QString& toolTip) { Frame.addAction(Add(drawing, name, text, key, command, toolTip)); };
  add(
      "mnuSelectMove", "Select and Mo&ve", Qt::Key_F12, [&graph = Graph] { graph.Choose(MouseMode::SelectAndMove); },
      "Clicks and rectangles select nodes and members; dragging moves them");
  add(
      "mnuCopies", "Cop&y and Repeat...", {}, [&graph = Graph] { graph.AskForCopies(); },
      "Copies what is selected, once or in a row, with its loads and supports");
  add(
      "mnuMirrorX", "Mirror to the S&ide...", {}, [&graph = Graph] { graph.AskForMirror(false); },
      "Adds the mirror image of what is selected on the other side of an upright line");
  add(
      "mnuMirrorY", "Mirror Up or Do&wn...", {}, [&graph = Graph] { graph.AskForMirror(true); },
      "Adds the mirror image of what is selected above or below a level line");
}

void GraphMenus::AddViewMenu() {
  QMenu& view = *AddMenu("mnuView", "&View");
  Add(
      view, "mnuPan", "&Pan", {}, [&graph = Graph] { graph.Choose(MouseMode::Pan); }, "Dragging moves the view");
  Add(
      view, "mnuZW", "Zoom &Window", {},
      [&graph = Graph] {
        ArmZoom();
        graph.ShowMouseState();
      },
      "The next drag frames what to see");
  Add(view, "mnuZoomOut", "Zoom Out F3", {}, [&frame = Frame] { frame.ZoomOut(); });
  Add(view, "mnuZoomExtents", "Zoom Extents F4", {}, [&frame = Frame] { frame.Redraw(true); });
  Add(
      view, "mnuRefresh", "&Refresh", Qt::CTRL | Qt::Key_R,
      [&frame = Frame] {
        RebuildKeepingResults(); // what has been pasted meanwhile is taken in
        frame.Redraw(false);
      },
      "Takes the grids in and draws the truss again");
  QAction* clear = Add(
      view, "mnuClearDrawing", "&Clear Drawing", Qt::CTRL | Qt::Key_D, [&frame = Frame] { frame.SwitchStyle(); },
      "Draws symbols and labels in pixels, so that no label stands on another");
  clear->setCheckable(true);
  Add(
      view, "mnuFitArrows", "&Fit Arrows", {}, [&frame = Frame] { frame.FitArrows(); },
      "Sets the forces scale so that the longest arrow is about a sixth of the truss");
  view.addSeparator();
  Add(view, "mnuEquations", "&Stiffness Equations", {}, [&frame = Frame] { frame.ActivateEquations(); });
}

void GraphMenus::BuildPopUp() {
  QMenu& popUp = Graph.MakePopUp(*this);
  const auto take = [&](const QString& name) { popUp.addAction(Graph.findChild<QAction*>(name)); };
  for (const char* name : {"mnuDrawNodes", "mnuDrawMembers", "mnuSelNode", "mnuSelMember", "mnuDelete"}) take(name);
  popUp.addSeparator();
  for (const char* name : {"mnuPan", "mnuZW"}) take(name);
  Add(popUp, "mnuZo", "Zoom &Out", {}, [&frame = Frame] { frame.ZoomOut(); });
  Add(popUp, "mnuZE", "&Zoom Extents", {}, [&frame = Frame] { frame.Redraw(true); });
  popUp.addSeparator();
  take("mnuRefresh");
  take("mnuClearDrawing");
}

} // namespace

QList<QMenu*> BuildGraphMenus(frmMain& frame, frmGraph& graph) {
  GraphMenus menus(frame, graph);
  menus.Build();
  return menus.Menus();
}

} // namespace strutwright
