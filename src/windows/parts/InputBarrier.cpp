#include "InputBarrier.h"

#include <QApplication>
#include <QEvent>

namespace strutwright {

namespace {

bool IsInput(QEvent::Type type) {
  switch (type) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseMove:
  case QEvent::Wheel:
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::Shortcut:
  case QEvent::ShortcutOverride:
  case QEvent::ContextMenu: return true;
  default: return false;
  }
}

} // namespace

InputBarrier::InputBarrier(const QWidget* exception) : Exception(exception) { qApp->installEventFilter(this); }

InputBarrier::~InputBarrier() {
  qApp->removeEventFilter(this);
  if (CloseLater) QMetaObject::invokeMethod(CloseLater, "close", Qt::QueuedConnection);
}

bool InputBarrier::eventFilter(QObject* watched, QEvent* event) {
  // A shortcut comes to its action, whichever widget has the focus.
  if (event->type() == QEvent::Shortcut) return true;
  if (!watched->isWidgetType()) return false; // a window hands its input on to its widgets
  auto* widget = static_cast<QWidget*>(watched);
  const bool frame = widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog;
  if (event->type() == QEvent::Close && frame) {
    CloseLater = widget;
    event->ignore();
    return true;
  }
  return widget != Exception && IsInput(event->type());
}

} // namespace strutwright
