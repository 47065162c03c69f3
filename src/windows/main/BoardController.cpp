#include "BoardController.h"

#include "AnalysisState.h"
#include "ClearFraming.h"
#include "ControlBoard.h"
#include "DisplayState.h"
#include "EventGuard.h"
#include "GridCommands.h"
#include "NumericKeyFilter.h"
#include "Platform.h"
#include "WorkbenchState.h"
#include "frmMain.h"
#include "modAnimation.h"
#include "modGenerators.h"
#include "modLive.h"
#include "modModelStore.h"
#include "modScales.h"

#include <cstdint>
#include <optional>
#include <string>

#include <QAction>
#include <QSignalBlocker>

namespace strutwright {

namespace {

constexpr int ClockInterval = 100; // ms

std::string TextOf(const QLineEdit* box) { return box->text().toStdString(); }

} // namespace

BoardController::BoardController(frmMain& frame, ControlBoard& board, GridCommands& grids)
    : Frame(frame), Board(board) {
  ConnectGrids(grids);
  ConnectSwitches();
  ConnectStyle();
  ConnectScales();
  ConnectLine();
  ConnectList({Board.nodeLoadBtn, "Node Load", Board.nodesTxt, &GrJoints, Board.xnlTxt, Board.ynlTxt, NodeForceX});
  ConnectList({Board.EABtn, "Member Properties", Board.memTxt, &GrMembers, Board.eTxt, Board.aTxt, MemberE});
  FilterNumericBoxes(Board);
  for (QLineEdit* box : {Board.eTxt, Board.aTxt}) {
    OnSignal(box, &QLineEdit::textChanged, &Frame, [this] { Frame.NoteRigidity(); });
  }
  StartClock();
}

void BoardController::ConnectGrids(GridCommands& grids) {
  for (std::size_t index = 0; index < Board.viewOpt.size(); ++index) {
    OnSignal(Board.viewOpt.at(index), &QRadioButton::toggled, &Frame, [this, index, &grids](bool chosen) {
      if (chosen) Frame.Run([index, &grids] { grids.ShowGrid(index); });
    });
  }
  Board.grTxtBox->SetCommitter([this](const std::function<bool()>& take) { TakeCell(take); });
}

/// An edit shows at once.  What can't be drawn yet, such as a member whose node is still to be typed, is no reason to
/// stop the user with a box.
void BoardController::TakeCell(const std::function<bool()>& take) {
  Frame.Edit("Cell Edit", [&] {
    if (!take()) return;
    EndAnalysis();
    RebuildModelFromGrids();
    Frame.RedrawWhatCanBeDrawn(false);
  });
}

void BoardController::ConnectLine() {
  OnSignal(Board.nLineBtn, &QPushButton::clicked, &Frame, [this] {
    Frame.Run([this] {
      const NodeLineTexts texts{TextOf(Board.nLineNoTxt), TextOf(Board.nLineX1Txt), TextOf(Board.nLineY1Txt),
                                TextOf(Board.nLineX2Txt), TextOf(Board.nLineY2Txt)};
      Frame.Edit("Node Line", [&] { GenerateNodeLine(texts); });
    });
  });
}

void BoardController::ConnectList(const List& list) {
  OnSignal(list.button, &QPushButton::clicked, &Frame, [this, list] {
    Frame.Run([&] {
      Frame.Edit(list.what, [&] {
        fillListedRows(TextOf(list.numbers), *list.grid, TextOf(list.value1), TextOf(list.value2), list.column,
                       list.column + 1);
      });
    });
  });
}

void BoardController::ConnectSwitches() {
  for (QCheckBox* box : {Board.SupportsChk, Board.loadsChk, Board.gridChk, Board.memberChk, Board.nodeChk}) {
    OnSignal(box, &QCheckBox::toggled, &Frame, [this] {
      TheDisplay.Layers = Board.Layers();
      Frame.Run([this] { Frame.Redraw(false); });
    });
  }
  ConnectResultSwitch(Board.ReactionsChk, ShowReactions, reactionsGuard);
  ConnectResultSwitch(Board.MbrForcesChk, ShowMemberForces, forcesGuard);
  ConnectResultSwitch(Board.DSDchk, ShowDeflectedShape, deflectedGuard);
}

void BoardController::ConnectStyle() {
  OnSignal(Board.clearChk, &QCheckBox::toggled, &Frame, [this](bool clear) {
    TheDisplay.Style = clear ? DrawingStyle::Clear : DrawingStyle::Described;
    ShowStyle();
    Frame.DropOffer();
    Frame.Run([this] { Frame.Redraw(false); });
  });
}

/// Every menu's switch of the style shows the style in force.
void BoardController::ShowStyle() {
  for (QAction* action : Frame.findChildren<QAction*>("mnuClearDrawing")) {
    action->setChecked(TheDisplay.Style == DrawingStyle::Clear);
  }
}

void BoardController::SwitchStyle() { Board.clearChk->toggle(); }

void BoardController::ConnectResultSwitch(QCheckBox* box, bool& flag, bool& guard) {
  OnSignal(box, &QCheckBox::toggled, &Frame,
           [this, box, &flag, &guard] { Frame.Run([&] { ClickResultSwitch(*box, flag, guard); }); });
}

void BoardController::ClickResultSwitch(QCheckBox& box, bool& flag, bool& guard) {
  if (AnalysisDone != FlagFalse) {
    flag = box.isChecked();
    Frame.Redraw(false);
  } else if (IsLive()) {
    return; // the box is for the results to come
  } else if (guard) {
    guard = false;
  } else {
    ShowMessage(MessageIcon::Information, "No results available");
    if (!box.isChecked()) return; // taking a pending edit has ended the analysis, and unticked the box
    guard = true;
    box.setChecked(false);
  }
}

void BoardController::TickResults(const ResultTicks& ticks) {
  const auto tick = [](QCheckBox* box, bool& flag, bool ticked) {
    const QSignalBlocker silent(box);
    box->setChecked(ticked);
    flag = ticked;
  };
  tick(Board.ReactionsChk, ShowReactions, ticks.reactions);
  tick(Board.MbrForcesChk, ShowMemberForces, ticks.memberForces);
  tick(Board.DSDchk, ShowDeflectedShape, ticks.deflectedShape);
}

ResultTicks BoardController::TickedResults() const {
  return {Board.ReactionsChk->isChecked(), Board.MbrForcesChk->isChecked(), Board.DSDchk->isChecked()};
}

void BoardController::ShowTickedResults() {
  const bool any = AnalysisDone != FlagFalse;
  ShowReactions = any && Board.ReactionsChk->isChecked();
  ShowMemberForces = any && Board.MbrForcesChk->isChecked();
  ShowDeflectedShape = any && Board.DSDchk->isChecked();
}

void BoardController::TickResultsForLive() {
  const bool none = !Board.ReactionsChk->isChecked() && !Board.MbrForcesChk->isChecked() && !Board.DSDchk->isChecked();
  if (none) TickResultSwitches(true);
  ShowTickedResults();
}

void BoardController::ConnectScales() {
  OnSignal(Board.udDeflectionScale, &QSpinBox::valueChanged, &Frame, [this](int value) {
    if (!animating) Frame.CommitPendingEdit(); // the animation lets the user go on typing
    stepDeflectionScale(SpinnerWentUp(lastDeflectionSpin, static_cast<std::int16_t>(value)));
  });
  OnSignal(Board.udLoadsScale, &QSpinBox::valueChanged, &Frame, [this](int value) {
    Frame.CommitPendingEdit();
    stepLoadsScale(SpinnerWentUp(lastLoadsSpin, static_cast<std::int16_t>(value)));
  });
  OnSignal(Board.animateBtn, &QPushButton::clicked, &Frame, [this] { Frame.Run([this] { Frame.AnimateDSD(); }); });
}

void BoardController::stepDeflectionScale(bool up) {
  strutwright::stepDeflectionScale(up);
  if (AnalysisDone == FlagFalse) return;
  Board.lblDeflectionScale->setText(QString::fromStdString(DeflectionScaleText()));
}

void BoardController::stepLoadsScale(bool up) {
  strutwright::stepLoadsScale(up);
  Board.lblLoadsScale->setText(QString::fromStdString(LoadsScaleText()));
}

void BoardController::ResetScales() {
  strutwright::ResetScales();
  ShowScales();
}

/// Without a load or a reaction to draw the scale stays.
void BoardController::FitArrows() {
  const std::optional<float> scale = FittingLoadsScale(ShowReactions);
  if (!scale) return;
  LoadsScale = *scale;
  ShowScales();
  Frame.Redraw(false);
}

void BoardController::ShowScales() {
  Board.lblDeflectionScale->setText(QString::fromStdString(DeflectionScaleText()));
  Board.lblLoadsScale->setText(QString::fromStdString(LoadsScaleText()));
}

void BoardController::Animate() { StartAnimation(*Board.udDeflectionScale); }

void BoardController::StartClock() {
  Timer1.setObjectName("Timer1");
  Timer1.setParent(&Frame);
  OnSignal(&Timer1, &QTimer::timeout, &Frame, [this] { Tick(); });
  Timer1.start(ClockInterval);
}

void BoardController::Tick() {
  if (!Frame.IsWorking()) AnimationTick(*Board.udDeflectionScale);
}

} // namespace strutwright
