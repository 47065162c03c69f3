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
  if (CloseLater)
    QMetaObject::invokeMethod(
        CloseLater, [window = CloseLater.data()] { window->close(); }, Qt::QueuedConnection);
}

bool InputBarrier::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType()) return false; // a window hands its input on to its widgets
  auto* widget = static_cast<QWidget*>(watched);
  if (event->type() == QEvent::Close) {
    CloseLater = widget;
    event->ignore();
    return true;
  }
  return widget != Exception && IsInput(event->type());
}

} // namespace strutwright
