#include "AnalysisState.h"
#include "ModelBuilder.h"
#include "WorkbenchFixture.h"
#include "modModelStore.h"
#include "modRunAnalysis.h"
#include "modTips.h"

#include <gtest/gtest.h>

namespace strutwright {
namespace {

/// A 3-4-5 triangle with a load of (5, -10) at node 3.  By hand: the moment about
/// node 1 gives R2y = (10 * 4 + 5 * 3) / 4 = 13.75, then R1y = -3.75 and R1x = -5.
class TipsTest : public WorkbenchFixture {
 protected:
  TipsTest() { SetModel(Triangle()); }
};

TEST_F(TipsTest, SaysWhatIsKnownOfANodeWithoutResults) {
  EXPECT_EQ(NodeTip(3), "Node 3\nPlace: x 4 m, y 3 m\nLoad: x 5 kN, y -10 kN\nSupport: none");
  EXPECT_EQ(NodeTip(2), "Node 2\nPlace: x 4 m, y 0 m\nLoad: none\nSupport: held in y");
}

TEST_F(TipsTest, NamesEverySupport) {
  SetModel({{{0, 0, 0, 0, 0}, {1, 0, 0, 0, 1}, {2, 0, 0, 0, 2}, {3, 0, 0, 0, 3}, {4, 0, 0, 0, 7}}, {}});
  EXPECT_EQ(NodeTip(1), "Node 1\nPlace: x 0 m, y 0 m\nLoad: none\nSupport: none");
  EXPECT_EQ(NodeTip(3), "Node 3\nPlace: x 2 m, y 0 m\nLoad: none\nSupport: held in x");
  EXPECT_EQ(NodeTip(4), "Node 4\nPlace: x 3 m, y 0 m\nLoad: none\nSupport: held in x and y");
  EXPECT_EQ(NodeTip(5), "Node 5\nPlace: x 4 m, y 0 m\nLoad: none\nSupport: held in x and y");
}

TEST_F(TipsTest, GivesDisplacementAndReactionAfterAnAnalysis) {
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  EXPECT_TRUE(NodeTip(1).ends_with("\nDisplacement: x 0.0 mm, y 0.0 mm\nReaction: x -5.0 kN, y -3.75 kN"))
      << NodeTip(1);
  EXPECT_TRUE(NodeTip(2).ends_with(" mm, y 0.0 mm\nReaction: y 13.75 kN")) << NodeTip(2);
  EXPECT_EQ(NodeTip(3).find("Reaction"), std::string::npos);
}

TEST_F(TipsTest, GivesTheReactionOfARollerOnAWall) {
  SetModel({{{0, 0, 0, 0, 3}, {0, 3, 0, 0, 2}, {4, 0, 0, -3, 0}}, {{1, 3}, {2, 3}, {1, 2}}});
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  EXPECT_TRUE(NodeTip(2).ends_with("\nReaction: x -4.0 kN")) << NodeTip(2);
}

TEST_F(TipsTest, SaysWhatIsKnownOfAMemberWithoutResults) {
  EXPECT_EQ(MemberTip(3), "Member 3, nodes 3-1\nL: 5.0 m\nE: 200 kN/mm2\nA: 1000 mm2");
}

TEST_F(TipsTest, MentionsAPrestress) {
  SetModel({{{0, 0}, {4, 0}}, {{1, 2, 200, 1000, 12.5F}}});
  EXPECT_EQ(MemberTip(1), "Member 1, nodes 1-2\nL: 4.0 m\nE: 200 kN/mm2\nA: 1000 mm2\nPS: 12.5 kN");
}

// Member 3, from node 3 to 1, carries -(-3.75) / 0.6 = 6.25 kN in tension: 6.25 N/mm2 on 1000 mm2, and
// dL = 6.25 * 5000 / (200 * 1000) = 0.156 mm.
TEST_F(TipsTest, GivesForceStressAndChangeOfLengthAfterAnAnalysis) {
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  EXPECT_EQ(MemberTip(3), "Member 3, nodes 3-1\nL: 5.0 m\nE: 200 kN/mm2\nA: 1000 mm2\nForce: 6.25 kN T\n"
                          "Stress: 6.25 N/mm2\nChange of length: 0.156 mm");
  EXPECT_NE(MemberTip(2).find("\nForce: -13.75 kN C\nStress: -13.75 N/mm2\n"), std::string::npos) << MemberTip(2);
  EXPECT_NE(MemberTip(1).find("\nForce: 0.0 kN Zero Bar\n"), std::string::npos) << MemberTip(1);
}

TEST_F(TipsTest, KeepsSilentAboutTheLengthOfAMemberWithoutANode) {
  SetTables({{{0, 0}}, {{1, 9}}});
  EXPECT_EQ(MemberTip(1), "Member 1, nodes 1-9\nE: 200 kN/mm2\nA: 1000 mm2");
}

TEST_F(TipsTest, SaysNothingOfWhatThereIsNot) {
  EXPECT_EQ(NodeTip(0), "");
  EXPECT_EQ(NodeTip(4), "");
  EXPECT_EQ(MemberTip(0), "");
  EXPECT_EQ(MemberTip(4), "");
}

} // namespace
} // namespace strutwright
