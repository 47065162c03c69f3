#include "frmValues.h"

#include "EventGuard.h"
#include "FormParts.h"
#include "Platform.h"
#include "modNumberText.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace strutwright {

frmValues::frmValues(QWidget* parent, const std::string& title, const std::vector<AskedValue>& values)
    : QDialog(parent) {
  setObjectName("frmValues");
  setWindowTitle(QString::fromStdString(title));
  auto* form = new QFormLayout;
  for (const AskedValue& each : values) {
    const QString label = QString::fromStdString(each.label);
    QLineEdit* field = NewField(QString::fromStdString(each.name), QString(label).remove('&'));
    field->setText(QString::fromStdString(each.text));
    form->addRow(Caption(label, field), field);
    Fields.push_back(field);
  }
  QPushButton* btnOK = NewButton("btnOK", "OK", "Takes the values");
  QPushButton* btnCancel = NewButton("btnCancel", "Cancel", "Leaves everything as it is");
  btnOK->setDefault(true);
  OnSignal(btnOK, &QPushButton::clicked, this, [this] { TakeValues(); });
  OnSignal(btnCancel, &QPushButton::clicked, this, [this] { reject(); });
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(btnOK);
  row->addWidget(btnCancel);
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(form);
  whole->addLayout(row);
  Fields.front()->selectAll();
}

std::vector<std::string> frmValues::Texts() const {
  std::vector<std::string> texts;
  for (const QLineEdit* field : Fields) texts.push_back(field->text().toStdString());
  return texts;
}

void frmValues::TakeValues() {
  for (QLineEdit* field : Fields) {
    if (NumericValue(field->text().toStdString())) continue;
    ShowMessage(MessageIcon::Exclamation,
                "This is not a number: " + field->text().toStdString() + "\nType one, such as -12.5.");
    field->setFocus();
    return field->selectAll();
  }
  accept();
}

} // namespace strutwright
