#include "frmCheck.h"

// How the check window is put together.

#include "EventGuard.h"
#include "FormParts.h"
#include "frmMain.h"
#include "modMotionView.h"

#include <QAction>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr QSize FirstSize{520, 560};
constexpr int CellRoom = 6; // pixels, above and below a text together

QLabel* NewLabel(const QString& name, const QString& description) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setAccessibleDescription(description); // its name is what it says
  label->setToolTip(description);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QListWidget* NewList(const QString& name, const QString& description) {
  auto* list = new QListWidget;
  list->setObjectName(name);
  list->setAccessibleName(description);
  list->setToolTip(description);
  list->setWordWrap(true);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setResizeMode(QListView::Adjust);
  return list;
}

} // namespace

frmCheck::frmCheck(frmMain& frame) : QDialog(&frame), Frame(frame) {
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
  BuildMechanism();
  BuildButtons();
  for (const char* command : {"mnuAnalyse", "mnuCheck", "mnuUndo", "mnuRedo"})
    addAction(Frame.findChild<QAction*>(command));
  MotionTimer.setParent(this);
  MotionTimer.setObjectName("MotionTimer");
  MotionTimer.setSingleShot(true);
  OnSignal(&MotionTimer, &QTimer::timeout, this, [this] { Tick(); });
  resize(FirstSize);
}

void frmCheck::BuildVerdict() {
  verdictLbl = NewLabel("verdictLbl", "What the check came to");
  QFont bold = verdictLbl->font();
  bold.setBold(true);
  verdictLbl->setFont(bold);
  layout()->addWidget(verdictLbl);
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
  checkTable = new QTableWidget(0, 3);
  checkTable->setObjectName("checkTable");
  checkTable->setAccessibleName("Figures of the check");
  checkTable->setToolTip("The figures of the check; choose a line to see the node or member that is worst");
  checkTable->setHorizontalHeaderLabels({"Figure", "Value", "Worst at"});
  checkTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
  checkTable->setSelectionBehavior(QAbstractItemView::SelectRows);
  checkTable->setSelectionMode(QAbstractItemView::SingleSelection);
  checkTable->setTabKeyNavigation(false);
  checkTable->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  checkTable->verticalHeader()->hide();
  checkTable->verticalHeader()->setDefaultSectionSize(checkTable->fontMetrics().height() + CellRoom);
  QHeaderView& across = *checkTable->horizontalHeader();
  across.setSectionResizeMode(QHeaderView::ResizeToContents);
  across.setSectionResizeMode(1, QHeaderView::Stretch);
  across.setHighlightSections(false);
  layout()->addWidget(Caption("&Figures:", checkTable));
  layout()->addWidget(checkTable);
  OnSignal(checkTable, &QTableWidget::itemSelectionChanged, this, [this] { ShowCell(checkTable->currentRow()); });
}

QListWidget* frmCheck::AddList(const QString& name, const QString& caption, const QString& description) {
  QListWidget* list = NewList(name, description);
  layout()->addWidget(Caption(caption, list));
  static_cast<QVBoxLayout*>(layout())->addWidget(list, 1);
  OnSignal(list, &QListWidget::itemSelectionChanged, this, [this, list] { ShowChosen(*list); });
  return list;
}

void frmCheck::BuildMechanism() {
  mechanismBox = new QGroupBox("Mechanism");
  mechanismBox->setObjectName("mechanismBox");
  auto* column = new QVBoxLayout(mechanismBox);
  motionLbl = NewLabel("motionLbl", "The motion that the display shows");
  column->addWidget(motionLbl);
  BuildMotionButtons();
  column->addWidget(motionButtons);
  BuildCures();
  column->addWidget(curesPart);
  layout()->addWidget(mechanismBox);
}

void frmCheck::BuildMotionButtons() {
  motionButtons = new QWidget;
  auto* row = new QHBoxLayout(motionButtons);
  row->setContentsMargins(0, 0, 0, 0);
  btnPreviousMotion = NewButton("btnPreviousMotion", "< &Previous", "Shows the motion before this one");
  btnNextMotion = NewButton("btnNextMotion", "&Next >", "Shows the next independent motion");
  btnAnimateMotion = NewButton("btnAnimateMotion", "&Animate", "Lets the motion swing in the truss display");
  btnAnimateMotion->setCheckable(true);
  btnAnimateMotion->setChecked(true);
  for (QPushButton* each : {btnPreviousMotion, btnNextMotion}) row->addWidget(each);
  row->addStretch();
  row->addWidget(btnAnimateMotion);
  OnSignal(btnPreviousMotion, &QPushButton::clicked, this, [this] { Turn(-1); });
  OnSignal(btnNextMotion, &QPushButton::clicked, this, [this] { Turn(1); });
  OnSignal(btnAnimateMotion, &QPushButton::toggled, this, [this] {
    HoldMotion();
    RunClock();
    Frame.RedrawWhatCanBeDrawn(false);
  });
}

void frmCheck::BuildCures() {
  curesPart = new QWidget;
  auto* column = new QVBoxLayout(curesPart);
  column->setContentsMargins(0, 0, 0, 0);
  curesList = NewList("curesList", "What would stop this motion; choose a line to see its nodes");
  btnApplyCure = NewButton("btnApplyCure", "A&dd It", "Adds the chosen member or support to the truss; can be undone");
  auto* row = new QHBoxLayout;
  row->addWidget(curesList, 1);
  row->addWidget(btnApplyCure, 0, Qt::AlignTop);
  column->addWidget(Caption("Any one of these would &stop it:", curesList));
  column->addLayout(row);
  OnSignal(curesList, &QListWidget::itemSelectionChanged, this, [this] { ShowChosen(*curesList); });
  OnSignal(curesList, &QListWidget::itemActivated, this, [this] { ApplyChosenCure(); });
  OnSignal(btnApplyCure, &QPushButton::clicked, this, [this] { ApplyChosenCure(); });
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

} // namespace strutwright
