#pragma once

#include <QApplication>

namespace strutwright {

/// Sees to it that the test program has its one application: on the offscreen platform, with dialogs of Qt's own.
struct OffscreenApplication {
  OffscreenApplication() {
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    static int count = 1;
    static char name[] = "test_qt";
    static char* arguments[] = {name, nullptr};
    static QApplication* const application = new QApplication(count, arguments);
    static_cast<void>(application);
  }
};

} // namespace strutwright
