#pragma once

#include "DisplayArea.h"
#include "FormFixture.h"

#include <functional>

#include <QMenu>
#include <QTimer>

namespace strutwright {

/// Real mouse events over the drawing, at world points.
class DisplayFormTest : public FormTest {
 protected:
  DisplayArea& Area() { return static_cast<DisplayArea&>(Find<QWidget>("Disp")); }
  QPoint At(double x, double y) { return Area().Surface().ToPixel(x, -y).toPoint(); }

  /// Does something in the pop-up menu as soon as it is open.
  void InPopUp(const std::function<void(QMenu&)>& work) {
    auto* menu = frame->findChild<QMenu*>("mnuPopUp");
    auto* watch = new QTimer(menu);
    QObject::connect(watch, &QTimer::timeout, menu, [menu, watch, work] {
      if (!menu->isVisible()) return;
      watch->deleteLater();
      work(*menu);
      menu->close();
    });
    watch->start(1);
  }
};

} // namespace strutwright
