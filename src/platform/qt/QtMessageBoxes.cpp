#include "QtMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>
#include <QString>

namespace strutwright {

namespace {

QMessageBox::Icon QtIcon(MessageIcon icon) {
  switch (icon) {
  case MessageIcon::Information: return QMessageBox::Information;
  case MessageIcon::Question: return QMessageBox::Question;
  case MessageIcon::Exclamation: return QMessageBox::Warning;
  case MessageIcon::Critical: return QMessageBox::Critical;
  case MessageIcon::None: break;
  }
  return QMessageBox::NoIcon;
}

/// The window that a box stands over: the active one or, while the program starts, the one that is there already.
QWidget* Parent() {
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowType() == Qt::Window) return window;
  }
  return nullptr;
}

/// Returns the button that closed the box.
int Run(const Message& message, QMessageBox::StandardButtons buttons) {
  QMessageBox box(QtIcon(message.icon), QString::fromStdString(message.title), QString::fromStdString(message.text),
                  buttons, Parent());
  box.setObjectName("MessageBox");
  // A file's name or a cell's text is shown as it is, not as markup.
  box.setTextFormat(Qt::PlainText);
  return box.exec();
}

} // namespace

void QtMessageBoxes::Show(const Message& message) { Run(message, QMessageBox::Ok); }

bool QtMessageBoxes::Ask(const Message& question) {
  return Run(question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

} // namespace strutwright
