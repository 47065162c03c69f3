#include "LivePresenter.h"

#include "BoardController.h"
#include "CheckPresenter.h"
#include "EventGuard.h"
#include "MainStatusBar.h"
#include "Platform.h"
#include "WorkbenchState.h"
#include "frmMain.h"
#include "modLive.h"

#include <QAction>
#include <QElapsedTimer>

namespace strutwright {

namespace {

constexpr int Pause = 150; // ms without an event

} // namespace

LivePresenter::LivePresenter(frmMain& frame, BoardController& board, CheckPresenter& check, MainStatusBar& status)
    : Frame(frame), Board(board), Check(check), Status(status) {
  CheckTimer.setParent(&Frame);
  CheckTimer.setObjectName("LiveCheckTimer");
  CheckTimer.setSingleShot(true);
  OnSignal(&CheckTimer, &QTimer::timeout, &Frame, [this] {
    Judge();
    Frame.RedrawWhatCanBeDrawn(false);
  });
}

void LivePresenter::Switch(bool on) {
  SwitchLive(on);
  if (on) {
    Board.TickResultsForLive();
  } else {
    CheckTimer.stop();
    Check.HideMotion();
  }
  ShowState();
  Frame.ShowEntryNote();
  Frame.RedrawWhatCanBeDrawn(false);
}

void LivePresenter::ShowState() {
  Status.ShowLive(LiveText());
  for (QAction* action : Frame.findChildren<QAction*>("mnuLive")) action->setChecked(TheLive.on);
}

void LivePresenter::Resume() {
  ResumeLive();
  ShowState();
}

void LivePresenter::Follow() {
  if (!IsLive() || Analysing || Frame.IsWorking() || !Frame.IsLoaded() || LiveIsUpToDate()) return;
  FollowDrag();
}

void LivePresenter::FollowDrag() {
  if (Analysing || Frame.IsWorking()) return;
  Analysing = true;
  try {
    Analyse();
  } catch (...) {
    Analysing = false;
    throw;
  }
  Analysing = false;
}

/// A check that takes long runs when nothing has happened for a while.
void LivePresenter::Analyse() {
  AnalyseLive();
  Board.ShowTickedResults();
  if (CheckTime > TheLive.checkTime) {
    CheckTimer.start(Pause);
  } else {
    Judge();
  }
  Frame.FollowEquations();
  Frame.RedrawWhatCanBeDrawn(false);
  if (!IsLive()) SayThatItPauses();
  ShowState();
}

void LivePresenter::SayThatItPauses() {
  ShowHint("Live pauses, since an analysis of this truss takes too long: Tools > Renumber Nodes Along the Span "
           "may make it faster");
}

void LivePresenter::Judge() {
  QElapsedTimer clock;
  clock.start();
  Check.JudgeQuietly();
  CheckTime = static_cast<double>(clock.nsecsElapsed()) / 1e6;
  Frame.ShowEntryNote();
}

} // namespace strutwright
