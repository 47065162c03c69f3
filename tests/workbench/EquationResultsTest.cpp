// The steps beside the analysis: they come to the same, and leave its results.

#include "EquationsFixture.h"
#include "modRunAnalysis.h"

#include <cmath>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

using EquationResultsTest = EquationsTest;

TEST_F(EquationResultsTest, LeavesTheResultsOfTheLastAnalysis) {
  SetModel(Triangle());
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  const FieldTable members = MemberTable;
  const AnalysisState analysis = TheAnalysis;
  events.clear();

  for (const auto step : {StepShowForces, StepAddMember, StepShowGlobalK, StepRestrict, StepSolve, StepBack}) step();

  EXPECT_EQ(MemberTable, members);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(Displacements, analysis.Displacements);
  EXPECT_EQ(Reactions, analysis.Reactions);
  EXPECT_EQ(GlobalStiffness, analysis.GlobalStiffness);
  EXPECT_EQ(MemberStiffnessBuffer, analysis.MemberStiffnessBuffer);
  EXPECT_THAT(events, testing::IsEmpty());
}

TEST_F(EquationResultsTest, LeavesTheAnalysisDoneAlsoWhenASolveFails) {
  SetModel(Triangle());
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  StepShowGlobalK();
  events.clear();

  StepSolve();

  EXPECT_THAT(TakeMessages(), ElementsAre(UnstableBox()));
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(FailedCheck, std::nullopt);
  EXPECT_THAT(events, testing::IsEmpty());
}

TEST_F(EquationResultsTest, EndsTheAnalysisWhenTheGridsHaveChanged) {
  SetModel(Triangle());
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  events.clear();
  GrJoints.SetText(3, NodeForceX, "6");

  StepShowForces();

  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
}

TEST_F(EquationResultsTest, ChangesNothingWhenASolveIsCancelled) {
  SetModel(PrattTruss(20));
  StepShowGlobalK();
  StepRestrict();
  statusBar.reportsUntilCancel = 0;
  ThePlatform().now = [] {
    static std::chrono::steady_clock::time_point time;
    return time += std::chrono::seconds(2);
  };

  StepSolve();

  EXPECT_EQ(Disp(1), "");
  EXPECT_EQ(TheEquations.page.lastStep, EquationStep::Restrict);
  EXPECT_EQ(events.back(), "EndProgress");
}

TEST_F(EquationResultsTest, SolvesAsTheAnalysisDoes) {
  SetModel(PrattTruss(20));
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  StepShowGlobalK();
  StepRestrict();

  StepSolve();

  EXPECT_EQ(*TheEquations.page.displacements, Displacements);
}

TEST_F(EquationResultsTest, SolvesAsTheAnalysisDoesWhereADisplacementIsInfinite) {
  ModelData model = Triangle();
  model.nodes[2].forceX = 3e38F;
  for (MemberData& member : model.members) member.A = 0.01F;
  SetModel(model);
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  StepShowGlobalK();
  StepRestrict();

  StepSolve();

  EXPECT_TRUE(std::isinf(Displacements[5]));
  EXPECT_THAT(*TheEquations.page.displacements, testing::Pointwise(testing::NanSensitiveFloatEq(), Displacements));
}

} // namespace
} // namespace strutwright
