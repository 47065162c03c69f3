#include "ClearPalette.h"
#include "LabelPlacement.h"
#include "RecordingSurface.h"
#include "modSketch.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr Bounds Sheet{0, 0, 400, 300};

SketchPoint Named(double x, double y, const std::string& name) {
  SketchPoint point{x, y};
  point.name = name;
  return point;
}

/// 4 wide and 3 high.
Sketch Triangular() {
  Sketch sketch;
  sketch.points = {Named(0, 0, "1"), Named(4, 0, "2"), Named(0, 3, "3")};
  sketch.lines = {{0, 1, SketchTone::Tension, "F1", "", 7}, {0, 2, SketchTone::Compression, "", "2", 8}, {1, 2}};
  return sketch;
}

SketchArrow Arrow(int point, double c, double s, const std::string& label) {
  SketchArrow arrow{point, c, s};
  arrow.label = label;
  return arrow;
}

class SketchTest : public testing::Test {
 protected:
  PlacedSketch Placed(const Sketch& sketch, const Bounds& area = Sheet) { return PlaceSketch(sketch, area, surface); }

  std::vector<std::string> Texts(const PlacedSketch& placed) {
    surface.Forget();
    DrawSketch(surface, placed);
    std::vector<std::string> texts;
    for (const PixelLabel& label : surface.pixelTexts) texts.push_back(label.text);
    return texts;
  }

  RecordingSurface surface;
};

TEST_F(SketchTest, KeepsProportionsAndFitsItsArea) {
  const PlacedSketch placed = Placed(Triangular());
  const PixelPoint first = placed.scene.truss.joints[1].at;
  const PixelPoint second = placed.scene.truss.joints[2].at;
  const PixelPoint third = placed.scene.truss.joints[3].at;
  EXPECT_DOUBLE_EQ((second.x - first.x) / 4, (first.y - third.y) / 3);
  EXPECT_GT(second.x - first.x, 250); // it fills what there is
  EXPECT_LT(second.x, 400);
  EXPECT_GT(third.y, 0);
}

TEST_F(SketchTest, LooksTheSameWhereverItsOriginLies) {
  Sketch sketch = Triangular();
  sketch.points[1].support = 1;
  sketch.arrows = {Arrow(2, 1, 0, "12 kN"), Arrow(0, 0, 1, "16 kN")};
  sketch.texts = {{2, 0, 0, -1, "A"}};
  Sketch moved = sketch;
  for (SketchPoint& point : moved.points) {
    point.x += 30;
    point.y -= 20;
  }
  moved.texts[0].x += 30;
  moved.texts[0].y -= 20;

  const PlacedSketch here = Placed(sketch);
  const PlacedSketch there = Placed(moved);

  const auto expectSame = [](PixelPoint one, PixelPoint other) {
    EXPECT_NEAR(one.x, other.x, 1e-9);
    EXPECT_NEAR(one.y, other.y, 1e-9);
  };
  for (std::size_t k = 1; k <= 3; ++k) expectSame(here.scene.truss.joints[k].at, there.scene.truss.joints[k].at);
  for (std::size_t k = 0; k < 2; ++k) {
    expectSame(here.scene.arrows[k].tail, there.scene.arrows[k].tail);
    expectSame(here.scene.arrows[k].tip, there.scene.arrows[k].tip);
  }
  ASSERT_THAT(here.texts, SizeIs(3)); // and the values of the arrows
  ASSERT_THAT(there.texts, SizeIs(3));
  for (std::size_t k = 0; k < 3; ++k) expectSame(here.texts[k].centre, there.texts[k].centre);
}

TEST_F(SketchTest, FindsItsPlacesAgain) {
  const PlacedSketch placed = Placed(Triangular());
  const PixelPoint back = ToSketch(placed, placed.At(1.25, 2));
  EXPECT_NEAR(back.x, 1.25, 1e-12);
  EXPECT_NEAR(back.y, 2, 1e-12);
}

TEST_F(SketchTest, WritesNamesLabelsNumbersAndTitle) {
  Sketch sketch = Triangular();
  sketch.title = "A triangle";
  EXPECT_THAT(Texts(Placed(sketch)), testing::UnorderedElementsAre("F1", "1", "2", "3", "2", "A triangle"));
}

TEST_F(SketchTest, LooksAsItsTonesSay) {
  DrawSketch(surface, Placed(Triangular()));
  const auto hasColour = [this](Colour colour) {
    return std::any_of(surface.pixelLines.begin(), surface.pixelLines.end(),
                       [colour](const auto& line) { return line.look.colour == colour; });
  };
  EXPECT_TRUE(hasColour(ClearPalette::Tension));
  EXPECT_TRUE(hasColour(ClearPalette::Compression));
  EXPECT_TRUE(hasColour(ClearPalette::Ink));
  EXPECT_FALSE(hasColour(ClearPalette::Deflected)); // nothing is lit
}

TEST_F(SketchTest, LightsUpTheLinesOfAKey) {
  DrawSketch(surface, Placed(Triangular()), 7);
  const auto lit = std::count_if(surface.pixelLines.begin(), surface.pixelLines.end(),
                                 [](const auto& line) { return line.look.colour == ClearPalette::Deflected; });
  EXPECT_EQ(lit, 1);
}

TEST_F(SketchTest, FindsThePointAndTheLineUnderAPixel) {
  const PlacedSketch placed = Placed(Triangular());
  const auto near = [&](double x, double y, double off) { return placed.At(x, y) + PixelPoint{off, 0}; };
  EXPECT_EQ(PointAt(placed, near(4, 0, 8)), 1);
  EXPECT_EQ(PointAt(placed, near(4, 0, 10)), -1);
  EXPECT_EQ(KeyAt(placed, placed.At(2, 0) + PixelPoint{0, 8}), 7);
  EXPECT_EQ(KeyAt(placed, placed.At(2, 0) + PixelPoint{0, 10}), 0);
  EXPECT_EQ(KeyAt(placed, near(0, 1.5, 5)), 8);
  EXPECT_EQ(KeyAt(placed, placed.At(2, 1.5)), 0); // a line without a key
}

TEST_F(SketchTest, StandsAnArrowOnTheSideThatItsForceLeaves) {
  Sketch sketch;
  sketch.points = {{0, 0}};
  sketch.arrows = {Arrow(0, 1, 0, "pushes"), Arrow(0, -1, 0, "pulls")};
  sketch.arrows[1].pulls = true;
  const PlacedSketch placed = Placed(sketch);
  const double joint = placed.scene.truss.joints[1].at.x;
  EXPECT_LT(placed.scene.arrows[0].tail.x, placed.scene.arrows[0].tip.x);
  EXPECT_LT(placed.scene.arrows[0].tip.x, joint);
  EXPECT_LT(placed.scene.arrows[1].tip.x, placed.scene.arrows[1].tail.x);
  EXPECT_LT(placed.scene.arrows[1].tail.x, joint);
}

TEST_F(SketchTest, MovesAnArrowWhereItsSideIsTaken) {
  Sketch sketch;
  sketch.points = {{0, 0}};
  sketch.arrows = {Arrow(0, 0, 1, "member"), Arrow(0, 0, -1, "load")};
  sketch.arrows[0].pulls = true; // it stands above the point
  sketch.arrows[1].mayMove = true;
  const PlacedSketch placed = Placed(sketch);
  EXPECT_GT(placed.scene.arrows[1].tail.y, placed.scene.truss.joints[1].at.y); // so that the load hangs below
  EXPECT_THAT(Texts(placed), testing::UnorderedElementsAre("member", "load"));
}

TEST_F(SketchTest, StandsAnArrowOutsideOfTheTruss) {
  Sketch sketch = Triangular();
  sketch.arrows = {Arrow(0, -1, 0, "R1x")}; // to the left, at the lower left corner
  sketch.arrows[0].mayMove = true;
  const PlacedSketch placed = Placed(sketch);
  EXPECT_LT(placed.scene.arrows[0].tail.x, placed.scene.truss.joints[1].at.x);
}

TEST_F(SketchTest, LabelsArrowsInEveryDirectionInsideItsArea) {
  Sketch sketch;
  sketch.points = {{0, 0}};
  for (int k = 0; k < 8; ++k) {
    const double angle = 0.3 + k * 0.785;
    sketch.arrows.push_back(Arrow(0, std::cos(angle), std::sin(angle), "F" + std::to_string(k) + " = -1.5 kN"));
  }
  surface.Forget();
  DrawSketch(surface, Placed(sketch));
  EXPECT_THAT(surface.pixelTexts, SizeIs(8));
  for (const PixelLabel& label : surface.pixelTexts) {
    const double half = surface.TextWidth(label.text, label.size) / 2;
    EXPECT_GE(label.centre.x - half, 0) << label.text;
    EXPECT_LE(label.centre.x + half, 400) << label.text;
  }
}

TEST_F(SketchTest, MakesRoomForAnArrowWhereverItStands) {
  Sketch sketch;
  sketch.points = {Named(0, 0, "1"), Named(8, 0, "2"), Named(4, -1, "3")};
  sketch.lines = {{0, 1}, {0, 2}, {1, 2}};
  sketch.arrows = {Arrow(2, 0, -1, "100 kN")}; // it would stand inside, and so hangs below the lowest point
  sketch.arrows[0].mayMove = true;
  const PlacedSketch placed = Placed(sketch, {0, 0, 400, 120});
  EXPECT_GT(placed.scene.arrows[0].tip.y, placed.scene.truss.joints[3].at.y);
  EXPECT_LE(placed.scene.arrows[0].tip.y, 120);
  ASSERT_THAT(placed.texts, SizeIs(1));
  EXPECT_LE(placed.texts[0].centre.y + ClearSize::LargestText / 2.0, 120);
}

TEST_F(SketchTest, MakesRoomForAValueStraightBeyondItsArrow) {
  Sketch sketch = Triangular();
  sketch.arrows = {Arrow(1, 1, 0, "F = -123.45 kN")};
  sketch.arrows[0].pulls = true;
  const PlacedSketch placed = Placed(sketch);
  const ClearArrow& arrow = placed.scene.arrows[0];
  ASSERT_THAT(placed.texts, SizeIs(1));
  EXPECT_DOUBLE_EQ(placed.texts[0].centre.y, arrow.outer.y);
  EXPECT_GT(placed.texts[0].centre.x, arrow.outer.x);
  EXPECT_LE(placed.texts[0].centre.x + surface.TextWidth("F = -123.45 kN", ClearSize::LargestText) / 2, 400);
}

TEST_F(SketchTest, GivesAnArrowItsValueEvenWhereNoPlaceIsFree) {
  Sketch sketch;
  sketch.points = {{0, 0}};
  for (int k = 0; k < 24; ++k) {
    const double angle = 0.26 * k;
    sketch.arrows.push_back(Arrow(0, std::cos(angle), std::sin(angle), "F" + std::to_string(k) + " = -123.45 kN"));
  }
  EXPECT_THAT(Texts(Placed(sketch, {0, 0, 200, 160})), SizeIs(24));
}

TEST_F(SketchTest, WritesAValueAtTheFirstOfPlacesThatAreEquallyBad) {
  Sketch sketch;
  sketch.points = {{0, 0}};
  sketch.arrows = {Arrow(0, 1, 0, "F = -123.45 kN")};
  const PlacedSketch placed = Placed(sketch, {0, 0, 6, 6});
  const ClearArrow& arrow = placed.scene.arrows[0];
  ASSERT_THAT(placed.texts, SizeIs(1));
  EXPECT_LT(placed.texts[0].centre.y, arrow.outer.y) << "the same place below comes after it";
}

TEST_F(SketchTest, DrawsWhatBearsNothingWithoutAHead) {
  Sketch sketch;
  sketch.points = {{0, 0}};
  sketch.arrows = {Arrow(0, 1, 0, "F1 = 0")};
  sketch.arrows[0].hasHead = false;
  DrawSketch(surface, Placed(sketch));
  EXPECT_THAT(surface.pixelPolygons, IsEmpty());
  EXPECT_THAT(surface.pixelLines, SizeIs(1));
}

TEST_F(SketchTest, ShowsItsScaleAsARoundLength) {
  Sketch sketch = Triangular();
  sketch.unit = "kN";
  const PlacedSketch placed = Placed(sketch);
  EXPECT_THAT(Texts(placed), Contains("0.5 kN")); // at least 40 pixels, with some 80 a unit
  const auto bar = std::find_if(surface.pixelLines.begin(), surface.pixelLines.end(),
                                [](const auto& line) { return line.from.y == 290 && line.to.y == 290; });
  ASSERT_NE(bar, surface.pixelLines.end());
  EXPECT_NEAR(bar->to.x - bar->from.x, placed.scale / 2, 1e-9);
}

TEST_F(SketchTest, CutsAStrokeAtItsArea) {
  Sketch sketch = Triangular();
  sketch.stroke = SketchStroke{1, 100, 1, -100};
  DrawSketch(surface, Placed(sketch));
  const auto stroke = std::find_if(surface.pixelLines.begin(), surface.pixelLines.end(),
                                   [](const auto& line) { return line.look.dashed; });
  ASSERT_NE(stroke, surface.pixelLines.end());
  EXPECT_GE(std::min(stroke->from.y, stroke->to.y), 0);
  EXPECT_LE(std::max(stroke->from.y, stroke->to.y), 300);
}

TEST_F(SketchTest, KeepsTheWholeOfADotFree) {
  Sketch sketch;
  sketch.points = {{0, 0}};
  const PlacedSketch placed = Placed(sketch);
  const PixelPoint dot = placed.scene.truss.joints[1].at;
  const auto isTaken = [&](double off) {
    return TouchesAnything(placed.scene, {{dot.x + off + 0.1, dot.y}, {1, 0}, 0.1, 0.1});
  };
  constexpr double Edge = ClearSize::NodeRadius + ClearSize::NodeEdge / 2;
  EXPECT_TRUE(isTaken(Edge - 0.2));
  EXPECT_FALSE(isTaken(Edge + 0.2));
}

TEST_F(SketchTest, StandsATextOutsideWhereItIsFree) {
  Sketch sketch = Triangular();
  sketch.texts = {{2, 0, 0, -1, "A"}};
  const PlacedSketch placed = Placed(sketch);
  EXPECT_NEAR(placed.texts[0].centre.x, placed.At(2, 0).x, 1);
  EXPECT_GT(placed.texts[0].centre.y, placed.At(2, 0).y + 8);
}

TEST_F(SketchTest, WritesATextLevelAtItsPointWhereNothingIsInTheWay) {
  Sketch sketch = Triangular();
  sketch.texts = {{3, 2.5, 0, 0, "A"}};
  const PlacedSketch placed = Placed(sketch);
  EXPECT_EQ(placed.texts[0].centre, placed.At(3, 2.5));
  DrawSketch(surface, placed);
  const auto written = std::find_if(surface.pixelTexts.begin(), surface.pixelTexts.end(),
                                    [](const PixelLabel& label) { return label.text == "A"; });
  ASSERT_NE(written, surface.pixelTexts.end());
  EXPECT_EQ(written->along, (PixelPoint{1, 0}));
}

TEST_F(SketchTest, TakesAPointAloneALineAndNothing) {
  Sketch point;
  point.points = {Named(5, 5, "1")};
  EXPECT_THAT(Texts(Placed(point)), ElementsAre("1"));
  EXPECT_NEAR(Placed(point).scene.truss.joints[1].at.x, 200, 1);
  Sketch line;
  line.points = {Named(0, 0, "1"), Named(1e30, 0, "2")};
  line.lines = {{0, 1}};
  EXPECT_THAT(Texts(Placed(line)), SizeIs(2));
  EXPECT_THAT(Texts(Placed({})), IsEmpty());
}

TEST_F(SketchTest, TakesTheSmallestAndTheLargest) {
  for (const double size : {1e-30, 1e30}) {
    Sketch sketch = Triangular();
    for (SketchPoint& each : sketch.points) {
      each.x *= size;
      each.y *= size;
    }
    const PlacedSketch placed = Placed(sketch);
    EXPECT_GT(placed.scene.truss.joints[2].at.x - placed.scene.truss.joints[1].at.x, 250);
  }
}

TEST_F(SketchTest, SharesASheetAmongItsParts) {
  const SketchSheet sheet{{Triangular(), 0, 0, 0.5, 1}, {Triangular(), 0.5, 0, 0.5, 1}};
  const std::vector<PlacedSketch> placed = PlaceSheet(sheet, surface); // of 800 by 600
  ASSERT_THAT(placed, SizeIs(2));
  EXPECT_EQ(placed[1].area, (Bounds{400, 0, 800, 600}));
  EXPECT_EQ(SketchAt(placed, {399, 10}), 0);
  EXPECT_EQ(SketchAt(placed, {401, 10}), 1);
  EXPECT_EQ(SketchAt(placed, {401, 700}), -1);
}

} // namespace
} // namespace strutwright
