#include "DisplayArea.h"

#include "EventGuard.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>

namespace strutwright {

namespace {

constexpr double WheelNotch = 120; // eighths of a degree that Qt gives for a notch

MouseButton ButtonOf(Qt::MouseButton button) {
  switch (button) {
  case Qt::LeftButton: return MouseButton::Left;
  case Qt::RightButton: return MouseButton::Right;
  case Qt::MiddleButton: return MouseButton::Middle;
  default: return MouseButton::None;
  }
}

} // namespace

DisplayArea::DisplayArea(DisplayListener& listener, QWidget* parent)
    : QWidget(parent), Listener(listener), Drawing(width(), height(), devicePixelRatioF()) {
  setObjectName("Disp");
  setAccessibleName("Truss display");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::ClickFocus);
}

void DisplayArea::paintEvent(QPaintEvent* /*event*/) {
  // Onto a screen of another density the window comes without a new size.
  if (Drawing.Image().devicePixelRatio() != devicePixelRatioF()) {
    QCoreApplication::postEvent(this, new QResizeEvent(size(), size())); // the queue owns it
  }
  QPainter(this).drawImage(QPoint(0, 0), Drawing.Image());
}

void DisplayArea::resizeEvent(QResizeEvent* /*event*/) {
  Guard([this] {
    Drawing.Resize(width(), height(), devicePixelRatioF());
    Listener.Resized();
  });
}

void DisplayArea::mouseMoveEvent(QMouseEvent* event) {
  Guard([&] { Listener.MouseMoved(At(event->position(), Qt::NoButton, event->buttons())); });
}

void DisplayArea::mousePressEvent(QMouseEvent* event) {
  Guard([&] { Listener.MousePressed(At(event->position(), event->button(), event->buttons())); });
}

void DisplayArea::mouseReleaseEvent(QMouseEvent* event) {
  Guard([&] { Listener.MouseReleased(At(event->position(), event->button(), event->buttons())); });
}

/// To a mouse mode two quick clicks are two clicks.
void DisplayArea::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

void DisplayArea::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  Guard([this] { Listener.MouseLeft(); });
}

void DisplayArea::wheelEvent(QWheelEvent* event) {
  const double steps = event->angleDelta().y() / WheelNotch;
  Guard([&] { Listener.WheelTurned(At(event->position(), Qt::NoButton, event->buttons()), steps); });
  event->accept();
}

MouseEvent DisplayArea::At(const QPointF& pixel, Qt::MouseButton button, Qt::MouseButtons held) const {
  const QPointF point = Drawing.ToSurface(pixel);
  return {.x = static_cast<float>(point.x()),
          .y = static_cast<float>(point.y()),
          .button = ButtonOf(button),
          .leftHeld = held.testFlag(Qt::LeftButton),
          .middleHeld = held.testFlag(Qt::MiddleButton)};
}

} // namespace strutwright
