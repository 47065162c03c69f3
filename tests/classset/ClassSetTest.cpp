#include "ClassFixture.h"
#include "modAnalysis.h"
#include "modCheckAnswer.h"
#include "modKey.h"
#include "modModelFile.h"

#include <set>

namespace strutwright {
namespace {

using testing::HasSubstr;

class ClassSetTest : public ClassTest {
 protected:
  static std::string Fault(const ClassPlan& plan) {
    return FaultOfDoing([&plan] { MakeVariants(plan); });
  }
};

/// Reads the variant's file anew and analyses it.
void ReReadAndAnalyse(const std::string& bytes) {
  TakeModel(ReadModel(bytes));
  ASSERT_EQ(AnalyseTruss(), AnalysisEnd::Done);
}

TEST_F(ClassSetTest, GivesTheAnswersOfItsModels) {
  const ClassPlan plan = PrattPlan(200);
  std::set<std::string> models;
  for (const ClassVariant& variant : MakeVariants(plan)) {
    const std::string bytes = WriteModel(variant.model);
    models.insert(bytes);
    ReReadAndAnalyse(bytes);
    const CheckReport check = CheckAnswer(AnalysisOutcome::Done);
    EXPECT_GE(check.accuracy->digits, DigitsOfVariant);
    const auto answers = Answered(QuestionsAbout(variant.model, plan.asks), check, 1);
    ASSERT_EQ(answers.size(), variant.questions.size());
    for (std::size_t q = 0; q < answers.size(); ++q) EXPECT_EQ(answers[q].answer, variant.questions[q].answer);
  }
  EXPECT_EQ(models.size(), 200U);
}

TEST_F(ClassSetTest, IsTheSameForTheSameSeed) {
  const ClassPlan plan = PrattPlan(20);
  ClassPlan other = plan;
  other.seed = 8;
  EXPECT_EQ(KeyCsv(MakeVariants(plan)), KeyCsv(MakeVariants(plan)));
  EXPECT_NE(KeyCsv(MakeVariants(plan)), KeyCsv(MakeVariants(other)));
}

// What a class has been given must come again with a later version of the program.
TEST_F(ClassSetTest, DrawsWhatItHasAlwaysDrawn) {
  const auto variants = MakeVariants(PrattPlan(3));
  EXPECT_EQ(variants[0].varied, "span 18 m, height 2.5 m, load 35 kN");
  EXPECT_EQ(variants[2].varied, "span 14 m, height 2.5 m, load 15 kN");
}

TEST_F(ClassSetTest, GivesNeighboursOtherAnswers) {
  // Reactions depend on the load alone: 3 loads, 6 areas.
  const auto variants =
      MakeVariants(PlanFor(SourceOf(PrattTruss(10)), 18, {"load:10..12:1", "area:1000..2000:200"}, {"reaction:1y"}));
  for (std::size_t s = 1; s < variants.size(); ++s) {
    EXPECT_NE(variants[s].questions[0].answer, variants[s - 1].questions[0].answer);
  }
}

TEST_F(ClassSetTest, KeepsTheOpenModelAndItsResults) {
  const ClassSource source = SourceOf(PrattTruss(10));
  SetTables(Triangle());
  AnalyseTruss();
  AnalysisDone = FlagTrue;
  const FieldTable members = MemberTable;
  const std::vector<float> displacements = Displacements;
  MakeVariants(PlanFor(source, 3, {"load:10..40:5"}, {"reactions"}));
  EXPECT_EQ(MemberTable, members);
  EXPECT_EQ(Displacements, displacements);
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(ClassSetTest, SaysHowManyVariantsThereAre) {
  EXPECT_EQ(Fault(PlanFor(SourceOf(PrattTruss(10)), 5, {"load:10..12:1"}, {"reactions"})),
            "There are only 3 usable variants for 5 students: widen the ranges or make their steps smaller");
  EXPECT_EQ(Fault(PlanFor(SourceOf(PrattTruss(10)), 2, {}, {"reactions"})),
            "There is only 1 usable variant for 2 students: widen the ranges or make their steps smaller");
}

TEST_F(ClassSetTest, SaysThatNothingAskedForVaries) {
  EXPECT_EQ(Fault(PlanFor(SourceOf(PrattTruss(10)), 3, {"area:1000..2000:100"}, {"reactions"})),
            "The answers of neighbours would be the same, for 11 variants and 3 students: vary something that the "
            "asked values depend on");
}

TEST_F(ClassSetTest, RefusesAMechanism) {
  EXPECT_THAT(Fault(PlanFor(SourceOf(Square()), 3, {"span:1..9:1"}, {"reactions"})),
              HasSubstr("The truss is a mechanism: it can move in one way without stretching a member: "));
  EXPECT_EQ(Fault(PlanFor(SourceOf(ModelData{}), 3, {}, {"reactions"})), "The model has no nodes: build a truss first");
}

TEST_F(ClassSetTest, RefusesWhatIsZeroInEveryVariant) {
  const ModelData bar{{{0, 0, 0, 0, 3}, {5, 0, 0, 0, 1}}, {{1, 2}}};
  EXPECT_EQ(Fault(PlanFor(SourceOf(bar), 1, {"span:1..9:1"}, {"forces:1"})),
            "No variant can be used, because all values that are asked for are zero");
}

TEST_F(ClassSetTest, LeavesOutMembersOfAFamilyWithoutWhatIsAsked) {
  const auto variants = MakeVariants(PlanFor(SourceOf("pratt"), 3, {"bays:2..8:1", "load:10..40:5"}, {"forces:29"}));
  for (const ClassVariant& variant : variants) EXPECT_GE(variant.model.memberCount, 29);
  EXPECT_EQ(Fault(PlanFor(SourceOf("pratt"), 3, {"bays:2..3:1"}, {"forces:29"})),
            "No variant can be used, because there is no member 29: choose one from 1 to 5");
}

} // namespace
} // namespace strutwright
