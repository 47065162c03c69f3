#include "ProgressRow.h"

#include "EventGuard.h"
#include "FormParts.h"
#include "InputBarrier.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace strutwright {

namespace {

constexpr int FullBar = 100;

} // namespace

ProgressRow::ProgressRow(QWidget* parent) : QWidget(parent) {
  workLbl = new QLabel;
  workLbl->setObjectName("workLbl");
  workLbl->setAccessibleName("What is being done");
  workBar = new QProgressBar;
  workBar->setObjectName("workBar");
  workBar->setAccessibleName("Progress");
  workBar->setToolTip("How much of the work is done");
  workBar->setRange(0, FullBar);
  btnCancel = NewButton("btnCancel", "Cancel", "Stops the work; nothing of it is left");
  btnCancel->setAccessibleName("Cancel the work");
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(workLbl);
  row->addWidget(workBar, 1);
  row->addWidget(btnCancel);
  ProgressRow::EndProgress(); // what derives from this is not there yet
  OnSignal(btnCancel, &QPushButton::clicked, this, [this] { Cancelled = true; });
}

bool ProgressRow::ShowProgress(const std::string& text, double fraction) {
  if (!btnCancel->isEnabled()) {
    Cancelled = false;
    FocusBefore = QApplication::focusWidget();
    workBar->setEnabled(true);
    btnCancel->setEnabled(true);
    btnCancel->setFocus();
  }
  workLbl->setText(QString::fromStdString(text) + " ...");
  workBar->setValue(qRound(FullBar * fraction));
  const InputBarrier barrier(btnCancel);
  QCoreApplication::processEvents();
  return !Cancelled;
}

void ProgressRow::EndProgress() {
  workLbl->clear();
  workBar->setValue(0);
  workBar->setEnabled(false);
  btnCancel->setEnabled(false);
  if (FocusBefore) FocusBefore->setFocus();
  FocusBefore = nullptr;
}

} // namespace strutwright
