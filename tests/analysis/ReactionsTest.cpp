#include "modAnalysis.h"

#include "AnalysisFixture.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::FloatEq;

/// One member from (0, 0) to (3, 4) with force 14 and prestress 4, so that it gives the nodes (6, 8) more than PS does.
class ReactionsTest : public AnalysisFixture {
 protected:
  ReactionsTest() {
    SetBar(3, 4, 4);
    SetResults(1);
    Reactions.assign(5, 0.0F);
  }

  static void SetResults(int m) {
    MemberTable(m, MemberFieldCos) = 0.6F;
    MemberTable(m, MemberFieldSin) = 0.8F;
    MemberTable(m, MemberFieldForce) = 14.0F;
    MemberTable(m, MemberPS) = 4.0F;
  }

  static auto AreNear(float x1, float y1, float x2, float y2) {
    return ElementsAre(FloatEq(x1), FloatEq(y1), FloatEq(x2), FloatEq(y2));
  }
};

TEST_F(ReactionsTest, PushAgainstAMemberThatStartsAtTheSupport) {
  NodeTable(1, NodeSupport) = 3;
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), AreNear(-6, -8, 0, 0));
}

TEST_F(ReactionsTest, PullAgainstAMemberThatEndsAtTheSupport) {
  NodeTable(2, NodeSupport) = 3;
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), AreNear(0, 0, 6, 8));
}

TEST_F(ReactionsTest, StayZeroAtFreeNodes) {
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), Each(0.0F));
}

TEST_F(ReactionsTest, AddToWhatTheSupportsLeftThere) {
  NodeTable(1, NodeSupport) = 3;
  Reactions = {0, 100, 200, 300, 400};
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), AreNear(94, 192, 300, 400));
}

TEST_F(ReactionsTest, GatherInTheFreeDirectionOfASupportedNodeToo) {
  NodeTable(1, NodeSupport) = 1;
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), AreNear(-6, -8, 0, 0));
}

TEST_F(ReactionsTest, GatherForEveryOddCode) {
  NodeTable(1, NodeSupport) = -0.5F;
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), AreNear(-6, -8, 0, 0));
}

TEST_F(ReactionsTest, TakeAMemberFromANodeToItselfForOneThatEndsThere) {
  NodeTable(1, NodeSupport) = 3;
  MemberTable(1, MemberNodeJ) = 1;
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), AreNear(6, 8, 0, 0));
}

TEST_F(ReactionsTest, CompareNodeNumbersAsFloats) {
  NodeTable(1, NodeSupport) = 3;
  NodeTable(2, NodeSupport) = 3;
  MemberTable(1, MemberNodeI) = 0.6F;
  MemberTable(1, MemberNodeJ) = 2.5F;
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), Each(0.0F));
}

TEST_F(ReactionsTest, AddUpAllMembersAtTheSupport) {
  SetTables({{{0, 0, 0, 0, 3}, {3, 4}}, {{1, 2}, {2, 1}, {1, 2}}});
  for (int m = 1; m <= 3; ++m) SetResults(m);
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), AreNear(-6, -8, 0, 0));
}

TEST_F(ReactionsTest, UseTheStoredDirection) {
  NodeTable(1, NodeSupport) = 3;
  MemberTable(1, MemberFieldCos) = 1.0F;
  MemberTable(1, MemberFieldSin) = 0.0F;
  ComputeReactions();
  EXPECT_THAT(Used(Reactions), AreNear(-10, 0, 0, 0));
}

class NodeDisplacementTest : public AnalysisFixture {
 protected:
  NodeDisplacementTest() { Displacements = {0, 1, 2, 3, 4}; }
};

TEST_F(NodeDisplacementTest, IsInXForTheTextX) {
  EXPECT_EQ(NodeDisplacement(1, "x"), 1.0F);
  EXPECT_EQ(NodeDisplacement(2, "x"), 3.0F);
}

TEST_F(NodeDisplacementTest, IsInYForEveryOtherText) {
  EXPECT_EQ(NodeDisplacement(1, "y"), 2.0F);
  EXPECT_EQ(NodeDisplacement(2, "y"), 4.0F);
  EXPECT_EQ(NodeDisplacement(2, "X"), 4.0F);
  EXPECT_EQ(NodeDisplacement(2, ""), 4.0F);
}

TEST_F(NodeDisplacementTest, FailsForANodeWithoutFreedoms) {
  EXPECT_THROW(NodeDisplacement(3, "x"), std::out_of_range);
}

} // namespace
} // namespace strutwright
