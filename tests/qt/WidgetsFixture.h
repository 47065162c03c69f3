#pragma once

#include "OffscreenApplication.h"

#include <functional>
#include <string>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace strutwright {

/// Drives modal dialogs while they are open.
class WidgetsTest : public testing::Test {
 protected:
  ~WidgetsTest() override { EXPECT_EQ(waiting, 0) << "dialogs that were not shown"; }

  /// Runs `drive` on the next modal dialog; one that it leaves open fails the test and is closed.
  template <class Dialog>
  void WhenShown(const std::function<void(Dialog&)>& drive) {
    ++waiting;
    QTimer::singleShot(0, [this, drive] { Drive<Dialog>(drive, Looks); });
  }

 private:
  static constexpr int Looks = 100;

  /// looks: how often more it looks for a dialog; before the first one Windows takes its time over the disks there are.
  template <class Dialog>
  void Drive(const std::function<void(Dialog&)>& drive, int looks) {
    if (QApplication::activeModalWidget() == nullptr && looks > 0) {
      QTimer::singleShot(10, [this, drive, looks] { Drive<Dialog>(drive, looks - 1); });
      return;
    }
    --waiting;
    auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr) << "another dialog than the test expected, or none";
    static_cast<void>(QTest::qWaitForWindowActive(dialog));
    drive(*dialog);
    // A button that is pressed by its key stays down for a moment.
    if (QTest::qWaitFor([dialog] { return !dialog->isVisible(); })) return;
    ADD_FAILURE() << "The dialog is still open";
    dialog->reject();
  }

  OffscreenApplication application;
  int waiting = 0;
};

} // namespace strutwright
