#include "DisplayFixture.h"
#include "SpecialNumbers.h"
#include "modModelRendering.h"

#include <limits>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

class GridLinesTest : public DisplayFixture {
 protected:
  /// Draws with these spacings; the window shows x -0.5..2.5 and y -0.5..1.5.
  void Draw(float spacingX, float spacingY) {
    surface.Forget();
    GridSpacingX = spacingX;
    GridSpacingY = spacingY;
    DrawGrid(surface, GridOfDisplay());
  }

  GridLinesTest() { surface.window = {-0.5F, -1.5F, 3, 2}; }
};

const Lines Axes{"line 0 -1.5 0 0.5 grey 1", "line -0.5 0 2.5 0 grey 1"};

TEST_F(GridLinesTest, StandAtTheMultiplesInsideWithTheirValues) {
  Draw(1, 1);
  EXPECT_THAT(surface.ink,
              ElementsAre("line 0 -1.5 0 0.5 grey 1 dashed", "text 0.05 0 '0.0' grey opaque", //
                          "line 1 -1.5 1 0.5 grey 1 dashed", "text 1.05 0 '1.0' grey opaque", //
                          "line 2 -1.5 2 0.5 grey 1 dashed", "text 2.05 0 '2.0' grey opaque", //
                          "line -0.5 -1 2.5 -1 grey 1 dashed", "text 0.05 -1 '1.0' grey opaque",
                          "line -0.5 0 2.5 0 grey 1 dashed", "text 0.05 0 '0.0' grey opaque", Axes[0], Axes[1]));
}

TEST_F(GridLinesTest, HaveASpacingForEachDirection) {
  Draw(4, 0.8F); // labels stand off by a twentieth of the horizontal one
  EXPECT_THAT(surface.ink,
              ElementsAre("line 0 -1.5 0 0.5 grey 1 dashed", "text 0.2 0 '0.0' grey opaque",
                          "line -0.5 -0.8 2.5 -0.8 grey 1 dashed", "text 0.2 -0.8 '0.8' grey opaque",
                          "line -0.5 0 2.5 0 grey 1 dashed", "text 0.2 0 '0.0' grey opaque", Axes[0], Axes[1]));
}

TEST_F(GridLinesTest, ShowTheSignOfWhatLiesBelow) {
  surface.window = {5.5F, 0.5F, 1, 1};
  Draw(1, 1);
  EXPECT_EQ(surface.Ink("text", "grey"), (Lines{"text 6.05 0 '6.0' grey opaque", "text 0.05 1 '-1.0' grey opaque"}));
}

TEST_F(GridLinesTest, StandOnTheWindowsEdges) {
  surface.window = {0, -1, 2, 1};
  Draw(1, 1);
  EXPECT_EQ(surface.Ink("line", "grey").size(), 3U + 2U + 2U);
}

TEST_F(GridLinesTest, AreNoneBetweenTwoMultiples) {
  surface.window = {0.25F, 0.25F, 0.5F, 0.5F};
  Draw(1, 1);
  EXPECT_EQ(surface.ink, (Lines{"line 0 0.25 0 0.75 grey 1", "line 0.25 0 0.75 0 grey 1"})) << "only the axes";
}

TEST_F(GridLinesTest, AreSolidOnDemand) {
  GridLineStyle = 0;
  Draw(4, 4);
  EXPECT_EQ(surface.Ink("line", "grey").front(), "line 0 -1.5 0 0.5 grey 1");
  EXPECT_EQ(surface.calls.back(), "TextColour black");
  EXPECT_EQ(surface.calls.at(surface.calls.size() - 2), "LineStyle solid");
}

TEST_F(GridLinesTest, SetTheLineStyleBackAfterTheAxes) {
  Draw(4, 4);
  EXPECT_EQ(surface.calls.at(surface.calls.size() - 2), "LineStyle dashed");
}

TEST_F(GridLinesTest, GiveWayToTheAxesWhereTheyWouldBeTooDense) {
  Draw(0.0074F, 1); // 2 pixels are 3 / 800 * 2 = 0.0075 m
  EXPECT_EQ(surface.ink, Axes);
  Draw(1, 0.0066F); // 2 pixels are 2 / 600 * 2 = 0.00667 m
  EXPECT_EQ(surface.ink, Axes);
  Draw(0.0076F, 0.0067F);
  EXPECT_EQ(surface.Ink("line", "grey").size(), 394U + 298U + 2U); // -65..328 and -223..74
}

TEST_F(GridLinesTest, NeedASpacingAboveZero) {
  for (const float spacing : {0.0F, -1.0F, NaN, 1e-6F, Infinity, std::numeric_limits<float>::denorm_min()}) {
    Draw(spacing, 1);
    EXPECT_EQ(surface.ink, Axes) << spacing;
    Draw(1, spacing);
    EXPECT_EQ(surface.ink, Axes) << spacing;
  }
}

TEST_F(GridLinesTest, NeverStandStillFarOut) {
  surface.window = {1e30F, 1e30F, 3, 2};
  Draw(1, 1);
  EXPECT_LT(surface.ink.size(), 10U);
  surface.window = {-3e38F, -3e38F, 3e38F, 3e38F};
  Draw(1, 1);
  EXPECT_EQ(surface.ink.size(), 2U);
  Draw(3e38F, 3e38F);
  EXPECT_LT(surface.ink.size(), 20U);
}

TEST_F(GridLinesTest, SurviveAWindowWithoutSizeOrNumbers) {
  surface.window = {4, -2, 0, 0};
  Draw(1, 1);
  EXPECT_LT(surface.ink.size(), 10U);
  surface.window = {NaN, NaN, NaN, NaN};
  Draw(1, 1);
  EXPECT_EQ(surface.ink.size(), 2U);
}

} // namespace
} // namespace strutwright
