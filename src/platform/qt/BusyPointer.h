#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace strutwright {

/// Shows the busy pointer while it lives.
class BusyPointer {
 public:
  BusyPointer() { QGuiApplication::setOverrideCursor(Qt::BusyCursor); }
  ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

} // namespace strutwright
