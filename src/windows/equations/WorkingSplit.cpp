#include "WorkingSplit.h"

#include "EventGuard.h"
#include "WorkingPane.h"

#include <algorithm>

#include <QResizeEvent>

namespace strutwright {

namespace {

constexpr int WideEnough = 860; // pixels: room for K of four nodes and for a member's matrices beside it
constexpr int HighEnough = 320; // pixels: room for K and, under it, for some lines of the working

} // namespace

WorkingSplit::WorkingSplit(QWidget* grids, WorkingPane* pane, QWidget* parent)
    : QSplitter(Qt::Vertical, parent), Grids(grids), Pane(pane) {
  setObjectName("splWorking");
  setChildrenCollapsible(false);
  addWidget(Grids);
  addWidget(Pane);
  ShowWhatHasRoom();
  TakeShares();
  OnSignal(this, &QSplitter::splitterMoved, this, [this] { KeepShares(); });
}

void WorkingSplit::ShowPane(bool on) {
  TheWorkingPlace.shown = on;
  ShowWhatHasRoom();
}

void WorkingSplit::PreferPane(bool pane) {
  PrefersPane = pane;
  ShowWhatHasRoom();
}

void WorkingSplit::FitGrids(int width) {
  if (width == FittingWidth) return;
  FittingWidth = width;
  if (orientation() == Qt::Horizontal) TakeShares();
}

bool WorkingSplit::HasRoomForBoth() const { return width() >= WideEnough || height() >= HighEnough; }

void WorkingSplit::ShowWhatHasRoom() {
  const bool showsPane = TheWorkingPlace.shown && (HasRoomForBoth() || PrefersPane);
  Pane->setVisible(showsPane);
  Grids->setVisible(!showsPane || HasRoomForBoth());
}

void WorkingSplit::TakeShares() {
  const bool isBeside = orientation() == Qt::Horizontal;
  const QByteArray kept = isBeside ? TheWorkingPlace.beside : TheWorkingPlace.under;
  if (!kept.isEmpty() && restoreState(kept)) return;
  const int room = isBeside ? width() : height();
  const int most = room * 3 / 5;
  const int grids = isBeside && FittingWidth > 0 ? std::min(FittingWidth, most) : most;
  setSizes({grids, room - grids});
}

void WorkingSplit::KeepShares() {
  (orientation() == Qt::Horizontal ? TheWorkingPlace.beside : TheWorkingPlace.under) = saveState();
}

void WorkingSplit::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  const Qt::Orientation fitting = event->size().width() >= WideEnough ? Qt::Horizontal : Qt::Vertical;
  const bool turns = fitting != orientation();
  if (turns) setOrientation(fitting);
  if (turns || fitting == Qt::Horizontal) TakeShares();
  ShowWhatHasRoom();
  if (Listener) Guard(Listener);
}

} // namespace strutwright
