#include "frmVary.h"

#include "CommandFrame.h"
#include "EventGuard.h"
#include "FileDialog.h"
#include "FormParts.h"
#include "Platform.h"
#include "PlotArea.h"
#include "modModelEditing.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modSafeSave.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr int SliderSteps = 200;
constexpr int PointsOfPlot = 41;
constexpr int PointsOfLargePlot = 11;
constexpr int LargeTruss = 1000; // nodes

constexpr std::array<const char*, 8> VariedNames{
    "Span",         "Height",      "x of node", "y of node", "Load in x at node", "Load in y at node",
    "E of members", "A of members"};
constexpr std::array<const char*, 5> ResultNames{"Force of member", "Displacement in x of node",
                                                 "Displacement in y of node", "Reaction in x of node",
                                                 "Reaction in y of node"};

template <class Control>
Control* NamedControl(Control* control, const QString& name, const QString& description) {
  control->setObjectName(name);
  control->setAccessibleName(description);
  control->setToolTip(description);
  return control;
}

std::string TextOfNumber(double value) { return NumberText(static_cast<float>(value)); }

/// Asks for a name; empty where the user cancels.
std::string AskName(const std::string& title, const std::string& extension, const std::string& filter) {
  FileDialog& dialog = TheFileDialog();
  dialog.title = title;
  dialog.flags = OverwritePrompt;
  dialog.defaultExtension = extension;
  dialog.filter = filter;
  dialog.fileName = "plot." + extension;
  return dialog.ShowSave() ? dialog.fileName : "";
}

void SayThatItFailed(const std::string& path, const std::exception& failure) {
  ShowMessage(MessageIcon::Critical, "The plot could not be saved as " + path + "\n" + failure.what());
}

} // namespace

frmVary::frmVary(CommandFrame& frame) : QDialog(&frame), Frame(frame) {
  setObjectName("frmVary");
  setWindowTitle("Vary");
  Area = new PlotArea(this);
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(BuildChoice());
  whole->addLayout(BuildSlider());
  whole->addWidget(Area, 1);
  whole->addLayout(BuildButtons());
  for (const char* command : {"mnuAnalyse", "mnuUndo", "mnuRedo"}) addAction(Frame.findChild<QAction*>(command));
}

QLayout* frmVary::BuildChoice() {
  variedCmb = NamedControl(new QComboBox, "variedCmb", "What the slider changes");
  for (const char* each : VariedNames) variedCmb->addItem(each);
  variedCmb->setCurrentIndex(static_cast<int>(VariedKind::Height));
  numbersTxt = NewField("numbersTxt", "Of which node, or of which members, such as 1-3,7");
  resultCmb = NamedControl(new QComboBox, "resultCmb", "What is plotted");
  for (const char* each : ResultNames) resultCmb->addItem(each);
  resultSpin = NamedControl(new QSpinBox, "resultSpin", "The number of the member or node whose result is plotted");
  resultSpin->setRange(1, std::numeric_limits<std::int16_t>::max());
  auto* grid = new QGridLayout;
  grid->addWidget(Caption("&Vary:", variedCmb), 0, 0);
  grid->addWidget(variedCmb, 0, 1);
  grid->addWidget(numbersTxt, 0, 2);
  grid->addWidget(Caption("&Plot:", resultCmb), 1, 0);
  grid->addWidget(resultCmb, 1, 1);
  grid->addWidget(resultSpin, 1, 2);
  grid->setColumnStretch(2, 1);
  OnSignal(variedCmb, &QComboBox::currentIndexChanged, this, [this] { ChooseQuantity(); });
  OnSignal(numbersTxt, &QLineEdit::textChanged, this, [this] { ChooseQuantity(); });
  OnSignal(resultCmb, &QComboBox::currentIndexChanged, this, [this] { MakePlot(); });
  OnSignal(resultSpin, &QSpinBox::valueChanged, this, [this] { MakePlot(); });
  return grid;
}

QLayout* frmVary::BuildSlider() {
  fromTxt = NewField("fromTxt", "Where the range begins");
  toTxt = NewField("toTxt", "Where the range ends");
  for (QLineEdit* each : {fromTxt, toTxt}) {
    each->setMaximumWidth(9 * fontMetrics().averageCharWidth() + 16);
    OnSignal(each, &QLineEdit::editingFinished, this, [this] { MakePlot(); });
  }
  slider = NamedControl(new QSlider(Qt::Horizontal), "varySlider", "Changes the quantity; the truss follows");
  slider->setRange(0, SliderSteps);
  valueLbl = NamedControl(new QLabel, "valueLbl", "What the quantity is now, or why it can't be varied");
  valueLbl->setTextFormat(Qt::PlainText);
  valueLbl->setWordWrap(true);
  auto* row = new QHBoxLayout;
  row->addWidget(Caption("&From:", fromTxt));
  row->addWidget(fromTxt);
  row->addWidget(slider, 1);
  row->addWidget(Caption("&to:", toTxt));
  row->addWidget(toTxt);
  auto* column = new QVBoxLayout;
  column->addLayout(row);
  column->addWidget(valueLbl);
  OnSignal(slider, &QSlider::valueChanged, this, [this] { Slide(); });
  OnSignal(slider, &QSlider::sliderReleased, this, [this] { Commit(); });
  return column;
}

QLayout* frmVary::BuildButtons() {
  auto* row = new QHBoxLayout;
  row->addWidget(AddButton("btnCsv", "Export &Csv...", "Saves the points of the plot", [this] { ExportCsv(); }));
  row->addWidget(
      AddButton("btnPicture", "&Save Picture...", "Saves the plot as PNG or SVG", [this] { ExportPicture(); }));
  row->addStretch();
  row->addWidget(AddButton("btnClose", "C&lose", "Closes this window", [this] { close(); }));
  return row;
}

QPushButton* frmVary::AddButton(const QString& name, const QString& caption, const QString& toolTip,
                                const std::function<void()>& command) {
  QPushButton* button = NewButton(name, caption, toolTip);
  OnSignal(button, &QPushButton::clicked, this, [this, command] { Frame.Run(command); });
  return button;
}

void frmVary::Begin() { ChooseQuantity(); }

void frmVary::Follow() {
  if (isVisible() && !Sliding && !PlottedIn.IsCurrent()) MakePlot();
}

Varied frmVary::Quantity() const {
  return {static_cast<VariedKind>(qMax(variedCmb->currentIndex(), 0)), numbersTxt->text().toStdString()};
}

ChosenResult frmVary::Result() const {
  return {static_cast<ResultKind>(qMax(resultCmb->currentIndex(), 0)), resultSpin->value()};
}

std::optional<double> frmVary::Limit(const QLineEdit* field) const {
  const std::optional<float> value = NumericValue(field->text().toStdString());
  return value ? std::optional<double>(*value) : std::nullopt;
}

std::string frmVary::Fault() const {
  std::string fault = VariedFault(Quantity());
  if (fault.empty()) fault = ResultFault(Result());
  if (!fault.empty()) return fault;
  const std::optional<double> from = Limit(fromTxt);
  const std::optional<double> to = Limit(toTxt);
  if (!from || !to || *from >= *to) return "The range has no length: write two numbers, the smaller one first";
  if (*from > 0 || !IsStretched(Quantity().kind)) return "";
  return "A span or a height stays above zero: begin the range above 0";
}

/// From half of what it is to twice as much.
void frmVary::ProposeRange() {
  if (!VariedFault(Quantity()).empty()) return;
  const double value = ValueOf(Quantity());
  const auto [least, most] = value == 0 ? std::pair(-1.0, 1.0) : std::minmax({value / 2, value * 2});
  fromTxt->setText(QString::fromStdString(TextOfNumber(least)));
  toTxt->setText(QString::fromStdString(TextOfNumber(most)));
}

void frmVary::ChooseQuantity() {
  const VariedKind kind = Quantity().kind;
  numbersTxt->setEnabled(!IsStretched(kind));
  ProposeRange();
  MakePlot();
}

void frmVary::MakePlot() {
  Points.clear();
  PlottedIn = ModelAsEntered::Now();
  if (Fault().empty()) {
    const int points = NodeCount > LargeTruss ? PointsOfLargePlot : PointsOfPlot;
    Points = PlotOf(Quantity(), Result(), *Limit(fromTxt), *Limit(toTxt), points);
  }
  PlaceSlider();
  ShowPlot();
}

double frmVary::SliderValue() const {
  const double share = static_cast<double>(slider->value()) / SliderSteps;
  return (1 - share) * Limit(fromTxt).value_or(0) + share * Limit(toTxt).value_or(0);
}

/// The slider stands where the model does.
void frmVary::PlaceSlider() {
  slider->setEnabled(!Points.empty());
  if (Points.empty()) return;
  const QSignalBlocker silent(slider);
  const double from = *Limit(fromTxt);
  const double share = std::clamp((ValueOf(Quantity()) - from) / (*Limit(toTxt) - from), 0.0, 1.0);
  slider->setValue(static_cast<int>(std::lround(SliderSteps * share)));
}

void frmVary::ShowPlot() {
  Plot plot;
  const std::string fault = Fault();
  std::string text = fault.empty() ? "" : fault + ".";
  if (fault.empty()) {
    plot = {VariedName(Quantity()), ResultName(Result()), {}, {}};
    for (const VaryPoint& each : Points) plot.points.push_back({each.value, each.result});
    const double value = ValueOf(Quantity());
    const std::vector<VaryPoint> here = PlotOf(Quantity(), Result(), value, value, 1);
    plot.mark = CurvePoint{value, here.front().result};
    text = plot.nameX + ": " + TextOfNumber(value) + "   " + plot.nameY + ": " +
           (plot.mark->y ? PlotReading(*plot.mark->y) : "none, since the truss is not stable");
  }
  valueLbl->setText(QString::fromStdString(text));
  Area->ShowPlot(std::move(plot));
}

/// A key or a click beside the handle is an edit; the handle is dragged, and then the release is one.
void frmVary::Slide() {
  if (Points.empty()) return;
  if (!Sliding) Frame.CommitPendingEdit();
  Sliding = true;
  Frame.HoldCommands();
  Edits.PutBack();
  RebuildModelFromGrids(); // a span or a height is stretched from what it was before the slider moved
  PutValue(Quantity(), SliderValue(), Edits);
  Frame.FollowDrag();
  ShowPlot();
  if (!slider->isSliderDown()) Commit();
}

void frmVary::Commit() {
  if (!Sliding) return;
  if (Edits.ChangeAny()) {
    Edits.PutBack();
    Frame.Edit("Vary", [this] {
      Edits.PutAgain();
      AfterModelEdit();
    });
  } else {
    Frame.TakeBackDrag();
  }
  Edits = {};
  Sliding = false;
  PlottedIn = ModelAsEntered::Now(); // the plot is the same wherever the slider stands
  ShowPlot();
  Frame.ReleaseCommands();
}

void frmVary::ExportCsv() {
  const std::string path = AskName("Save Plot as Csv", "csv", "Comma-separated values|*.csv|All files|*.*");
  if (path.empty()) return;
  try {
    SaveWholeFile(path, PlotCsv(Quantity(), Result(), Points));
  } catch (const std::exception& failure) {
    SayThatItFailed(path, failure);
  }
}

void frmVary::ExportPicture() {
  const std::string path =
      AskName("Save Plot as Picture", "png", "PNG pictures|*.png|SVG drawings|*.svg|All files|*.*");
  if (path.empty()) return;
  try {
    Area->Save(path);
  } catch (const std::exception& failure) {
    SayThatItFailed(path, failure);
  }
}

void frmVary::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  Guard([this] { Commit(); });
}

} // namespace strutwright
