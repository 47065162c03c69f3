#include "frmEquations.h"

#include "BusyPointer.h"
#include "CommandFrame.h"
#include "EquationGrids.h"
#include "EquationsState.h"
#include "EventGuard.h"
#include "MenuBuilder.h"
#include "Platform.h"
#include "TryPanel.h"
#include "WorkingPane.h"
#include "WorkingSplit.h"
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

constexpr int Spacing = 5;       // pixels
constexpr int WideWindow = 860;  // pixels: all buttons fit in a row, and a sentence in a line
constexpr int ButtonsInARow = 4; // of a narrow one

} // namespace

frmEquations::frmEquations(CommandFrame& frame) : Frame(frame) {
  setObjectName("frmEquations");
  setWindowTitle("Stiffness Equations");
  TheEquations = EquationsState{};
  SwitchExercise(false);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(Spacing, Spacing, Spacing, Spacing);
  whole->setSpacing(Spacing);
  BuildButtons();
  whole->addLayout(ButtonPlaces);
  BuildTryIt();
  whole->addLayout(BuildWords());
  whole->addWidget(Try);
  whole->addWidget(BuildWorking(), 1);
  lblOrigin = AddLine("lblOrigin", "Where the selected cell of K comes from");
  whole->addWidget(lblOrigin);
  Arrange();
  Reset();
}

void frmEquations::BuildButtons() {
  ButtonPlaces = new QGridLayout;
  ButtonPlaces->setSpacing(Spacing);
  AddStep("btnShowForces", "Show Force", "Shows the load vector", StepShowForces);
  btnAddMember = AddStep("btnAddMember", "Add Member 1", "Adds the next member to the stiffness matrix", StepAddMember);
  AddStep("btnShowGlobalK", "Show Global K", "Assembles the whole stiffness matrix", StepShowGlobalK);
  AddStep("btnRestrict", "Restrict DOFs", "Applies the supports to the stiffness matrix", StepRestrict);
  AddStep("btnSolve", "Solve", "Solves the equations for the displacements", StepSolve);
  btnMemberForces = AddStep("btnMemberForces", "Member Forces",
                            "Finds the force of every member from the displacements; after Solve", StepMemberForces);
  btnReactions =
      AddStep("btnReactions", "Reactions", "Finds what the supports do to the truss; after Solve", StepReactions);
  btnStepBack = AddStep("btnStepBack", "Step Back", "Undoes the last press", StepBack);
}

/// The two lines above the grids, with the switches beside them.
QLayout* frmEquations::BuildWords() {
  lblStepDone = AddLine("lblStepDone", "What the last step did");
  lblStepToCome = AddLine("lblStepToCome", "What comes next");
  auto* words = new QGridLayout;
  words->setSpacing(Spacing);
  words->addWidget(lblStepDone, 0, 0);
  words->addWidget(chkTryIt, 0, 1, Qt::AlignTop);
  words->addWidget(lblStepToCome, 1, 0);
  words->addWidget(chkWorking, 1, 1, Qt::AlignTop);
  words->setColumnStretch(0, 1);
  return words;
}

QCheckBox* frmEquations::AddSwitch(const QString& name, const QString& caption, const QString& toolTip) {
  auto* box = new QCheckBox(caption, this);
  box->setObjectName(name);
  box->setToolTip(toolTip);
  return box;
}

void frmEquations::BuildTryIt() {
  chkTryIt = AddSwitch("chkTryIt", "&Try It", "Leaves what a step changes blank and asks for it");
  chkWorking = AddSwitch("chkWorking", "Working", "Shows the working of the last step in place of the grids");
  chkWorking->hide(); // while both have room
  Try = new TryPanel(this, [this] { ShowQuestion(); });
  OnSignal(chkWorking, &QCheckBox::toggled, this, [this] { ShowPaneOrGrids(); });
  OnSignal(chkTryIt, &QCheckBox::toggled, this, [this](bool on) {
    Try->Switch(on);
    Arrange();
    ShowPage();
  });
}

/// Shows how the questions stand, and brings the keyboard to the one that has its turn.
void frmEquations::ShowQuestion() {
  ShowNumbers();
  ShowParts();
  GoToQuestion();
}

/// When all is answered, the keyboard comes back to the step that asked.
void frmEquations::GoToQuestion() {
  const StepQuestion* question = CurrentQuestion();
  if (question == nullptr) {
    if (chkTryIt->isChecked() && Pressed != nullptr) Pressed->setFocus();
    return;
  }
  if (question->cells.empty()) return Try->GoToLine();
  EquationGridView& grid = Grids->Of(question->cells.front().grid);
  const QModelIndex now = grid.currentIndex();
  BlankCell cell = question->cells.front();
  for (const BlankCell& each : question->cells) {
    if (each.row == now.row() + 1 && each.column == now.column() + 1) cell = each;
  }
  grid.Ask(cell.row, cell.column);
}

void frmEquations::TakeAnswer(AnswerMove move) {
  if (move == AnswerMove::Judge) return Try->Answer();
  Try->Turn(move == AnswerMove::Next ? 1 : -1);
}

void frmEquations::ChooseQuestionOf(Element element) {
  const bool isAsked = (element.kind == ElementKind::Member && ChooseQuestionOfMember(element.number)) ||
                       (element.kind == ElementKind::Node && ChooseQuestionOfNode(element.number));
  if (isAsked) ShowQuestion();
}

/// Lights what the question is about, or else the member that was added last.
void frmEquations::ShowParts() {
  const StepQuestion* question = CurrentQuestion();
  const bool hasMember = question != nullptr && question->member != 0;
  ShowMember(hasMember ? question->member : TheEquations.page.shownMember);
  const int node = question != nullptr ? question->node : 0;
  if (node != AskedNode) {
    Frame.MarkElements(node != 0 ? std::vector<Element>{{ElementKind::Node, node}} : std::vector<Element>{});
  }
  AskedNode = node;
}

void frmEquations::ShowMember(int member) {
  if (member != ShownMember) Frame.ShowAddedMember(member);
  ShownMember = member;
}

/// Gives each part its place, as the width of the window allows.  In a wide one a sentence needs one line only, and K
/// gets the room; what comes next is said by Try It while that is on.
void frmEquations::Arrange() {
  const bool isWide = width() >= WideWindow;
  int place = 0;
  const int inARow = isWide ? static_cast<int>(Buttons.size()) : ButtonsInARow;
  for (QPushButton* each : Buttons) {
    ButtonPlaces->addWidget(each, place / inARow, place % inARow);
    ++place;
  }
  const bool tries = chkTryIt->isChecked();
  lblStepToCome->setVisible(!tries);
  lblOrigin->setVisible(isWide || !tries);
  const int lines = isWide ? 1 : 2;
  for (QLabel* each : {lblStepDone, lblStepToCome, lblOrigin}) {
    each->setMinimumHeight(lines * each->fontMetrics().lineSpacing());
    each->setMaximumHeight(isWide ? each->minimumHeight() : QWIDGETSIZE_MAX);
  }
  Grids->SetHeaderLines(lines);
  Try->Arrange(isWide);
  Grids->Refresh();
  splWorking->FitGrids(Grids->FittingWidth());
}

void frmEquations::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Guard([this] { Arrange(); });
}

QPushButton* frmEquations::AddStep(const QString& name, const QString& caption, const QString& toolTip,
                                   void (*step)()) {
  auto* button = new QPushButton(caption, this);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  OnSignal(button, &QPushButton::clicked, this, [this, button, step] { Press(*button, step); });
  Buttons << button;
  return button;
}

/// A text that may need more than one line; its room is kept, so that the grids stay where they are.
QLabel* frmEquations::AddLine(const QString& name, const QString& description) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setAccessibleName(description);
  label->setToolTip(description);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return label;
}

QWidget* frmEquations::BuildWorking() {
  const auto chosen = [this] {
    ShowOrigin();
    Try->ShowQuestion(); // of the blank cell that has become the current one
  };
  Grids = new EquationGrids(this, chosen, [this](AnswerMove move) { TakeAnswer(move); });
  txtWorking = new WorkingPane(this);
  txtWorking->SetFollower([this](const std::string& link) { FollowLink(link); });
  splWorking = new WorkingSplit(Grids, txtWorking, this);
  splWorking->SetNotice([this] { ShowPaneOrGrids(); });
  return splWorking;
}

/// Where there is room for one of them only: the grids while a question is answered in a cell, the pane for forces and
/// reactions, which stand nowhere else.
void frmEquations::ShowPaneOrGrids() {
  const StepQuestion* question = CurrentQuestion();
  const EquationStep step = TheEquations.page.lastStep;
  const bool isInPane = step == EquationStep::MemberForces || step == EquationStep::SupportReactions;
  const bool isInCell = question != nullptr && !question->cells.empty();
  chkWorking->setVisible(TheWorkingPlace.shown && !splWorking->HasRoomForBoth());
  splWorking->PreferPane(!isInCell && (chkWorking->isChecked() || (isInPane && question == nullptr)));
}

void frmEquations::AddMenus(MenuBuilder& build) {
  BuildEditMenu(build);
  BuildViewMenu(build);
}

void frmEquations::BuildViewMenu(MenuBuilder& build) {
  QMenu& view = *build.AddMenu("mnuView", "&View");
  build.Add(view, "mnuTrussDisplay", "&Truss Display", {}, [this] { Frame.ActivateDisplay(); });
  QAction& working = *build.Add(
      view, "mnuWorking", "&Working", {}, [this] { ShowPaneOrGrids(); },
      "Shows how the numbers of the last step come about");
  working.setCheckable(true);
  working.setChecked(TheWorkingPlace.shown);
  OnSignal(&working, &QAction::toggled, this, [this](bool on) { splWorking->ShowPane(on); });
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
  build.Add(edit, "mnuGrid_SelectAll", "Select &All", QKeySequence::SelectAll, [this] { Grids->Active().selectAll(); });
  for (QAction* each : edit.actions()) {
    // The keys are those of the grid that has the focus: elsewhere the same keys are about other texts.
    each->setShortcutContext(Qt::WidgetShortcut);
    for (EquationGridView* grid : Grids->All()) grid->addAction(each);
  }
}

void frmEquations::Press(QPushButton& button, void (*step)()) {
  Frame.Run([this, &button, step] {
    const BusyPointer busy;
    const std::size_t before = TheEquations.past.size();
    step();
    if (IsLive()) FollowModel(); // a step back leads to the numbers of the model as it was
    if (TheEquations.past.size() > before) AskAboutLastStep();
    Pressed = &button;
    Try->Begin();
    ShowPage();
    GoToQuestion();
  });
}

void frmEquations::ShowNumbers() {
  Grids->Refresh();
  splWorking->FitGrids(Grids->FittingWidth());
  btnAddMember->setText(QString::fromStdString(TheEquations.page.addMemberCaption));
  btnStepBack->setEnabled(CanStepBack());
  btnMemberForces->setEnabled(CanFindForces());
  btnReactions->setEnabled(CanFindForces());
  ShowPaneOrGrids();
  txtWorking->ShowStep();
  lblStepDone->setText(QString::fromStdString(IsAskedForSupports() ? "The supports were applied." : StepDoneText()));
  ShowStepToCome();
  ShowOrigin();
}

void frmEquations::Follow() {
  FollowModel();
  Try->Begin();
  ShowNumbers();
}

void frmEquations::ShowPage() {
  ShowNumbers();
  ShowAddedCells();
  ShowParts();
}

/// Scrolls to what the member that was just added has changed, to its first node where not all of it fits.
void frmEquations::ShowAddedCells() {
  const EquationPage& page = TheEquations.page;
  if (page.lastStep != EquationStep::AddMember || page.lastFreedoms[1] == 0) return;
  const auto [first, last] = std::minmax_element(page.lastFreedoms.begin() + 1, page.lastFreedoms.end());
  EquationGridView& K = Grids->Of(EquationGrid::Stiffness);
  for (const int freedom : {*last, *first}) K.scrollTo(K.model()->index(freedom - 1, freedom - 1));
}

void frmEquations::ShowStepToCome() {
  lblStepToCome->setText(QString::fromStdString(StepToComeText()));
  Try->ShowQuestion();
}

void frmEquations::ShowOrigin() {
  if (lblOrigin == nullptr) return;
  const QModelIndex cell = Grids->Of(EquationGrid::Stiffness).currentIndex();
  lblOrigin->setText(cell.isValid() ? QString::fromStdString(CellOrigin(cell.row() + 1, cell.column() + 1)) : "");
}

/// Shows where a number of the working comes from: in the data grids and the drawing, or in the view's own grids.
void frmEquations::FollowLink(const std::string& link) {
  const std::optional<NumberSource> source = SourceOfLink(link);
  if (!source) return;
  const auto choose = [this](EquationGrid grid, int row, int column) {
    EquationGridView& view = Grids->Of(grid);
    view.setCurrentIndex(view.model()->index(row - 1, column - 1));
  };
  switch (source->kind) {
  case NumberSource::Kind::Node: return Frame.ShowParts({source->first}, {});
  case NumberSource::Kind::Member: return Frame.ShowParts({}, {source->first});
  case NumberSource::Kind::Stiffness: return choose(EquationGrid::Stiffness, source->first, source->second);
  case NumberSource::Kind::Load: return choose(EquationGrid::Force, source->first, 1);
  case NumberSource::Kind::Displacement: return choose(EquationGrid::Displacement, source->first, 1);
  }
}

void frmEquations::Copy(CopyCommand copy) {
  const GridBlock block = Grids->Active().SelectedBlock();
  if (block.lastRow >= block.firstRow) copy(Grids->Active().Kind(), block);
}

void frmEquations::CopyOrigin() {
  if (!lblOrigin->text().isEmpty()) TheClipboard().SetText(lblOrigin->text().toStdString(), "");
}

void frmEquations::Reset() {
  ResetEquations();
  ShownMember = 0; // the new model is drawn without it
  Try->Begin();
  ShowPage();
}

void frmEquations::closeEvent(QCloseEvent* event) {
  if (Frame.IsEnding()) return event->accept();
  event->ignore();
  Guard([] { ShowMessage(MessageIcon::Critical, "Window cannot be closed"); });
}

/// A child window keeps Tab to itself unless it is asked to pass it on.
bool frmEquations::focusNextPrevChild(bool next) { return Frame.MoveFocus(next); }

} // namespace strutwright
