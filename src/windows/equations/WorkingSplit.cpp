#include "WorkingSplit.h"

#include "EventGuard.h"
#include "WorkingPane.h"

#include <QResizeEvent>

namespace strutwright {

namespace {

constexpr int WideEnough = 860; // pixels: room for K of four nodes and for a member's matrices beside it
constexpr int HighEnough = 320; // pixels: room for K and, under it, for some lines of the working

} // namespace

WorkingSplit::WorkingSplit(QWidget* grids, WorkingPane* pane, QWidget* parent)
    : QSplitter(Qt::Vertical, parent), Pane(pane) {
  setObjectName("splWorking");
  setChildrenCollapsible(false);
  addWidget(grids);
  addWidget(Pane);
  ShowWhereThereIsRoom();
  TakeShares();
  OnSignal(this, &QSplitter::splitterMoved, this, [this] { KeepShares(); });
}

void WorkingSplit::ShowPane(bool on) {
  TheWorkingPlace.shown = on;
  ShowWhereThereIsRoom();
}

void WorkingSplit::ShowWhereThereIsRoom() {
  Pane->setVisible(TheWorkingPlace.shown && (width() >= WideEnough || height() >= HighEnough));
}

void WorkingSplit::TakeShares() {
  const QByteArray kept = orientation() == Qt::Horizontal ? TheWorkingPlace.beside : TheWorkingPlace.under;
  if (!kept.isEmpty() && restoreState(kept)) return;
  const int room = orientation() == Qt::Horizontal ? width() : height();
  setSizes({room * 3 / 5, room - room * 3 / 5});
}

void WorkingSplit::KeepShares() {
  (orientation() == Qt::Horizontal ? TheWorkingPlace.beside : TheWorkingPlace.under) = saveState();
}

void WorkingSplit::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  const Qt::Orientation fitting = event->size().width() >= WideEnough ? Qt::Horizontal : Qt::Vertical;
  if (fitting != orientation()) {
    setOrientation(fitting);
    TakeShares();
  }
  ShowWhereThereIsRoom();
}

} // namespace strutwright
