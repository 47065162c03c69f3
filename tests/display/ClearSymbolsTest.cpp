#include "ClearSymbols.h"
#include "ClearFixture.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

class ClearSymbolsTest : public ClearFixture {
 protected:
  const ClearSupport& Support(std::size_t index = 0) const { return Scene().supports.at(index); }

  ClearArrow Arrow(std::size_t index = 0) const { return Scene().arrows.at(index); }

  static double Length(const ClearArrow& arrow) { return LengthOf(arrow.tip - arrow.tail); }
};

TEST_F(ClearSymbolsTest, NodesAreHollowDotsOfOneSizeAtEveryZoom) {
  SetTables(Triangle());
  for (const double zoom : {60.0, 100.0}) {
    Draw(zoom);
    ASSERT_THAT(surface.pixelDots, SizeIs(3));
    for (const auto& dot : surface.pixelDots) {
      EXPECT_EQ(dot.radius, ClearSize::NodeRadius);
      EXPECT_EQ(dot.fill, ClearPalette::Ground);
      EXPECT_EQ(dot.edge.colour, ClearPalette::Ink);
    }
  }
}

TEST_F(ClearSymbolsTest, DotsLieOnTheirNodes) {
  SetTables(Triangle());
  Draw();
  EXPECT_NEAR(surface.pixelDots[2].centre.x, 500, 1e-3); // (4, 3), 1 m from the left and lower borders
  EXPECT_NEAR(surface.pixelDots[2].centre.y, 200, 1e-3);
}

TEST_F(ClearSymbolsTest, NodesOfAMazeHaveNoDots) {
  SetTables(PrattTruss(1000));
  Draw(1);
  EXPECT_THAT(surface.pixelDots, IsEmpty());
}

TEST_F(ClearSymbolsTest, APinStandsOnHatchedGroundAndARollerOnWheels) {
  settings.layers.supports = true;
  SetTables({{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}}, {{1, 2}}});
  Draw();
  EXPECT_THAT(surface.pixelPolygons, SizeIs(2)); // triangles
  EXPECT_THAT(surface.pixelDots, SizeIs(2 + 3)); // nodes and wheels
  const auto hatches = std::count_if(surface.pixelLines.begin(), surface.pixelLines.end(),
                                     [](const auto& line) { return line.look.width == 1; });
  EXPECT_EQ(hatches, 5);
}

TEST_F(ClearSymbolsTest, ACodeTurnsItsSupport) {
  settings.layers.supports = true;
  SetTables({{{0, 0, 0, 0, 2}, {4, 0, 0, 0, 1}, {8, 0, 0, 0, -7}}, {{1, 2}, {2, 3}}});
  Draw(50);
  EXPECT_EQ(Support(0).off, (PixelPoint{-1, 0}));
  EXPECT_TRUE(Support(0).roller);
  EXPECT_EQ(Support(1).off, (PixelPoint{0, 1}));
  EXPECT_TRUE(Support(1).roller);
  EXPECT_EQ(Support(2).off, (PixelPoint{0, 1}));
  EXPECT_FALSE(Support(2).roller); // any other code holds both directions
}

TEST_F(ClearSymbolsTest, ASupportTakesTheRoomBesideItsNodesDot) {
  const ClearSupport support{1, {100, 200}, {0, 1}, false};
  const Bounds room = BoundsOf(BoxOfSupport(support));
  EXPECT_GE(room.top, 200 + ClearSize::NodeRadius);
  EXPECT_DOUBLE_EQ(room.bottom, 200 + SupportReach(support));
  EXPECT_DOUBLE_EQ(room.left, 100 - ClearSize::SupportHalfWidth);
  EXPECT_DOUBLE_EQ(room.right, 100 + ClearSize::SupportHalfWidth);
}

TEST_F(ClearSymbolsTest, ASupportTurnsAwayFromMembers) {
  settings.layers.supports = true;
  SetTables({{{0, 4, 0, 0, 1}, {0, 0}, {3, 4, 0, 0, 2}, {0, 3}}, {{1, 2}, {3, 1}}});
  Draw();
  EXPECT_EQ(Support(0).off, (PixelPoint{0, -1})); // the member hangs below
  EXPECT_EQ(Support(1).off, (PixelPoint{1, 0}));  // and this one comes from the left
}

TEST_F(ClearSymbolsTest, AnArrowPointsAtItsNodeFromOutside) {
  settings.layers.loads = true;
  SetTables({{{0, 0}, {2, 2, 0, -10}, {4, 0}}, {{1, 2}, {2, 3}}});
  Draw();
  const PixelPoint node = Scene().truss.joints[2].at;
  EXPECT_EQ(Arrow().tip.x, node.x);
  EXPECT_LT(Arrow().tip.y, node.y);
  EXPECT_LT(Arrow().tail.y, Arrow().tip.y);
}

TEST_F(ClearSymbolsTest, AnArrowHangsFromItsNodeWhereOutsideIsBelow) {
  settings.layers.loads = true;
  SetTables({{{0, 2}, {2, 0, 0, -10}, {4, 2}}, {{1, 2}, {2, 3}, {1, 3}}});
  Draw();
  EXPECT_GT(Arrow().tail.y, Scene().truss.joints[2].at.y);
  EXPECT_GT(Arrow().tip.y, Arrow().tail.y);
}

TEST_F(ClearSymbolsTest, AReactionPointsAtItsSupportFromBelow) {
  settings.layers.supports = settings.reactions = true;
  Analyse({{{0, 0, 0, 0, 3}, {2, 2, 0, -10}, {4, 0, 0, 0, 1}}, {{1, 2}, {2, 3}, {1, 3}}});
  Draw();
  ASSERT_THAT(Scene().arrows, SizeIs(2));
  EXPECT_TRUE(Arrow().reaction);
  EXPECT_GE(Arrow().tip.y, Scene().truss.joints[1].at.y + SupportReach(Support()));
  EXPECT_THAT(LinesOf(ClearPalette::Reaction), SizeIs(2));
}

TEST_F(ClearSymbolsTest, EqualForcesAreEquallyLong) {
  settings.layers.loads = true;
  SetTables({{{0, 2, 7, -7}, {2, 0, 0, -7}, {4, 2, 0, 7}}, {{1, 2}, {2, 3}, {1, 3}}});
  Draw();
  ASSERT_THAT(Scene().arrows, SizeIs(4));
  for (const ClearArrow& arrow : Scene().arrows) EXPECT_NEAR(Length(arrow), 70, 1e-4); // 10 kN a m
}

TEST_F(ClearSymbolsTest, ArrowsFollowTheScaleWithinTheirLimits) {
  EXPECT_EQ(LongestArrow(800, 600), 96); // a sixth of the shorter side, in steps of 8
  EXPECT_EQ(LongestArrow(800, 601), 96);
  EXPECT_EQ(LongestArrow(90, 60), 24); // never shorter than the least
  EXPECT_EQ(ArrowLength(-5, 10, 100, 96), 50);
  EXPECT_EQ(ArrowLength(0.1F, 10, 100, 96), 24);
  EXPECT_EQ(ArrowLength(500, 10, 100, 96), 96);
}

TEST_F(ClearSymbolsTest, SmallLoadsHaveNoArrow) {
  settings.layers.loads = true;
  SetTables({{{0, 0, 0, 0.0099F}, {2, 0, 0.01F, 0}}, {{1, 2}}});
  Draw();
  EXPECT_THAT(Scene().arrows, SizeIs(1));
}

} // namespace
} // namespace strutwright
