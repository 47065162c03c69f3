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
    QTimer::singleShot(0, [this, drive] {
      --waiting;
      auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr) << "another dialog than the test expected, or none";
      static_cast<void>(QTest::qWaitForWindowActive(dialog));
      drive(*dialog);
      // A button that is pressed by its key stays down for a moment.
      if (QTest::qWaitFor([dialog] { return !dialog->isVisible(); })) return;
      ADD_FAILURE() << "The dialog is still open";
      dialog->reject();
    });
  }

 private:
  OffscreenApplication application;
  int waiting = 0;
};

} // namespace strutwright
