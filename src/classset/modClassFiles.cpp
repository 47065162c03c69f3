#include "modClassFiles.h"

#include "ClassFault.h"
#include "ClassFolder.h"
#include "ClassTexts.h"
#include "LongWork.h"
#include "Platform.h"
#include "RecordedDrawing.h"
#include "WorkerThreads.h"
#include "modKey.h"
#include "modModelFile.h"
#include "modMoodle.h"
#include "modOtherModel.h"
#include "modSheet.h"
#include "modTeacherKey.h"
#include "modWorkedFiles.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <deque>
#include <future>
#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

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

/// What is made of one student, or of the key.
struct MadeFiles {
  std::vector<std::pair<std::string, std::string>> files; ///< names in the set's folder and bytes
  std::string question;                                   ///< of the question bank
};

/// Makes the bytes of files: work for any thread, because it needs no model.
class FileMaker {
 public:
  explicit FileMaker(const std::set<ClassFormat>& formats) : Formats(formats) {}

  bool Has(ClassFormat format) const { return Formats.contains(format); }
  bool HasPages() const { return Has(ClassFormat::Pdf) || Has(ClassFormat::Html); }
  bool HasDocuments() const { return HasPages() || Has(ClassFormat::Tex); }

  void AddDocument(MadeFiles& made, const std::string& name, const WorkedDocument& document) const {
    if (Has(ClassFormat::Tex)) made.files.emplace_back(name + ".tex", WorkedLatex(document));
    if (!HasPages()) return;
    const PaperDocument page = WorkedPage(document);
    if (Has(ClassFormat::Html)) made.files.emplace_back(name + ".html", page.html);
    if (Has(ClassFormat::Pdf)) made.files.emplace_back(name + ".pdf", ThePaper().Pdf(page));
  }

 private:
  std::set<ClassFormat> Formats;
};

/// Makes the files of a set, each student's on a thread of its own while the next one's sheet is drawn, and writes them
/// in their order.
class SetWriter {
 public:
  SetWriter(ClassFolder& folder, const ClassPlan& plan, const std::vector<ClassVariant>& variants,
            const std::set<ClassFormat>& formats)
      : Folder(folder), Plan(plan), Variants(variants), Maker(formats), Work("Writing the class set") {}

  void Write() {
    if (Maker.HasDocuments()) Key = BeginKey();
    if (Maker.Has(ClassFormat::Moodle)) Bank = MoodleBegin(SetName(Plan));
    for (const ClassVariant& variant : Variants) {
      UnderWay.push_back(BeginStudent(variant));
      if (UnderWay.size() > 2 * Threads.Count()) TakeStudent();
    }
    while (!UnderWay.empty()) TakeStudent();
    if (Maker.Has(ClassFormat::Csv)) Folder.Put("key.csv", KeyCsv(Variants));
    if (Maker.Has(ClassFormat::Moodle)) Folder.Put("moodle.xml", Bank + MoodleEnd());
    if (Maker.HasDocuments()) Put(Result(*Key));
  }

 private:
  using Making = std::future<MadeFiles>;

  /// First, because it takes longest.
  Making BeginKey() {
    const auto key = std::make_shared<WorkedDocument>(
        TeacherKey(Plan, Variants, [this](std::size_t count) { Work.Done(ShareOfKey * Share(count)); }));
    return Threads.Do<MadeFiles>([key, maker = Maker] {
      MadeFiles made;
      maker.AddDocument(made, "key", *key);
      return made;
    });
  }

  Making BeginStudent(const ClassVariant& variant) {
    MadeFiles made;
    if (Maker.Has(ClassFormat::Stw)) made.files.emplace_back(variant.student + "/model.stw", WriteModel(variant.model));
    const bool isDrawn = Maker.HasDocuments() || Maker.Has(ClassFormat::Moodle);
    if (!isDrawn) return Threads.Do<MadeFiles>([made] { return made; });
    WorkedPicture picture = ProblemPicture(variant.model);
    picture.draw = WithModel({variant.model.nodes, variant.model.members},
                             [&picture] { return Recorded(picture.width, picture.height, picture.draw); });
    const auto sheet = std::make_shared<WorkedDocument>(SheetOf(Plan, variant, picture));
    const std::string text = MoodleText(variant, picture.width, picture.height);
    return Threads.Do<MadeFiles>([this, &variant, made, picture, sheet, text]() mutable {
      MakeStudent(made, variant, picture, *sheet, text);
      return made;
    });
  }

  /// On any thread.
  void MakeStudent(MadeFiles& made, const ClassVariant& variant, WorkedPicture& picture, WorkedDocument& sheet,
                   const std::string& text) const {
    const bool isShown = Maker.HasPages() || Maker.Has(ClassFormat::Moodle); // LaTeX draws by itself
    if (isShown) picture.made = ThePaper().Picture(picture.width, picture.height, picture.draw);
    if (Maker.Has(ClassFormat::Moodle)) made.question = MoodleQuestion(Plan, variant, text, picture.made.png);
    if (!Maker.HasDocuments()) return;
    for (WorkedBlock& block : sheet.blocks) {
      if (auto* drawing = std::get_if<WorkedPicture>(&block)) drawing->made = picture.made;
    }
    Maker.AddDocument(made, variant.student + "/sheet", sheet);
  }

  /// Waits for the student who was begun first, and writes what was made.
  void TakeStudent() {
    Making student = std::move(UnderWay.front());
    UnderWay.pop_front();
    const MadeFiles made = Result(student);
    Put(made);
    Bank += made.question;
    ++Taken;
    Work.Done(FractionDone());
  }

  /// Waits, and shows meanwhile that the program is alive.
  MadeFiles Result(Making& making) {
    constexpr std::chrono::milliseconds pause{50};
    while (making.wait_for(pause) != std::future_status::ready) Work.Done(FractionDone());
    return making.get();
  }

  void Put(const MadeFiles& made) {
    for (const auto& [name, bytes] : made.files) Folder.Put(name, bytes);
  }

  double Share(std::size_t count) const { return static_cast<double>(count) / static_cast<double>(Variants.size()); }
  double FractionDone() const { return ShareOfKey + (1 - ShareOfKey) * Share(Taken); }

  static constexpr double ShareOfKey = 0.1; // of the time until the first student's turn

  ClassFolder& Folder;
  const ClassPlan& Plan;
  const std::vector<ClassVariant>& Variants;
  const FileMaker Maker;
  LongWork Work;
  std::optional<Making> Key;
  std::deque<Making> UnderWay;
  std::size_t Taken = 0;
  std::string Bank;
  WorkerThreads Threads; ///< last, so that they end before what they use
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
  SetWriter(files, plan, variants, formats).Write();
  files.Finish();
}

} // namespace strutwright
