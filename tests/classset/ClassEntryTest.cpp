#include "ClassFixture.h"
#include "RecordingSurface.h"
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

} // namespace
} // namespace strutwright
