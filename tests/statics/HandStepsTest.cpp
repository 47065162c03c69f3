// The steps as a window would show them: equations with numbers, solutions, polygons, reasons.

#include "HandFixture.h"
#include "HandTexts.h"
#include "LargeModels.h"
#include "TextbookTrusses.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using HandStepsTest = HandFixture;

TEST_F(HandStepsTest, FindTheReactionsFirst) {
  const ReactionsFirst reactions = Solved(Triangle()).reactions;
  ASSERT_TRUE(reactions.found);
  ASSERT_EQ(reactions.equations.size(), 3U);
  EXPECT_EQ(reactions.equations[0].title, "Sum of x");
  EXPECT_EQ(reactions.equations[0].text, "R1x + 5 = 0");
  EXPECT_EQ(reactions.equations[1].title, "Moment about node 2");
  EXPECT_EQ(reactions.equations[1].text, "-4 R1y - 3 * 5 = 0");
  EXPECT_EQ(reactions.equations[2].title, "Moment about node 1");
  EXPECT_EQ(reactions.equations[2].text, "4 R2y - 3 * 5 + 4 (-10) = 0");
  EXPECT_THAT(reactions.solution, ElementsAre("R1x = -5 kN", "R1y = -3.75 kN", "R2y = 13.75 kN"));
}

TEST_F(HandStepsTest, GoFromJointToJoint) {
  const HandSolution solution = Solved(Triangle());
  ASSERT_EQ(solution.steps.size(), 3U);
  const HandStep& first = solution.steps[0];
  EXPECT_THAT(first.body.nodes, ElementsAre(1));
  EXPECT_EQ(first.reason, "Two unknown forces");
  EXPECT_EQ(first.equations[0].text, "-5 + F1 + 0.8 F3 = 0");
  EXPECT_EQ(first.equations[0].solution, "");
  EXPECT_EQ(first.equations[1].text, "-3.75 + 0.6 F3 = 0");
  EXPECT_EQ(first.equations[1].solution, "F3 = 6.25 kN (tension)");
  EXPECT_THAT(first.solution, ElementsAre("F1 = 0", "F3 = 6.25 kN (tension)"));
  EXPECT_EQ(solution.steps[1].reason, "One unknown force: one equation gives it, the other checks");
  EXPECT_EQ(solution.steps[2].reason, "Every force at this joint is known: it must balance");
  EXPECT_THAT(solution.steps[2].solution, IsEmpty());
  EXPECT_EQ(solution.steps[2].equations[1].text, "-10 + 13.75 - 0.6 * 6.25 = 0");
}

TEST_F(HandStepsTest, CloseTheForcePolygonOfEachJoint) {
  for (const HandStep& step : Solved(ThreePanels().model).steps) {
    ASSERT_EQ(step.polygon.size(), step.body.forces.size());
    EXPECT_LT(ClosingError(step.polygon), 1e-9);
    EXPECT_EQ(step.polygon[0].x0, 0);
    for (std::size_t k = 1; k < step.polygon.size(); ++k) {
      EXPECT_EQ(step.polygon[k].x0, step.polygon[k - 1].x1);
      EXPECT_EQ(step.polygon[k].y0, step.polygon[k - 1].y1);
    }
  }
}

TEST_F(HandStepsTest, DrawKnownForcesBeforeThoseFound) {
  const HandStep step = Solved(Triangle()).steps[0];
  // Of node 1 the reactions are known; the polygon begins with one of them.
  EXPECT_EQ(step.body.forces[static_cast<std::size_t>(step.polygon[0].force)].kind, ForceKind::Reaction);
  EXPECT_EQ(step.found.size(), 2U);
}

/// A three-hinged arch whose supports stand at different heights.
ModelData SkewArch() {
  return {{{0, 0, 0, 0, 3}, {4, 3}, {8, 4, 0, -10}, {12, 3, 2, -5}, {16, 1, 0, 0, 3}, {3, 5}, {13, 5}},
          {{1, 2}, {2, 3}, {3, 4}, {4, 5}, {1, 6}, {6, 2}, {6, 3}, {3, 7}, {7, 4}, {7, 5}}};
}

TEST_F(HandStepsTest, TakeTheHingesEquationForFourReactions) {
  const HandSolution solution = Solved(SkewArch());
  EXPECT_EQ(solution.determinacy.kind, TrussKind::Compound);
  ASSERT_TRUE(solution.reactions.found);
  EXPECT_THAT(solution.reactions.hinges, ElementsAre(3));
  ASSERT_EQ(solution.reactions.equations.size(), 4U);
  EXPECT_EQ(solution.reactions.equations[0].text, "8 (-10) - 3 * 2 + 12 (-5) - R5x + 16 R5y = 0");
  EXPECT_EQ(solution.reactions.equations[1].title, "Moment about node 3 of the part with node 4");
  EXPECT_EQ(solution.reactions.equations[1].text, "2 + 4 (-5) + 3 R5x + 8 R5y = 0");
  // 16 Ry - Rx = 146 and 3 Rx + 8 Ry = 18: Ry = 57 / 7, Rx = -110 / 7.
  EXPECT_NEAR(solution.forces.reactions[XFreedom(5)], -110.0 / 7, 1e-12);
  EXPECT_NEAR(solution.forces.reactions[YFreedom(5)], 57.0 / 7, 1e-12);
  EXPECT_THAT(solution.reactions.solution.back(), "R1y = 6.8571 kN");
}

TEST_F(HandStepsTest, FindReactionsWithTheJointsWhereNoHingeHelps) {
  // Three supports in a row; the second panel has no diagonal, and no node parts the truss.
  const ModelData open{{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {8, 0, 0, 0, 1}, {0, 3}, {4, 3, 0, -6}, {8, 3, 0, -10}},
                       {{1, 2}, {2, 3}, {4, 5}, {5, 6}, {1, 4}, {2, 5}, {3, 6}, {1, 5}}};
  const HandSolution solution = Solved(open);
  EXPECT_FALSE(solution.reactions.found);
  EXPECT_EQ(solution.reactions.whyNot, "The whole truss has three equations for 4 reactions, and no hinge gives enough "
                                       "of them more; the reactions come with the joints");
  EXPECT_THAT(solution.reactions.equations, IsEmpty());
  EXPECT_EQ(solution.determinacy.kind, TrussKind::Simple);
  // Node 4 bears nothing; nodes 6 and 3 pass the 10 kN down to the roller.
  EXPECT_THAT(solution.steps[0].body.nodes, ElementsAre(4));
  EXPECT_NEAR(solution.forces.reactions[YFreedom(3)], 10, 1e-12);
  EXPECT_NEAR(solution.forces.reactions[YFreedom(2)], 6, 1e-12);
}

TEST_F(HandStepsTest, GoAlongAChainOfSimplePartsSectionBySection) {
  const ModelData chain = TiedStrips(120); // ten strips
  const HandSolution solution = Solved(chain);
  EXPECT_EQ(solution.determinacy.kind, TrussKind::Compound);
  EXPECT_EQ(solution.stop, "");
  const auto isSection = [](const HandStep& step) { return step.kind == HandStepKind::Section; };
  EXPECT_EQ(std::count_if(solution.steps.begin(), solution.steps.end(), isSection), 9);
  const RefinedSolution stiff = ByStiffness(chain);
  for (std::size_t m = 1; m < stiff.forces.size(); ++m) {
    EXPECT_NEAR(solution.forces.members[m], stiff.forces[m], 1e-9 * LargestOf(stiff.forces)) << m;
  }
}

TEST_F(HandStepsTest, StopWhereTheTrussIsIndeterminate) {
  ModelData model = ThreePanels().model;
  model.members.push_back({2, 6});
  const HandSolution solution = Solved(model);
  EXPECT_EQ(solution.stop, "No joint left has at most two unknown forces: b + r = 10 + 3 = 13 > 2n = 12: indeterminate "
                           "to degree 1; equilibrium alone leaves as many forces open");
  // The end joints are out of the crossed panel's reach.
  EXPECT_NEAR(solution.forces.members[4], -500, 1e-9);
  EXPECT_EQ(solution.forces.memberKnown[10], 0);
}

TEST_F(HandStepsTest, AreNoneForAMechanism) {
  const HandSolution solution = Solved(Square());
  EXPECT_THAT(solution.steps, IsEmpty());
  EXPECT_THAT(solution.stop, HasSubstr("a mechanism"));
  EXPECT_EQ(solution.stop, solution.determinacy.sentence);
  EXPECT_THAT(Solved({}).stop, "The model has no node");
}

TEST_F(HandStepsTest, FindNoForceWithoutLoad) {
  ModelData model = TwoTriangles();
  for (NodeData& node : model.nodes) node.forceY = 0;
  const HandSolution solution = Solved(model);
  EXPECT_EQ(LargestOf(solution.forces.members), 0);
  EXPECT_EQ(solution.steps[0].solution[0], "F1 = 0");
  EXPECT_EQ(solution.steps[0].equations[0].text, "F1 + 0.5 F5 = 0");
}

TEST_F(HandStepsTest, ScaleWithTheLoads) {
  const HandSolution one = Solved(TwoTriangles());
  for (const float scale : {1e-30F, 1e30F}) {
    ModelData model = TwoTriangles();
    for (NodeData& node : model.nodes) node.forceY *= scale;
    const HandSolution solution = Solved(model);
    EXPECT_EQ(solution.stop, "");
    for (std::size_t m = 1; m < one.forces.members.size(); ++m) {
      EXPECT_NEAR(solution.forces.members[m] / scale, one.forces.members[m], 1e-6);
    }
  }
  ModelData model = TwoTriangles();
  for (NodeData& node : model.nodes) node.forceY *= 1e30F;
  EXPECT_EQ(Solved(model).steps[2].solution.back(), "F19 = -3.4641E+30 kN (compression)");
}

TEST_F(HandStepsTest, ShowAnyJointWithTheForcesOfAnAnalysis) {
  const HandTruss truss = HandTrussOf(Triangle());
  // Forces and reactions of members 1 to 3 and freedoms 1 to 6, as another solution may have them.
  const HandStep joint = JointOf(truss, 3, HandForces({0, 0, -13.75, 6.25}, {0, -5, -3.75, 0, 13.75, 0, 0}));
  EXPECT_EQ(joint.equations[0].text, "5 - 0.8 * 6.25 = 0");
  EXPECT_EQ(joint.equations[1].text, "-10 + 13.75 - 0.6 * 6.25 = 0");
  EXPECT_LT(ClosingError(joint.polygon), 1e-12);
}

TEST_F(HandStepsTest, KeepCoincidentNodesApart) {
  // Node 4 lies on node 3, without a member between them: a truss with a loose end.
  ModelData model = Triangle();
  model.nodes.push_back({4, 3});
  model.members.push_back({1, 4});
  model.members.push_back({2, 4});
  const HandSolution solution = Solved(model);
  EXPECT_EQ(solution.determinacy.kind, TrussKind::Simple);
  EXPECT_NEAR(solution.forces.members[4], 0, 1e-12);
}

TEST(HandTextTest, WritesNumbersAsOneWritesThem) {
  EXPECT_EQ(HandNumber(0), "0");
  EXPECT_EQ(HandNumber(-0.0), "0");
  EXPECT_EQ(HandNumber(12.5), "12.5");
  EXPECT_EQ(HandNumber(2.0 / 3), "0.66667");
  EXPECT_EQ(HandNumber(-1234567), "-1.2346E+06");
  EXPECT_EQ(HandNumber(1e-7), "1E-07");
}

TEST(HandTextTest, WritesSums) {
  SumText sum;
  EXPECT_EQ(sum.Text(), "0");
  sum.AddUnknown(-1, "F1");
  sum.AddUnknown(1e-12, "F2");
  sum.AddUnknown(0.8, "F3");
  sum.AddNumber(1, -4);
  sum.AddNumber(-0.6, -2);
  sum.AddNumber(-0.6, 2);
  sum.AddNumber(3, 0);
  EXPECT_EQ(sum.Text(), "-F1 + 0.8 F3 - 4 - 0.6 (-2) - 0.6 * 2");
}

TEST(HandTextTest, NamesNodesMembersAndForces) {
  EXPECT_EQ(NodeNames({4}), "Node 4");
  EXPECT_EQ(NodeNames({4, 5, 9}), "Nodes 4, 5 and 9");
  EXPECT_EQ(MemberNames({4}), "member 4");
  EXPECT_EQ(MemberNames({4, 5}), "members 4 and 5");
  EXPECT_EQ(ForceText("F1", -2, true, 1e-9), "F1 = -2 kN (compression)");
  EXPECT_EQ(ForceText("R1x", -2, false, 1e-9), "R1x = -2 kN");
  EXPECT_EQ(ForceText("F1", 1e-10, true, 1e-9), "F1 = 0");
}

} // namespace
} // namespace strutwright
