#include "FormParts.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

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

} // namespace strutwright
