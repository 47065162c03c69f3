#include "ScaleSpinner.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>

namespace strutwright {

namespace {

constexpr int Least = 0;
constexpr int Greatest = 1000;
constexpr int Start = 500;

} // namespace

ScaleSpinner::ScaleSpinner(const QString& name, QWidget* parent) : QSpinBox(parent) {
  setObjectName(name);
  setRange(Least, Greatest);
  setValue(Start);
  lineEdit()->hide();
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

/// As wide as the arrows are beside any number.
QSize ScaleSpinner::sizeHint() const {
  QStyleOptionSpinBox option;
  initStyleOption(&option);
  const QSize whole = QSpinBox::sizeHint();
  option.rect = QRect(QPoint(0, 0), whole);
  const QRect text = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxEditField, this);
  return {whole.width() - text.width(), whole.height()};
}

/// Digits would be typed into a number that nobody sees.
void ScaleSpinner::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
  case Qt::Key_Up:
  case Qt::Key_Down:
  case Qt::Key_PageUp:
  case Qt::Key_PageDown: return QSpinBox::keyPressEvent(event);
  default: event->ignore();
  }
}

} // namespace strutwright
