#include "frmCheck.h"

#include "CheckParts.h"
#include "CommandFrame.h"
#include "EventGuard.h"
#include "FormParts.h"
#include "Platform.h"
#include "WorkbenchState.h"
#include "modHandAgreement.h"
#include "modLive.h"
#include "modMotionView.h"

#include <string>
#include <utility>
#include <vector>

#include <QAction>
#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr QSize FirstSize{520, 560};

std::vector<int> OnlyIf(int number) { return number == 0 ? std::vector<int>{} : std::vector{number}; }

} // namespace

frmCheck::frmCheck(CommandFrame& frame, std::function<RigidityOffer()> offer, std::function<void()> fillIn)
    : QDialog(&frame), Frame(frame), Offer(std::move(offer)), FillIn(std::move(fillIn)) {
  setObjectName("frmCheck");
  setWindowTitle("Check");
  new QVBoxLayout(this);
  BuildVerdict();
  BuildRigidity();
  BuildTable();
  findingsList = AddList("findingsList", "&Model check:",
                         "What is odd about the model; choose a line to see the nodes and members that it is about");
  zeroBarsList = AddList(
      "zeroBarsList", "&Zero bars:", "Members without force and why they have none; choose a line to see the member");
  mechanismBox = new MechanismBox(Frame, [this] { FillInRigidity(); });
  layout()->addWidget(mechanismBox);
  OnSignal(&mechanismBox->Cures(), &QListWidget::itemSelectionChanged, this,
           [this] { ShowChosen(mechanismBox->Cures()); });
  BuildButtons();
  for (const char* command : {"mnuAnalyse", "mnuCheck", "mnuUndo", "mnuRedo"})
    addAction(Frame.findChild<QAction*>(command));
  resize(SizeOnScreen(*this, FirstSize));
}

void frmCheck::BuildVerdict() {
  verdictLbl = NewLabel("verdictLbl", "What the check came to");
  QFont bold = verdictLbl->font();
  bold.setBold(true);
  verdictLbl->setFont(bold);
  layout()->addWidget(verdictLbl);
  byHandLbl =
      NewLabel("byHandLbl", "How far the forces by hand and those of the analysis agree; see Tools > Hand Methods");
  layout()->addWidget(byHandLbl);
}

void frmCheck::BuildRigidity() {
  rigidityPart = new QWidget;
  auto* row = new QHBoxLayout(rigidityPart);
  row->setContentsMargins(0, 0, 0, 0);
  rigidityLbl = NewLabel("rigidityLbl", "What can be filled in for members without rigidity");
  btnFillRigidity = NewButton("btnFillRigidity", "Fill &In E and A",
                              "Gives the members without rigidity E and A from the control board; can be undone");
  row->addWidget(rigidityLbl, 1);
  row->addWidget(btnFillRigidity, 0, Qt::AlignTop);
  layout()->addWidget(rigidityPart);
  OnSignal(btnFillRigidity, &QPushButton::clicked, this, [this] { FillInRigidity(); });
}

void frmCheck::BuildTable() {
  checkTable = new FigureTable;
  layout()->addWidget(Caption("&Figures:", checkTable));
  layout()->addWidget(checkTable);
  OnSignal(checkTable, &QTableWidget::itemSelectionChanged, this, [this] { ShowCell(checkTable->currentRow()); });
}

LineList* frmCheck::AddList(const QString& name, const QString& caption, const QString& description) {
  auto* list = new LineList(name, description);
  layout()->addWidget(Caption(caption, list));
  static_cast<QVBoxLayout*>(layout())->addWidget(list, 1);
  OnSignal(list, &QListWidget::itemSelectionChanged, this, [this, list] { ShowChosen(*list); });
  return list;
}

void frmCheck::BuildButtons() {
  QPushButton* btnCopy = NewButton("btnCopy", "&Copy", "Copies everything in this window as text");
  QPushButton* btnReport =
      NewButton("btnReport", "&Report...", "Opens the results report, which holds all this, to save or print");
  QPushButton* btnClose = NewButton("btnClose", "C&lose", "Closes this window");
  OnSignal(btnCopy, &QPushButton::clicked, this, [this] { Copy(); });
  OnSignal(btnReport, &QPushButton::clicked, this, [this] { Frame.findChild<QAction*>("mnuResults")->trigger(); });
  OnSignal(btnClose, &QPushButton::clicked, this, [this] { close(); });
  auto* row = new QHBoxLayout;
  row->addWidget(btnCopy);
  row->addWidget(btnReport);
  row->addStretch();
  row->addWidget(btnClose);
  auto* column = static_cast<QVBoxLayout*>(layout());
  column->addStretch(1);
  column->addLayout(row);
  btnClose->setFocus(); // not the table, where it would look like a choice
}

void frmCheck::Refresh() {
  BringCheckUpToDate();
  verdictLbl->setText(QString::fromStdString(CheckVerdict() + "."));
  const std::string byHand = HandAgreementText();
  byHandLbl->setText(QString::fromStdString(byHand));
  byHandLbl->setVisible(!byHand.empty());
  ShowRigidityOffer();
  checkTable->Show(TheCheck.failure.empty() ? CheckRows(TheCheck.report) : std::vector<CheckRow>{});
  findingsList->Show(FindingLines());
  zeroBarsList->Show(ZeroBarLines());
  ShowMotion(1);
  mechanismBox->Refresh();
}

void frmCheck::ShowRigidityOffer() {
  const RigidityOffer offer = Offer();
  rigidityLbl->setText(QString::fromStdString(offer.text));
  rigidityPart->setVisible(!offer.text.empty());
  btnFillRigidity->setEnabled(offer.usable);
  mechanismBox->SetRigidityUsable(btnFillRigidity->isEnabled());
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
  mechanismBox->EnableButtons();
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
        static_cast<QAbstractItemView*>(zeroBarsList), static_cast<QAbstractItemView*>(&mechanismBox->Cures())}) {
    if (each == chosen) continue;
    const QSignalBlocker silent(each);
    each->clearSelection();
    each->setCurrentIndex({});
  }
  mechanismBox->EnableButtons();
}

void frmCheck::FillInRigidity() {
  Frame.Run([this] { Frame.Edit("Fill In E and A", FillIn); });
}

void frmCheck::Copy() { TheClipboard().SetText(CheckReportText(), ""); }

void frmCheck::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (event->spontaneous()) return mechanismBox->RunClock(); // it was minimised
  Guard([this] {
    Refresh();
    Frame.RedrawWhatCanBeDrawn(false);
  });
}

void frmCheck::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  mechanismBox->StopClock();
  if (event->spontaneous() || Frame.IsEnding()) return;
  Guard([this] {
    ShowMotion(IsLive() ? 1 : 0); // live analysis shows the first motion without this window
    if (std::exchange(Marking, false)) return Frame.ShowNoParts();
    Frame.RedrawWhatCanBeDrawn(false);
  });
}

} // namespace strutwright
