#include "frmClassSet.h"

#include "ClassFault.h"
#include "ClassTexts.h"
#include "CommandFrame.h"
#include "FileDialog.h"
#include "LongWork.h"
#include "Platform.h"
#include "ProgressRow.h"
#include "QtDrawingSurface.h"
#include "modClassFiles.h"
#include "modKeepResults.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QSpinBox>

// What the window does; how it is built stands in ClassSetParts.cpp.

namespace strutwright {

namespace {

constexpr double Reduction = 1.5; // of a preview, so that most numbers have room

/// Progress shows in the window while this lives.
class ProgressHere {
 public:
  ProgressHere(CommandFrame& frame, Progress& place) : Frame(frame) { Frame.ShowProgressIn(&place); }
  ~ProgressHere() { Frame.ShowProgressIn(nullptr); }
  ProgressHere(const ProgressHere&) = delete;
  ProgressHere& operator=(const ProgressHere&) = delete;

 private:
  CommandFrame& Frame;
};

} // namespace

void frmClassSet::Begin() {
  DropPreview();
  ShowSizes();
}

void frmClassSet::Follow() {
  if (isVisible() && !ShownFor.IsCurrent()) Begin();
}

std::string frmClassSet::Family() const { return sourceCmb->currentData().toString().toStdString(); }

/// Each source has quantities of its own.  A family's numbers begin with its standard.
void frmClassSet::ChooseSource() {
  const std::string family = Family();
  for (const RangeFields& range : Ranges) {
    const std::string number = FamilyNumber(family, range.name);
    const bool isOfModel = family.empty() && IsModelQuantity(range.name);
    range.value->setText(QString::fromStdString(number));
    range.value->setVisible(!number.empty());
    range.now->setVisible(isOfModel);
    for (QWidget* each : std::initializer_list<QWidget*>{range.caption, range.from, range.to, range.step}) {
      each->setVisible(isOfModel || !number.empty());
    }
  }
  fixedLbl->setVisible(!family.empty());
  DropPreview();
}

/// Asks for a list and takes its names.
void frmClassSet::OpenList() {
  FileQuestion question;
  question.title = "Names of the Students";
  question.filter = "Tables and texts|*.csv;*.txt|All files|*.*";
  question.flags = FileMustExist;
  const auto chosen = TheFileDialog().Ask(FileDialogKind::Open, question);
  if (!chosen || chosen->empty()) return;
  try {
    studentsTxt->setPlainText(QString::fromStdString(NamesInFile(*chosen)));
  } catch (const ClassFault& fault) {
    Say(std::string(fault.what()) + ".");
  }
}

void frmClassSet::ShowSizes() {
  ShownFor = ModelAsEntered::Now();
  for (const RangeFields& range : Ranges) {
    if (!IsModelQuantity(range.name)) continue;
    const std::string size = PresentSize(range.name);
    range.now->setText(size.empty() ? "none" : QString::fromStdString("now " + size));
  }
}

void frmClassSet::DropPreview() {
  for (const VariantView& view : Views) {
    view.picture->setPixmap({});
    view.caption->clear();
  }
  classLbl->clear();
}

void frmClassSet::Say(const std::string& sentence) { classLbl->setText(QString::fromStdString(sentence)); }

ClassPlan frmClassSet::Plan() const {
  ClassEntry entry;
  entry.students = studentsTxt->toPlainText().toStdString();
  entry.seed = static_cast<std::uint64_t>(seedSpin->value());
  entry.percent = toleranceSpin->value();
  entry.family = Family();
  for (const RangeFields& range : Ranges) {
    if (range.from->isHidden()) continue;
    entry.ranges.push_back({range.name, range.from->text().toStdString(), range.to->text().toStdString(),
                            range.step->text().toStdString(), range.value->text().toStdString()});
  }
  for (const AskFields& ask : Asks) {
    if (!ask.chosen->isChecked()) continue;
    entry.asks.push_back({ask.name, ask.numbers == nullptr ? "" : ask.numbers->text().toStdString()});
  }
  return PlanOfEntry(entry, Frame.ModelName());
}

std::string frmClassSet::Formats() const {
  std::string names;
  for (const FormatBox& each : FormatBoxes) {
    if (each.chosen->isChecked()) names += (names.empty() ? "" : ",") + each.name;
  }
  if (names.empty()) throw ClassFault("No file would be made: choose some kind of them");
  return names;
}

/// What can't be done is said in the window.
void frmClassSet::Try(const std::function<void()>& command) {
  RebuildKeepingResults();
  DropPreview();
  ShowSizes();
  const ProgressHere here(Frame, *Work);
  try {
    command();
  } catch (const ClassFault& fault) {
    Say(std::string(fault.what()) + ".");
  } catch (const FileError& error) {
    Say("The folder " + InQuotes(folderTxt->text().toStdString()) + " could not be written: " + error.what() + ".");
  } catch (const WorkCancelled&) {
    Say("Cancelled: nothing was made.");
  }
}

void frmClassSet::Preview() {
  Try([this] {
    const ClassPlan plan = Plan();
    const std::vector<ClassVariant> variants = FirstVariants(plan, Views.size());
    for (std::size_t v = 0; v < variants.size(); ++v) ShowVariant(Views[v], variants[v]);
    Say("The first " + std::to_string(variants.size()) + " of " + CountOf(plan.students.size(), "student") + ".");
  });
}

void frmClassSet::ShowVariant(const VariantView& view, const ClassVariant& variant) {
  const QSize size = view.picture->size();
  const double ratio = devicePixelRatioF();
  QtDrawingSurface surface(qRound(Reduction * size.width()), qRound(Reduction * size.height()), ratio);
  DrawVariant(variant, surface);
  QPixmap picture =
      QPixmap::fromImage(surface.Image().scaled(size * ratio, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  picture.setDevicePixelRatio(ratio);
  view.picture->setPixmap(picture);
  const std::string varied = variant.varied.empty() ? "" : ": " + variant.varied;
  view.caption->setText(QString::fromStdString(variant.student + varied));
}

/// False where the user cancels.
bool frmClassSet::ChooseFolder() {
  FileQuestion question;
  question.title = "New Folder for the Class Set";
  question.filter = "All files|*.*";
  question.fileName = folderTxt->text().toStdString();
  const auto chosen = TheFileDialog().Ask(FileDialogKind::Save, question);
  if (chosen && !chosen->empty()) folderTxt->setText(QString::fromStdString(*chosen));
  return chosen && !chosen->empty();
}

void frmClassSet::Make() {
  if (folderTxt->text().isEmpty() && !ChooseFolder()) return;
  Try([this] {
    const ClassPlan plan = Plan();
    const std::string folder = folderTxt->text().toStdString();
    MakeClassSet(plan, ReadClassFormats(Formats()), folder);
    Say("Made " + folder + ": " + CountOf(plan.students.size(), "student") + ", seed " + std::to_string(plan.seed) +
        ".");
    TheShell().Open(folder);
  });
}

} // namespace strutwright
