#include "DisplayFixture.h"
#include "modPointing.h"
#include "modSelection.h"

#include <ostream>

namespace strutwright {

void PrintTo(const Element& element, std::ostream* out) {
  *out << (element.kind == ElementKind::Node     ? "node "
           : element.kind == ElementKind::Member ? "member "
                                                 : "none ")
       << element.number;
}

namespace {

Element NodeNo(int n) { return {ElementKind::Node, n}; }
Element MemberNo(int m) { return {ElementKind::Member, m}; }

/// The triangle 1 (0, 0), 2 (4, 0), 3 (4, 3) with members 1-2, 2-3 and 3-1 in a window of 8 m by 6 m from (-2, -5):
/// a pixel is 0.01 m.  Points are world points, y upwards.
class PointingTest : public DisplayFixture {
 protected:
  PointingTest() {
    SetTables(Triangle());
    surface.window = {-2, -5, 8, 6};
  }

  Element At(double x, double y) { return ElementAt(surface, x, -y); }
};

TEST_F(PointingTest, FindsWhatLiesWithinSixPixels) {
  EXPECT_EQ(At(0.03, 0.04), NodeNo(1));
  EXPECT_EQ(At(2, -0.0599), MemberNo(1));
  EXPECT_EQ(At(2, -0.0601), Element{});
  EXPECT_EQ(At(-0.0599, 0), NodeNo(1));
  EXPECT_EQ(At(-0.0601, 0), Element{});
}

TEST_F(PointingTest, HasTheSameReachAtEveryZoomAndPickRadius) {
  PickRadius = 1;
  EXPECT_EQ(At(2, 0.5), Element{});
  surface.window = {-20, -50, 80, 60};
  EXPECT_EQ(At(2, -0.55), MemberNo(1));
  EXPECT_EQ(At(2, -0.65), Element{});
}

TEST_F(PointingTest, PrefersANodeToItsMembers) {
  EXPECT_EQ(At(4.05, 0.01), NodeNo(2));
  EXPECT_EQ(At(3.9, 0.01), MemberNo(1));
}

TEST_F(PointingTest, TakesTheNearerOfTwoAndTheFirstOfEquallyNear) {
  SetTables({{{0, 0}, {0.0625F, 0}, {0.03125F, 2}, {0.03125F, 2}}, {{1, 3}, {1, 3}}});
  EXPECT_EQ(At(0.05, 0), NodeNo(2));
  EXPECT_EQ(At(0.03125, 2), NodeNo(3));
  EXPECT_EQ(At(0.015625, 1), MemberNo(1));
}

TEST_F(PointingTest, PassesOverWhatCanNotBeDrawn) {
  SetTables({{{0, 0}, {4, 0}}, {{1, 9}, {1, 2}}});
  EXPECT_EQ(At(2, 0), MemberNo(2));
  EXPECT_FALSE(PlaceOf(surface, MemberNo(1)));
  EXPECT_FALSE(PlaceOf(surface, MemberNo(3)));
  EXPECT_FALSE(PlaceOf(surface, NodeNo(0)));
  EXPECT_FALSE(PlaceOf(surface, Element{}));
}

TEST_F(PointingTest, PlacesElementsInPixels) {
  const auto node = PlaceOf(surface, NodeNo(3));
  ASSERT_TRUE(node);
  EXPECT_NEAR(node->from.x, 600, 1e-3);
  EXPECT_NEAR(node->from.y, 200, 1e-3);
  const auto member = PlaceOf(surface, MemberNo(1));
  ASSERT_TRUE(member);
  EXPECT_NEAR(member->from.x, 200, 1e-3);
  EXPECT_NEAR(member->to.x, 600, 1e-3);
  EXPECT_NEAR(member->to.y, 500, 1e-3);
}

TEST_F(PointingTest, CutsOffWhatLiesFarOutside) {
  SetTables({{{0, 0}, {1e6F, 0}, {-1e6F, 50}, {1e6F, 50}}, {{1, 2}, {3, 4}}});
  const auto member = PlaceOf(surface, MemberNo(1));
  ASSERT_TRUE(member);
  EXPECT_NEAR(member->from.x, 200, 1e-3);
  EXPECT_NEAR(member->to.x, 850, 1e-3);
  EXPECT_FALSE(PlaceOf(surface, MemberNo(2)));
  EXPECT_FALSE(PlaceOf(surface, NodeNo(2)));
}

TEST_F(PointingTest, WalksInNumberOrderAndRoundAndRound) {
  EXPECT_EQ(ElementAfter({}, ElementKind::Node, true), NodeNo(1));
  EXPECT_EQ(ElementAfter({}, ElementKind::Node, false), NodeNo(3));
  EXPECT_EQ(ElementAfter(NodeNo(1), ElementKind::Node, true), NodeNo(2));
  EXPECT_EQ(ElementAfter(NodeNo(3), ElementKind::Node, true), NodeNo(1));
  EXPECT_EQ(ElementAfter(NodeNo(1), ElementKind::Node, false), NodeNo(3));
  EXPECT_EQ(ElementAfter(NodeNo(2), ElementKind::Member, true), MemberNo(1));
  EXPECT_EQ(ElementAfter(MemberNo(7), ElementKind::Member, true), MemberNo(1));
}

TEST_F(PointingTest, WalksNowhereInAnEmptyModel) {
  SetTables({});
  EXPECT_EQ(ElementAfter({}, ElementKind::Node, true), Element{});
  EXPECT_EQ(ElementAfter(MemberNo(1), ElementKind::Member, false), Element{});
}

TEST_F(PointingTest, BringsIntoViewOnlyWhatIsNotSeen) {
  EXPECT_FALSE(BringIntoView(surface, NodeNo(3)));
  surface.window = {10, -5, 8, 6};
  EXPECT_TRUE(BringIntoView(surface, NodeNo(3)));
  EXPECT_FLOAT_EQ(surface.window.left, 0);
  EXPECT_FLOAT_EQ(surface.window.top, -6);
  EXPECT_FLOAT_EQ(surface.window.width, 8);
  EXPECT_FALSE(BringIntoView(surface, Element{}));
}

} // namespace
} // namespace strutwright
