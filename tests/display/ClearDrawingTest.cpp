#include "ClearFixture.h"
#include "ClearFraming.h"
#include "ClearTexts.h"
#include "modModelStore.h"
#include "modRedraw.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class ClearDrawingTest : public ClearFixture {
 protected:
  /// A tie, a strut and a zero bar: a load to the right on a triangle's top.
  static ModelData AllThree() {
    return {{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 3}, {4, 3, 0, -12, 0}, {0, 3, 0, 0, 2}}, {{1, 3}, {2, 3}, {4, 3}, {1, 4}}};
  }

  /// What of the scene is where, relative to the world.
  std::vector<PixelPoint> LabelPlacesNow() const {
    std::vector<PixelPoint> places;
    for (const ClearLabel& label : Scene().labels) places.push_back(label.box.centre);
    return places;
  }
};

TEST_F(ClearDrawingTest, MembersWithoutResultsAreInk) {
  SetTables(Triangle());
  Draw();
  EXPECT_THAT(LinesOf(ClearPalette::Ink), SizeIs(3));
  EXPECT_EQ(surface.pixelLines[0].look.width, 2);
}

TEST_F(ClearDrawingTest, TensionIsALineAndCompressionIsHollow) {
  settings.memberForces = true;
  Analyse({{{0, 0, 0, 0, 3}, {4, 0, 10, 0, 1}, {8, 0, 0, 0, 3}}, {{1, 2}, {2, 3}}});
  Draw(60);
  const auto tie = LinesOf(ClearPalette::Tension);
  const auto walls = LinesOf(ClearPalette::Compression);
  const auto core = LinesOf(ClearPalette::Ground);
  ASSERT_THAT(tie, SizeIs(1));
  ASSERT_THAT(walls, SizeIs(1));
  ASSERT_THAT(core, SizeIs(1));
  EXPECT_LT(core[0].look.width, walls[0].look.width - 2);
  EXPECT_THAT(Texts(), Contains("+5.00 T"));
  EXPECT_THAT(Texts(), Contains("\u22125.00 C"));
  EXPECT_EQ(LabelOf("+5.00 T").colour, ClearPalette::Tension);
  EXPECT_EQ(LabelOf("\u22125.00 C").colour, ClearPalette::Compression);
}

TEST_F(ClearDrawingTest, AZeroBarIsThinGreyAndZero) {
  settings.memberForces = true;
  Analyse(AllThree());
  Draw();
  const auto zero = LinesOf(ClearPalette::ZeroBar);
  ASSERT_THAT(zero, Not(IsEmpty()));
  EXPECT_EQ(zero[0].look.width, 1);
  EXPECT_EQ(LabelOf("0").colour, ClearPalette::ZeroBar);
}

TEST_F(ClearDrawingTest, AMemberIsWiderTheLargerItsForce) {
  settings.memberForces = true;
  Analyse({{{0, 0, 0, 0, 3}, {2, 0, 10, 0, 1}, {4, 0, 10, 0, 1}}, {{1, 2}, {2, 3}}});
  Draw();
  const auto wide = LinesOf(ClearPalette::Tension);
  EXPECT_GT(wide[0].look.width, wide[1].look.width);
  settings.widthByForce = false;
  DrawHere();
  const auto alike = LinesOf(ClearPalette::Tension);
  EXPECT_EQ(alike[0].look.width, alike[1].look.width);
}

TEST_F(ClearDrawingTest, AForceStandsAlongItsMemberBesideItsMiddle) {
  settings.memberForces = true;
  Analyse({{{0, 0, 0, 0, 3}, {4, 3, 8, 6, 0}, {8, 0, 0, 0, 3}}, {{1, 2}, {2, 3}}});
  Draw(60);
  const PixelLabel label = LabelOf("+10.0 T");
  EXPECT_NEAR(label.along.x, 0.8, 1e-6);
  EXPECT_NEAR(label.along.y, -0.6, 1e-6);
  const PixelPoint middle{60 + 120, 600 - 60 - 90};
  EXPECT_NEAR(Dot(label.centre - middle, label.along), 0, 1e-3);
  EXPECT_GT(LengthOf(label.centre - middle), 6);
  EXPECT_LT(LengthOf(label.centre - middle), 14);
}

// However a member runs, its text reads from left to right, or upwards.
TEST_F(ClearDrawingTest, NoTextIsUpsideDown) {
  settings.memberForces = true;
  for (int step = 0; step < 24; ++step) {
    const double angle = step * 3.14159265 / 12;
    const auto x = static_cast<float>(4 + 2 * std::cos(angle));
    const auto y = static_cast<float>(3 + 2 * std::sin(angle));
    SetTables({{{4, 3}, {x, y}}, {{1, 2}}});
    MemberTable(1, MemberFieldForce) = 10;
    Draw();
    for (const PixelLabel& label : surface.pixelTexts) {
      EXPECT_TRUE(label.along.x > 1e-6 || label.along.y < 0) << step;
    }
  }
}

TEST_F(ClearDrawingTest, AMembersNumberStandsInABoxOnItsLine) {
  settings.layers.memberNumbers = true;
  SetTables(Triangle());
  Draw();
  const PixelLabel number = LabelOf("1");
  EXPECT_TRUE(number.IsBoxed());
  EXPECT_EQ(number.along, (PixelPoint{1, 0}));
  EXPECT_NEAR(number.centre.y, 500, 1e-3);
  EXPECT_NEAR(number.centre.x, 300, 1e-3);
}

// At node 1 members leave to the right and up to the right: the widest angle lies to the left.
TEST_F(ClearDrawingTest, ANodesNumberStandsInItsWidestAngle) {
  settings.layers.nodeNumbers = true;
  SetTables({{{0, 0}, {4, 0}, {4, 4}}, {{1, 2}, {1, 3}}});
  Draw();
  const PixelLabel number = LabelOf("1");
  EXPECT_LT(number.centre.x, 100 - ClearSize::NodeRadius);
  EXPECT_GT(number.centre.y, 500);
}

TEST_F(ClearDrawingTest, ALoadShowsItsSizeWithItsUnit) {
  settings.layers.loads = true;
  SetTables({{{0, 0, 0, -12.5F}, {4, 0, 3}}, {{1, 2}}});
  Draw();
  EXPECT_THAT(Texts(), ElementsAre("12.5 kN", "3 kN"));
}

TEST_F(ClearDrawingTest, TextsOfForcesSayAllThatTheyNeed) {
  EXPECT_EQ(ForceText(12.34F, 1), "+12.3 T");
  EXPECT_EQ(ForceText(-12.36F, 1), "\u221212.4 C");
  EXPECT_EQ(ForceText(0, 1), "0");
  EXPECT_EQ(ForceText(0.004F, 1), "+0.004 T"); // never a zero with a sign
  EXPECT_EQ(ForceText(1234.6F, 0), "+1235 T");
  EXPECT_EQ(ForceText(134.6F, 1, true), "+135T");
  EXPECT_EQ(ForceText(-34.56F, 1, true), "\u221234.6C");
  EXPECT_EQ(ForceDecimals(999.9), 1);
  EXPECT_EQ(ForceDecimals(1000), 0);
  EXPECT_EQ(ForceDecimals(9.9), 2);
  EXPECT_EQ(ForceDecimals(0.5), 3);
  EXPECT_EQ(LoadText(-7, 1), "7 kN");
  EXPECT_EQ(PlainText(-0.25, 2), "\u22120.25");
  EXPECT_EQ(PlainText(-0.001, 2), "0");
}

// A half goes away from zero in the grids and in the other drawing; a decimal of seven digits is what they round.
TEST_F(ClearDrawingTest, ForcesAreRoundedAsInTheGrids) {
  EXPECT_EQ(ForceText(-6.25F, 1), "\u22126.3 C");
  EXPECT_EQ(ForceText(6.2499998F, 1), "+6.3 T");
  EXPECT_EQ(ForceText(12.5F, 0), "+13 T");
  EXPECT_EQ(ShortForceText(-0.125F, 2), "0.13C");
  EXPECT_EQ(LoadText(2.25F, 1), "2.3 kN");
}

TEST_F(ClearDrawingTest, HugeAndTinyNumbersShowAPowerOfTen) {
  EXPECT_EQ(PlainText(9999999, 0), "9999999");
  EXPECT_EQ(PlainText(-4e30, 0), "\u22124E+30");
  EXPECT_EQ(PlainText(2e-30, 9), "2E-30");
  EXPECT_EQ(PlainText(0.000002, 9), "0.000002");
  EXPECT_EQ(PlainText(2e-7, 6), "0");
  EXPECT_EQ(PlainText(0, 9), "0");
  EXPECT_EQ(PlainText(0, 45), "0");
}

TEST_F(ClearDrawingTest, AReadingHasItsDigitsAndNoMore) {
  EXPECT_EQ(ReadingText(33.75006, 5), "33.75");
  EXPECT_EQ(ReadingText(-123456, 4), "-123500");
  EXPECT_EQ(ReadingText(0, 5), "0");
  EXPECT_EQ(ReadingText(1e-50, 5), "0");
}

// 0.0001 kN is none, as the tables have it; nor is what a 32-bit float leaves of a large force.
TEST_F(ClearDrawingTest, NoForceIsWhatTheResultsCannotTellFromZero) {
  EXPECT_TRUE(IsZeroForce(0.0001F, 1));
  EXPECT_FALSE(IsZeroForce(0.00011F, 1));
  EXPECT_TRUE(IsZeroForce(-0.009F, 1000));
  EXPECT_FALSE(IsZeroForce(-0.011F, 1000));
}

TEST_F(ClearDrawingTest, LargerForcesGetTheirPlacesFirst) {
  settings.memberForces = settings.layers.nodeNumbers = settings.layers.memberNumbers = settings.layers.loads = true;
  Analyse(PrattTruss(12));
  Draw(30);
  const auto rank = [](const ClearLabel& label) { return static_cast<int>(label.kind); };
  const auto& labels = Scene().labels;
  for (std::size_t k = 1; k < labels.size(); ++k) {
    ASSERT_LE(rank(labels[k - 1]), rank(labels[k]));
    if (labels[k].kind != LabelKind::Force || labels[k - 1].kind != LabelKind::Force) continue;
    const auto force = [&](std::size_t n) { return std::fabs(Scene().truss.bars[std::size_t(labels[n].owner)].force); };
    EXPECT_GE(force(k - 1), force(k));
  }
}

TEST_F(ClearDrawingTest, CountsWhatItLeavesOut) {
  settings.memberForces = true;
  Analyse(PrattTruss(60));
  surface.window = {-2, -60, 100, 75};
  DrawHere();
  const ShownLabels forces = outcome.labels[std::size_t(LabelKind::Force)];
  EXPECT_EQ(forces.all, MemberCount);
  EXPECT_LT(forces.shown, forces.all);
  EXPECT_EQ(outcome.notice, "showing " + std::to_string(forces.shown) + " of " + std::to_string(MemberCount) +
                                " forces; zoom in or point at a member");
  EXPECT_THAT(Texts(), Contains(outcome.notice));
}

TEST_F(ClearDrawingTest, CountsAtLeastOneKindHoweverNarrowThePicture) {
  settings.memberForces = settings.layers.nodeNumbers = true;
  Analyse(PrattTruss(60));
  surface.width = 100;
  surface.height = 80;
  surface.window = {-2, -60, 100, 75};
  DrawHere();
  EXPECT_LT(outcome.labels[std::size_t(LabelKind::NodeNumber)].shown, NodeCount);
  EXPECT_THAT(outcome.notice, testing::StartsWith("showing "));
  EXPECT_THAT(outcome.notice, testing::HasSubstr(" of " + std::to_string(MemberCount) + " forces"));
}

TEST_F(ClearDrawingTest, LeavesNothingOutAfterZoomingIn) {
  settings.memberForces = true;
  Analyse(PrattTruss(60));
  surface.window = {20, -5, 8, 6};
  DrawHere();
  EXPECT_EQ(outcome.labels[std::size_t(LabelKind::Force)].shown, outcome.labels[std::size_t(LabelKind::Force)].all);
}

TEST_F(ClearDrawingTest, NamesEachKindThatIsLeftOut) {
  std::array<ShownLabels, LabelKinds> labels{{{3, 4}, {5, 5}, {1, 2}, {0, 0}}};
  EXPECT_EQ(NoticeOf(labels, false),
            "showing 3 of 4 loads and reactions, 1 of 2 node numbers; zoom in or point at a member");
  EXPECT_EQ(NoticeOf({}, false), "");
}

TEST_F(ClearDrawingTest, AdvisesNobodyToZoomIntoPaper) {
  std::array<ShownLabels, LabelKinds> labels{{{4, 4}, {3, 5}, {2, 2}, {0, 0}}};
  EXPECT_EQ(NoticeOf(labels, true), "showing 3 of 5 forces");
  settings.memberForces = settings.onPaper = true;
  Analyse(PrattTruss(60));
  surface.window = {-2, -60, 100, 75};
  DrawHere();
  EXPECT_THAT(outcome.notice, testing::EndsWith(" forces"));
}

TEST_F(ClearDrawingTest, KeepsPlacesWhileTheViewMoves) {
  settings.memberForces = settings.layers.nodeNumbers = true;
  Analyse(PrattTruss(20));
  Draw(40);
  const auto before = LabelPlacesNow();
  surface.window.left += 3.3F;
  surface.window.top += 1.7F;
  DrawHere();
  EXPECT_EQ(LabelPlacesNow(), before);
  EXPECT_EQ(memory.MadeCount(), 1);
}

TEST_F(ClearDrawingTest, KeepsPlacesWhileTheShapeGrows) {
  settings.memberForces = settings.deflectedShape = true;
  Analyse(PrattTruss(20));
  Draw(40);
  settings.deflectionScale = 250;
  DrawHere();
  EXPECT_EQ(memory.MadeCount(), 1);
}

TEST_F(ClearDrawingTest, LabelsStayAtTheirPlaceWhenTheViewGrowsByAPixel) {
  settings.memberForces = settings.layers.nodeNumbers = settings.layers.memberNumbers = true;
  Analyse(PrattTruss(30));
  Draw(20);
  std::vector<int> before;
  for (const ClearLabel& label : Scene().labels) before.push_back(label.place);
  Draw(20 * 661.0 / 660);
  std::size_t moved = 0;
  for (std::size_t k = 0; k < before.size(); ++k) {
    if (before[k] >= 0 && Scene().labels[k].place != before[k]) ++moved;
  }
  EXPECT_LE(moved, before.size() / 50);
}

TEST_F(ClearDrawingTest, GivesTheSamePictureEveryTime) {
  settings.memberForces = settings.layers.nodeNumbers = settings.layers.memberNumbers = true;
  Analyse(PrattTruss(30));
  Draw(25);
  const auto first = surface.calls;
  memory = {};
  Draw(25);
  EXPECT_EQ(surface.calls, first);
}

TEST_F(ClearDrawingTest, TheDeflectedShapeIsLighterAndTheTrussStepsBack) {
  settings.deflectedShape = true;
  Analyse(Triangle());
  Draw();
  const auto shape = LinesOf(ClearPalette::Deflected);
  ASSERT_THAT(shape, SizeIs(3));
  EXPECT_TRUE(shape[0].look.dashed);
  const auto truss = LinesOf(ClearPalette::SteppedBack);
  ASSERT_THAT(truss, SizeIs(3));
  EXPECT_LT(truss[0].look.width, 2);
}

TEST_F(ClearDrawingTest, TheDeflectedShapeFollowsItsFactor) {
  settings.deflectedShape = true;
  settings.deflectionScale = 500;
  Analyse(Triangle());
  Displacements[XFreedom(3)] = 2;
  Displacements[YFreedom(3)] = -4;
  Draw();
  EXPECT_NEAR(LinesOf(ClearPalette::Deflected)[1].to.x, 500 + 100, 1e-3);
  EXPECT_NEAR(LinesOf(ClearPalette::Deflected)[1].to.y, 200 + 200, 1e-3);
}

TEST_F(ClearDrawingTest, ReportsAMissingNodeAndDrawsTheRest) {
  SetTables({{{0, 0}, {4, 0}}, {{1, 7}, {1, 2}}});
  Draw();
  EXPECT_THAT(TakeMessages(), ElementsAre(DrawingBox("table index 7,1")));
  EXPECT_THAT(LinesOf(ClearPalette::Ink), SizeIs(1));
}

TEST_F(ClearDrawingTest, ReportsADisplacementThatIsMissing) {
  settings.deflectedShape = true;
  SetTables(Triangle());
  Draw();
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Information, "Drawing error: drawDSD function\nnode 1 has no result")));
  EXPECT_THAT(LinesOf(ClearPalette::SteppedBack), SizeIs(3));
}

TEST_F(ClearDrawingTest, LabelsOfMembersOnEachOtherStandOnEitherSide) {
  settings.memberForces = true;
  SetTables({{{0, 0}, {4, 0}}, {{1, 2}, {2, 1}}});
  MemberTable(1, MemberFieldForce) = 10;
  MemberTable(2, MemberFieldForce) = -20;
  Draw();
  EXPECT_THAT(Texts(), ElementsAre("\u221220.0 C", "+10.0 T"));
}

TEST_F(ClearDrawingTest, NoForceLosesItsPlaceToASmallerOne) {
  settings.memberForces = true;
  ModelData model{{{0, 0}, {4, 0}}, {}};
  for (int m = 1; m <= 9; ++m) model.members.push_back({1, 2});
  SetTables(model);
  for (int m = 1; m <= 9; ++m) MemberTable(m, MemberFieldForce) = 100 + 10 * static_cast<float>(m);
  Draw(20);
  const int shown = outcome.labels[std::size_t(LabelKind::Force)].shown;
  EXPECT_GT(shown, 1);
  EXPECT_LT(shown, 9);
  for (const ClearLabel& label : Scene().labels) {
    EXPECT_EQ(label.IsPlaced(), label.owner >= 9 - shown) << label.text << " of " << shown << " of the largest forces";
  }
}

TEST_F(ClearDrawingTest, FramesArrowsAndLabels) {
  settings.layers = {true, true, true, true, true};
  settings.memberForces = settings.reactions = true;
  Analyse(PrattTruss(14));
  surface.window = *ClearFrame(surface, settings);
  DrawHere();
  const Bounds view{0, 0, surface.width, surface.height};
  for (const auto& polygon : surface.pixelPolygons) {
    for (const PixelPoint& corner : polygon.corners) EXPECT_TRUE(view.Contains(corner));
  }
  for (const PixelLabel& label : surface.pixelTexts) {
    EXPECT_TRUE(view.Contains(label.centre + PixelPoint{surface.TextWidth(label.text, label.size) / 2, 0}))
        << label.text;
  }
  EXPECT_EQ(outcome.labels[0].shown, outcome.labels[0].all);
}

TEST_F(ClearDrawingTest, FramesNothingWithoutNodes) { EXPECT_FALSE(ClearFrame(surface, settings).has_value()); }

TEST_F(ClearDrawingTest, FramesASinglePoint) {
  SetTables({{{5, 5, 0, -10, 3}}, {}});
  EXPECT_TRUE(ClearFrame(surface, settings).has_value());
}

TEST_F(ClearDrawingTest, FramesATrussAlongOneLineAsLargeAsItCan) {
  SetTables({{{0, 5}, {200, 5}}, {{1, 2}}});
  const auto level = ClearFrame(surface, settings);
  ASSERT_TRUE(level.has_value());
  EXPECT_GE(level->width, 200);
  EXPECT_LE(level->width, 240);
  SetTables({{{5, 0}, {5, 200}}, {{1, 2}}});
  const auto upright = ClearFrame(surface, settings);
  ASSERT_TRUE(upright.has_value());
  EXPECT_GE(upright->height, 200);
  EXPECT_LE(upright->height, 260);
}

// 40 kN in a sixth of 12 m.
TEST_F(ClearDrawingTest, FitsTheLongestArrowToTheTruss) {
  SetTables({{{0, 0, 0, 0, 3}, {12, 0, 0, -40, 1}}, {{1, 2}}});
  EXPECT_FLOAT_EQ(*FittingLoadsScale(false), 20);
  SetTables({{{0, 0, 0, 0, 3}, {12, 0, 0, 0, 1}}, {{1, 2}}});
  EXPECT_FALSE(FittingLoadsScale(false).has_value());
}

TEST_F(ClearDrawingTest, FitsWithinWhatTheScaleCanBe) {
  SetTables({{{0, 0, 0, 0, 3}, {12, 0, 0, -0.5F, 1}}, {{1, 2}}});
  EXPECT_EQ(*FittingLoadsScale(false), 1.0F);
  SetTables({{{0, 0, 0, 0, 3}, {1, 0, 0, -9000, 1}}, {{1, 2}}});
  EXPECT_EQ(*FittingLoadsScale(false), 5000.0F);
}

TEST_F(ClearDrawingTest, IsDrawnWhereTheDisplayIsInThisStyle) {
  SetTables(Triangle());
  RedrawDisplay(&surface, true);
  EXPECT_THAT(surface.pixelLines, IsEmpty());
  surface.Forget();
  TheDisplay.Style = DrawingStyle::Clear;
  RedrawDisplay(&surface, true);
  EXPECT_THAT(surface.ink, IsEmpty());
  EXPECT_THAT(surface.pixelLines, SizeIs(3));
}

} // namespace
} // namespace strutwright
