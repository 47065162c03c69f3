#include "frmBracefold.h"

#include "BracefoldParts.h"
#include "DisplayState.h"
#include "EventGuard.h"
#include "Icons.h"
#include "modNumberText.h"
#include "modPlaces.h"
#include "modPreview.h"
#include "modRedraw.h"
#include "modSaveTruss.h"
#include "modViewTransform.h"

#include <cmath>

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>
#include <QVBoxLayout>

namespace strutwright {

namespace {

constexpr QSize StartSize(1000, 600);
constexpr int LongestChoice = 30;     // letters: no column changes its width with the family
constexpr int GroupGap = 14;          // pixels between fields that do not belong together
constexpr double ZoomStep = 1 / 1.25; // of a notch of the wheel

/// The fields that begin a group.
bool BeginsGroup(TrussField field) { return field == TrussField::E || field == TrussField::Load; }

void PutRow(QGridLayout& places, int row, QLabel& label, QWidget& control) {
  label.setBuddy(&control);
  places.addWidget(&label, row, 0);
  places.addWidget(&control, row, 1, 1, 2);
}

} // namespace

frmBracefold::frmBracefold(const TrussFamily& family, const TrussTexts& texts) : Family(&family) {
  setObjectName("frmBracefold");
  setWindowTitle("Bracefold");
  setWindowIcon(IconNamed("bracefold"));
  auto* body = new QHBoxLayout;
  body->addLayout(BuildFields());
  body->addLayout(BuildPicture(), 1);
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(body, 1);
  whole->addLayout(BuildLastRow());
  AddKeys();
  ShowTexts(texts);
  TakeTruss();
  familyBox->setFocus();
  resize(StartSize);
}

frmBracefold::~frmBracefold() {
  // A box that has the focus ends its edit while it goes, when nothing is left here to take it.
  for (QWidget* each : Fields) each->disconnect(this);
  DisplaySurface = nullptr;
}

QLayout* frmBracefold::BuildFields() {
  auto* places = new QGridLayout;
  AddChoices(*places);
  int row = 1;
  for (const FieldDescription& each : TrussFields) {
    if (BeginsGroup(each.field)) places->setRowMinimumHeight(row++, GroupGap);
    AddField(*places, row++, each);
  }
  PutRow(*places, row++, *new QLabel("S&upport"), *supportBox);
  places->setRowStretch(row, 1);
  return places;
}

void frmBracefold::AddChoices(QGridLayout& places) {
  familyBox = new QComboBox;
  supportBox = new QComboBox;
  Describe(*familyBox, "familyBox", "Kind of truss");
  Describe(*supportBox, "supportBox", "How the truss is held");
  supportBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  supportBox->setMinimumContentsLength(LongestChoice);
  for (const TrussFamily& each : TrussFamilies()) familyBox->addItem(ToQt(each.title), ToQt(each.name));
  OnSignal(familyBox, &QComboBox::activated, this, [this] { ChooseFamily(); });
  OnSignal(supportBox, &QComboBox::activated, this, [this] {
    SupportChosen = true;
    TakeTruss();
  });
  PutRow(places, 0, *new QLabel("&Family"), *familyBox);
}

void frmBracefold::AddField(QGridLayout& places, int row, const FieldDescription& field) {
  const auto index = static_cast<std::size_t>(field.field);
  Fields[index] = NewField(field);
  Labels[index] = new QLabel(TitleWithKey(field));
  Labels[index]->setBuddy(Fields[index]);
  places.addWidget(Labels[index], row, 0);
  places.addWidget(Fields[index], row, 1);
  places.addWidget(new QLabel(PrintedUnit(field.unit)), row, 2);
}

QWidget* frmBracefold::NewField(const FieldDescription& field) {
  QWidget* control = nullptr;
  if (field.field == TrussField::Bays) {
    auto* bays = new QSpinBox;
    bays->setRange(static_cast<int>(field.least), static_cast<int>(field.most));
    // An emptied box keeps its value, without a signal, and shows it again when it is left.
    OnSignal(bays->findChild<QLineEdit*>(), &QLineEdit::textEdited, this, [this] { TakeField(TrussField::Bays); });
    OnSignal(bays, &QSpinBox::valueChanged, this, [this] { TakeField(TrussField::Bays); });
    OnSignal(bays, &QSpinBox::editingFinished, this, [this] { TakeTruss(); });
    control = bays;
  } else {
    auto* text = new QLineEdit;
    OnSignal(text, &QLineEdit::textEdited, this, [this, each = field.field] { TakeField(each); });
    control = text;
  }
  Describe(*control, FieldName(field), ToQt(field.help));
  return control;
}

QLayout* frmBracefold::BuildPicture() {
  preview = new DisplayArea(*this, this);
  Describe(*preview, "preview", "The truss; the wheel zooms, and dragging moves it");
  preview->setMinimumSize(360, 240);
  numbersChk = new QCheckBox("&Numbers of nodes and members");
  Describe(*numbersChk, "numbersChk", "Shows the numbers of nodes and members in the picture");
  OnSignal(numbersChk, &QCheckBox::toggled, this, [this] { Draw(false); });
  auto* column = new QVBoxLayout;
  column->addWidget(preview, 1);
  column->addWidget(numbersChk);
  return column;
}

QLayout* frmBracefold::BuildLastRow() {
  errorLbl = NewFaultLabel("errorLbl");
  summaryLbl = new QLabel;
  summaryLbl->setObjectName("summaryLbl");
  auto* row = new QHBoxLayout;
  row->addWidget(errorLbl, 1);
  row->addWidget(summaryLbl, 1);
  const auto add = [&](const QString& name, const QString& text, const QString& tip, auto click) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setToolTip(tip);
    OnSignal(button, &QPushButton::clicked, this, click);
    row->addWidget(button);
    return button;
  };
  btnSave = add("btnSave", "Save &As...", "Saves the truss as a model that Strutwright opens", [this] { Save(); });
  btnSaveOpen = add("btnSaveOpen", "Save and O&pen in Strutwright",
                    "Saves the truss as a model and opens that in Strutwright", [this] { SaveAndOpen(); });
  btnClose = add("btnClose", "Cl&ose", "Closes this window", [this] { close(); });
  return row;
}

void frmBracefold::AddKeys() {
  const auto add = [this](const QKeySequence& keys, QPushButton& button) {
    OnSignal(new QShortcut(keys, this), &QShortcut::activated, this, [&button] { button.click(); });
  };
  add(Qt::CTRL | Qt::Key_S, *btnSave);
  add(Qt::CTRL | Qt::SHIFT | Qt::Key_S, *btnSave);
  add(Qt::CTRL | Qt::Key_Q, *btnClose);
  add(Qt::CTRL | Qt::Key_W, *btnClose);
}

void frmBracefold::ShowTexts(const TrussTexts& texts) {
  familyBox->setCurrentIndex(familyBox->findData(ToQt(Family->name)));
  supportBox->clear();
  for (const SupportChoice& each : Family->supports) supportBox->addItem(ToQt(each.title), ToQt(each.name));
  supportBox->setCurrentIndex(supportBox->findData(QString::fromStdString(texts.support)));
  for (const FieldDescription& each : TrussFields) {
    const auto index = static_cast<std::size_t>(each.field);
    SetFieldText(*Fields[index], texts[each.field], *Family);
    Fields[index]->setEnabled(IsUsed(*Family, each.field));
    Labels[index]->setEnabled(IsUsed(*Family, each.field));
  }
}

TrussTexts frmBracefold::Texts() const {
  TrussTexts texts;
  for (const FieldDescription& each : TrussFields) {
    texts[each.field] = FieldText(*Fields[static_cast<std::size_t>(each.field)]);
  }
  texts.support = supportBox->currentData().toString().toStdString();
  return texts;
}

void frmBracefold::ChooseFamily() {
  const TrussFamily* chosen = FamilyNamed(familyBox->currentData().toString().toStdString());
  const TrussTexts shown = Texts();
  TrussTexts texts = TextsForFamily(shown, *Family, *chosen);
  for (std::size_t i = 0; i < TrussFieldCount; ++i) {
    if (Edited[i]) texts.values[i] = shown.values[i];
  }
  if (SupportChosen) texts.support = shown.support;
  Family = chosen;
  ShowTexts(texts);
  TakeTruss();
}

void frmBracefold::TakeField(TrussField field) {
  Edited[static_cast<std::size_t>(field)] = true;
  TakeTruss();
}

void frmBracefold::TakeTruss() {
  const TrussTexts texts = Texts();
  const std::optional<TrussFault> fault = FaultOf(*Family, texts);
  ShowFault(fault);
  if (fault) return;
  const StoredModel model = MakeTruss(*Family, texts);
  Summary = TrussSummary(model);
  ShowSummary("");
  TakeModel(model);
  ScaleLoadsToModel();
  Draw(true);
}

void frmBracefold::ShowFault(const std::optional<TrussFault>& fault) {
  for (const FieldDescription& each : TrussFields) {
    const bool wrong = fault && fault->option == each.option;
    Mark(*Fields[static_cast<std::size_t>(each.field)], wrong ? fault->reason : "");
  }
  errorLbl->setText(fault ? ToQt(fault->title) + " " + QString::fromStdString(fault->reason) : "");
  errorLbl->setVisible(fault.has_value());
  summaryLbl->setVisible(!fault);
  btnSave->setEnabled(!fault);
  btnSaveOpen->setEnabled(!fault);
}

/// what: what has been done to the truss, to stand before its summary.
void frmBracefold::ShowSummary(const QString& what) { summaryLbl->setText(what + QString::fromStdString(Summary)); }

/// The file's path; empty where nothing was saved.
std::string frmBracefold::Save() {
  std::string path = SaveTrussAs();
  if (!path.empty()) ShowSummary("Saved as " + QString::fromStdString(LastComponent(path)) + ": ");
  return path;
}

void frmBracefold::SaveAndOpen() {
  const std::string path = Save();
  if (!path.empty()) OpenInStrutwright(path);
}

void frmBracefold::Draw(bool zoomToExtents) {
  const bool numbers = numbersChk->isChecked();
  TheDisplay.Layers = {.grid = false, .memberNumbers = numbers, .nodeNumbers = numbers};
  RedrawDisplay(&preview->Surface(), zoomToExtents);
  preview->update();
}

/// The first size that the window gets lets the drawing begin.
void frmBracefold::Resized() {
  DisplaySurface = &preview->Surface();
  Draw(true);
}

void frmBracefold::MousePressed(const MouseEvent& event) { Grabbed = event; }

void frmBracefold::MouseMoved(const MouseEvent& event) {
  if (!event.leftHeld) return;
  PanWindow(preview->Surface(), Grabbed.x, Grabbed.y, event.x, event.y);
  Draw(false);
}

void frmBracefold::WheelTurned(const MouseEvent& event, double steps) {
  if (ZoomAbout(preview->Surface(), event.x, event.y, std::pow(ZoomStep, steps))) Draw(false);
}

void frmBracefold::ViewKeyPressed(ViewMove move) {
  if (MoveView(preview->Surface(), move)) Draw(false);
}

} // namespace strutwright
