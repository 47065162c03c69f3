#pragma once

#include "FakePlatform.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "frmBracefold.h"

#include <memory>
#include <stdexcept>
#include <string>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {

/// The real window on stand-ins for boxes and dialog.  Every Qt warning fails the test.
class BracefoldFormTest : public PlatformTest {
 protected:
  BracefoldFormTest();
  ~BracefoldFormTest() override;

  /// Opens the window anew on a family's standard truss.
  void Open(const std::string& family);

  template <class Control>
  Control& Find(const QString& name) {
    auto* control = window->findChild<Control*>(name);
    if (control == nullptr) throw std::runtime_error("There is no control " + name.toStdString());
    return *control;
  }

  QLineEdit& Line(const QString& name) { return Find<QLineEdit>(name); }
  QPushButton& Button(const QString& name) { return Find<QPushButton>(name); }
  std::string Label(const QString& name) { return Find<QLabel>(name).text().toStdString(); }

  /// Replaces what stands in a control by typing.
  void Type(QWidget& control, const QString& text);

  /// Chooses the entry of a list by keys.
  void Choose(QComboBox& box, const QString& text);

  void Click(const QString& button) { QTest::mouseClick(&Button(button), Qt::LeftButton); }

  /// Counts the pixels of the preview that have about this colour.
  int Ink(Qt::GlobalColor colour);

  NativeFileSystem disk;
  ScratchFolder folder;
  std::unique_ptr<frmBracefold> window;
};

} // namespace strutwright
