#include "CellEdits.h"
#include "GridFixture.h"
#include "ModelBuilder.h"
#include "modCopies.h"
#include "modModelStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

class CopiesTest : public GridFixture {
 protected:
  CopiesTest() { SetModel({{{0, 0, 0, 0, 3}, {1, 0}, {0, 2, 5, -7}}, {{1, 2}, {1, 3, 100, 500, 4}}}); }
};

TEST_F(CopiesTest, BringLoadsSupportsAndSections) {
  EXPECT_THAT(RepeatParts({{}, {2}}, 0, 3, 1), ElementsAre(4, 5));
  EXPECT_EQ(NodeTable(4, NodeY), 3);
  EXPECT_EQ(NodeTable(4, NodeSupport), 3);
  EXPECT_EQ(NodeTable(5, NodeForceX), 5);
  EXPECT_EQ(NodeTable(5, NodeForceY), -7);
  EXPECT_EQ(MemberTable(3, MemberNodeI), 4);
  EXPECT_EQ(MemberTable(3, MemberE), 100);
  EXPECT_EQ(MemberTable(3, MemberA), 500);
  EXPECT_EQ(MemberTable(3, MemberPS), 4);
}

TEST_F(CopiesTest, ShareNodesThatAreThere) {
  EXPECT_THAT(RepeatParts({{}, {1}}, 1, 0, 3), ElementsAre(5, 6)); // node 1 is copied onto node 2
  EXPECT_EQ(NodeCount, 6);
  EXPECT_EQ(MemberCount, 5);
  EXPECT_EQ(NodeTable(6, NodeX), 4);
}

TEST_F(CopiesTest, MakeNoSecondMemberBetweenTheSameNodes) {
  RepeatParts({{}, {1}}, 0, 0, 1);
  EXPECT_EQ(MemberCount, 2);
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(CopiesTest, PassOverWhatIsNotThere) {
  EXPECT_THAT(RepeatParts({{9}, {9}}, 1, 0, 1), ElementsAre());
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(CopiesTest, OfAMirrorTurnTheLoadsAcrossIt) {
  EXPECT_THAT(MirrorParts({{3}, {}}, 2, false), ElementsAre(4));
  EXPECT_EQ(NodeTable(4, NodeX), 4);
  EXPECT_EQ(NodeTable(4, NodeForceX), -5);
  EXPECT_EQ(NodeTable(4, NodeForceY), -7);
  EXPECT_THAT(MirrorParts({{3}, {}}, 0, true), ElementsAre(5));
  EXPECT_EQ(NodeTable(5, NodeY), -2);
  EXPECT_EQ(NodeTable(5, NodeForceX), 5);
  EXPECT_EQ(NodeTable(5, NodeForceY), 7);
}

TEST_F(CopiesTest, OfCellsArePutBackAndAgain) {
  CellEdits edits;
  EXPECT_FALSE(edits.ChangeAny());
  edits.Put(GrJoints, 2, 1, "4");
  edits.Put(GrJoints, 2, 1, "6");
  EXPECT_TRUE(edits.ChangeAny());
  edits.PutBack();
  EXPECT_EQ(GrJoints.Text(2, 1), "1");
  edits.PutAgain();
  EXPECT_EQ(GrJoints.Text(2, 1), "6");
  edits.Put(GrJoints, 2, 1, "1");
  EXPECT_FALSE(edits.ChangeAny());
}

TEST(RoundStepTest, IsTheLargestRoundNumberNotAboveAValue) {
  EXPECT_EQ(RoundStep(1), 1);
  EXPECT_EQ(RoundStep(1.99), 1);
  EXPECT_EQ(RoundStep(2), 2);
  EXPECT_EQ(RoundStep(4.99), 2);
  EXPECT_EQ(RoundStep(73), 50);
  EXPECT_EQ(RoundStep(0.3), 0.2);
  EXPECT_EQ(RoundStep(0), 1);
}

} // namespace
} // namespace strutwright
