#pragma once

#include <QSize>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace strutwright {

// What the dialogs are built of.

/// A button that Enter does not press from elsewhere.
QPushButton* NewButton(const QString& name, const QString& caption, const QString& toolTip);

/// Gives a control its name, and a description as its tool tip and for screen readers.
template <class Control>
Control* Described(Control* control, const QString& name, const QString& description) {
  control->setObjectName(name);
  control->setAccessibleName(description);
  control->setToolTip(description);
  return control;
}

/// description: for the tool tip and for screen readers.
QLineEdit* NewField(const QString& name, const QString& description);

/// A caption, with the key that leads to its field where it has one.
QLabel* Caption(const QString& text, QWidget* field = nullptr);

/// The size that a new window asks for, or what its screen has room for beside the desktop's frame of it.
QSize SizeOnScreen(const QWidget& window, QSize wanted);

} // namespace strutwright
