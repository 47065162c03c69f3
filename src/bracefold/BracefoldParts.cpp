#include "BracefoldParts.h"

#include "modNumberText.h"

#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStringList>
#include <QWidget>

namespace strutwright {

namespace {

// Both, so that a fault can be read under any desktop theme.
constexpr QColor FaultColour(0xFD, 0xE3, 0xE0);
constexpr QColor FaultTextColour(0x8B, 0x00, 0x00);

} // namespace

QString ToQt(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

QString TitleWithKey(const FieldDescription& field) {
  QString title = ToQt(field.title);
  return title.insert(title.indexOf(field.key), '&');
}

QString FieldName(const FieldDescription& field) {
  const QStringList words = ToQt(field.option).split('-');
  QString name = words.first();
  for (qsizetype i = 1; i < words.size(); ++i) name += words[i].left(1).toUpper() + words[i].mid(1);
  return name + (field.field == TrussField::Bays ? "Spin" : "Txt");
}

QString PrintedUnit(std::string_view unit) { return ToQt(unit).replace('2', QChar(0x00B2)); }

void Describe(QWidget& control, const QString& name, const QString& description) {
  control.setObjectName(name);
  control.setAccessibleName(description);
  control.setToolTip(description);
}

std::string FieldText(const QWidget& control) {
  if (const auto* bays = qobject_cast<const QSpinBox*>(&control)) return bays->cleanText().toStdString();
  return qobject_cast<const QLineEdit*>(&control)->text().toStdString();
}

void SetFieldText(QWidget& control, const std::string& text, const TrussFamily& family) {
  if (auto* bays = qobject_cast<QSpinBox*>(&control)) {
    const QSignalBlocker quiet(bays);
    bays->setSingleStep(family.evenBays ? 2 : 1);
    bays->setValue(IntegerValue(text).value_or(bays->minimum()));
  } else {
    qobject_cast<QLineEdit*>(&control)->setText(QString::fromStdString(text));
  }
}

void Mark(QWidget& control, const std::string& reason) {
  QPalette palette;
  if (!reason.empty()) {
    palette.setColor(QPalette::Base, FaultColour);
    palette.setColor(QPalette::Text, FaultTextColour);
  }
  control.setPalette(palette);
  control.setAccessibleDescription(QString::fromStdString(reason));
}

QLabel* NewFaultLabel(const QString& name) {
  auto* label = new QLabel;
  QPalette palette;
  palette.setColor(QPalette::Window, FaultColour);
  palette.setColor(QPalette::WindowText, FaultTextColour);
  label->setObjectName(name);
  label->setPalette(palette);
  label->setAutoFillBackground(true);
  label->setMargin(6);
  label->setWordWrap(true);
  return label;
}

} // namespace strutwright
