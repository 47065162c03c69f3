#include "frmOptions.h"

#include "CommandFrame.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "EventGuard.h"
#include "FormParts.h"
#include "NumericKeyFilter.h"
#include "RecentFiles.h"
#include "WorkbenchState.h"
#include "modOptions.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr int FieldWidth = 8;    // digits
constexpr int FieldPadding = 16; // pixels
constexpr const char* CapacityNote =
    "Keep this value as close to your expected requirement as possible for an economic performance (max: 5000)";

} // namespace

frmOptions::frmOptions(CommandFrame& frame) : QDialog(&frame), Frame(frame) {
  setObjectName("frmOptions");
  setWindowTitle("Options");
  FillOptions();
  tbsOptions = new QTabWidget;
  tbsOptions->setObjectName("tbsOptions");
  tbsOptions->setAccessibleName("Groups of options");
  AddPage(BuildGeneral(), "General");
  AddPage(BuildSnap(), "Node Snap Mode");
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(tbsOptions);
  whole->addLayout(BuildButtons());
  FilterNumericBoxes(*this);
  OnSignal(new QShortcut(Qt::CTRL | Qt::Key_Tab, this), &QShortcut::activated, this, [this] { ShowNextPage(); });
  txtMaxFiles->setFocus();
  txtMaxFiles->selectAll();
}

void frmOptions::AddPage(QWidget* page, const QString& title) {
  page->setObjectName("picOptions_" + QString::number(tbsOptions->count()));
  tbsOptions->addTab(page, title);
}

QWidget* frmOptions::BuildGeneral() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->addWidget(BuildFileHandling());
  column->addWidget(BuildLineStyle());
  column->addWidget(BuildCapacity());
  column->addLayout(BuildClearDrawing());
  column->addWidget(BuildDrawing());
  column->addStretch();
  return page;
}

QWidget* frmOptions::BuildFileHandling() {
  txtMaxFiles = AddField("txtMaxFiles", "Most files that the File menu lists, 1 to 20", TheRecentFiles.txtMaxFiles);
  auto* frame = new QGroupBox("File Handling");
  auto* row = new QHBoxLayout(frame);
  row->addWidget(Caption("No of &files in most recently used list", txtMaxFiles));
  row->addStretch();
  row->addWidget(txtMaxFiles);
  return frame;
}

QWidget* frmOptions::BuildDrawing() {
  auto* box = new QCheckBox("&New members take E and A from the board");
  box->setObjectName("chkRigidity");
  box->setToolTip("A member that is drawn gets E Value and Area of the control board");
  box->setChecked(TheEditing.rigidityFromBoard);
  OnSignal(box, &QCheckBox::toggled, this, [](bool on) { TheEditing.rigidityFromBoard = on; });
  return box;
}

QWidget* frmOptions::BuildLineStyle() {
  auto* frame = new QGroupBox("Grid line style");
  auto* row = new QHBoxLayout(frame);
  row->addWidget(AddLineStyle(0, "&Solid linetype", "Draws the lines of the grid solid"));
  row->addWidget(AddLineStyle(1, "&Dashed linetype", "Draws the lines of the grid dashed"));
  row->addStretch();
  return frame;
}

QRadioButton* frmOptions::AddLineStyle(int index, const QString& caption, const QString& toolTip) {
  auto* button = new QRadioButton(caption);
  button->setObjectName("optGridline_" + QString::number(index));
  button->setToolTip(toolTip);
  button->setChecked(index == TheOptions.optGridline);
  OnSignal(button, &QRadioButton::toggled, this, [index](bool chosen) {
    if (chosen) ChooseGridLineStyle(index);
  });
  return button;
}

QWidget* frmOptions::BuildCapacity() {
  maxTxt = AddField("maxTxt", "Rows of the grids of joints and members, below 5000", TheOptions.maxTxt);
  OnSignal(maxTxt, &QLineEdit::textChanged, this, [](const QString& text) { ChangeCapacity(text.toStdString()); });
  auto* note = new QLabel(CapacityNote);
  note->setObjectName("capacityNote");
  note->setWordWrap(true);
  constexpr int linesOfNote = 3;
  note->setMinimumHeight(linesOfNote *
                         (note->fontMetrics().lineSpacing() + 1)); // pages of tabs know no height for a width
  auto* frame = new QGroupBox("&Maximum No. of Nodes or Members");
  auto* row = new QHBoxLayout(frame);
  row->addWidget(note, 1);
  row->addWidget(maxTxt);
  return frame;
}

/// Two switches beside the frames, which stand for the settings of every drawing.
QLayout* frmOptions::BuildClearDrawing() {
  auto* column = new QVBoxLayout;
  const auto add = [column](const QString& name, const QString& caption, const QString& toolTip, bool ticked) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    box->setToolTip(toolTip);
    box->setChecked(ticked);
    column->addWidget(box);
    return box;
  };
  widthChk = add("widthChk", "Clear drawing: members &wider the larger their force",
                 "Otherwise all members with a force are equally wide", TheDisplay.WidthByForce);
  legendChk = add("legendChk", "Clear drawing: show the &legend", "What lines and arrows mean, in a free corner",
                  TheDisplay.ShowLegend);
  return column;
}

QWidget* frmOptions::BuildSnap() {
  xSpaceTxt = AddField("xSpaceTxt", "Distance of the grid's lines in x, m", TheOptions.xSpaceTxt);
  ySpaceTxt = AddField("ySpaceTxt", "Distance of the grid's lines in y, m", TheOptions.ySpaceTxt);
  snapRtxt = AddField("snapRtxt", "How near a click has to be to a node, a member or a point of the grid, m",
                      TheOptions.snapRtxt);
  snapSNtxt = AddField("snapSNtxt", "Kept, but without effect: nodes are numbered by their rows", TheOptions.snapSNtxt);
  auto* frame = new QGroupBox("Node Snap Settings");
  auto* rows = new QFormLayout(frame);
  rows->addRow(Caption("&X spacing (m)", xSpaceTxt), xSpaceTxt);
  rows->addRow(Caption("&Y spacing (m)", ySpaceTxt), ySpaceTxt);
  rows->addRow(Caption("Snap &Radius (m)", snapRtxt), snapRtxt);
  rows->addRow(Caption("Start &Node No.", snapSNtxt), snapSNtxt);
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->addWidget(frame);
  column->addStretch();
  return page;
}

QLayout* frmOptions::BuildButtons() {
  QPushButton* cmdOK = NewButton("cmdOK", "OK", "Applies the options and closes this window");
  QPushButton* cmdCancel = NewButton("cmdCancel", "Cancel", "Closes this window without applying the other options");
  QPushButton* cmdApply = NewButton("cmdApply", "&Apply", "Applies the options; this window stays open");
  cmdOK->setDefault(true);
  OnSignal(cmdOK, &QPushButton::clicked, this, [this] {
    Apply();
    accept();
  });
  OnSignal(cmdCancel, &QPushButton::clicked, this, [this] { reject(); });
  OnSignal(cmdApply, &QPushButton::clicked, this, [this] { Apply(); });
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (QPushButton* each : {cmdOK, cmdCancel, cmdApply}) row->addWidget(each);
  return row;
}

QLineEdit* frmOptions::AddField(const QString& name, const QString& description, const std::string& text) {
  QLineEdit* field = NewField(name, description);
  field->setText(QString::fromStdString(text));
  field->setFixedWidth(FieldWidth * field->fontMetrics().horizontalAdvance('0') + FieldPadding);
  return field;
}

void frmOptions::ShowNextPage() { tbsOptions->setCurrentIndex((tbsOptions->currentIndex() + 1) % tbsOptions->count()); }

void frmOptions::Apply() {
  TheOptions.xSpaceTxt = xSpaceTxt->text().toStdString();
  TheOptions.ySpaceTxt = ySpaceTxt->text().toStdString();
  TheOptions.snapRtxt = snapRtxt->text().toStdString();
  TheOptions.snapSNtxt = snapSNtxt->text().toStdString();
  TheRecentFiles.txtMaxFiles = txtMaxFiles->text().toStdString();
  TheDisplay.WidthByForce = widthChk->isChecked();
  TheDisplay.ShowLegend = legendChk->isChecked();
  Frame.Run(ApplyOptions);
  xSpaceTxt->setText(QString::fromStdString(TheOptions.xSpaceTxt));
  ySpaceTxt->setText(QString::fromStdString(TheOptions.ySpaceTxt));
  snapRtxt->setText(QString::fromStdString(TheOptions.snapRtxt));
  snapSNtxt->setText(QString::fromStdString(TheOptions.snapSNtxt));
}

void frmOptions::done(int result) {
  FillOptions();
  QDialog::done(result);
}

} // namespace strutwright
