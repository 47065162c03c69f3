#include "DisplayFixture.h"
#include "SpecialNumbers.h"
#include "modPicking.h"

#include <cmath>
#include <ostream>

namespace strutwright {

void PrintTo(const WorldPoint& point, std::ostream* out) { *out << "(" << point.x << ", " << point.y << ")"; }

namespace {

class PickingTest : public DisplayFixture {
 protected:
  PickingTest() { PickRadius = 0.25F; }
};

TEST_F(PickingTest, FindsTheNodeUnderThePoint) {
  SetTables({{{0, 0}, {4, 0}, {4, 3}}, {}});
  EXPECT_EQ(FindNode(4, 3), 3);
  EXPECT_EQ(FindNode(4.125F, 2.875F), 3);
}

TEST_F(PickingTest, FindsNoNodeFarther) {
  SetTables({{{0, 0}}, {}});
  EXPECT_EQ(FindNode(1, 0), 0);
  EXPECT_EQ(FindNode(0.1875F, 0.1875F), 0); // 0.265 away, though less than the radius in each direction
}

TEST_F(PickingTest, FindsNothingInAnEmptyModel) {
  EXPECT_EQ(FindNode(0, 0), 0);
  EXPECT_EQ(FindMember(0, 0), 0);
}

TEST_F(PickingTest, TakesTheLowerNumberedOfTwoNodes) {
  SetTables({{{9, 9}, {0, 0}, {0.125F, 0}}, {}});
  EXPECT_EQ(FindNode(0.125F, 0), 2);
}

TEST_F(PickingTest, DoesNotHitANodeAtExactlyTheRadius) {
  SetTables({{{0, 0}}, {}});
  EXPECT_EQ(FindNode(0.25F, 0), 0);
  EXPECT_EQ(FindNode(std::nextafter(0.25F, 0.0F), 0), 1);
  PickRadius = 0.1F;
  EXPECT_EQ(FindNode(0.1F, 0), 0);
  PickRadius = 1.25F;
  EXPECT_EQ(FindNode(-0.75F, 1), 0); // a 3-4-5 triangle
}

TEST_F(PickingTest, FindsNothingWithoutARadius) {
  SetTables({{{0, 0}, {4, 0}}, {{1, 2}}});
  for (const float radius : {0.0F, -1.0F, NaN}) {
    PickRadius = radius;
    EXPECT_EQ(FindNode(0, 0), 0);
    EXPECT_EQ(FindMember(2, 0), 0);
    EXPECT_FALSE(IsSnapped(1, 1));
  }
}

class MemberPickTest : public PickingTest {
 protected:
  MemberPickTest() { SetTables({{{0, 0}, {4, 0}, {4, 3}}, {{1, 2}, {2, 3}, {3, 1}}}); }
};

TEST_F(MemberPickTest, FindsTheMemberNearItsLine) {
  EXPECT_EQ(FindMember(2, 0.125F), 1);
  EXPECT_EQ(FindMember(4.125F, 1.5F), 2);
  EXPECT_EQ(FindMember(2, 1.5F), 3);
  EXPECT_EQ(FindMember(2, 1.75F), 3);  // 0.2 off the line
  EXPECT_EQ(FindMember(2, 1.875F), 0); // 0.3 off the line
}

TEST_F(MemberPickTest, DoesNotHitALineAtExactlyTheRadius) {
  EXPECT_EQ(FindMember(2, -0.25F), 0);
  EXPECT_EQ(FindMember(2, std::nextafter(-0.25F, 0.0F)), 1);
}

TEST_F(MemberPickTest, ReachesTheRadiusBeyondAnEnd) {
  EXPECT_EQ(FindMember(-0.25F, 0), 1);
  EXPECT_EQ(FindMember(std::nextafter(-0.25F, -1.0F), 0), 0);
  EXPECT_EQ(FindMember(4, 3.25F), 2);
  EXPECT_EQ(FindMember(4, std::nextafter(3.25F, 4.0F)), 0);
}

TEST_F(MemberPickTest, TakesTheFirstMemberHit) { EXPECT_EQ(FindMember(0, 0), 1); }

TEST_F(MemberPickTest, TakesTheEndsInAnyOrder) {
  SetTables({{{4, 3}, {0, 0}, {0, 3}, {4, 0}}, {{1, 2}, {3, 4}}});
  EXPECT_EQ(FindMember(1, 0.75F), 1);
  EXPECT_EQ(FindMember(1, 2.25F), 2);
  EXPECT_EQ(FindMember(5, 3.75F), 0);
}

TEST_F(MemberPickTest, FindsAMemberWithoutLengthRoundItsPoint) {
  SetTables({{{2, 2}}, {{1, 1}}});
  EXPECT_EQ(FindMember(2.125F, 2), 1);
  EXPECT_EQ(FindMember(2, 2), 1);
  EXPECT_EQ(FindMember(2.25F, 2), 0);
  EXPECT_EQ(FindMember(2.1875F, 2.1875F), 0);
}

TEST_F(MemberPickTest, PassesOverAMemberWhoseNodeIsNotThere) {
  SetTables({{{0, 0}, {4, 0}}, {{1, 9}, {-1, 2}, {NaN, 2}, {1, 2}}});
  EXPECT_EQ(FindMember(2, 0), 4);
}

TEST_F(MemberPickTest, IsExactFarFromTheOrigin) {
  SetTables({{{1000000, 1000000}, {1000004, 1000003}}, {{1, 2}}});
  EXPECT_EQ(FindMember(1000002, 1000001.5F), 1);
  EXPECT_EQ(FindMember(1000002, 1000001.875F), 0);
}

TEST_F(MemberPickTest, FindsNothingWhereNoNumberIs) {
  SetTables({{{NaN, 0}, {Infinity, 0}, {4, 0}}, {{1, 3}, {2, 3}}});
  EXPECT_EQ(FindMember(3, 0), 0);
  EXPECT_EQ(FindMember(NaN, NaN), 0);
  EXPECT_EQ(FindNode(NaN, 0), 0);
}

TEST_F(PickingTest, RoundsToTheNearestGridPoint) {
  GridSpacingX = 0.5F;
  GridSpacingY = 2;
  EXPECT_EQ(NearestGridPoint(1.625F, 2.5F), (WorldPoint{1.5F, 2}));
  EXPECT_EQ(NearestGridPoint(-1.875F, -3.5F), (WorldPoint{-2, -4}));
}

TEST_F(PickingTest, RoundsHalvesToTheEvenNeighbour) {
  EXPECT_EQ(NearestGridPoint(0.5F, 1.5F), (WorldPoint{0, 2}));
  EXPECT_EQ(NearestGridPoint(2.5F, -2.5F), (WorldPoint{2, -2}));
  EXPECT_EQ(NearestGridPoint(-0.5F, -1.5F), (WorldPoint{0, -2}));
}

TEST_F(PickingTest, GivesTheFloatNearestToTheMultiple) {
  GridSpacingX = GridSpacingY = 0.1F;
  EXPECT_EQ(NearestGridPoint(0.31F, -0.69F), (WorldPoint{0.3F, -0.7F}));
}

TEST_F(PickingTest, LeavesACoordinateWithoutASpacing) {
  for (const float spacing : {0.0F, -1.0F, NaN, Infinity}) {
    GridSpacingX = spacing;
    EXPECT_EQ(NearestGridPoint(1.375F, 1.375F), (WorldPoint{1.375F, 1}));
    EXPECT_FALSE(IsSnapped(1, 1));
    GridSpacingX = 1;
    EXPECT_TRUE(IsSnapped(1, 1));
    GridSpacingY = spacing;
    EXPECT_EQ(NearestGridPoint(1.375F, 1.375F), (WorldPoint{1, 1.375F}));
    EXPECT_FALSE(IsSnapped(1, 1));
    GridSpacingY = 1;
  }
}

TEST_F(PickingTest, SnapsCloserThanTheRadiusInBothDirections) {
  EXPECT_TRUE(IsSnapped(3.1875F, -1.8125F)); // each 0.19 off, together more than the radius
  EXPECT_FALSE(IsSnapped(3.25F, 2));
  EXPECT_FALSE(IsSnapped(3, 2.25F));
  EXPECT_FALSE(IsSnapped(2.75F, 2));
  EXPECT_TRUE(IsSnapped(std::nextafter(3.25F, 3.0F), 2));
}

TEST_F(PickingTest, AsksWhetherToAddTheNode) {
  EXPECT_EQ(NodeNotFoundText(1.5F, -0.25F), "Node not found: \nx: 1.5 y: -0.25\nDo you want to add this node?");
  EXPECT_EQ(NodeNotFoundText(1234567.75F, -0.0F), "Node not found: \nx: 1234568 y: 0\nDo you want to add this node?");
}

TEST_F(PickingTest, ReportsWhereNoMemberWasFound) {
  EXPECT_EQ(MemberNotFoundText(0.00001F, 3), "Member not found: \nx: 1E-05 y: 3");
}

class MemberHintTest : public PickingTest {
 protected:
  MemberHintTest() { SetTables({{{0, 0}, {4, 0}, {4, 3}, {4, 0}}, {{1, 2}, {2, 3}}}); }
};

TEST_F(MemberHintTest, SaysNothingOfAnOrdinaryMember) {
  EXPECT_EQ(MemberHint(3, 1), "");
  EXPECT_EQ(MemberHint(1, 4), "");
}

TEST_F(MemberHintTest, SaysThatAMemberIsParallelToAnother) {
  EXPECT_EQ(MemberHint(2, 3), "The new member is parallel to member 2");
  EXPECT_EQ(MemberHint(2, 1), "The new member is parallel to member 1");
}

TEST_F(MemberHintTest, SaysThatAMemberHasNoLength) {
  EXPECT_EQ(MemberHint(3, 3), "The new member has no length");
  EXPECT_EQ(MemberHint(2, 4), "The new member has no length");
}

TEST_F(MemberHintTest, SaysNothingOfNodesThatAreNotThere) {
  EXPECT_EQ(MemberHint(9, 9), "");
  EXPECT_EQ(MemberHint(1, -1), "");
}

} // namespace
} // namespace strutwright
