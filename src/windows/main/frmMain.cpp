#include "frmMain.h"

#include "AnalysisState.h"
#include "ChildArea.h"
#include "ControlBoard.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "EventGuard.h"
#include "ExchangeCommands.h"
#include "FormParts.h"
#include "FramePlace.h"
#include "Icons.h"
#include "MainCentre.h"
#include "MainStatusBar.h"
#include "Menus.h"
#include "Platform.h"
#include "RecentFilesMenu.h"
#include "WorkbenchState.h"
#include "frmAbout.h"
#include "frmEquations.h"
#include "frmGraph.h"
#include "frmOptions.h"
#include "modEntryGaps.h"
#include "modFileCommands.h"
#include "modGenerators.h"
#include "modGrids.h"
#include "modLive.h"
#include "modModelStore.h"
#include "modOptions.h"
#include "modOverprint.h"
#include "modRedraw.h"
#include "modRunAnalysis.h"
#include "modViewTransform.h"

#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QToolBar>

namespace strutwright {

namespace {

constexpr QSize StartSize{1180, 800};

// The child windows' shares of the room above the board.
constexpr QRectF DisplayShare{0, 0, 0.56, 1};
constexpr QRectF EquationsShare{0.56, 0, 0.44, 1};

} // namespace

frmMain::frmMain() {
  setObjectName("frmMain");
  setWindowTitle("Strutwright");
  setWindowIcon(IconNamed("strutwright"));
  stsBar = new MainStatusBar(this);
  setStatusBar(stsBar);
  stsBar->SetCheckNotice([this] { Run([this] { ShowCheck(); }); });
  stsBar->SetOfferNotice([this] { Run([this] { SwitchStyle(); }); });
  stsBar->SetRigidityNotice([this] {
    Run([this] {
      TheEditing.rigidityFromBoard = true;
      Edit("Fill In E and A", [this] { Check->FillInRigidity(); });
    });
  });
  BuildToolBar();
  BuildCentre();
  StatusView = std::make_unique<MainStatus>(*stsBar);
  Grids = std::make_unique<GridCommands>(*this, *CBpic);
  Board = std::make_unique<BoardController>(*this, *CBpic, *Grids);
  Check = std::make_unique<CheckPresenter>(*this, *CBpic, *stsBar);
  Rows = std::make_unique<RowLink>(*this, *CBpic);
  Drawn = std::make_unique<DrawingCommands>(*this, *CBpic, *stsBar);
  Tools = std::make_unique<ToolWindows>(*this);
  Truss = std::make_unique<TrussPresenter>(*StatusView, *Check, [this] { ShowDrawing(); });
  Live = std::make_unique<LivePresenter>(*this, *Board, *Check, *stsBar);
  Listener = std::make_unique<MainListener>(*this);
  ConnectKeys();
  ImportDroppedFiles(*this);
  OnSignal(&History.Steps(), &QUndoStack::indexChanged, this, [this] { ShowEntryNote(); });
  resize(SizeOnScreen(*this, StartSize));
}

frmMain::~frmMain() {
  Ending = true;
  DisplaySurface = nullptr;
  Check->CloseWindow();
  Tools.reset();
  delete takeCentralWidget(); // while the frame that its parts report to is still whole
}

void frmMain::BuildToolBar() {
  auto* bar = new QToolBar("Tool bar", this);
  bar->setObjectName("Toolbar1");
  bar->setMovable(false);
  bar->setIconSize({24, 24});
  const auto add = [this, bar](const QString& icon, const QString& toolTip, const std::function<void()>& command) {
    QAction* action = bar->addAction(IconNamed(icon), toolTip);
    connect(action, &QAction::triggered, this, [this, command] { Run(command); });
    return action;
  };
  add("new", "New File", [this] { BeginNewModel(newModel); });
  add("open", "Open File", [this] { Edit("Open", [] { openModel(""); }); });
  add("save", "Save File", SaveFromMenu);
  bar->addSeparator();
  add("bracefold", "Bracefold", [this] { Graph->mnuGenerator_Click(); });
  add("analyse", "Run Analysis", [this] { runAnalysis(); });
  add("picture", "Save Truss Display as Picture", [this] { SavePicture(); });
  add("options", "Options Box", [this] { ShowOptions(); });
  bar->addSeparator();
  add("about", "About", [this] { frmAbout(this).exec(); });
  addToolBar(bar);
}

void frmMain::BuildCentre() {
  Centre = new MainCentre(*this, [this](bool zoomToExtents) { Redraw(zoomToExtents); });
  CBpic = &Centre->Board();
  setCentralWidget(Centre);
  OnSignal(&Centre->Children(), &QMdiArea::subWindowActivated, this,
           [this](QMdiSubWindow* active) { ShowMenus(active); });
}

/// Keys that stand in the captions of their menu entries and not in the menu's own column of keys.
void frmMain::ConnectKeys() {
  const auto connectKey = [this](Qt::Key key, const std::function<void()>& command) {
    OnSignal(new QShortcut(key, this), &QShortcut::activated, this, [this, command] { Run(command); });
  };
  connectKey(Qt::Key_F3, [this] { ZoomOut(); });
  connectKey(Qt::Key_F4, [this] { Redraw(true); });
  OnSignal(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] {
    if (!Graph->CancelDrag()) Run([this] { Graph->LeaveMode(); });
  });
}

void frmMain::AddHistoryActions(MenuBuilder& build, QMenu& menu) {
  QAction* undo = build.Add(menu, "mnuUndo", "&Undo", QKeySequence::Undo, [this] { History.Undo(); });
  QAction* redo = build.Add(menu, "mnuRedo", "&Redo", QKeySequence::Redo, [this] { History.Redo(); });
  addActions({undo, redo}); // for the keys, whichever child window is active
  const QUndoStack* steps = &History.Steps();
  const auto show = [steps, undo, redo] {
    undo->setText(("&Undo " + steps->undoText()).trimmed());
    redo->setText(("&Redo " + steps->redoText()).trimmed());
    undo->setEnabled(steps->canUndo());
    redo->setEnabled(steps->canRedo());
  };
  connect(steps, &QUndoStack::indexChanged, undo, show);
  show();
}

void frmMain::ShowMenus(QMdiSubWindow* active) {
  if (Graph == nullptr || Ending) return;
  menuBar()->clear();
  const bool equations = active != nullptr && active == EquationsWindow;
  for (QMenu* menu : equations ? EquationMenus : GraphMenus) menuBar()->addMenu(menu);
}

void frmMain::MDIForm_Load() {
  AnalysisDone = FlagFalse;
  TheDisplay.Layers = CBpic->Layers();
  KeepView = false;
  ShowDeflectedShape = false;
  ShowMemberForces = false;
  ShowReactions = false;
  MemberCount = 0;
  NodeCount = 0;
  NodeTable.Recreate(NodeCount);
  MemberTable.Recreate(MemberCount);
  TakeOptions();
  initGrids();
  Equations = new frmEquations(*this);
  EquationMenus = BuildEquationMenus(*this, *Equations);
  EquationsWindow = Centre->Children().AddChild(*Equations, EquationsShare);
  Graph = new frmGraph(*this, *stsBar);
  GraphMenus = BuildGraphMenus(*this, *Graph);
  GraphWindow = Centre->Children().AddChild(*Graph, DisplayShare);
  ActivateDisplay();
  Graph->Load();
  DisplaySurface = &Graph->Surface();
  SetViewWindow(*DisplaySurface, -1.0F, 10.0F, 0.0F, 3.0F);
  ShowStatusTexts();
  Live->ShowState();
  Redraw(false);
  RecoveryKeeper::ShowWhatWasLeft();
}

void frmMain::runAnalysis() {
  CommitPendingEdit();
  Check->JudgeAfter([this] { Analyse(); });
}

void frmMain::Analyse() {
  if (!strutwright::runAnalysis()) return;
  Board->TickResultSwitches(true);
  Redraw(false);
  OfferClearDrawing();
}

void frmMain::OfferClearDrawing() {
  const bool described = TheDisplay.Style == DrawingStyle::Described;
  stsBar->OfferClearDrawing(described && PrintsOverItself(*DisplaySurface, ViewOfDisplay()));
}

void frmMain::EndAnalysis(bool redraw) {
  strutwright::EndAnalysis();
  if (redraw) Redraw(false);
}

void frmMain::LeaveResults() {
  DropOffer();
  if (IsLive()) {
    Board->ShowTickedResults();
  } else {
    Board->TickResultSwitches(false);
  }
  Check->Drop();
  ShowStatusTexts();
}

void frmMain::ShowStatusTexts() {
  if (Graph != nullptr) Graph->stsBarUpdate();
  Check->ShowStatus();
}

void frmMain::ResetEquations() {
  if (Equations != nullptr) Equations->Reset();
}

void frmMain::ForgetParts() {
  TheDisplay.Selected.Clear();
  if (Graph != nullptr) Graph->EndWalk();
}

void frmMain::SetCaption(const std::string& caption) {
  Caption = QString::fromStdString(caption);
  setWindowTitle(Caption);
}

void frmMain::ShowRecentFiles() {
  for (RecentFilesMenu* list : RecentLists) list->Refresh();
}

void frmMain::AnimateDSD() { Board->Animate(); }

void frmMain::OpenModel(const std::string& path) {
  Run([&] { Edit("Open", [&] { OpenNamed(path); }); });
}

void frmMain::initGrids() { strutwright::initGrids(); }

void frmMain::EndProgram() { close(); }

void frmMain::addNode(float x, float y) { strutwright::addNode(x, y); }

void frmMain::AddMember(std::int16_t i, std::int16_t j) { strutwright::AddMember(i, j); }

void frmMain::resultGrids() { strutwright::resultGrids(); }

void frmMain::ReleaseCommands() {
  Holds = false;
  BeforeDrag.reset();
  for (const auto& command : std::exchange(Waiting, {})) Run(command);
}

void frmMain::FollowDrag() {
  if (IsLive()) return Live->FollowDrag();
  if (AnalysisDone != FlagFalse) BeforeDrag.emplace(*Board);
  EndAnalysis(false);
  RebuildModelFromGrids();
  RedrawWhatCanBeDrawn(false);
}

void frmMain::TakeBackDrag() {
  if (IsLive()) return Live->FollowDrag();
  RebuildModelFromGrids();
  if (BeforeDrag) BeforeDrag->PutBack(*Board);
  ShowStatusTexts();
  RedrawWhatCanBeDrawn(false);
}

void frmMain::Run(const std::function<void()>& command) {
  if (Holds) return Waiting.push_back(command);
  Guard([&] {
    CommitPendingEdit();
    command();
  });
  Guard([this] { Live->Follow(); });
  Recovery.NoteChange();
}

void frmMain::Edit(const QString& what, const std::function<void()>& command) {
  History.Run(what, command);
  Live->Follow();
}

void frmMain::SwitchLive(bool on) { Live->Switch(on); }

void frmMain::FollowEquations() {
  if (Equations != nullptr) Equations->Follow();
}

void frmMain::BeginNewModel(void (*command)()) {
  Edit("New", command);
  CBpic->viewOpt[0]->setChecked(true);
  CBpic->GrJointsView->setFocus();
}

void frmMain::CommitPendingEdit() { CBpic->grTxtBox->Commit(); }

/// At the start the title is the program's name.
std::string frmMain::ModelName() const { return Caption == ProgramTitle ? "Untitled" : Caption.toStdString(); }

void frmMain::ShowOptions() { frmOptions(*this).exec(); }

void frmMain::ActivateDisplay() { Centre->Children().setActiveSubWindow(GraphWindow); }

void frmMain::ActivateEquations() { Centre->Children().setActiveSubWindow(EquationsWindow); }

void frmMain::ShowCheck() { Check->Open(EquationsWindow->mapToGlobal(QPoint(0, 0))); }

/// Every step that changes a text of the grids comes here, undone ones too.
void frmMain::ShowEntryNote() {
  std::string note = RowGapText();
  const std::string missing = MissingNodeText();
  if (!note.empty() && !missing.empty()) note += " ";
  note += missing;
  if (note.empty()) note = LiveMotionText();
  stsBar->ShowNote(QString::fromStdString(note));
}

void frmMain::SavePicture() {
  savePicture([this](const std::string& path) { Truss->WritePicture(path); });
}

/// Puts the truss on screen as it has been drawn, and what depends on the model with it.
void frmMain::ShowDrawing() {
  if (Graph != nullptr) {
    Graph->DrawSelected();
    Graph->ShowDrawing();
  }
  if (Equations != nullptr) Equations->ShowStepToCome();
  if (Tools != nullptr) Tools->Follow();
}

void frmMain::ChooseRowOf(Element element) {
  Rows->Choose(element);
  if (Equations != nullptr) Equations->ChooseQuestionOf(element);
}

void frmMain::MarkElements(std::vector<Element> elements) {
  if (Graph != nullptr && !Ending) Graph->Mark(std::move(elements));
}

void frmMain::RestorePlace() {
  if (TakeFramePlace(*this, *Centre)) Live->Switch(true);
}

void frmMain::closeEvent(QCloseEvent* event) {
  Guard([this] { CommitPendingEdit(); });
  Recovery.KeepNow();
  try {
    KeepFramePlace(*this, *Centre);
  } catch (const FileError&) {
    // No reason to hold the user up: the next start uses the place before.
  }
  Ending = true;
  Board->StopClock();
  QMainWindow::closeEvent(event);
  QCoreApplication::quit();
}

void frmMain::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  Guard([this] { RedrawWhatCanBeDrawn(true); });
}

} // namespace strutwright
