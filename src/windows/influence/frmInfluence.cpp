#include "frmInfluence.h"

#include "CommandFrame.h"
#include "EventGuard.h"
#include "FormParts.h"
#include "InfluencePicture.h"
#include "Platform.h"
#include "modModelStore.h"
#include "modPath.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

#include <QComboBox>
#include <QGridLayout>
#include <QHideEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr int LinesOfText = 2;

struct QuantityEntry {
  const char* text;
  QuantityKind kind;
  bool alongY;
};

/// In the order of the list.
constexpr std::array<QuantityEntry, 5> Quantities{{
    {"Force of member", QuantityKind::MemberForce, true},
    {"Reaction in x of node", QuantityKind::Reaction, false},
    {"Reaction in y of node", QuantityKind::Reaction, true},
    {"Displacement in x of node", QuantityKind::Displacement, false},
    {"Displacement in y of node", QuantityKind::Displacement, true},
}};

template <class Control>
Control* Named(Control* control, const QString& name, const QString& description) {
  control->setObjectName(name);
  control->setAccessibleName(description);
  control->setToolTip(description);
  return control;
}

} // namespace

frmInfluence::frmInfluence(CommandFrame& frame) : QDialog(&frame), Frame(frame) {
  setObjectName("frmInfluence");
  setWindowTitle("Influence Lines");
  InfluencePictureNotices notices;
  notices.pointed = [this](double x) {
    if (btnWalk->isChecked()) return;
    At = x;
    ShowValue();
  };
  notices.left = [this] {
    if (btnWalk->isChecked()) return;
    At.reset();
    ShowValue();
  };
  notices.clicked = [this](double x, double y, double reach) { Choose(x, y, reach); };
  notices.stepped = [this](int direction) { Step(direction); };
  Picture = new InfluencePicture(notices, this);
  lineLbl = Named(new QLabel, "lineLbl", "The value of the line where the pointer is, or why there is no line");
  lineLbl->setTextFormat(Qt::PlainText);
  lineLbl->setWordWrap(true);
  lineLbl->setMinimumHeight(LinesOfText * lineLbl->fontMetrics().lineSpacing());
  lineLbl->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(BuildQuestion());
  whole->addWidget(Picture, 1);
  whole->addWidget(lineLbl);
  whole->addWidget(BuildButtons());
  for (const char* command : {"mnuAnalyse", "mnuInfluence", "mnuUndo", "mnuRedo"})
    addAction(Frame.findChild<QAction*>(command));
  OnSignal(Frame.findChild<QTimer*>("Timer1"), &QTimer::timeout, this, [this] { Walk(); });
}

QWidget* frmInfluence::BuildQuestion() {
  pathTxt = NewField("pathTxt", "The nodes that the load passes, such as 1-10 or 1,3,5");
  quantityCmb = Named(new QComboBox, "quantityCmb", "What the line is of");
  for (const QuantityEntry& each : Quantities) quantityCmb->addItem(each.text);
  numberSpin = Named(new QSpinBox, "numberSpin", "The number of the member or node");
  numberSpin->setRange(1, std::numeric_limits<std::int16_t>::max());
  trainCmb = Named(new QComboBox, "trainCmb", "A train of loads: force@distance of each axle, such as 50@0,100@3.5");
  trainCmb->setEditable(true);
  trainCmb->addItem("");
  for (const TeachingTrain& each : TeachingTrains()) {
    trainCmb->addItem(QString::fromStdString(each.axles));
    trainCmb->setItemData(trainCmb->count() - 1, QString::fromStdString(each.name), Qt::ToolTipRole);
  }
  trainCmb->lineEdit()->setPlaceholderText("none; choose one, or write 50@0,100@3.5");
  auto* part = new QWidget;
  auto* grid = new QGridLayout(part);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->addWidget(Caption("&Quantity:", quantityCmb), 0, 0);
  grid->addWidget(quantityCmb, 0, 1);
  grid->addWidget(numberSpin, 0, 2);
  grid->addWidget(Caption("&Path of nodes:", pathTxt), 0, 3);
  grid->addWidget(pathTxt, 0, 4);
  grid->addWidget(Caption("&Train of loads:", trainCmb), 1, 0);
  grid->addWidget(trainCmb, 1, 1, 1, 4);
  grid->setColumnStretch(4, 1);
  OnSignal(quantityCmb, &QComboBox::currentIndexChanged, this, [this] { Ask(); });
  OnSignal(numberSpin, &QSpinBox::valueChanged, this, [this] { Ask(); });
  OnSignal(pathTxt, &QLineEdit::textChanged, this, [this] { Ask(); });
  OnSignal(trainCmb, &QComboBox::editTextChanged, this, [this] { Ask(); });
  return part;
}

QWidget* frmInfluence::BuildButtons() {
  auto* part = new QWidget;
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  btnWalk = NewButton("btnWalk", "&Walk", "Lets a load of 1 kN walk along the path and back");
  btnWalk->setCheckable(true);
  QPushButton* btnClose = NewButton("btnClose", "C&lose", "Closes this window");
  row->addWidget(btnWalk);
  row->addStretch();
  row->addWidget(btnClose);
  OnSignal(btnWalk, &QPushButton::toggled, this, [this](bool on) {
    WalkStep = 0;
    if (!on) At.reset();
    ShowValue();
  });
  OnSignal(btnClose, &QPushButton::clicked, this, [this] { close(); });
  return part;
}

void frmInfluence::Propose() {
  if (pathTxt->text().isEmpty() || !ReadPath(pathTxt->text().toStdString()).fault.empty()) {
    const QSignalBlocker silent(pathTxt);
    pathTxt->setText(QString::fromStdString(ProposedQuestion(1).path));
  }
  Ask();
}

void frmInfluence::Follow() {
  if (isVisible() && !Sheet.IsCurrent()) Propose();
}

Quantity frmInfluence::ChosenQuantity() const {
  const QuantityEntry& chosen = Quantities.at(static_cast<std::size_t>(qMax(quantityCmb->currentIndex(), 0)));
  return {chosen.kind, numberSpin->value(), chosen.alongY};
}

InfluenceQuestion frmInfluence::Question() const {
  return {pathTxt->text().toStdString(), ChosenQuantity(), trainCmb->currentText().toStdString()};
}

void frmInfluence::Ask() {
  Sheet.Ask(Question());
  ShowValue();
}

/// Without a line it says why; otherwise the value under the pointer, or what could be done.
void frmInfluence::ShowValue() {
  std::string text = Sheet.Fault().empty() ? "" : Sheet.Fault() + ".";
  if (text.empty() && At) text = Sheet.ValueText(*At);
  if (text.empty()) text = "Point at the line to see its values; click a member to see its line.";
  lineLbl->setText(QString::fromStdString(text));
  Picture->ShowShape(Sheet.Shape(At));
}

/// Where the line is of a node, a node is what one clicks; a click on a member always shows its force.
void frmInfluence::Choose(double x, double y, double reach) {
  const QuantityKind kind = ChosenQuantity().kind;
  const int n = kind == QuantityKind::MemberForce ? 0 : NodeWithin(x, y, reach);
  if (n != 0) return ChooseNumber(kind, n);
  const int m = MemberWithin(x, y, reach);
  if (m != 0) ChooseNumber(QuantityKind::MemberForce, m);
}

void frmInfluence::ChooseNumber(QuantityKind kind, int number) {
  {
    const QSignalBlocker silentNumber(numberSpin);
    const QSignalBlocker silentQuantity(quantityCmb);
    if (kind == QuantityKind::MemberForce) quantityCmb->setCurrentIndex(0);
    numberSpin->setValue(number);
  }
  Ask();
}

void frmInfluence::Step(int direction) {
  btnWalk->setChecked(false);
  const double start = direction > 0 ? -HUGE_VAL : HUGE_VAL;
  At = Sheet.NextNode(At.value_or(start), direction);
  ShowValue();
}

/// Under an open box nothing moves.
void frmInfluence::Walk() {
  if (!isVisible() || !btnWalk->isChecked() || !Sheet.Fault().empty() || MessageIsOpen()) return;
  if (Frame.IsWorking()) return; // the tables may hold another model meanwhile
  At = Sheet.WalkPosition(WalkStep++);
  ShowValue();
}

void frmInfluence::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (!event->spontaneous()) btnWalk->setChecked(false);
}

} // namespace strutwright
