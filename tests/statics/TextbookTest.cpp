// Trusses from textbooks, with the figures printed there.

#include "HandFixture.h"
#include "TextbookTrusses.h"
#include "modSections.h"
#include "modZeroMembers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using TextbookTest = HandFixture;

void ExpectPrinted(const HandSolution& solution, const TextbookTruss& book) {
  for (std::size_t k = 0; k < book.forces.size(); ++k) {
    EXPECT_NEAR(solution.forces.members[k + 1], book.forces[k], book.printed) << "member " << k + 1;
  }
}

bool IsByJointsAlone(const HandSolution& solution) {
  return std::all_of(solution.steps.begin(), solution.steps.end(),
                     [](const HandStep& step) { return step.kind == HandStepKind::Joint; });
}

TEST_F(TextbookTest, ThreeJointsGoByJointsAlone) {
  const HandSolution solution = Solved(ThreeJoints().model);
  ExpectPrinted(solution, ThreeJoints());
  EXPECT_TRUE(IsByJointsAlone(solution));
  EXPECT_EQ(solution.determinacy.kind, TrussKind::Simple);
}

TEST_F(TextbookTest, TwoPanelsGoByJointsAfterTheReactions) {
  const HandSolution solution = Solved(TwoPanels().model);
  ExpectPrinted(solution, TwoPanels());
  EXPECT_TRUE(IsByJointsAlone(solution));
  EXPECT_NEAR(solution.forces.reactions[YFreedom(1)], 600, 1e-9);
  EXPECT_NEAR(solution.forces.reactions[XFreedom(3)], -600, 1e-9);
  EXPECT_NEAR(solution.forces.reactions[YFreedom(3)], -200, 1e-9);
}

TEST_F(TextbookTest, ASectionThroughThreePanelsGivesThreeForces) {
  const HandTruss truss = HandTrussOf(ThreePanels().model);
  const HandSolution solution = SolveByHand(truss);
  ExpectPrinted(solution, ThreePanels());
  // A line from above to below through GE, GC and BC.
  const HandSection section = SectionAlong(truss, {6.5, 4, 6.5, -1}, solution.forces);
  EXPECT_THAT(section.cut, ElementsAre(2, 5, 8));
  EXPECT_THAT(section.body.nodes, ElementsAre(1, 2, 5));
  ASSERT_EQ(section.equations.size(), 3U);
  EXPECT_EQ(section.equations[0].title, "Moment about node 5");
  EXPECT_EQ(section.equations[0].text, "3 (-400) - 4 * 300 + 3 F2 = 0");
  EXPECT_EQ(section.equations[0].solution, "F2 = 800 kN (tension)");
  EXPECT_EQ(section.equations[1].title, "Moment about node 3");
  EXPECT_EQ(section.equations[1].text, "-8 * 300 - 3 F5 = 0");
  EXPECT_EQ(section.equations[1].solution, "F5 = -800 kN (compression)");
  EXPECT_EQ(section.equations[2].title, "Sum of y");
  EXPECT_EQ(section.equations[2].text, "300 - 0.6 F8 = 0");
  EXPECT_EQ(section.equations[2].solution, "F8 = 500 kN (tension)");
}

TEST_F(TextbookTest, TheMomentAboutACrossingOutsideGivesTheDiagonalOfARoof) {
  const HandTruss truss = HandTrussOf(BowRoof());
  const HandSolution solution = SolveByHand(truss);
  EXPECT_NEAR(solution.forces.members[BowRoofMember], BowRoofForce, 5e-4);
  const HandSection section = SectionAlong(truss, {10, 9, 11, -1}, solution.forces);
  EXPECT_THAT(section.cut, ElementsAre(3, 7, 13));
  EXPECT_THAT(section.body.nodes, ElementsAre(4, 5, 8));
  const auto at = std::find_if(section.equations.begin(), section.equations.end(),
                               [](const HandEquation& each) { return each.solution.starts_with("F13"); });
  ASSERT_NE(at, section.equations.end());
  EXPECT_EQ(at->title, "Moment about the crossing of F3 and F7 at (20, 0)");
  EXPECT_EQ(at->solution, "F13 = -0.58926 kN (compression)");
}

TEST_F(TextbookTest, TwoTrianglesNeedASectionFirst) {
  const HandSolution solution = Solved(TwoTriangles());
  EXPECT_EQ(solution.determinacy.kind, TrussKind::Compound);
  EXPECT_NEAR(solution.forces.members[TwoTrianglesBar], TwoTrianglesForce, 5e-3);
  const auto section = std::find_if(solution.steps.begin(), solution.steps.end(),
                                    [](const HandStep& step) { return step.kind == HandStepKind::Section; });
  ASSERT_NE(section, solution.steps.end());
  // Only the joints at the supports can be taken before.
  EXPECT_EQ(section - solution.steps.begin(), 2);
  EXPECT_EQ(section->reason, "No joint left has at most two unknown forces: the truss is compound. The section through "
                             "members 3, 12 and 19 goes on");
  EXPECT_EQ(section->equations.back().title, "Moment about node 3");
  EXPECT_EQ(section->equations.back().text, "-4 * 5 - 2 (-4) - 3.4641 F19 = 0");
  EXPECT_EQ(section->solution.back(), "F19 = -3.4641 kN (compression)");
}

TEST_F(TextbookTest, AComplexTrussTakesAllJointsTogether) {
  const HandSolution solution = Solved(SubstituteMember().model);
  ExpectPrinted(solution, SubstituteMember());
  EXPECT_EQ(solution.determinacy.kind, TrussKind::Complex);
  ASSERT_FALSE(solution.steps.empty());
  EXPECT_EQ(solution.steps[0].kind, HandStepKind::Together);
  EXPECT_EQ(solution.steps[0].reason,
            "No joint left has at most two unknown forces, and no section has one alone: the truss is complex. The 12 "
            "equations of the 6 joints left are solved together for 9 forces");
  EXPECT_EQ(solution.steps[0].equations[0].title, "Sum of x at node 1");
  EXPECT_EQ(solution.steps[0].equations[0].text, "-5 + 0.8 F3 + 0.93633 F7 = 0");
  EXPECT_EQ(solution.steps[0].solution.front(), "F1 = 2.0203 kN (tension)");
}

TEST_F(TextbookTest, ThreeMembersOfAFinkRoofBearNothing) {
  const std::vector<ZeroMember> zeros = FindZeroMembers(HandTrussOf(FinkRoof()));
  std::vector<int> members;
  for (const ZeroMember& zero : zeros) members.push_back(zero.member);
  EXPECT_THAT(members, ElementsAre(13, 12, 11));
  EXPECT_EQ(zeros[0].text, "At node 4 member 3 and member 4 act along one line, and member 13 goes across it");
  EXPECT_EQ(zeros[1].text, "At node 6 member 5 and member 6 act along one line, and member 12 goes across it");
}

} // namespace
} // namespace strutwright
