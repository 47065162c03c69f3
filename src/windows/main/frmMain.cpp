#include "frmMain.h"

#include "ClearFraming.h"

#include "AnalysisState.h"
#include "ChildArea.h"
#include "ControlBoard.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "EventGuard.h"
#include "MainStatusBar.h"
#include "Platform.h"
#include "frmCheck.h"
#include "frmEquations.h"
#include "frmGraph.h"
#include "frmOptions.h"
#include "modAnimation.h"
#include "modCheck.h"
#include "modEntryGaps.h"
#include "modFileCommands.h"
#include "modGenerators.h"
#include "modGrids.h"
#include "modModelRendering.h"
#include "modModelStore.h"
#include "modMotionView.h"
#include "modOptions.h"
#include "modRedraw.h"
#include "modRunAnalysis.h"
#include "modScales.h"
#include "modViewTransform.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include <QApplication>
#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QScopedValueRollback>
#include <QSettings>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>

namespace strutwright {

namespace {

// The child windows' shares of the room above the board.
constexpr QRectF DisplayShare{0, 0, 0.56, 1};
constexpr QRectF EquationsShare{0.56, 0, 0.44, 1};

QString PlaceFile() { return QString::fromStdString(DataFolder()) + "/window.ini"; }

} // namespace

frmMain::~frmMain() {
  Ending = true;
  DisplaySurface = nullptr;
  delete Check;
  delete takeCentralWidget(); // while the frame that its parts report to is still whole
}

void frmMain::runAnalysis() {
  CommitPendingEdit();
  DropCheck();
  AddedMember = 0;
  try {
    Analyse();
  } catch (...) {
    FollowModelInCheck(); // without results
    throw;
  }
  CheckAnalysis();
}

void frmMain::Analyse() {
  const QScopedValueRollback waiting(Analysing, true);
  if (!strutwright::runAnalysis()) return;
  TickResultSwitches(true);
  Redraw(false);
}

/// The boxes are unticked while AnalysisDone still holds, so that none of them says that there are no results.
void frmMain::EndAnalysis(bool redraw) {
  HighlightedNodes.clear();
  HighlightedMembers.clear();
  TickResultSwitches(false);
  AnalysisDone = FlagFalse;
  DropCheck();
  RefreshStatusTexts();
  if (redraw) Redraw(false);
}

void frmMain::AnimateDSD() { StartAnimation(*CBpic->udDeflectionScale); }

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
  EquationsWindow = Children->AddChild(*Equations, EquationsShare);
  Graph = new frmGraph(*this, *stsBar);
  GraphWindow = Children->AddChild(*Graph, DisplayShare);
  ActivateDisplay();
  Graph->Load();
  DisplaySurface = &Graph->Surface();
  SetViewWindow(*DisplaySurface, -1.0F, 10.0F, 0.0F, 3.0F);
  RefreshStatusTexts();
  Redraw(false);
  RecoveryKeeper::TellWhatWasLeft();
}

void frmMain::OpenModel(const std::string& path) {
  Run([&] { Edit("Open", [&] { OpenNamed(path); }); });
}

void frmMain::initGrids() { strutwright::initGrids(); }

void frmMain::EndProgram() { close(); }

void frmMain::addNode(float x, float y) { strutwright::addNode(x, y); }

void frmMain::AddMember(std::int16_t i, std::int16_t j) { strutwright::AddMember(i, j); }

void frmMain::resultGrids() { strutwright::resultGrids(); }

void frmMain::ZoomOut() {
  if (DisplaySurface == nullptr) return;
  EnlargeWindow(*DisplaySurface);
  Redraw(false);
}

void frmMain::Run(const std::function<void()>& command) {
  Guard([&] {
    CommitPendingEdit();
    command();
  });
  Recovery.NoteChange();
}

void frmMain::BeginNewModel(void (*command)()) {
  Edit("New", command);
  CBpic->viewOpt[0]->setChecked(true);
  CBpic->GrJointsView->setFocus();
}

void frmMain::CommitPendingEdit() { CBpic->grTxtBox->Commit(); }

/// The model is taken from the grids first, so that a row pasted meanwhile is not overwritten.
void frmMain::DrawNode(float x, float y) {
  EndAnalysis(false);
  RebuildModelFromGrids();
  addNode(x, y);
  RebuildModelFromGrids();
  Redraw(false);
}

void frmMain::DrawMember(int i, int j) {
  EndAnalysis(false);
  RebuildModelFromGrids();
  AddMember(static_cast<std::int16_t>(i), static_cast<std::int16_t>(j));
  RebuildModelFromGrids();
  Redraw(false);
}

/// At the start the title is the program's name.
std::string frmMain::ModelName() const { return Caption == ProgramTitle ? "Untitled" : Caption.toStdString(); }

void frmMain::ShowOptions() { frmOptions(*this).exec(); }

void frmMain::ActivateDisplay() { Children->setActiveSubWindow(GraphWindow); }

void frmMain::ActivateEquations() { Children->setActiveSubWindow(EquationsWindow); }

void frmMain::ShowAddedMember(int m) {
  AddedMember = m;
  AddedIn = ModelAsEntered::Now();
  RedrawWhatCanBeDrawn(false);
}

bool frmMain::HasHighlight() const {
  return AddedMember != 0 || !HighlightedNodes.empty() || !HighlightedMembers.empty();
}

void frmMain::DrawHighlight() {
  if (DisplaySurface == nullptr) return;
  if (AddedMember != 0 && !AddedIn.IsCurrent()) AddedMember = 0;
  std::vector<int> members = HighlightedMembers;
  if (AddedMember != 0) members.push_back(AddedMember);
  try {
    for (const int m : members) {
      if (m >= 1 && m <= MemberCount) strutwright::DrawMember(*DisplaySurface, m, Orange);
    }
    for (const int n : HighlightedNodes) {
      if (n >= 1 && n <= NodeCount) HighlightNode(*DisplaySurface, n, Orange);
    }
  } catch (const std::out_of_range&) {
    HighlightedMembers.clear(); // their nodes have gone since they were chosen
    AddedMember = 0;
  }
}

/// Puts the truss on screen as it has been drawn, and what depends on the model with it.
void frmMain::ShowDrawing() {
  FollowModelInCheck();
  DrawHighlight();
  if (DisplaySurface != nullptr) DrawShownMotion(*DisplaySurface);
  if (Graph != nullptr) Graph->ShowDrawing();
  if (Equations != nullptr) Equations->ShowStepToCome();
}

/// An edit shows at once.  What can't be drawn yet, such as a member whose node is still to be typed, is no reason to
/// stop the user with a box.
void frmMain::TakeCell(const std::function<bool()>& take) {
  Edit("Cell Edit", [&] {
    if (!take()) return;
    EndAnalysis(false);
    RebuildModelFromGrids();
    RedrawWhatCanBeDrawn(false);
  });
}

void frmMain::RedrawWhatCanBeDrawn(bool zoomToExtents) {
  if (Working) return;
  std::vector<std::string> failures;
  RedrawDisplay(DisplaySurface, zoomToExtents, [&failures](const std::string& text) { failures.push_back(text); });
  ShowDrawing();
  // Where there is a gap in the grids it is the reason, and the note on it says more.
  if (failures.empty() || !RowGapText().empty()) return;
  std::string hint = failures.front();
  std::replace(hint.begin(), hint.end(), '\n', ' ');
  ShowHint(hint);
}

/// Every step that changes a text of the grids comes here, undone ones too.
void frmMain::ShowEntryNote() {
  std::string note = RowGapText();
  const std::string missing = MissingNodeText();
  if (!note.empty() && !missing.empty()) note += " ";
  stsBar->ShowNote(QString::fromStdString(note + missing));
}

void frmMain::ClickResultSwitch(QCheckBox& box, bool& flag, bool& guard) {
  if (AnalysisDone != FlagFalse) {
    flag = box.isChecked();
    Redraw(false);
  } else if (guard) {
    guard = false;
  } else {
    ShowMessage(MessageIcon::Information, "No results available");
    if (!box.isChecked()) return; // taking a pending edit has ended the analysis, and unticked the box
    guard = true;
    box.setChecked(false);
  }
}

/// Sets the three flags and their boxes, without the clicks and so without a drawing for each.
void frmMain::TickResultSwitches(bool ticked) {
  ShowReactions = ticked;
  ShowMemberForces = ticked;
  ShowDeflectedShape = ticked;
  for (QCheckBox* box : {CBpic->ReactionsChk, CBpic->MbrForcesChk, CBpic->DSDchk}) {
    const QSignalBlocker silent(box);
    box->setChecked(ticked);
  }
}

void frmMain::stepDeflectionScale(bool up) {
  strutwright::stepDeflectionScale(up);
  if (AnalysisDone == FlagFalse) return;
  CBpic->lblDeflectionScale->setText(QString::fromStdString(DeflectionScaleText()));
}

void frmMain::stepLoadsScale(bool up) {
  strutwright::stepLoadsScale(up);
  CBpic->lblLoadsScale->setText(QString::fromStdString(LoadsScaleText()));
}

/// Every menu's switch of the style shows the style in force.
void frmMain::ShowStyle() {
  for (QAction* action : findChildren<QAction*>("mnuClearDrawing")) {
    action->setChecked(TheDisplay.Style == DrawingStyle::Clear);
  }
}

void frmMain::SwitchStyle() { CBpic->clearChk->toggle(); }

/// Without a load or a reaction to draw the scale stays.
void frmMain::FitArrows() {
  const std::optional<float> scale = FittingLoadsScale(ShowReactions);
  if (!scale) return;
  LoadsScale = *scale;
  ShowScales();
  Redraw(false);
}

void frmMain::ShowScales() {
  CBpic->lblDeflectionScale->setText(QString::fromStdString(DeflectionScaleText()));
  CBpic->lblLoadsScale->setText(QString::fromStdString(LoadsScaleText()));
}

void frmMain::Tick() {
  if (!Working) AnimationTick(*CBpic->udDeflectionScale);
}

void frmMain::ShowGrid(int index) {
  CBpic->ShowGrid(index);
  const std::array<Grid*, 4> grids{&GrJoints, &GrMembers, &jResGr, &mResGr};
  menuGrid = grids.at(static_cast<std::size_t>(index));
  EnableGridActions();
}

void frmMain::OpenGridMenu(DataGridView& view, const QPoint& place) {
  menuGrid = &view.Data();
  EnableGridActions();
  mnuGrid->popup(place);
}

void frmMain::EnableGridActions() {
  const QList<QAction*> actions = mnuGrid->actions();
  for (qsizetype entry = 0; entry < actions.size(); ++entry) {
    actions[entry]->setEnabled(IsEnabled(GridMenu.at(static_cast<std::size_t>(entry)).command, *menuGrid));
  }
}

void frmMain::HideBoard() {
  CBpic->hide();
  Centre->removeWidget(BtnPic);
  Centre->addWidget(BtnPic);
  BtnPic->show();
  Redraw(false);
}

void frmMain::ShowBoard() {
  CBpic->show();
  BtnPic->hide();
  Centre->removeWidget(BtnPic);
  Centre->insertWidget(0, BtnPic);
  // The drawing is framed in the room that the board leaves it.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  Redraw(true);
}

/// Where the place is not known, or the file says nothing of use, the frame stays as it is.
void frmMain::RestorePlace() {
  const QSettings place(PlaceFile(), QSettings::IniFormat);
  restoreGeometry(place.value("geometry").toByteArray());
  BoardSplitter->restoreState(place.value("board").toByteArray());
  CBpic->clearChk->setChecked(place.value("clear").toBool());
}

/// A place that can't be kept is no reason to hold the user up.
void frmMain::SavePlace() {
  Files().CreateFolder(DataFolder());
  QSettings place(PlaceFile(), QSettings::IniFormat);
  place.setValue("geometry", saveGeometry());
  place.setValue("board", BoardSplitter->saveState());
  place.setValue("clear", CBpic->clearChk->isChecked());
}

void frmMain::closeEvent(QCloseEvent* event) {
  Guard([this] { CommitPendingEdit(); });
  Recovery.KeepNow();
  try {
    SavePlace();
  } catch (const FileError&) {
    // The next start uses the place before.
  }
  Ending = true;
  Timer1.stop();
  QMainWindow::closeEvent(event);
  QCoreApplication::quit();
}

void frmMain::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  Guard([this] { RedrawWhatCanBeDrawn(true); });
}

} // namespace strutwright
