#include "frmCheck.h"

// What the check window shows and does; how it is put together stands in frmCheckBuild.cpp.

#include "DisplayState.h"
#include "EventGuard.h"
#include "Platform.h"
#include "WorkbenchState.h"
#include "frmMain.h"
#include "modCheck.h"
#include "modMotionView.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <QGroupBox>
#include <QHeaderView>
#include <QHideEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QTableWidget>

namespace strutwright {

namespace {

constexpr int SwingInterval = 50;  // ms
constexpr int MostVisibleRows = 5; // of a list, where the window is small

std::string WorstText(const CheckRow& row) {
  if (row.worstNode != 0) return "node " + std::to_string(row.worstNode);
  return row.worstMember != 0 ? "member " + std::to_string(row.worstMember) : "";
}

/// Room for so many lines, of which some may be broken in two: not less than a few, not more than all.
void KeepRoom(QListWidget& list, int lines) {
  const int line = list.fontMetrics().lineSpacing() + 4;
  const int frame = 2 * list.frameWidth() + 2;
  list.setMinimumHeight(qBound(1, lines, MostVisibleRows) * line + frame);
  list.setMaximumHeight((lines == 1 ? 1 : 2 * lines) * line + frame);
}

std::vector<int> OnlyIf(int number) { return number == 0 ? std::vector<int>{} : std::vector{number}; }

bool IsDrawingWithMouse() {
  return std::any_of(TheMouse.RubberBands.begin(), TheMouse.RubberBands.end(),
                     [](const std::optional<RubberShape>& band) { return band.has_value(); });
}

} // namespace

void frmCheck::Refresh() {
  BringCheckUpToDate();
  verdictLbl->setText(QString::fromStdString(CheckVerdict() + "."));
  ShowRigidityOffer();
  FillTable();
  Fill(*findingsList, FindingLines());
  Fill(*zeroBarsList, ZeroBarLines());
  ShowMotion(1);
  FillMechanism();
}

void frmCheck::ShowRigidityOffer() {
  const RigidityOffer offer = Frame.RigidityOnBoard();
  rigidityLbl->setText(QString::fromStdString(offer.text));
  rigidityPart->setVisible(!offer.text.empty());
  btnFillRigidity->setEnabled(offer.usable);
  EnableMotionButtons();
}

void frmCheck::FillTable() {
  const QSignalBlocker silent(checkTable);
  const std::vector<CheckRow> rows = TheCheck.failure.empty() ? CheckRows(TheCheck.report) : std::vector<CheckRow>{};
  checkTable->clearSelection();
  checkTable->setRowCount(static_cast<int>(rows.size()));
  int row = 0;
  for (const CheckRow& each : rows) {
    int column = 0;
    for (const std::string& text : {each.label, each.value, WorstText(each)}) {
      auto* item = new QTableWidgetItem(QString::fromStdString(text)); // the table owns it
      item->setToolTip(item->text());
      checkTable->setItem(row, column++, item);
    }
    ++row;
  }
  const int header = checkTable->horizontalHeader()->sizeHint().height();
  checkTable->setFixedHeight(header + row * checkTable->verticalHeader()->defaultSectionSize() +
                             2 * checkTable->frameWidth());
}

void frmCheck::Fill(QListWidget& list, const std::vector<CheckLine>& lines) {
  const QSignalBlocker silent(&list);
  list.clear();
  for (const CheckLine& line : lines) {
    list.addItem(QString::fromStdString(line.text));
    if (!line.Selects()) list.item(list.count() - 1)->setFlags(Qt::ItemIsEnabled);
  }
  KeepRoom(list, static_cast<int>(lines.size()));
}

/// Every command first takes a pending edit, after which the lists may be others.
void frmCheck::ShowChosen(const QListWidget& list) {
  const auto row = static_cast<std::size_t>(qMax(list.currentRow(), 0));
  if (list.selectedItems().isEmpty()) return;
  DeselectAllBut(&list);
  Frame.Run([this, &list, row] {
    const auto lines = &list == findingsList ? FindingLines() : (&list == zeroBarsList ? ZeroBarLines() : CureLines());
    if (row >= lines.size()) return;
    Marking = true;
    Frame.ShowParts(lines[row].nodes, lines[row].members);
  });
  EnableMotionButtons();
}

void frmCheck::ShowCell(int row) {
  if (checkTable->selectedItems().isEmpty()) return;
  DeselectAllBut(checkTable);
  Frame.Run([this, row] {
    const std::vector<CheckRow> rows = CheckRows(TheCheck.report);
    if (row < 0 || static_cast<std::size_t>(row) >= rows.size()) return;
    const CheckRow& chosen = rows[static_cast<std::size_t>(row)];
    if (chosen.worstNode == 0 && chosen.worstMember == 0) return;
    Marking = true;
    Frame.ShowParts(OnlyIf(chosen.worstNode), OnlyIf(chosen.worstMember));
  });
}

/// One thing is marked at a time; what was chosen elsewhere can be chosen again.
void frmCheck::DeselectAllBut(const QWidget* chosen) {
  for (QAbstractItemView* each :
       {static_cast<QAbstractItemView*>(checkTable), static_cast<QAbstractItemView*>(findingsList),
        static_cast<QAbstractItemView*>(zeroBarsList), static_cast<QAbstractItemView*>(curesList)}) {
    if (each == chosen) continue;
    const QSignalBlocker silent(each);
    each->clearSelection();
    each->setCurrentIndex({});
  }
  EnableMotionButtons();
}

void frmCheck::FillMechanism() {
  const bool any = ShownMechanism() != nullptr;
  motionLbl->setText(QString::fromStdString(MotionText()));
  motionButtons->setVisible(any);
  curesPart->setVisible(any);
  Fill(*curesList, CureLines());
  curesList->setMaximumHeight(curesList->minimumHeight()); // the other lists may need the room
  EnableMotionButtons();
  RunClock();
}

void frmCheck::EnableMotionButtons() {
  btnPreviousMotion->setEnabled(TheCheck.motion > 1);
  btnNextMotion->setEnabled(TheCheck.motion != 0 && TheCheck.motion < MotionCount());
  const Cure* cure = ChosenCure();
  btnApplyCure->setEnabled(cure != nullptr && (!cure->IsRigidity() || btnFillRigidity->isEnabled()));
}

void frmCheck::Turn(int by) {
  ShowMotion(TheCheck.motion + by);
  FillMechanism();
  Frame.RedrawWhatCanBeDrawn(false);
}

/// The clock goes on when a step has been drawn, so that a large truss leaves time for everything else.
void frmCheck::RunClock() {
  if (isVisible() && ShownMechanism() != nullptr && btnAnimateMotion->isChecked()) {
    MotionTimer.start(SwingInterval);
  } else {
    MotionTimer.stop();
  }
}

/// Under an open box nothing moves, nor while the mouse draws: a redraw would take its lines away.
void frmCheck::Tick() {
  if (!MessageIsOpen() && !IsDrawingWithMouse()) {
    SwingMotion();
    Frame.RedrawWhatCanBeDrawn(false);
  }
  RunClock();
}

/// nullptr where none is chosen.
const Cure* frmCheck::ChosenCure() const {
  const Mechanism* shown = ShownMechanism();
  const int row = curesList->currentRow();
  if (shown == nullptr || curesList->selectedItems().isEmpty()) return nullptr;
  return row >= 0 && row < static_cast<int>(shown->cures.size()) ? &shown->cures[static_cast<std::size_t>(row)]
                                                                 : nullptr;
}

void frmCheck::FillInRigidity() {
  Frame.Run([this] { Frame.Edit("Fill In E and A", [this] { Frame.FillInRigidity(); }); });
}

void frmCheck::ApplyChosenCure() {
  const Cure* chosen = ChosenCure();
  if (chosen == nullptr) return;
  if (chosen->IsRigidity()) return FillInRigidity();
  const Cure cure = *chosen;
  Frame.Run([this, cure] {
    if (!IsOffered(cure)) return; // a pending edit has changed the model
    Frame.Edit(cure.IsMember() ? "Add Member" : "Add Support", [&cure] { ApplyCure(cure); });
  });
}

void frmCheck::Copy() { TheClipboard().SetText(CheckReportText(), ""); }

void frmCheck::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (event->spontaneous()) return RunClock(); // it was minimised
  Guard([this] {
    Refresh();
    Frame.RedrawWhatCanBeDrawn(false);
  });
}

void frmCheck::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  MotionTimer.stop();
  if (event->spontaneous() || Frame.IsEnding()) return;
  Guard([this] {
    ShowMotion(0);
    if (std::exchange(Marking, false)) return Frame.ShowNoParts();
    Frame.RedrawWhatCanBeDrawn(false);
  });
}

} // namespace strutwright
