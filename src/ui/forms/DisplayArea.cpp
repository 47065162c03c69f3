#include "DisplayArea.h"

#include "EventGuard.h"

#include <QPainter>

namespace strutwright {

DisplayArea::DisplayArea(QWidget* parent) : QWidget(parent), Drawing(width(), height(), devicePixelRatioF()) {
  setObjectName("Disp");
  setAccessibleName("Truss display");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::ClickFocus);
}

void DisplayArea::paintEvent(QPaintEvent* /*event*/) {
  // Onto a screen of another density the window comes without a new size.
  if (Drawing.Image().devicePixelRatio() != devicePixelRatioF()) {
    QMetaObject::invokeMethod(
        this, [this] { resizeEvent(nullptr); }, Qt::QueuedConnection);
  }
  QPainter(this).drawImage(QPoint(0, 0), Drawing.Image());
}

void DisplayArea::resizeEvent(QResizeEvent* /*event*/) {
  Guard([this] {
    Drawing.Resize(width(), height(), devicePixelRatioF());
    if (ResizeListener) ResizeListener();
  });
}

} // namespace strutwright
