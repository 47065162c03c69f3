#include "frmEquations.h"

#include "BusyPointer.h"
#include "EquationGridView.h"
#include "EquationsState.h"
#include "EventGuard.h"
#include "Menus.h"
#include "Platform.h"
#include "TryPanel.h"
#include "WorkingPane.h"
#include "WorkingSplit.h"
#include "frmMain.h"
#include "modEquationCopy.h"
#include "modEquationSteps.h"
#include "modEquationTexts.h"
#include "modExercise.h"
#include "modLive.h"
#include "modWorking.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr int Spacing = 6; // pixels
constexpr int ButtonsInARow = 4;
constexpr int WordLines = 2;
constexpr int WideWindow = 860; // pixels
constexpr int OriginLines = 2;

} // namespace

frmEquations::frmEquations(frmMain& frame) : Frame(frame) {
  setObjectName("frmEquations");
  setWindowTitle("Stiffness Equations");
  TheEquations = EquationsState{};
  SwitchExercise(false);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(Spacing, Spacing, Spacing, Spacing);
  whole->setSpacing(Spacing);
  whole->addLayout(BuildButtons());
  BuildTryIt();
  whole->addLayout(BuildWords());
  whole->addWidget(Try);
  whole->addWidget(BuildWorking(BuildGrids()), 1);
  lblOrigin = AddLine("lblOrigin", "Where the selected cell of K comes from", OriginLines);
  whole->addWidget(lblOrigin);
  BuildMenus();
  Reset();
}

QLayout* frmEquations::BuildButtons() {
  btnShowForces = AddStep("btnShowForces", "Show Force", "Shows the load vector", StepShowForces);
  btnAddMember = AddStep("btnAddMember", "Add Member 1", "Adds the next member to the stiffness matrix", StepAddMember);
  btnStepBack = AddStep("btnStepBack", "Step Back", "Undoes the last press", StepBack);
  auto* buttons = new QGridLayout;
  buttons->setSpacing(Spacing);
  int place = 0;
  for (QPushButton* each :
       {btnShowForces, btnAddMember,
        AddStep("btnShowGlobalK", "Show Global K", "Assembles the whole stiffness matrix", StepShowGlobalK),
        AddStep("btnRestrict", "Restrict DOFs", "Applies the supports to the stiffness matrix", StepRestrict),
        AddStep("btnSolve", "Solve", "Solves the equations for the displacements", StepSolve),
        btnMemberForces =
            AddStep("btnMemberForces", "Member Forces",
                    "Finds the force of every member from the displacements; after Solve", StepMemberForces),
        btnReactions =
            AddStep("btnReactions", "Reactions", "Finds what the supports do to the truss; after Solve", StepReactions),
        btnStepBack}) {
    buttons->addWidget(each, place / ButtonsInARow, place % ButtonsInARow);
    ++place;
  }
  return buttons;
}

/// The two lines above the grids, with the switch beside them.
QLayout* frmEquations::BuildWords() {
  lblStepDone = AddLine("lblStepDone", "What the last step did", WordLines);
  lblStepToCome = AddLine("lblStepToCome", "What comes next", WordLines);
  auto* words = new QGridLayout;
  words->setSpacing(Spacing);
  words->addWidget(lblStepDone, 0, 0);
  words->addWidget(chkTryIt, 0, 1, Qt::AlignTop);
  words->addWidget(lblStepToCome, 1, 0, 1, 2);
  words->setColumnStretch(0, 1);
  return words;
}

void frmEquations::BuildTryIt() {
  chkTryIt = new QCheckBox("&Try It", this);
  chkTryIt->setObjectName("chkTryIt");
  chkTryIt->setToolTip("Leaves what a step changes blank and asks for it, one number after another");
  Try = new TryPanel(this, [this] { ShowQuestion(); });
  OnSignal(chkTryIt, &QCheckBox::toggled, this, [this](bool on) {
    Try->Switch(on);
    ShowQuestion();
  });
}

/// A question has been done: what was blank is shown, and the next one's cell and member.
void frmEquations::ShowQuestion() {
  ShowNumbers();
  const StepQuestion* question = CurrentQuestion();
  const bool hasMember = question != nullptr && question->member != 0;
  ShowMember(hasMember ? question->member : TheEquations.page.shownMember);
  if (question == nullptr) return;
  if (!question->cells.empty() && question->cells.front().grid == EquationGrid::Stiffness) {
    grK->scrollTo(grK->model()->index(question->cells.front().row - 1, question->cells.front().column - 1));
  }
}

void frmEquations::ShowMember(int member) {
  if (member != ShownMember) Frame.ShowAddedMember(member);
  ShownMember = member;
}

/// In a wide window a sentence needs one line only, and K gets the room.
void frmEquations::GiveWordsRoom() {
  const int lines = width() >= WideWindow ? 1 : WordLines;
  for (QLabel* each : {lblStepDone, lblStepToCome}) {
    each->setMinimumHeight(lines * each->fontMetrics().lineSpacing());
    each->setMaximumHeight(lines == 1 ? each->minimumHeight() : QWIDGETSIZE_MAX);
  }
}

void frmEquations::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  GiveWordsRoom();
}

QPushButton* frmEquations::AddStep(const QString& name, const QString& caption, const QString& toolTip,
                                   void (*step)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  OnSignal(button, &QPushButton::clicked, this, [this, step] { Press(step); });
  return button;
}

/// A text that may need more than one line; its room is kept, so that the grids stay where they are.
QLabel* frmEquations::AddLine(const QString& name, const QString& description, int lines) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setAccessibleName(description);
  label->setToolTip(description);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setMinimumHeight(lines * label->fontMetrics().lineSpacing());
  return label;
}

/// K D = P, in the order in which it is written.
QWidget* frmEquations::BuildGrids() {
  grK = AddGrid(EquationGrid::Stiffness, "grK", "Stiffness matrix K, kN/mm");
  grDisp = AddGrid(EquationGrid::Displacement, "grDisp", "Displacements D, mm");
  grForce = AddGrid(EquationGrid::Force, "grForce", "Load vector P, kN");
  ActiveGrid = grK;
  auto* grids = new QSplitter(Qt::Horizontal, this);
  grids->setChildrenCollapsible(false);
  for (EquationGridView* each : {grK, grDisp, grForce}) grids->addWidget(each);
  grids->setStretchFactor(0, 1);
  grids->setSizes({2 * width(), 1, 1}); // the matrix gets what the vectors leave
  ScrollTogether();
  return grids;
}

QWidget* frmEquations::BuildWorking(QWidget* grids) {
  txtWorking = new WorkingPane(this);
  txtWorking->SetFollower([this](const std::string& link) { FollowLink(link); });
  splWorking = new WorkingSplit(grids, txtWorking, this);
  return splWorking;
}

EquationGridView* frmEquations::AddGrid(EquationGrid grid, const QString& name, const QString& description) {
  auto* view = new EquationGridView(grid, name, this);
  view->setAccessibleName(description);
  view->setToolTip(description);
  view->setContextMenuPolicy(Qt::ActionsContextMenu);
  view->SetNotice([this, view] {
    if (view->hasFocus()) ActiveGrid = view;
    ShowOrigin();
  });
  return view;
}

/// A row of K, its displacement and its load belong to one equation.
void frmEquations::ScrollTogether() {
  for (EquationGridView* moved : {grK, grDisp, grForce}) {
    for (EquationGridView* other : {grK, grDisp, grForce}) {
      if (other == moved) continue;
      connect(moved->verticalScrollBar(), &QScrollBar::valueChanged, other->verticalScrollBar(), &QScrollBar::setValue);
    }
  }
}

void frmEquations::BuildMenus() {
  MenuBuilder build(*this, Frame);
  build.AddFileMenu();
  BuildEditMenu(build);
  QMenu& view = *build.AddMenu("mnuView", "&View");
  build.Add(view, "mnuTrussDisplay", "&Truss Display", {}, [this] { Frame.ActivateDisplay(); });
  QAction& working = *build.Add(
      view, "mnuWorking", "&Working", {}, [this] { ShowWorking(); },
      "Shows how the numbers of the last step come about");
  working.setCheckable(true);
  working.setChecked(TheWorkingPlace.shown);
  OnSignal(&working, &QAction::toggled, this, [this](bool on) {
    splWorking->ShowPane(on);
    if (on) OfferRoomForWorking();
  });
  QMenu& analysis = *build.AddMenu("mnuAnalysis", "&Analysis");
  build.AddAnalyse(analysis);
  build.AddCheck(analysis);
  build.AddHelpMenu();
  MenuList = build.Menus();
}

void frmEquations::BuildEditMenu(MenuBuilder& build) {
  QMenu& edit = *build.AddMenu("mnuEdit", "&Edit");
  build.Add(
      edit, "mnuGrid_Copy", "&Copy", QKeySequence::Copy, [this] { Copy(CopyCells); },
      "Copies the selected cells as they are shown");
  build.Add(
      edit, "mnuCopyFullPrecision", "Copy &Full Precision", QKeySequence("Ctrl+Shift+C"),
      [this] { Copy(CopyCellsInFullPrecision); }, "Copies every digit of the selected cells, for a spreadsheet");
  build.Add(
      edit, "mnuCopyLatex", "Copy as &LaTeX", {}, [this] { Copy(CopyCellsAsLatex); },
      "Copies the selected cells as a bmatrix");
  build.Add(
      edit, "mnuCopyOrigin", "Copy Cell &Origin", {}, [this] { CopyOrigin(); },
      "Copies the line that says where the selected cell of K comes from");
  edit.addSeparator();
  build.Add(edit, "mnuGrid_SelectAll", "Select &All", QKeySequence::SelectAll, [this] { ActiveGrid->selectAll(); });
  for (QAction* each : edit.actions()) {
    // The keys are those of the grid that has the focus: elsewhere the same keys are about other texts.
    each->setShortcutContext(Qt::WidgetShortcut);
    for (EquationGridView* grid : {grForce, grK, grDisp}) grid->addAction(each);
  }
}

void frmEquations::Press(void (*step)()) {
  Frame.Run([this, step] {
    const BusyPointer busy;
    const std::size_t before = TheEquations.past.size();
    step();
    if (IsLive()) FollowModel(); // a step back leads to the numbers of the model as it was
    if (TheEquations.past.size() > before) AskAboutLastStep();
    ShowPage();
    if (step == StepMemberForces || step == StepReactions) OfferRoomForWorking();
    if (chkTryIt->isChecked()) {
      Try->BeginQuestions();
      ShowQuestion();
    }
  });
}

void frmEquations::ShowNumbers() {
  for (EquationGridView* each : {grForce, grK, grDisp}) each->Refresh();
  btnAddMember->setText(QString::fromStdString(TheEquations.page.addMemberCaption));
  btnStepBack->setEnabled(CanStepBack());
  btnMemberForces->setEnabled(CanFindForces());
  btnReactions->setEnabled(CanFindForces());
  ShowWorking();
  lblStepDone->setText(QString::fromStdString(IsAskedForSupports() ? "The supports were applied." : StepDoneText()));
  ShowStepToCome();
  ShowOrigin();
}

void frmEquations::Follow() {
  FollowModel();
  ShowNumbers();
  Try->BeginQuestions();
}

void frmEquations::ShowPage() {
  ShowNumbers();
  const EquationPage& page = TheEquations.page;
  ShowAddedCells();
  ShowMember(page.shownMember);
}

/// What these steps find stands in the pane alone.
void frmEquations::OfferRoomForWorking() {
  if (TheWorkingPlace.shown && !txtWorking->isVisible()) {
    Frame.ShowHint("Enlarge the window of the stiffness equations to see the working");
  }
}

/// Scrolls to what the member that was just added has changed, to its first node where not all of it fits.
void frmEquations::ShowAddedCells() {
  const EquationPage& page = TheEquations.page;
  if (page.lastStep != EquationStep::AddMember || page.lastFreedoms[1] == 0) return;
  const auto [first, last] = std::minmax_element(page.lastFreedoms.begin() + 1, page.lastFreedoms.end());
  for (const int freedom : {*last, *first}) grK->scrollTo(grK->model()->index(freedom - 1, freedom - 1));
}

void frmEquations::ShowStepToCome() { lblStepToCome->setText(QString::fromStdString(StepToComeText())); }

void frmEquations::ShowOrigin() {
  if (lblOrigin == nullptr) return;
  const QModelIndex cell = grK->currentIndex();
  lblOrigin->setText(cell.isValid() ? QString::fromStdString(CellOrigin(cell.row() + 1, cell.column() + 1)) : "");
}

void frmEquations::ShowWorking() { txtWorking->ShowStep(); }

/// Shows where a number of the working comes from: in the data grids and the drawing, or in the view's own grids.
void frmEquations::FollowLink(const std::string& link) {
  const std::optional<NumberSource> source = SourceOfLink(link);
  if (!source) return;
  const auto choose = [](EquationGridView* grid, int row, int column) {
    grid->setCurrentIndex(grid->model()->index(row - 1, column - 1));
  };
  switch (source->kind) {
  case NumberSource::Kind::Node: return Frame.ShowParts({source->first}, {});
  case NumberSource::Kind::Member: return Frame.ShowParts({}, {source->first});
  case NumberSource::Kind::Stiffness: return choose(grK, source->first, source->second);
  case NumberSource::Kind::Load: return choose(grForce, source->first, 1);
  case NumberSource::Kind::Displacement: return choose(grDisp, source->first, 1);
  }
}

void frmEquations::Copy(CopyCommand copy) {
  const GridBlock block = ActiveGrid->SelectedBlock();
  if (block.lastRow >= block.firstRow) copy(ActiveGrid->Kind(), block);
}

void frmEquations::CopyOrigin() {
  if (!lblOrigin->text().isEmpty()) TheClipboard().SetText(lblOrigin->text().toStdString(), "");
}

void frmEquations::Reset() {
  ResetEquations();
  ShownMember = 0; // the new model is drawn without it
  ShowPage();
  Try->BeginQuestions();
}

void frmEquations::closeEvent(QCloseEvent* event) {
  if (Frame.IsEnding()) return event->accept();
  event->ignore();
  Guard([] { ShowMessage(MessageIcon::Critical, "Window cannot be closed"); });
}

/// A child window keeps Tab to itself unless it is asked to pass it on.
bool frmEquations::focusNextPrevChild(bool next) { return Frame.MoveFocus(next); }

} // namespace strutwright
