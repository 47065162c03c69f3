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

void frmGraph::BuildMenus() {
  MenuBuilder build(*this, Frame);
  build.AddFileMenu();
  AddEditMenu(build);
  AddDrawingMenu(build);
  AddViewMenu(build);
  QMenu& analysis = *build.AddMenu("mnuAnalysis", "&Analysis");
  build.AddAnalyse(analysis);
  AddLive(build, analysis);
  build.Add(
      analysis, "mnuAnimate", "A&nimate", {}, [this] { Frame.AnimateDSD(); },
      "Lets the deflected shape grow and shrink");
  build.AddCheck(analysis);
  build.Add(
      analysis, "mnuInfluence", "&Influence Lines...", {}, [this] { Frame.ShowInfluence(); },
      "What a member, a reaction or a displacement hears of a load that moves over the truss");
  build.Add(
      analysis, "mnuResults", "&Results Report", {}, [this] { mnuResults_Click(); },
      "Model, drawing, results and check as a document to save or print");
  QMenu& tools = *build.AddMenu("mnuTools", "&Tools");
  build.Add(
      tools, "mnuGenerator", "&Bracefold", {}, [this] { mnuGenerator_Click(); },
      "Starts the companion program that generates trusses");
  build.Add(
      tools, "mnuWorked", "&Worked Solution...", {}, [this] { SaveWorkedTruss(Frame.ModelName()); },
      "Saves every step of the stiffness method with the numbers of the truss, as PDF, HTML or LaTeX");
  build.Add(
      tools, "mnuRenumber", "&Renumber Nodes Along the Span", {},
      [this] {
        Frame.Edit("Renumber Nodes", [] {
          RebuildKeepingResults();
          RenumberNodesAlongSpan();
        });
      },
      "Numbers the nodes by x and then by y; large trusses are analysed faster so");
  build.Add(
      tools, "mnuHand", "&Hand Methods...", {}, [this] { Frame.ShowHand(); },
      "Reactions, joints, sections and the force diagram as one finds them by hand");
  build.Add(
      tools, "mnuVary", "&Vary...", {}, [this] { Frame.ShowVary(); },
      "Changes one quantity with a slider and plots a result over it");
  build.Add(
      tools, "mnuClassSet", "&Class Set...", {}, [this] { Frame.ShowClassSet(); },
      "Makes a problem of one's own for every student, with the key");
  build.Add(
      tools, "mnuOptions", "&Options...", {}, [this] { Frame.ShowOptions(); },
      "The drawing grid, snapping, the size of the grids and the list of recent files");
  build.AddHelpMenu();
  MenuList = build.Menus();
  BuildPopUp(build);
}

void frmGraph::AddLive(MenuBuilder& build, QMenu& analysis) {
  QAction* live = build.Add(
      analysis, "mnuLive", "&Live", Qt::CTRL | Qt::Key_L, [this] { Frame.SwitchLive(!TheLive.on); },
      "Analyses the truss after every edit, and while it is being dragged");
  live->setCheckable(true);
  Frame.addAction(live); // for the key, whichever child window is active
}

void frmGraph::AddEditMenu(MenuBuilder& build) {
  QMenu& edit = *build.AddMenu("mnuEdit", "&Edit");
  Frame.AddHistoryActions(build, edit);
  edit.addSeparator();
  Frame.AddGridActions(edit);
}

void frmGraph::AddDrawingMenu(MenuBuilder& build) {
  QMenu& drawing = *build.AddMenu("mnuDraw", "&Drawing");
  const auto add = [&](const QString& name, const QString& text, MouseMode mode, const QString& toolTip,
                       const QKeySequence& key = {}) {
    return build.Add(
        drawing, name, text, key, [this, mode] { Choose(mode); }, toolTip);
  };
  Frame.addActions( // for the keys, whichever child window is active
      {add("mnuDrawNodes", "Draw &Nodes", MouseMode::DrawNode, "A click adds a node at the nearest grid point",
           Qt::Key_F7),
       add("mnuDrawMembers", "Draw &Members", MouseMode::DrawMember, "Two clicks on nodes add a member", Qt::Key_F8)});
  add("mnuSelNode", "&Select Node", MouseMode::SelectNode, "A click shows the details of a node");
  add("mnuSelMember", "Se&lect Member", MouseMode::SelectMember, "A click shows the details of a member");
  add("mnuDelete", "&Delete", MouseMode::Delete, "A click deletes a node, or else a member");
  AddSymbolMenus(build, drawing);
  AddSelectionMenu(build, drawing);
  drawing.addSeparator();
  build.Add(
      drawing, "mnuSavePic", "Save &picture", {}, [this] { Frame.SavePicture(); },
      "Saves the truss display as a picture");
}

void frmGraph::AddSymbolMenus(MenuBuilder& build, QMenu& drawing) {
  drawing.addSeparator();
  QMenu& supports = *build.AddSubmenu(drawing, "mnuSupports", "S&upports");
  const auto addSupport = [&](const char* name, const QString& text, int code) {
    build.Add(
        supports, name, text, {}, [this, code] { ChooseSupports(code); }, "Clicks on nodes give them this support");
  };
  addSupport("mnuSupportPin", "&Pin", 3);
  addSupport("mnuSupportRollerX", "Roller (free in &x)", 1);
  addSupport("mnuSupportRollerY", "Roller (free in &y)", 2);
  addSupport("mnuSupportFree", "&Free", 0);
  QMenu& loads = *build.AddSubmenu(drawing, "mnuLoads", "L&oads");
  const auto addLoad = [&](const char* name, const QString& text, LoadSymbol symbol) {
    build.Add(
        loads, name, text, {}, [this, symbol] { ChooseLoads(symbol); },
        "Clicks on nodes give them this load; dragging the end of an arrow changes it");
  };
  addLoad("mnuLoadDown", "&Down", LoadSymbol::Down);
  addLoad("mnuLoadUp", "&Up", LoadSymbol::Up);
  addLoad("mnuLoadRight", "To the &Right", LoadSymbol::Right);
  addLoad("mnuLoadLeft", "To the &Left", LoadSymbol::Left);
  addLoad("mnuLoadNone", "&None", LoadSymbol::None);
}

void frmGraph::AddSelectionMenu(MenuBuilder& build, QMenu& drawing) {
  drawing.addSeparator();
  const auto add = [&](const char* name, const QString& text, const QKeySequence& key,
                       const std::function<void()>& command, const QString& toolTip) {
    Frame.addAction(build.Add(drawing, name, text, key, command, toolTip));
  };
  add(
      "mnuSelectMove", "Select and Mo&ve", Qt::Key_F12, [this] { Choose(MouseMode::SelectAndMove); },
      "Clicks and rectangles select nodes and members; dragging moves them");
  add(
      "mnuCopies", "Cop&y and Repeat...", {}, [this] { AskForCopies(); },
      "Copies what is selected, once or in a row, with its loads and supports");
  add(
      "mnuMirrorX", "Mirror to the S&ide...", {}, [this] { AskForMirror(false); },
      "Adds the mirror image of what is selected on the other side of an upright line");
  add(
      "mnuMirrorY", "Mirror Up or Do&wn...", {}, [this] { AskForMirror(true); },
      "Adds the mirror image of what is selected above or below a level line");
}

void frmGraph::ChooseSupports(int code) {
  TheMouse.SupportSymbol = code;
  Choose(MouseMode::Supports);
}

void frmGraph::ChooseLoads(LoadSymbol symbol) {
  TheMouse.ClickedLoad = symbol;
  Choose(MouseMode::Loads);
}

void frmGraph::AddViewMenu(MenuBuilder& build) {
  QMenu& view = *build.AddMenu("mnuView", "&View");
  build.Add(
      view, "mnuPan", "&Pan", {}, [this] { Choose(MouseMode::Pan); }, "Dragging moves the view");
  build.Add(
      view, "mnuZW", "Zoom &Window", {},
      [this] {
        ArmZoom();
        ShowMouseState();
      },
      "The next drag frames what to see");
  build.Add(view, "mnuZoomOut", "Zoom Out F3", {}, [this] { Frame.ZoomOut(); });
  build.Add(view, "mnuZoomExtents", "Zoom Extents F4", {}, [this] { Frame.Redraw(true); });
  build.Add(
      view, "mnuRefresh", "&Refresh", Qt::CTRL | Qt::Key_R, [this] { Refresh(); },
      "Takes the grids in and draws the truss again");
  QAction* clear = build.Add(
      view, "mnuClearDrawing", "&Clear Drawing", Qt::CTRL | Qt::Key_D, [this] { Frame.SwitchStyle(); },
      "Draws symbols and labels in pixels, so that no label stands on another");
  clear->setCheckable(true);
  build.Add(
      view, "mnuFitArrows", "&Fit Arrows", {}, [this] { Frame.FitArrows(); },
      "Sets the forces scale so that the longest arrow is about a sixth of the truss");
  view.addSeparator();
  build.Add(view, "mnuEquations", "&Stiffness Equations", {}, [this] { Frame.ActivateEquations(); });
}

void frmGraph::BuildPopUp(MenuBuilder& build) {
  PopUp = new QMenu(this);
  PopUp->setObjectName("mnuPopUp");
  Parts = std::make_unique<PartMenu>(Frame, *PopUp, build);
  const auto take = [this](const QString& name) { PopUp->addAction(findChild<QAction*>(name)); };
  for (const char* name : {"mnuDrawNodes", "mnuDrawMembers", "mnuSelNode", "mnuSelMember", "mnuDelete"}) take(name);
  PopUp->addSeparator();
  for (const char* name : {"mnuPan", "mnuZW"}) take(name);
  build.Add(*PopUp, "mnuZo", "Zoom &Out", {}, [this] { Frame.ZoomOut(); });
  build.Add(*PopUp, "mnuZE", "&Zoom Extents", {}, [this] { Frame.Redraw(true); });
  PopUp->addSeparator();
  take("mnuRefresh");
  take("mnuClearDrawing");
}

/// What has been pasted meanwhile is taken in.
void frmGraph::Refresh() {
  RebuildKeepingResults();
  Frame.Redraw(false);
}

} // namespace strutwright
