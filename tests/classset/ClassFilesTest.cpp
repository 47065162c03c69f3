#include "ClassFixture.h"
#include "FaultyFileSystem.h"
#include "NativeFileSystem.h"
#include "Pattern.h"
#include "RecordedDrawing.h"
#include "RecordingSurface.h"
#include "ScratchFolder.h"
#include "modClassFiles.h"
#include "modKey.h"
#include "modModelFile.h"
#include "modSheet.h"
#include "modTeacherKey.h"
#include "modWorkedFiles.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <set>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

const WorkedPicture NoPicture{640, 300, [](DrawingSurface&) {}};

class ClassFilesTest : public ClassTest {
 protected:
  ClassFilesTest() { ThePlatform().files = &disk; }

  static std::set<std::string> FilesIn(const std::string& place) {
    std::set<std::string> files;
    for (const auto& each : std::filesystem::recursive_directory_iterator(place)) {
      if (each.is_regular_file()) files.insert(std::filesystem::relative(each.path(), place).generic_string());
    }
    return files;
  }

  NativeFileSystem disk;
  ScratchFolder folder;
};

TEST_F(ClassFilesTest, HoldAFolderForEachStudent) {
  MakeClassSet(PrattPlan(2), ReadClassFormats("pdf,html,moodle,tex,stw,csv"), folder.Path("class"));
  EXPECT_THAT(FilesIn(folder.Path("class")),
              UnorderedElementsAre("key.csv", "key.pdf", "key.html", "key.tex", "moodle.xml", "s1/model.stw",
                                   "s1/sheet.pdf", "s1/sheet.html", "s1/sheet.tex", "s2/model.stw", "s2/sheet.pdf",
                                   "s2/sheet.html", "s2/sheet.tex"));
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(ClassFilesTest, HoldOnlyTheFormatsAskedFor) {
  MakeClassSet(PrattPlan(1), ReadClassFormats("csv,stw"), folder.Path("class"));
  EXPECT_THAT(FilesIn(folder.Path("class")), UnorderedElementsAre("key.csv", "s1/model.stw"));
  EXPECT_EQ(FaultOfDoing([] { ReadClassFormats("pdf,doc"); }),
            "\"doc\" is no format: choose some of pdf,html,moodle,tex,stw,csv");
}

TEST_F(ClassFilesTest, HoldTheModelsOfTheKey) {
  const ClassPlan plan = PrattPlan(3);
  MakeClassSet(plan, ReadClassFormats("csv,stw"), folder.Path("class"));
  const auto variants = MakeVariants(plan);
  EXPECT_EQ(FileBytes(folder.Path("class/key.csv")), KeyCsv(variants));
  const StoredModel model = LoadModelFile(folder.Path("class/s2/model.stw"));
  EXPECT_EQ(model.nodes, variants[1].model.nodes);
  EXPECT_EQ(model.members, variants[1].model.members);
}

TEST_F(ClassFilesTest, RefuseAFolderThatExists) {
  disk.CreateFolder(folder.Path("class"));
  EXPECT_EQ(FaultOfDoing([&] { MakeClassSet(PrattPlan(1), {ClassFormat::Csv}, folder.Path("class/")); }),
            "The folder \"" + folder.Path("class") + "\" exists already: choose a new one, so that nothing is lost");
  EXPECT_EQ(FaultOfDoing([] { MakeClassSet(PrattPlan(1), {ClassFormat::Csv}, ""); }),
            "The folder has no name: choose one that does not exist yet");
}

TEST_F(ClassFilesTest, LeaveNothingOfASetThatFails) {
  EXPECT_NE(FaultOfDoing([&] {
              MakeClassSet(PlanFor(SourceOf(PrattTruss(10)), 5, {"load:10..12:1"}, {"reactions"}),
                           {ClassFormat::Csv, ClassFormat::Stw}, folder.Path("class"));
            }),
            "");
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(ClassFilesTest, LeaveNothingWhenTheDiskIsFull) {
  FaultyFileSystem full(disk);
  int writes = 0;
  full.before = [&writes](const std::string& step, int /*number*/) {
    if (step == "Write" && ++writes == 4) throw FileError("No space left on device");
  };
  ThePlatform().files = &full;
  EXPECT_THROW(MakeClassSet(PrattPlan(3), {ClassFormat::Csv, ClassFormat::Stw}, folder.Path("class")), FileError);
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(ClassFilesTest, ShowOnTheSheetWhatIsAskedAndNoResult) {
  const ClassPlan plan = PrattPlan(1);
  const auto variants = MakeVariants(plan);
  const std::string html = WorkedPage(SheetOf(plan, variants[0], NoPicture)).html;
  EXPECT_THAT(html, HasSubstr("Truss problem of s1"));
  EXPECT_THAT(html, HasSubstr("Class set of bridge.stw, seed 7"));
  EXPECT_THAT(html, HasSubstr("Force of member 5, tension positive"));
  EXPECT_THAT(html, HasSubstr("Stiffness matrix of member 2 in global axes, in kN/mm"));
  EXPECT_THAT(html, Not(HasSubstr(variants[0].questions[0].answer)));
}

TEST_F(ClassFilesTest, DrawLoadsAndNumbersButNoResult) {
  const auto variants = MakeVariants(PlanFor(SourceOf(PrattTruss(10)), 1, {"load:35..35:1"}, {"forces"}));
  TakeModel(variants[0].model);
  RecordingSurface surface;
  ProblemPicture(variants[0].model).draw(surface);
  std::set<std::string> texts;
  for (const PixelLabel& label : surface.pixelTexts) texts.insert(label.text);
  EXPECT_THAT(texts, testing::Contains("35 kN"));
  EXPECT_THAT(texts, testing::IsSupersetOf({"1", "10"}));
  for (const std::string& text : texts) {
    EXPECT_THAT(text, testing::AnyOf("35 kN", MatchesPattern("[0-9]+"))) << "only loads and numbers";
  }
}

TEST_F(ClassFilesTest, ShowInTheKeyHowTheAnswersAreFound) {
  const ClassPlan plan = PrattPlan(2);
  const auto variants = MakeVariants(plan);
  const std::string html = WorkedPage(TeacherKey(plan, variants)).html;
  EXPECT_THAT(html, HasSubstr("Varied: " + variants[1].varied));
  EXPECT_THAT(html, HasSubstr("<td align=\"left\">Whole truss</td><td align=\"left\">Sum of x</td>"));
  EXPECT_THAT(html, HasSubstr("Every force at this joint is known: it must balance"));
  EXPECT_THAT(html, HasSubstr("Displacements, from K D = P with the supports imposed:"));
  for (const KeyedQuestion& each : variants[0].questions) EXPECT_THAT(html, HasSubstr(each.answer));
  EXPECT_THAT(html, Not(HasSubstr("e-0"))) << "rounding is written as 0";
}

// Three bars from a ceiling to one node: one member more than equilibrium determines.
TEST_F(ClassFilesTest, WorkAnIndeterminateTrussByStiffness) {
  const ModelData fan{{{0, 4, 0, 0, 3}, {3, 4, 0, 0, 3}, {6, 4, 0, 0, 3}, {3, 0, 0, -20, 0}}, {{1, 4}, {2, 4}, {3, 4}}};
  const ClassPlan plan = PlanFor(SourceOf(fan), 2, {"load:10..40:5"}, {"forces"});
  const WorkedDocument key = TeacherKey(plan, MakeVariants(plan));
  const std::string html = WorkedPage(key).html;
  EXPECT_THAT(html, HasSubstr("<h2>s1</h2>"));
  EXPECT_THAT(html, HasSubstr("<h3>2. The stiffness matrix, member by member</h3>"));
  EXPECT_THAT(html, HasSubstr("<h3>6. The reactions</h3>"));
  EXPECT_TRUE(key.landscape);
  EXPECT_THAT(WorkedLatex(key), HasSubstr("\\clearpage"));
}

TEST_F(ClassFilesTest, SayThatTheMatricesOfALargeTrussAreLeftOut) {
  ModelData large = PrattTruss(10);
  large.members.push_back({3, 5});
  const ClassPlan plan = PlanFor(SourceOf(large), 1, {"load:10..40:5"}, {"forces:5"});
  const WorkedDocument key = TeacherKey(plan, MakeVariants(plan));
  EXPECT_THAT(WorkedPage(key).html, HasSubstr("The matrices of trusses of up to 8 nodes are written out. This one has "
                                              "10, so they are left out."));
  EXPECT_FALSE(key.landscape);
}

TEST_F(ClassFilesTest, LeaveTheOpenModelWhereverProgressShows) {
  const ClassPlan plan = PrattPlan(3);
  SetTables({{{0, 0, 0, 0, 3}, {5, 0, 40, 0, 1}}, {{1, 2}}});
  const FieldTable open = NodeTable;
  int shown = 0;
  ThePlatform().now = [] {
    static std::chrono::steady_clock::time_point time;
    return time += std::chrono::seconds(2);
  };
  struct Watch : Progress {
    std::function<void()> look;
    bool ShowProgress(const std::string& text, double /*fraction*/) override {
      if (text == "Making the variants" || text == "Writing the class set") look();
      return true;
    }
    void EndProgress() override {}
  } watch;
  watch.look = [&] {
    ++shown;
    EXPECT_TRUE(NodeTable == open);
  };
  ThePlatform().progress = &watch;
  MakeClassSet(plan, ReadClassFormats(std::string(ClassFormatNames)), folder.Path("class"));
  EXPECT_GE(shown, 9); // variants, key and sheets
}

/// What a drawing leaves on a surface, a line each.
std::vector<std::string> MarksOf(const Drawing& draw) {
  RecordingSurface surface;
  draw(surface);
  std::vector<std::string> marks;
  const auto add = [&marks](const std::string& kind, PixelPoint at) {
    marks.push_back(kind + " " + std::to_string(at.x) + " " + std::to_string(at.y));
  };
  for (const auto& each : surface.pixelLines) add("line", each.from);
  for (const auto& each : surface.pixelPolygons) add("polygon", each.corners.front());
  for (const auto& each : surface.pixelDots) add("dot", each.centre);
  for (const PixelLabel& each : surface.pixelTexts) add(each.text, each.centre);
  return marks;
}

TEST_F(ClassFilesTest, DrawAgainWhatWasRecorded) {
  const auto variants = MakeVariants(PlanFor(SourceOf(PrattTruss(10)), 1, {"load:35..35:1"}, {"forces"}));
  TakeModel(variants[0].model);
  const RecordingSurface surface;
  const auto width = static_cast<int>(surface.PixelWidth());
  const auto height = static_cast<int>(surface.PixelHeight());
  const Drawing draw = ProblemPicture(variants[0].model).draw;
  const auto direct = MarksOf(draw);
  const Drawing again = Recorded(width, height, draw);
  ResetModel(); // the recorded drawing needs none
  EXPECT_EQ(MarksOf(again), direct);
  EXPECT_GT(direct.size(), 30U);
}

TEST_F(ClassFilesTest, LeaveNothingWhereAPageCanNotBeMade) {
  struct NoPaper : FakePaper {
    std::string Pdf(const PaperDocument& /*document*/) override { throw FileError("The pages could not be made"); }
  } none;
  ThePlatform().paper = &none;
  EXPECT_THROW(MakeClassSet(PrattPlan(3), {ClassFormat::Pdf}, folder.Path("class")), FileError);
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(ClassFilesTest, KeepHostileNamesTexts) {
  ClassPlan plan = PrattPlan(1);
  plan.students = {"<b> & 100% $x_1$ {y} ]]>"};
  const auto variants = MakeVariants(plan);
  EXPECT_THAT(WorkedPage(SheetOf(plan, variants[0], NoPicture)).html,
              HasSubstr("&lt;b&gt; &amp; 100% $x_1$ {y} ]]&gt;"));
  EXPECT_THAT(WorkedLatex(SheetOf(plan, variants[0], NoPicture)),
              HasSubstr("$<$b$>$ \\& 100\\% \\$x\\_1\\$ \\{y\\} ]]$>$"));
}

} // namespace
} // namespace strutwright
