#include "FormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "FileState.h"
#include "RecentFiles.h"
#include "WorkbenchState.h"
#include "modModelStore.h"

#include <cstdlib>

#include <QColor>
#include <QImage>
#include <QWidget>

namespace strutwright {

namespace {

constexpr QSize RoomySize{1180, 800}; // the screen of the platform without one is smaller

void FailOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  // The offscreen platform has no window manager, which is nobody's fault.
  if (text.startsWith("This plugin does not support")) return;
  if (type != QtDebugMsg && type != QtInfoMsg) ADD_FAILURE() << "Qt: " << text.toStdString();
}

/// The texts of one row of a grid, from column 1 on.
void EnterRow(Grid& grid, int row, const std::vector<std::string>& texts) {
  for (std::size_t column = 0; column < texts.size(); ++column) {
    grid.SetText(row, static_cast<int>(column) + 1, texts[column]);
  }
}

bool IsAbout(const QColor& pixel, const QColor& colour) {
  constexpr int tolerance = 60;
  return std::abs(pixel.red() - colour.red()) < tolerance && std::abs(pixel.green() - colour.green()) < tolerance &&
         std::abs(pixel.blue() - colour.blue()) < tolerance;
}

} // namespace

QApplication& EnsureApplication() {
  static int count = 1;
  static char name[] = "test_windows";
  static char* arguments[] = {name, nullptr};
  if (QCoreApplication::instance() == nullptr) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(count, arguments);
  }
  return *qApp;
}

FormTest::FormTest() {
  EnsureApplication();
  qInstallMessageHandler(FailOnWarning);
  TheModel = ModelState{};
  TheAnalysis = AnalysisState{};
  TheFiles = FileState{};
  TheRecentFiles = RecentFiles{};
  TheEditing = EditingState{};
  TheWorkbench = WorkbenchState{};
  TheDisplay = DisplayState{};
  settings.texts["Recent Files/1"] = "/models/earlier.stw"; // or a box would welcome the user
  frame = std::make_unique<frmMain>();
  ThePlatform().hints = &frame->Status();
  ThePlatform().progress = &frame->Status();
  ThePlatform().files = &disk;
  ThePlatform().paper = &pages;
  ThePlatform().programFolder = folder.Path("");
  ThePlatform().dataFolder = folder.Path("data");
  frame->resize(RoomySize);
  frame->show();
  frame->MDIForm_Load();
  frame->activateWindow();
  static_cast<void>(QTest::qWaitForWindowActive(frame.get()));
}

FormTest::~FormTest() {
  frame.reset();
  qInstallMessageHandler(nullptr);
}

void FormTest::StartNextRun() {
  frame->close();
  frame.reset();
  TheFiles = FileState{};
  TheRecentFiles = RecentFiles{};
  TheModel = ModelState{};
  frame = std::make_unique<frmMain>();
  ThePlatform().hints = &frame->Status();
  ThePlatform().progress = &frame->Status();
  frame->resize(RoomySize);
  frame->show();
  frame->MDIForm_Load();
}

QAction& FormTest::Command(const QString& name) {
  auto* action = Find<QWidget>("frmGraph").findChild<QAction*>(name);
  if (action == nullptr) throw std::runtime_error("There is no command " + name.toStdString());
  return *action;
}

void FormTest::ClickCell(QTableView& view, int row, int column) {
  const QModelIndex cell = view.model()->index(row - 1, column - 1);
  view.scrollTo(cell);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(cell).center());
}

QWidget& FormTest::Focused() {
  QWidget* focus = QApplication::focusWidget();
  return focus != nullptr ? *focus : *frame;
}

void FormTest::Type(const QString& text) {
  for (const QChar& character : text) QTest::keyClicks(&Focused(), character);
}

void FormTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(&Focused(), key, modifiers); }

void FormTest::EnterThreeBarTruss() {
  EnterRow(GrJoints, 1, {"0", "0", "0", "0", "3"});
  EnterRow(GrJoints, 2, {"4", "0", "0", "0", "1"});
  EnterRow(GrJoints, 3, {"2", "2", "0", "-10", "0"});
  EnterRow(GrMembers, 1, {"1", "3", "200", "1000", "0"});
  EnterRow(GrMembers, 2, {"2", "3", "200", "1000", "0"});
  EnterRow(GrMembers, 3, {"1", "2", "200", "1000", "0"});
}

int FormTest::Ink(Qt::GlobalColor colour) {
  const QImage picture = Find<QWidget>("Disp").grab().toImage();
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) count += IsAbout(picture.pixelColor(x, y), colour) ? 1 : 0;
  }
  return count;
}

} // namespace strutwright
