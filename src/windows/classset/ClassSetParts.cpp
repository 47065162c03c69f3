#include "CommandFrame.h"
#include "EventGuard.h"
#include "FormParts.h"
#include "ProgressRow.h"
#include "frmClassSet.h"

#include <array>
#include <cstddef>
#include <limits>

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

// How the window is built.

namespace strutwright {

namespace {

constexpr int VariantsShown = 3;
constexpr QSize VariantSize{290, 180};
constexpr int LinesOfMessage = 2;
constexpr double LeastTolerance = 0.001; // percent
constexpr double MostTolerance = 50;

QLabel* TextLabel(const QString& name, const QString& description) {
  auto* label = Described(new QLabel, name, description);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

void MakeNarrow(QLineEdit& field) { field.setFixedWidth(6 * field.fontMetrics().averageCharWidth() + 16); }

} // namespace

frmClassSet::frmClassSet(CommandFrame& frame) : QDialog(&frame), Frame(frame) {
  setObjectName("frmClassSet");
  setWindowTitle("Class Set");
  auto* entries = new QHBoxLayout;
  entries->addWidget(BuildStudents(), 1);
  entries->addWidget(BuildRanges());
  entries->addWidget(BuildQuestions());
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(entries, 1);
  whole->addLayout(BuildFormats());
  whole->addLayout(BuildFolder());
  whole->addLayout(BuildPreview());
  classLbl = TextLabel("classLbl", "What was made, or why nothing can be");
  classLbl->setMinimumHeight(LinesOfMessage * classLbl->fontMetrics().lineSpacing());
  whole->addWidget(classLbl);
  Work = new ProgressRow(this);
  whole->addWidget(Work);
  whole->addLayout(BuildButtons());
  for (const char* command : {"mnuAnalyse", "mnuUndo", "mnuRedo"}) addAction(Frame.findChild<QAction*>(command));
  ConnectEntries();
  ChooseSource();
}

QGroupBox* frmClassSet::BuildStudents() {
  studentsTxt = Described(new QPlainTextEdit("20"), "studentsTxt", "How many students, or their names, one a line");
  studentsTxt->setTabChangesFocus(true);
  studentsTxt->setMinimumWidth(18 * fontMetrics().averageCharWidth());
  seedSpin = Described(new QSpinBox, "seedSpin", "The same seed gives the same problems on every machine");
  seedSpin->setRange(0, std::numeric_limits<int>::max());
  seedSpin->setValue(1);
  toleranceSpin = Described(new QDoubleSpinBox, "toleranceSpin", "How far an answer may be off, in percent");
  toleranceSpin->setDecimals(3);
  toleranceSpin->setRange(LeastTolerance, MostTolerance);
  toleranceSpin->setValue(1);
  auto* box = new QGroupBox("Class");
  auto* grid = new QGridLayout(box);
  grid->addWidget(Caption("&Students: how many, or a name a line", studentsTxt), 0, 0, 1, 2);
  grid->addWidget(studentsTxt, 1, 0, 1, 2);
  grid->addWidget(AddButton("btnList", "Names from a File...",
                            "Opens a list of students (.csv), with a name in the first column of each line",
                            [this] { OpenList(); }),
                  2, 0, 1, 2);
  grid->addWidget(Caption("S&eed:", seedSpin), 3, 0);
  grid->addWidget(seedSpin, 3, 1);
  grid->addWidget(Caption("&Tolerance (%):", toleranceSpin), 4, 0);
  grid->addWidget(toleranceSpin, 4, 1);
  return box;
}

QGroupBox* frmClassSet::BuildRanges() {
  auto* box = new QGroupBox("What differs from student to student");
  auto* whole = new QVBoxLayout(box);
  whole->addLayout(BuildSource());
  auto* grid = new QGridLayout;
  whole->addLayout(grid);
  const std::array<const char*, 3> headings{"From", "To", "Step"};
  for (int column = 0; column < 3; ++column)
    grid->addWidget(Caption(headings.at(static_cast<std::size_t>(column))), 0, column + 2);
  fixedLbl = Caption("Same for all");
  grid->addWidget(fixedLbl, 0, 1);
  AddRange(*grid, "span", "Spa&n");
  AddRange(*grid, "height", "Hei&ght");
  AddRange(*grid, "bays", "Bays");
  AddRange(*grid, "load", "L&oad");
  AddRange(*grid, "area", "&Area");
  AddRange(*grid, "e", "E of mem&bers");
  AddRange(*grid, "chord-area", "Area of &chords");
  AddRange(*grid, "vertical-area", "Area of &verticals");
  AddRange(*grid, "diagonal-area", "Area of diagonals");
  whole->addStretch();
  return box;
}

QLayout* frmClassSet::BuildSource() {
  sourceCmb =
      Described(new QComboBox, "sourceCmb", "What the problems are made of: the open model or a family of trusses");
  sourceCmb->addItem("The open model", QString());
  for (const FamilyChoice& each : FamilyChoices()) {
    sourceCmb->addItem(QString::fromStdString(each.title), QString::fromStdString(each.name));
  }
  auto* row = new QHBoxLayout;
  row->addWidget(Caption("Tr&uss:", sourceCmb));
  row->addWidget(sourceCmb, 1);
  OnSignal(sourceCmb, &QComboBox::currentIndexChanged, this, [this] { ChooseSource(); });
  return row;
}

void frmClassSet::AddRange(QGridLayout& grid, const std::string& name, const QString& caption) {
  const QString prefix = QString::fromStdString(name);
  const QString blank = "; blank where the " + prefix + " is the same for all";
  const QString unit = QString::fromStdString(FamilyUnit(name));
  RangeFields range{name,
                    nullptr,
                    TextLabel(prefix + "NowLbl", "The " + prefix + " of the open model"),
                    NewField(prefix + "ValueTxt",
                             "The " + prefix + (unit.isEmpty() ? "" : " in " + unit) + " where it is the same for all"),
                    NewField(prefix + "FromTxt", "Least " + prefix + blank),
                    NewField(prefix + "ToTxt", "Largest " + prefix + blank),
                    NewField(prefix + "StepTxt", "Step of the " + prefix + blank)};
  range.now->setWordWrap(false);
  range.caption = Caption(caption, range.from);
  const int row = grid.rowCount();
  grid.addWidget(range.caption, row, 0);
  grid.addWidget(range.now, row, 1);
  int column = 1;
  for (QLineEdit* field : {range.value, range.from, range.to, range.step}) {
    MakeNarrow(*field);
    grid.addWidget(field, row, column++);
  }
  Ranges.push_back(range);
}

QGroupBox* frmClassSet::BuildQuestions() {
  auto* box = new QGroupBox("Questions");
  auto* grid = new QGridLayout(box);
  AddAsk(*grid, "forces", "&Forces of members", "Asks for member forces in kN, tension positive");
  AddNumbers(*grid, "7,9", "The members whose forces are asked, such as 7,9 or 1-5; blank: all");
  AddAsk(*grid, "reactions", "&Reactions", "Asks for all reactions in kN, positive to the right and upwards")
      ->setChecked(true);
  AddAsk(*grid, "displacement", "&Displacements", "Asks for displacements in mm, positive to the right and upwards");
  AddNumbers(*grid, "4y", "The nodes whose displacements are asked, such as 4y or 3,4x; blank: all");
  AddAsk(*grid, "zero-members", "&Zero members", "Asks which members have no force");
  AddAsk(*grid, "determinacy", "Determinac&y", "Asks for the degree of static indeterminacy");
  AddAsk(*grid, "k", "Matri&x of member", "Asks for the 4 x 4 stiffness matrix of a member in global axes, kN/mm");
  AddNumbers(*grid, "2", "The member whose matrix is asked");
  grid->setRowStretch(grid->rowCount(), 1);
  return box;
}

QCheckBox* frmClassSet::AddAsk(QGridLayout& grid, const std::string& name, const QString& caption,
                               const QString& description) {
  auto* box = Described(new QCheckBox(caption), QString::fromStdString(name) + "Chk", description);
  grid.addWidget(box, grid.rowCount(), 0);
  Asks.push_back({name, box, nullptr});
  return box;
}

/// A field for the question that was added last.  Typing there chooses the question.
void frmClassSet::AddNumbers(QGridLayout& grid, const QString& example, const QString& description) {
  AskFields& ask = Asks.back();
  ask.numbers = NewField(QString::fromStdString(ask.name) + "Txt", description);
  ask.numbers->setPlaceholderText(example);
  MakeNarrow(*ask.numbers);
  grid.addWidget(ask.numbers, grid.rowCount() - 1, 1);
  OnSignal(ask.numbers, &QLineEdit::textEdited, this, [box = ask.chosen] { box->setChecked(true); });
}

QLayout* frmClassSet::BuildFormats() {
  auto* row = new QHBoxLayout;
  const auto add = [&](const std::string& name, const QString& caption, const QString& description) {
    auto* box = Described(new QCheckBox(caption), QString::fromStdString(name) + "Chk", description);
    box->setChecked(true);
    FormatBoxes.push_back({name, box});
    return box;
  };
  QCheckBox* first = add("pdf", "PDF", "Question sheets and the teacher's key as PDF");
  add("html", "HTML", "Question sheets and the teacher's key as pages for a browser");
  add("tex", "LaTeX", "Question sheets and the teacher's key as LaTeX sources");
  add("moodle", "Moodle questions", "A question bank that Moodle imports, moodle.xml");
  add("stw", "Models", "The model of each student, model.stw");
  add("csv", "Key for marking", "The key that strutwright-cli mark reads, key.csv");
  row->addWidget(Caption("F&iles:", first));
  for (const FormatBox& each : FormatBoxes) row->addWidget(each.chosen);
  row->addStretch();
  return row;
}

QLayout* frmClassSet::BuildFolder() {
  folderTxt = NewField("folderTxt", "The folder that is made; it must not exist");
  folderTxt->setReadOnly(true);
  folderTxt->setPlaceholderText("is asked for");
  auto* row = new QHBoxLayout;
  row->addWidget(Caption("New folder:"));
  row->addWidget(folderTxt, 1);
  row->addWidget(AddButton("btnFolder", "C&hoose...", "Asks for the name of the folder to make",
                           [this] { static_cast<void>(ChooseFolder()); }));
  return row;
}

QLayout* frmClassSet::BuildPreview() {
  auto* grid = new QGridLayout;
  for (int v = 0; v < VariantsShown; ++v) {
    const QString number = QString::number(v + 1);
    VariantView view{TextLabel("variantPic_" + number, "Drawing of variant " + number),
                     TextLabel("variantLbl_" + number, "Student " + number + " and what differs there")};
    view.picture->setFixedSize(VariantSize);
    view.picture->setStyleSheet("background: white; border: 1px solid gray;");
    grid->addWidget(view.picture, 0, v);
    grid->addWidget(view.caption, 1, v);
    Views.push_back(view);
  }
  return grid;
}

QLayout* frmClassSet::BuildButtons() {
  auto* row = new QHBoxLayout;
  row->addWidget(
      AddButton("btnPreview", "&Preview", "Draws the problems of the first three students", [this] { Preview(); }));
  row->addWidget(AddButton("btnMake", "&Make", "Makes the folder with all files, and opens it", [this] { Make(); }));
  row->addStretch();
  row->addWidget(AddButton("btnClose", "C&lose", "Closes this window", [this] { close(); }));
  return row;
}

QPushButton* frmClassSet::AddButton(const QString& name, const QString& caption, const QString& toolTip,
                                    const std::function<void()>& command) {
  QPushButton* button = NewButton(name, caption, toolTip);
  OnSignal(button, &QPushButton::clicked, this, [this, command] { Frame.Run(command); });
  return button;
}

/// A preview of other entries would mislead.
void frmClassSet::ConnectEntries() {
  OnSignal(studentsTxt, &QPlainTextEdit::textChanged, this, [this] { DropPreview(); });
  OnSignal(seedSpin, &QSpinBox::valueChanged, this, [this] { DropPreview(); });
  for (const RangeFields& range : Ranges) {
    for (QLineEdit* field : {range.value, range.from, range.to, range.step}) {
      OnSignal(field, &QLineEdit::textChanged, this, [this] { DropPreview(); });
    }
  }
  for (const AskFields& ask : Asks) {
    OnSignal(ask.chosen, &QCheckBox::toggled, this, [this] { DropPreview(); });
    if (ask.numbers != nullptr) OnSignal(ask.numbers, &QLineEdit::textChanged, this, [this] { DropPreview(); });
  }
}

} // namespace strutwright
