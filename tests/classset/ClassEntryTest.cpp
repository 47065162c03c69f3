#include "ClassFixture.h"
#include "NativeFileSystem.h"
#include "RecordingSurface.h"
#include "ScratchFolder.h"
#include "modClassEntry.h"
#include "modSheet.h"

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ClassEntryTest : public ClassTest {
 protected:
  ClassEntryTest() { SetTables(PrattTruss(10)); }

  static ClassEntry Entry() {
    return {
        "20", 7, 2, {{"span", "12", "20", "1"}, {"load", "10", " 40 ", "5"}}, {{"forces", "5,6"}, {"reactions", ""}}};
  }

  static std::string FaultOf(const ClassEntry& entry) {
    return FaultOfDoing([&entry] { PlanOfEntry(entry, "bridge.stw"); });
  }
};

TEST_F(ClassEntryTest, MeansWhatTheCommandMeans) {
  const ClassPlan plan = PlanOfEntry(Entry(), "/models/bridge.stw");
  EXPECT_EQ(SetName(plan), "Class set of bridge.stw, seed 7");
  EXPECT_EQ(plan.percent, 2);
  EXPECT_EQ(plan.students.size(), 20U);
  ASSERT_EQ(plan.variations.size(), 2U);
  EXPECT_EQ(plan.variations[1].to, 40);
  ASSERT_EQ(plan.asks.size(), 2U);
  EXPECT_EQ(plan.asks[0].items.size(), 2U);
  EXPECT_TRUE(plan.asks[1].items.empty());
}

TEST_F(ClassEntryTest, TakesNamesOrANumber) {
  ClassEntry entry = Entry();
  entry.students = " 2\n";
  EXPECT_THAT(PlanOfEntry(entry, "").students, ElementsAre("student-01", "student-02"));
  entry.students = "Name\tGroup\nAnn Lee\t1\n\nBob\t2\n";
  EXPECT_THAT(PlanOfEntry(entry, "").students, ElementsAre("Ann Lee", "Bob"));
  entry.students = "  \n";
  EXPECT_EQ(FaultOf(entry), "The list names no student: write a name a line");
  entry.students = "0";
  EXPECT_EQ(FaultOf(entry), "The number of students must be 1 to 1000");
}

TEST_F(ClassEntryTest, PassesOverBlankRangesAndRefusesHalfOnes) {
  ClassEntry entry = Entry();
  entry.ranges = {{"span", "", " ", ""}, {"load", "10", "40", "5"}};
  EXPECT_EQ(PlanOfEntry(entry, "").variations.size(), 1U);
  entry.ranges = {{"span", "12", "", "1"}};
  EXPECT_EQ(FaultOf(entry), "The range of the span is not whole: write where it begins, where it ends and a step");
  entry.ranges = {{"span", "12..13", "20", "1"}};
  EXPECT_EQ(FaultOf(entry), "The range of the span holds \"12..13\", which is no number: write one such as 12.5");
  entry.ranges = {{"span", "20", "12", "1"}};
  EXPECT_EQ(FaultOf(entry), "The range \"span:20..12:1\" ends before it begins");
}

TEST_F(ClassEntryTest, AsksForSomethingAndVariesSomething) {
  ClassEntry entry = Entry();
  entry.ranges.clear();
  EXPECT_EQ(FaultOf(entry), "Nothing differs from student to student: give a range to some quantity");
  entry.students = "1";
  EXPECT_EQ(FaultOf(entry), "");
  entry.asks = {{"k", ""}};
  EXPECT_THAT(FaultOf(entry), HasSubstr("\"k\" is nothing to ask for"));
  entry.asks.clear();
  EXPECT_EQ(FaultOf(entry), "Nothing is asked: choose a question");
}

TEST_F(ClassEntryTest, PreviewsWhatTheSetWillHold) {
  const ClassPlan plan = PlanOfEntry(Entry(), "");
  const auto all = MakeVariants(plan);
  const auto first = FirstVariants(plan, 3);
  ASSERT_EQ(first.size(), 3U);
  for (std::size_t v = 0; v < first.size(); ++v) {
    EXPECT_EQ(first[v].student, all[v].student);
    EXPECT_EQ(first[v].varied, all[v].varied);
    EXPECT_EQ(first[v].model.nodes, all[v].model.nodes);
  }
}

TEST_F(ClassEntryTest, DrawsAVariantAndLeavesTheModel) {
  const auto variants = FirstVariants(PlanOfEntry(Entry(), ""), 1);
  const FieldTable nodes = NodeTable;
  RecordingSurface surface;
  DrawVariant(variants.front(), surface);
  EXPECT_FALSE(surface.pixelLines.empty());
  EXPECT_EQ(NodeTable, nodes);
}

TEST_F(ClassEntryTest, KnowsTheSizesOfTheModel) {
  SetTables(PrattTruss(10));
  EXPECT_EQ(PresentSize("load"), "10 kN");
  ResetModel();
  for (const char* name : {"span", "height", "load", "area", "e"}) EXPECT_EQ(PresentSize(name), "") << name;
}

TEST_F(ClassEntryTest, TakesAFamilyWithItsNumbers) {
  ClassEntry entry = Entry();
  entry.family = "howe";
  entry.ranges = {{"span", "18", "30", "1", "24"}, {"height", "", "", "", " 4 "}, {"bays", "", "", "", ""}};
  const ClassPlan plan = PlanOfEntry(entry, "/models/bridge.stw");
  EXPECT_EQ(SetName(plan), "Class set of Howe truss, seed 7");
  ASSERT_EQ(plan.variations.size(), 1U);
  EXPECT_EQ(plan.source.texts[TrussField::Height], "4");
  EXPECT_EQ(plan.source.texts[TrussField::Bays], "8");
  EXPECT_EQ(FirstVariants(plan, 3).size(), 3U);
  entry.ranges[1].value = "high";
  EXPECT_EQ(FaultOfDoing([&] { FirstVariants(PlanOfEntry(entry, ""), 3); }),
            "No variant can be used, because the height must be a number from 0.1 to 10000 m");
}

TEST_F(ClassEntryTest, KnowsTheFamiliesAndTheirNumbers) {
  EXPECT_EQ(FamilyChoices().front().name, "pratt");
  EXPECT_EQ(FamilyChoices().front().title, "Pratt truss");
  EXPECT_EQ(FamilyNumber("pratt", "span"), "24");
  EXPECT_EQ(FamilyNumber("pratt", "area"), "");
  EXPECT_EQ(FamilyNumber("warren", "vertical-area"), ""); // it has no verticals
  EXPECT_EQ(FamilyNumber("", "span"), "");
  EXPECT_EQ(FamilyUnit("chord-area"), "mm2");
  EXPECT_EQ(FamilyUnit("bays"), "");
}

TEST_F(ClassEntryTest, TakesNamesFromAFile) {
  NativeFileSystem disk;
  ThePlatform().files = &disk;
  const ScratchFolder folder;
  PutFile(folder.Path("class.csv"), "name;mail\nAnn Lee;a@b\nBob;c@d\n");
  EXPECT_EQ(NamesInFile(folder.Path("class.csv")), "Ann Lee\nBob\n");
  PutFile(folder.Path("class.csv"), "Ann\nann\n");
  EXPECT_THAT(FaultOfDoing([&] { NamesInFile(folder.Path("class.csv")); }), HasSubstr("is there twice"));
  EXPECT_EQ(FaultOfDoing([&] { NamesInFile(folder.Path("none.csv")); }),
            "The list \"" + folder.Path("none.csv") + "\" can't be read: No such file or directory");
}

} // namespace
} // namespace strutwright
