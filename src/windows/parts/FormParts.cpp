#include "FormParts.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

namespace strutwright {

QPushButton* NewButton(const QString& name, const QString& caption, const QString& toolTip) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setToolTip(toolTip);
  button->setAutoDefault(false);
  return button;
}

QLineEdit* NewField(const QString& name, const QString& description) {
  return Described(new QLineEdit, name, description);
}

QLabel* Caption(const QString& text, QWidget* field) {
  auto* caption = new QLabel(text);
  caption->setBuddy(field);
  return caption;
}

QSize SizeOnScreen(const QWidget& window, QSize wanted) {
  constexpr QSize frame{8, 40}; // at most
  return wanted.boundedTo(window.screen()->availableSize() - frame);
}

} // namespace strutwright
