#include "BracefoldFormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "TrussFixture.h"

#include <cstdlib>

#include <QColor>
#include <QImage>

namespace strutwright {

namespace {

void FailOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  // The offscreen platform has no window manager, which is nobody's fault.
  if (text.startsWith("This plugin does not support")) return;
  if (type != QtDebugMsg && type != QtInfoMsg) ADD_FAILURE() << "Qt: " << text.toStdString();
}

void EnsureApplication() {
  static int count = 1;
  static char name[] = "test_bracefold";
  static char* arguments[] = {name, nullptr};
  if (QCoreApplication::instance() != nullptr) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication* const application = new QApplication(count, arguments);
  static_cast<void>(application);
}

bool IsAbout(const QColor& pixel, const QColor& colour) {
  constexpr int tolerance = 60;
  return std::abs(pixel.red() - colour.red()) < tolerance && std::abs(pixel.green() - colour.green()) < tolerance &&
         std::abs(pixel.blue() - colour.blue()) < tolerance;
}

} // namespace

BracefoldFormTest::BracefoldFormTest() {
  EnsureApplication();
  qInstallMessageHandler(FailOnWarning);
  TheModel = ModelState{};
  TheAnalysis = AnalysisState{};
  TheDisplay = DisplayState{};
  ThePlatform().files = &disk;
  Open("pratt");
}

BracefoldFormTest::~BracefoldFormTest() {
  window.reset();
  qInstallMessageHandler(nullptr);
}

void BracefoldFormTest::Open(const std::string& family) {
  window.reset();
  window = std::make_unique<frmBracefold>(Family(family), StandardTexts(Family(family)));
  window->show();
  window->activateWindow();
  static_cast<void>(QTest::qWaitForWindowActive(window.get()));
}

void BracefoldFormTest::Type(QWidget& control, const QString& text) {
  control.setFocus();
  QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&control, Qt::Key_Delete);
  QTest::keyClicks(&control, text);
}

void BracefoldFormTest::Choose(QComboBox& box, const QString& text) {
  const int wanted = box.findText(text);
  ASSERT_GE(wanted, 0) << text.toStdString();
  box.setFocus();
  while (box.currentIndex() < wanted) QTest::keyClick(&box, Qt::Key_Down);
  while (box.currentIndex() > wanted) QTest::keyClick(&box, Qt::Key_Up);
}

int BracefoldFormTest::Ink(Qt::GlobalColor colour) {
  const QImage picture = Find<QWidget>("preview").grab().toImage();
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) count += IsAbout(picture.pixelColor(x, y), colour) ? 1 : 0;
  }
  return count;
}

} // namespace strutwright
