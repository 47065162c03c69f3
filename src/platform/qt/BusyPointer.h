#pragma once

#include <QCursor>
#include <QGuiApplication>
#include <QThread>

namespace strutwright {

/// Shows the busy pointer while it lives.  Work on another thread leaves the pointer alone.
class BusyPointer {
 public:
  BusyPointer() {
    if (IsOfWindows) QGuiApplication::setOverrideCursor(Qt::BusyCursor);
  }
  ~BusyPointer() {
    if (IsOfWindows) QGuiApplication::restoreOverrideCursor();
  }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  const bool IsOfWindows = QThread::currentThread() == QCoreApplication::instance()->thread();
};

} // namespace strutwright
