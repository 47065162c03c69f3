#include "DisplayArea.h"

#include "EventGuard.h"

#include <optional>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace strutwright {

namespace {

constexpr double WheelNotch = 120; // eighths of a degree that Qt gives for a notch
constexpr int FocusFrame = 2;      // pixels, of which half lies outside

/// Nothing for keys that don't move the view, with Ctrl or Alt none does.
std::optional<ViewMove> MoveOf(const QKeyEvent& key) {
  if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return std::nullopt;
  switch (key.key()) {
  case Qt::Key_Left: return ViewMove::Left;
  case Qt::Key_Right: return ViewMove::Right;
  case Qt::Key_Up: return ViewMove::Up;
  case Qt::Key_Down: return ViewMove::Down;
  case Qt::Key_Plus:
  case Qt::Key_Equal: return ViewMove::In; // the plus without Shift of many keyboards
  case Qt::Key_Minus: return ViewMove::Out;
  default: return std::nullopt;
  }
}

/// What the keys of the walk go to; nothing for other keys.
ElementKind WalkOf(const QKeyEvent& key) {
  if ((key.modifiers() & ~Qt::ShiftModifier) != 0) return ElementKind::None;
  if (key.key() == Qt::Key_N) return ElementKind::Node;
  return key.key() == Qt::Key_M ? ElementKind::Member : ElementKind::None;
}

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
  setFocusPolicy(Qt::StrongFocus);
}

/// Qt asks for a tip when the mouse has rested for a while.
bool DisplayArea::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& rest = static_cast<const QHelpEvent&>(*event);
  Guard([&] { Listener.MouseRested(At(rest.pos(), Qt::NoButton, {}), rest.globalPos()); });
  return true;
}

void DisplayArea::paintEvent(QPaintEvent* /*event*/) {
  // Onto a screen of another density the window comes without a new size.
  if (Drawing.Image().devicePixelRatio() != devicePixelRatioF()) {
    QCoreApplication::postEvent(this, new QResizeEvent(size(), size())); // the queue owns it
  }
  QPainter painter(this);
  painter.drawImage(QPoint(0, 0), Drawing.Image());
  Listener.PaintOver(painter);
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), FocusFrame));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
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

void DisplayArea::mouseDoubleClickEvent(QMouseEvent* event) {
  Guard([&] { Listener.MouseDoubleClicked(At(event->position(), event->button(), event->buttons())); });
}

void DisplayArea::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  Guard([this] { Listener.MouseLeft(); });
}

void DisplayArea::wheelEvent(QWheelEvent* event) {
  const double steps = event->angleDelta().y() / WheelNotch;
  Guard([&] { Listener.WheelTurned(At(event->position(), Qt::NoButton, event->buttons()), steps); });
  event->accept();
}

void DisplayArea::keyPressEvent(QKeyEvent* event) {
  bool taken = false;
  Guard([&] { taken = Listener.ToolKeyPressed(*event); });
  if (taken) return;
  const std::optional<ViewMove> move = MoveOf(*event);
  const ElementKind walk = WalkOf(*event);
  if (move) {
    Guard([this, move] { Listener.ViewKeyPressed(*move); });
  } else if (walk != ElementKind::None) {
    const bool forward = (event->modifiers() & Qt::ShiftModifier) == 0;
    Guard([this, walk, forward] { Listener.WalkKeyPressed(walk, forward); });
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Guard([this] { Listener.OpenKeyPressed(); });
  } else {
    QWidget::keyPressEvent(event);
  }
}

void DisplayArea::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  const bool comesBack = event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
  if (!comesBack) Guard([this] { Listener.FocusLost(); });
}

MouseEvent DisplayArea::At(const QPointF& pixel, Qt::MouseButton button, Qt::MouseButtons held) const {
  const QPointF point = Drawing.ToSurface(pixel);
  const Qt::KeyboardModifiers keys = QGuiApplication::keyboardModifiers();
  return {.x = static_cast<float>(point.x()),
          .y = static_cast<float>(point.y()),
          .button = ButtonOf(button),
          .leftHeld = held.testFlag(Qt::LeftButton),
          .middleHeld = held.testFlag(Qt::MiddleButton),
          .control = keys.testFlag(Qt::ControlModifier),
          .shift = keys.testFlag(Qt::ShiftModifier)};
}

} // namespace strutwright
