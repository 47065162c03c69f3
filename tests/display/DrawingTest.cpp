#include "DisplayFixture.h"
#include "modDrawing.h"

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using DrawingTest = DisplayFixture;

TEST_F(DrawingTest, DrawsALineWithYUpwards) {
  DrawLine(surface, 0, 1, 4, 3, Blue);
  EXPECT_THAT(surface.ink, ElementsAre("line 0 -1 4 -3 blue 2"));
}

TEST_F(DrawingTest, SetsItsOwnPen) {
  surface.SetPenMode(PenMode::Invert);
  surface.SetLineStyle(LineStyle::Dashed);
  surface.SetFillStyle(FillStyle::Solid);
  surface.SetPenWidth(7);
  surface.Forget();
  DrawNodeMarker(surface, 4, 3, Orange);
  EXPECT_THAT(surface.calls, ElementsAre("PenMode copy", "LineStyle solid", "PenColour orange", "FillColour orange",
                                         "FillStyle transparent", "PenWidth 2", "Circle 4 -3 0.1"));
  EXPECT_THAT(surface.ink, ElementsAre("circle 4 -3 0.1 orange 2"));
}

TEST_F(DrawingTest, LeavesTheCurrentPointAtAMarkersCentre) {
  DrawNodeMarker(surface, 4, 3, Black);
  EXPECT_EQ(surface.CurrentX(), 4);
  EXPECT_EQ(surface.CurrentY(), -3);
}

TEST_F(DrawingTest, HasTheHeadOfAnArrowAtItsSecondPoint) {
  surface.SetPenWidth(5);
  DrawArrow(surface, 0.25, 0, 0, 2, 0, Red);
  EXPECT_THAT(surface.ink, ElementsAre("line 0 0 2 0 red 5", "line 2 0 1.75 -0.25 red 5", "line 2 0 1.75 0.25 red 5"));
}

TEST_F(DrawingTest, TurnsTheHeadWithTheArrow) {
  DrawArrow(surface, 0.5, 0, 0, 3, 4, Red); // direction (0.6, 0.8): back by 0.3, 0.4 and to either side
  EXPECT_THAT(surface.ink, ElementsAre("line 0 0 3 4 red 1", "line 3 4 3.1 3.3 red 1", "line 3 4 2.3 3.9 red 1"));
}

TEST_F(DrawingTest, ScalesTheHeadByItsRatio) {
  DrawArrow(surface, 1, 0, 0, 0, -2, Red, 0.5);
  EXPECT_THAT(surface.ink, ElementsAre("line 0 0 0 -2 red 1", "line 0 -2 -0.5 -1.5 red 1", "line 0 -2 0.5 -1.5 red 1"));
}

TEST_F(DrawingTest, HasNoHeadOnAnArrowWithoutLength) {
  DrawArrow(surface, 1, 2, 2, 2, 2, Red);
  EXPECT_THAT(surface.ink, ElementsAre("line 2 2 2 2 red 1"));
}

TEST_F(DrawingTest, PullsToTheRight) {
  DrawHorizontalLoad(surface, 20, 1, 3, Red, LoadsScale); // 20 kN at 10 kN a metre
  EXPECT_THAT(surface.ink, ElementsAre("line 1 -3 3 -3 red 2", "line 3 -3 2.5 -3.5 red 2", "line 3 -3 2.5 -2.5 red 2",
                                       "text 1.1 -3.2 '20.0' red"));
}

TEST_F(DrawingTest, PushesToTheLeftFromTheRight) {
  DrawHorizontalLoad(surface, -20, 1, 3, Red, LoadsScale);
  EXPECT_THAT(surface.ink, ElementsAre("line 3 -3 1 -3 red 2", "line 1 -3 1.5 -2.5 red 2", "line 1 -3 1.5 -3.5 red 2",
                                       "text 2.6 -3.2 '-20.0' red"));
}

TEST_F(DrawingTest, PullsUpwards) {
  DrawVerticalLoad(surface, 20, 1, 3, Green, LoadsScale);
  EXPECT_THAT(surface.ink, ElementsAre("line 1 -3 1 -5 green 2", "line 1 -5 0.5 -4.5 green 2",
                                       "line 1 -5 1.5 -4.5 green 2", "text 1.1 -5 '20.0' green"));
}

TEST_F(DrawingTest, PushesDownwardsFromAbove) {
  DrawVerticalLoad(surface, -20, 1, 3, Green, LoadsScale);
  EXPECT_THAT(surface.ink, ElementsAre("line 1 -5 1 -3 green 2", "line 1 -3 1.5 -3.5 green 2",
                                       "line 1 -3 0.5 -3.5 green 2", "text 1.1 -5 '-20.0' green"));
}

TEST_F(DrawingTest, ScalesArrowsByTheLoadsScale) {
  LoadsScale = 40;
  DrawVerticalLoad(surface, 20, 0, 0, Red, LoadsScale);
  EXPECT_EQ(surface.ink.front(), "line 0 0 0 -0.5 red 2");
}

TEST_F(DrawingTest, DrawsLoadsFromAHundredthOn) {
  DrawHorizontalLoad(surface, 0.005F, 0, 0, Red, LoadsScale);
  DrawVerticalLoad(surface, -0.00999F, 0, 0, Red, LoadsScale);
  EXPECT_THAT(surface.ink, IsEmpty());
  DrawHorizontalLoad(surface, 0.01F, 0, 0, Red, LoadsScale);
  DrawVerticalLoad(surface, -0.01F, 0, 0, Red, LoadsScale);
  EXPECT_THAT(surface.Ink("text", "red"), ElementsAre("text 0.1 -0.2 '0.0' red", "text 0.1 -0.001 '0.0' red"));
  EXPECT_EQ(surface.ink.size(), 8U);
}

TEST_F(DrawingTest, SetsTheTextColourBackToBlack) {
  PrintText(surface, 1, 2, "T", Red);
  EXPECT_THAT(surface.calls,
              ElementsAre("MoveTo 1 2", "TextAttribute on", "TextColour red", "Text T", "TextColour black"));
}

TEST_F(DrawingTest, ReportsWhetherAPartWasDrawn) {
  EXPECT_TRUE(TryDrawing([this] { surface.DrawBox(0, 0, 1, 1); }));
  surface.failAt = 2;
  EXPECT_FALSE(TryDrawing([this] { surface.DrawBox(0, 0, 1, 1); }));
  EXPECT_THAT(TakeMessages(), ElementsAre(DrawingBox("the surface is lost")));
}

} // namespace
} // namespace strutwright
