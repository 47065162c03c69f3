#include "DisplayFixture.h"
#include "modModelStore.h"
#include "modResultsRendering.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ResultsRenderingTest : public DisplayFixture {
 protected:
  /// What the forces layer draws for a member along x from 0 to 10 m.
  Lines ForceOf(float F) { return ForceAlong(F, 10, 0); }

  Lines ForceAlong(float F, float dx, float dy) {
    SetTables({{{0, 0}, {dx, dy}}, {{1, 2}}});
    MemberTable(1, MemberFieldForce) = F;
    surface.Forget();
    DrawMemberForces(surface, View());
    return surface.ink;
  }

  /// The view with a scale of the deflected shape.
  static TrussView Scaled(float scale) {
    DeflectionScale = scale;
    return View();
  }

  /// What the reactions layer draws at a support of this code with reactions of 20 and 30 kN.
  Lines ReactionsOf(float code) {
    SetTables({{{1, 3, 0, 0, code}}, {}});
    Reactions = {0, 20, 30};
    surface.Forget();
    DrawReactions(surface, View());
    return surface.Ink("text", "green");
  }
};

TEST_F(ResultsRenderingTest, PushesOnTheJointsInCompression) {
  EXPECT_THAT(ForceOf(-5), ElementsAre("line 3 0 1 0 blue 2", "line 1 0 1.63 0.63 blue 2", "line 1 0 1.63 -0.63 blue 2",
                                       "line 7 0 9 0 blue 2", "line 9 0 8.37 -0.63 blue 2", "line 9 0 8.37 0.63 blue 2",
                                       "text 5.022 -0.13 '-5.0' blue"));
}

TEST_F(ResultsRenderingTest, PullsOnTheJointsInTension) {
  EXPECT_THAT(ForceOf(5), ElementsAre("line 1 0 3 0 blue 2", "line 3 0 2.37 -0.63 blue 2", "line 3 0 2.37 0.63 blue 2",
                                      "line 9 0 7 0 blue 2", "line 7 0 7.63 0.63 blue 2", "line 7 0 7.63 -0.63 blue 2",
                                      "text 5.0415 -0.13 '5.0' blue"));
}

TEST_F(ResultsRenderingTest, HasNoArrowsOnAZeroBar) {
  EXPECT_THAT(ForceOf(0), ElementsAre("text 5.0415 -0.13 '0.0' blue"));
  EXPECT_THAT(ForceOf(0.0001F), ElementsAre("text 5.0415 -0.13 '0.0' blue"));
  EXPECT_THAT(ForceOf(-0.0001F), ElementsAre("text 5.0415 -0.13 '0.0' blue"));
}

TEST_F(ResultsRenderingTest, HasArrowsJustAboveZero) {
  EXPECT_EQ(ForceOf(0.00011F).front(), "line 1 0 3 0 blue 2");
  EXPECT_EQ(ForceOf(-0.00011F).front(), "line 3 0 1 0 blue 2");
}

/// A printed text in pixels, its corner at the left above.
struct PrintedText {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  bool Touches(const PrintedText& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
};

/// Of a recorded line on a surface with 20 pixels to the metre.
PrintedText PrintedAs(const std::string& ink) {
  double x = 0;
  double y = 0;
  EXPECT_EQ(std::sscanf(ink.c_str(), "text %lf %lf", &x, &y), 2) << ink;
  const auto letters = static_cast<double>(ink.rfind('\'') - ink.find('\'') - 1);
  return {20 * x, 20 * y, 20 * x + 7.2 * letters, 20 * y + 15};
}

/// On which side of a line through the origin a text lies: 1 or -1; 0 where the line crosses it.
int SideOf(const PrintedText& text, double dx, double dy) {
  int sides = 0;
  for (const double x : {text.left, text.right}) {
    for (const double y : {text.top, text.bottom}) sides += dx * y + dy * x > 0 ? 1 : -1;
  }
  return sides / 4;
}

/// The number hangs down to the right from the middle of the member, here the origin.
TEST_F(ResultsRenderingTest, PrintsAForceOnTheOtherSideOfItsMemberThanTheNumber) {
  surface.SetWindow({-20, -15, 40, 30});
  for (const auto& [dx, dy] : std::vector<std::pair<float, float>>{
           {10, 0}, {0, 4}, {4, 3}, {4, -3}, {10, -1}, {1, -10}, {-10, 0}, {0, -4}, {-4, -3}, {-4, 3}}) {
    SCOPED_TRACE(std::to_string(dx) + ", " + std::to_string(dy));
    SetTables({{{-dx, -dy}, {dx, dy}}, {{1, 2}}});
    MemberTable(1, MemberFieldForce) = -12.3F;
    surface.Forget();
    DrawMemberForces(surface, View());
    const PrintedText force = PrintedAs(surface.ink.back());
    const PrintedText number = PrintedAs("text 0 0 '1'");
    const double centre = dx * (number.top + number.bottom) + dy * (number.left + number.right);

    EXPECT_FALSE(force.Touches(number));
    EXPECT_EQ(SideOf(force, dx, dy), centre > 0 ? -1 : 1);
  }
}

TEST_F(ResultsRenderingTest, SurvivesAMemberWithoutLength) {
  EXPECT_EQ(ForceAlong(5, 0, 0).back(), "text 0.0415 -0.13 '5.0' blue");
}

TEST_F(ResultsRenderingTest, DrawsTheReactionsThatTheCodeRestrains) {
  const std::string y = "text 1.1 -6 '30.0' green";
  const std::string x = "text 1.1 -3.2 '20.0' green";
  EXPECT_THAT(ReactionsOf(1), ElementsAre(y));
  EXPECT_THAT(ReactionsOf(2), ElementsAre(x));
  EXPECT_THAT(ReactionsOf(3), ElementsAre(y, x));
}

TEST_F(ResultsRenderingTest, DrawsNoReactionsOfOtherCodes) {
  for (const float code : {0.0F, -1.0F, 1.5F, 4.0F}) EXPECT_THAT(ReactionsOf(code), IsEmpty()) << code;
}

TEST_F(ResultsRenderingTest, LeavesOutReactionsBelowAHundredth) {
  SetTables({{{1, 3, 0, 0, 3}}, {}});
  Reactions = {0, 0.009F, -0.01F};
  DrawReactions(surface, View());
  EXPECT_EQ(surface.Ink("text", "green"), (Lines{"text 1.1 -3.001 '0.0' green"}));
}

TEST_F(ResultsRenderingTest, DrawsReactionsAsTheArrowsOfLoads) {
  SetTables({{{1, 3, 0, 0, 2}}, {}});
  Reactions = {0, -20, 30};
  DrawReactions(surface, View());
  EXPECT_THAT(surface.ink, ElementsAre("line 3 -3 1 -3 green 2", "line 1 -3 1.5 -2.5 green 2",
                                       "line 1 -3 1.5 -3.5 green 2", "text 2.6 -3.2 '-20.0' green"));
}

TEST_F(ResultsRenderingTest, DrawsTheDeflectedShapeDashedAndHollow) {
  SetTables({{{0, 0}, {4, 3}}, {{1, 2}}});
  DrawDeflectedShape({0, 0, 0, 2, -5}, surface, Scaled(100)); // 0.2 m to the right and 0.5 m down
  EXPECT_THAT(surface.ink,
              ElementsAre("circle 0 0 0.1 red 1", "circle 4.2 -2.5 0.1 red 1", "line 0 0 4.2 -2.5 red 1 dashed"));
}

TEST_F(ResultsRenderingTest, RoundsADisplacedCoordinateToSinglePrecision) {
  SetTables({{{16777216, 0}}, {}});
  DrawDeflectedShape({0, 300, 0}, surface, Scaled(1)); // 0.3 m more is lost to a float of this size
  EXPECT_EQ(surface.CurrentX(), 16777216);
}

TEST_F(ResultsRenderingTest, DrawsAMemberOfNode0FromTheOriginAndTheMembersAfterIt) {
  SetTables({{{1, 0}, {4, 3}}, {{0, 2}, {2, 0}, {1, 2}}});
  DrawDeflectedShape({7, 0, 0, 2, -5}, surface, Scaled(100));
  EXPECT_THAT(surface.Ink("line", "red"),
              ElementsAre("line 0 0 4.2 -2.5 red 1 dashed", "line 4.2 -2.5 0 0 red 1 dashed",
                          "line 1 0 4.2 -2.5 red 1 dashed"));
}

TEST_F(ResultsRenderingTest, StopsTheShapeAtANodeBelow0) {
  SetTables({{{1, 0}, {4, 3}}, {{-1, 2}}});
  DrawDeflectedShape({0, 0, 0, 2, -5}, surface, Scaled(100));
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Information, "Drawing error: drawDSD function\nnode -1 has no result")));
}

TEST_F(ResultsRenderingTest, StopsTheShapeWhereAResultIsMissing) {
  SetTables({{{0, 0}, {4, 3}}, {{1, 2}}});
  DrawDeflectedShape({0, 0, 0}, surface, Scaled(100));
  EXPECT_EQ(surface.ink.size(), 1U);
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Information, "Drawing error: drawDSD function\nnode 2 has no result")));
}

TEST_F(ResultsRenderingTest, ReportsWhenTheSurfaceFailsUnderTheShape) {
  SetTables({{{0, 0}}, {}});
  surface.failAt = 7;
  DrawDeflectedShape({0, 0, 0}, surface, Scaled(100));
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Information, "Drawing error: drawDSD function\nthe surface is lost")));
}

TEST_F(ResultsRenderingTest, ReportsWhenForcesOrReactionsCannotBeDrawn) {
  SetTables({{{0, 0, 0, 0, 3}}, {{1, 2}}});
  DrawMemberForces(surface, View());
  DrawReactions(surface, View());
  EXPECT_THAT(TakeMessages(), ElementsAre(DrawingBox("table index 2,1"), DrawingBox("node 1 has no result")));
}

} // namespace
} // namespace strutwright
