#pragma once

#include "FakePlatform.h"
#include "NativeFileSystem.h"
#include "QtPaper.h"
#include "ScratchFolder.h"
#include "frmMain.h"

#include <memory>
#include <string>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {

/// The application of the test program, on the offscreen platform.
QApplication& EnsureApplication();

/// The real main frame, started, on stand-ins for boxes, dialogs and clipboard and in a program folder of its own.
/// Every Qt warning fails the test.
class FormTest : public PlatformTest {
 protected:
  FormTest();
  ~FormTest() override;

  /// Ends this run of the program, and starts the next one on what it has left on disk and in the settings.
  void StartNextRun();

  /// A control of the main frame or its children, by its name.
  template <class Control>
  Control& Find(const QString& name) {
    auto* control = frame->findChild<Control*>(name);
    if (control == nullptr) throw std::runtime_error("There is no control " + name.toStdString());
    return *control;
  }

  /// A command of the truss display's menus.
  QAction& Command(const QString& name);

  QTableView& View(const QString& name) { return Find<QTableView>(name); }
  std::string LabelText(const QString& name) { return Find<QLabel>(name).text().toStdString(); }

  /// Clicks into a cell of a grid on screen.
  void ClickCell(QTableView& view, int row, int column);

  /// What has the focus, or the frame.
  QWidget& Focused();

  /// Types into whatever has the focus.
  void Type(const QString& text);
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

  /// Writes a stable three-bar truss into the grids: supports 3 and 1 below, 10 kN down on top.
  void EnterThreeBarTruss();

  /// Counts the pixels of the truss display that have about this colour.
  int Ink(Qt::GlobalColor colour);

  NativeFileSystem disk;
  QtPaper pages;
  ScratchFolder folder;
  std::unique_ptr<frmMain> frame;
};

} // namespace strutwright
