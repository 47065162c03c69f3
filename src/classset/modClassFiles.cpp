#include "modClassFiles.h"

#include "ClassFault.h"
#include "ClassFolder.h"
#include "ClassTexts.h"
#include "LongWork.h"
#include "Platform.h"
#include "modKey.h"
#include "modModelFile.h"
#include "modMoodle.h"
#include "modSheet.h"
#include "modTeacherKey.h"
#include "modWorkedFiles.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace strutwright {

namespace {

struct FormatName {
  std::string_view name;
  ClassFormat format;
};

constexpr std::array<FormatName, 6> FormatNames{{{"pdf", ClassFormat::Pdf},
                                                 {"html", ClassFormat::Html},
                                                 {"moodle", ClassFormat::Moodle},
                                                 {"tex", ClassFormat::Tex},
                                                 {"stw", ClassFormat::Stw},
                                                 {"csv", ClassFormat::Csv}}};

/// Writes the files of a set one after the other.
class SetWriter {
 public:
  SetWriter(ClassFolder& folder, const ClassPlan& plan, const std::set<ClassFormat>& formats)
      : Folder(folder), Plan(plan), Formats(formats) {
    if (Has(ClassFormat::Moodle)) Bank = MoodleBegin(SetName(plan));
  }

  void WriteStudent(const ClassVariant& variant) {
    PutInTables(variant.model);
    if (Has(ClassFormat::Stw)) Folder.Put(variant.student + "/model.stw", WriteModel());
    if (Has(ClassFormat::Pdf) || Has(ClassFormat::Html) || Has(ClassFormat::Tex)) {
      WriteDocument(variant.student + "/sheet", SheetOf(Plan, variant));
    }
    if (!Has(ClassFormat::Moodle)) return;
    const WorkedPicture picture = ProblemPicture();
    const std::string png = ThePaper().Picture(picture.width, picture.height, picture.draw);
    Bank += MoodleQuestion(Plan, variant, png, picture.width, picture.height);
  }

  void WriteShared(const std::vector<ClassVariant>& variants) {
    if (Has(ClassFormat::Csv)) Folder.Put("key.csv", KeyCsv(variants));
    if (Has(ClassFormat::Moodle)) Folder.Put("moodle.xml", Bank + MoodleEnd());
    if (Has(ClassFormat::Pdf) || Has(ClassFormat::Html) || Has(ClassFormat::Tex)) {
      WriteDocument("key", TeacherKey(Plan, variants));
    }
  }

 private:
  bool Has(ClassFormat format) const { return Formats.contains(format); }

  void WriteDocument(const std::string& name, const WorkedDocument& document) {
    if (Has(ClassFormat::Tex)) Folder.Put(name + ".tex", WorkedLatex(document));
    if (!Has(ClassFormat::Pdf) && !Has(ClassFormat::Html)) return;
    const PaperDocument page = WorkedPage(document);
    if (Has(ClassFormat::Html)) Folder.Put(name + ".html", page.html);
    if (Has(ClassFormat::Pdf)) Folder.Put(name + ".pdf", ThePaper().Pdf(page));
  }

  ClassFolder& Folder;
  const ClassPlan& Plan;
  const std::set<ClassFormat>& Formats;
  std::string Bank;
};

} // namespace

std::set<ClassFormat> ReadClassFormats(const std::string& list) {
  std::set<ClassFormat> formats;
  std::string_view rest = list;
  for (;;) {
    const std::size_t comma = rest.find(',');
    const std::string_view name = rest.substr(0, comma);
    const auto found = std::find_if(FormatNames.begin(), FormatNames.end(),
                                    [name](const FormatName& each) { return each.name == name; });
    if (found == FormatNames.end()) {
      throw ClassFault(InQuotes(name) + " is no format: choose some of " + std::string(ClassFormatNames));
    }
    formats.insert(found->format);
    if (comma == std::string_view::npos) return formats;
    rest.remove_prefix(comma + 1);
  }
}

void MakeClassSet(const ClassPlan& plan, const std::set<ClassFormat>& formats, const std::string& folder) {
  ClassFolder files(folder);
  const std::vector<ClassVariant> variants = MakeVariants(plan);
  const KeptModel kept;
  LongWork work("Writing the class set");
  SetWriter writer(files, plan, formats);
  for (std::size_t student = 0; student < variants.size(); ++student) {
    writer.WriteStudent(variants[student]);
    work.Done(static_cast<double>(student + 1) / static_cast<double>(variants.size()));
  }
  writer.WriteShared(variants);
  files.Finish();
}

} // namespace strutwright
