#include "frmImport.h"

#include "BusyPointer.h"
#include "EventGuard.h"
#include "FormParts.h"
#include "ImportError.h"
#include "LayerGrid.h"
#include "modImportFile.h"
#include "modModelCheck.h"
#include "modPlaces.h"

#include <utility>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr QSize ImportSize{600, 560};

/// Lines to read.
QPlainTextEdit* NewLines(const QString& name, const QString& description) {
  auto* lines = Described(new QPlainTextEdit, name, description);
  lines->setReadOnly(true);
  lines->setTabChangesFocus(true);
  return lines;
}

QString Joined(const std::vector<std::string>& lines) {
  QStringList joined;
  for (const std::string& line : lines) joined << QString::fromStdString(line);
  return joined.join('\n');
}

} // namespace

frmImport::frmImport(QWidget* parent, const std::string& path, std::string text)
    : QDialog(parent), Path(path), Text(std::move(text)) {
  setObjectName("frmImport");
  setWindowTitle("Import - " + QString::fromStdString(LastComponent(path)));
  contentsLbl = Described(new QLabel, "contentsLbl", "What the file brings, or why it can't be imported");
  contentsLbl->setTextFormat(Qt::PlainText);
  contentsLbl->setWordWrap(true);
  remarksTxt = NewLines("remarksTxt", "What of the file is left out or assumed");
  findingsTxt = NewLines("findingsTxt", "What the check finds about the truss: whether it holds and what is odd");
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(contentsLbl);
  whole->addWidget(BuildDrawing());
  whole->addWidget(Caption("&Remarks:", remarksTxt));
  whole->addWidget(remarksTxt, 1);
  whole->addWidget(Caption("C&heck:", findingsTxt));
  whole->addWidget(findingsTxt, 1);
  auto* note = new QLabel("Import puts this in the place of the model in the grids. Undo brings the model back.");
  note->setWordWrap(true);
  whole->addWidget(note);
  whole->addLayout(BuildButtons());
  resize(SizeOnScreen(*this, ImportSize));
  Preview();
}

QWidget* frmImport::BuildDrawing() {
  unitCmb = Described(new QComboBox, "unitCmb", "The unit of the drawing's coordinates");
  unitCmb->addItem("As the drawing says");
  for (const char* unit : {"mm", "cm", "m", "in", "ft"}) unitCmb->addItem(unit, QString(unit));
  toleranceTxt = NewField("toleranceTxt", "Ends of lines so near to each other, in mm, are one node");
  toleranceTxt->setText("1");
  splitChk = Described(new QCheckBox("&Split members where lines cross or end on another"), "splitChk",
                       "Makes a node wherever lines cross or one ends on another");
  auto* group = new QGroupBox("Drawing");
  auto* form = new QFormLayout(group);
  form->addRow(Caption("&Unit:", unitCmb), unitCmb);
  form->addRow(Caption("&Tolerance (mm):", toleranceTxt), toleranceTxt);
  form->addRow(splitChk);
  layersGrd = new LayerGrid;
  form->addRow(Caption("&Layers:", layersGrd), layersGrd);
  group->setVisible(IsDrawing(Text, Path));
  OnSignal(unitCmb, &QComboBox::currentIndexChanged, this, [this] { Preview(); });
  OnSignal(toleranceTxt, &QLineEdit::textChanged, this, [this] { Preview(); });
  OnSignal(splitChk, &QCheckBox::toggled, this, [this] { Preview(); });
  OnSignal(layersGrd, &QTableWidget::itemChanged, this, [this] { Preview(); });
  return group;
}

QLayout* frmImport::BuildButtons() {
  btnImport = NewButton("btnImport", "&Import", "Puts this in the place of the model, as one step that can be undone");
  btnImport->setDefault(true);
  QPushButton* btnCancel = NewButton("btnCancel", "&Cancel", "Leaves the model as it is (Escape)");
  OnSignal(btnImport, &QPushButton::clicked, this, [this] { accept(); });
  OnSignal(btnCancel, &QPushButton::clicked, this, [this] { reject(); });
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(btnImport);
  row->addWidget(btnCancel);
  return row;
}

DrawingOptions frmImport::Options() const {
  return {.metres = MetresOfUnit(unitCmb->currentData().toString().toStdString()),
          .tolerance = ToleranceOf(toleranceTxt->text().toStdString()),
          .split = splitChk->isChecked(),
          .layers = LayersTyped(layersGrd->Typed())};
}

void frmImport::Preview() {
  const BusyPointer busy;
  Problem.clear();
  try {
    Imported = ImportText(Text, Path, Options());
    Findings = FindingsOf(Imported.model);
  } catch (const ImportError& error) {
    Problem = error.Sentence();
  }
  ShowPreview();
}

void frmImport::ShowPreview() {
  const bool usable = Problem.empty();
  contentsLbl->setText(QString::fromStdString(usable ? ContentsOf(Imported.model) : Problem));
  remarksTxt->setPlainText(usable ? Joined(Imported.remarks) : QString());
  if (usable && Imported.remarks.empty())
    remarksTxt->setPlainText("Everything in the file is taken as it stands there");
  findingsTxt->setPlainText(usable ? Joined(Findings) : QString());
  if (usable) layersGrd->Show(Imported.layers);
  btnImport->setEnabled(usable);
}

} // namespace strutwright
