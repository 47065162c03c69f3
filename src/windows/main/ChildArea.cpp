#include "ChildArea.h"

#include <QMdiSubWindow>
#include <QResizeEvent>

namespace strutwright {

namespace {

/// A share of an area, in pixels, so that neighbours meet without a gap.
QRect Geometry(const QRectF& share, const QSize& size) {
  const QPoint corner(qRound(share.left() * size.width()), qRound(share.top() * size.height()));
  const QPoint end(qRound(share.right() * size.width()), qRound(share.bottom() * size.height()));
  return {corner, end - QPoint(1, 1)};
}

QRectF Share(const QRect& geometry, const QSize& size) {
  const double width = size.width();
  const double height = size.height();
  return {geometry.left() / width, geometry.top() / height, geometry.width() / width, geometry.height() / height};
}

} // namespace

ChildArea::ChildArea(QWidget* parent) : QMdiArea(parent) {
  setObjectName("MdiArea");
  setAccessibleName("Child windows");
  setFocusPolicy(Qt::NoFocus);
}

QMdiSubWindow* ChildArea::AddChild(QWidget& child, const QRectF& share) {
  QMdiSubWindow* window = addSubWindow(&child);
  window->setFocusPolicy(Qt::ClickFocus); // Tab goes to what is in it
  Places.insert(window, {share, {}});
  Arrange(window, viewport()->size());
  window->show();
  return window;
}

void ChildArea::resizeEvent(QResizeEvent* event) {
  QMdiArea::resizeEvent(event);
  const QSize old = event->oldSize();
  for (QMdiSubWindow* window : subWindowList()) {
    if (window->isMaximized() || window->isMinimized() || !Places.contains(window)) continue;
    Place& place = Places[window];
    if (window->geometry() != place.geometry && !old.isEmpty()) place.share = Share(window->geometry(), old);
    Arrange(window, event->size());
  }
}

void ChildArea::Arrange(QMdiSubWindow* window, const QSize& size) {
  Place& place = Places[window];
  place.geometry = Geometry(place.share, size);
  window->setGeometry(place.geometry);
  place.geometry = window->geometry(); // which may not be smaller than its content
}

} // namespace strutwright
