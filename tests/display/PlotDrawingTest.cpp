#include "RecordingSurface.h"
#include "modPlotDrawing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

/// A surface on which the plot itself is 400 x 200 pixels, from (78, 34).
class PlotDrawingTest : public testing::Test {
 protected:
  PlotDrawingTest() {
    surface.width = 500;
    surface.height = 282;
  }

  std::vector<std::string> Texts(const Plot& plot) {
    Draw(plot);
    std::vector<std::string> texts;
    for (const PixelLabel& label : surface.pixelTexts) texts.push_back(label.text);
    return texts;
  }

  /// The lines of the curve, which are two pixels wide.
  std::vector<RecordingSurface::PixelLineInk> Curve(const Plot& plot) {
    Draw(plot);
    std::vector<RecordingSurface::PixelLineInk> curve;
    std::copy_if(surface.pixelLines.begin(), surface.pixelLines.end(), std::back_inserter(curve),
                 [](const auto& line) { return line.look.width == 2; });
    return curve;
  }

  void Draw(const Plot& plot) {
    surface.pixelLines.clear();
    surface.pixelTexts.clear();
    surface.pixelDots.clear();
    DrawPlot(surface, plot);
  }

  RecordingSurface surface;
};

Plot PlotThrough(const std::vector<CurvePoint>& points) { return {"Height (m)", "Force of member 1 (kN)", points, {}}; }

TEST_F(PlotDrawingTest, FillsItsAxes) {
  const auto curve = Curve(PlotThrough({{0, 0}, {1, 5}, {2, 20}}));
  ASSERT_EQ(curve.size(), 2U);
  EXPECT_EQ(curve[0].from.x, 78);
  EXPECT_EQ(curve[0].from.y, 234);
  EXPECT_EQ(curve[0].to.x, 278);
  EXPECT_EQ(curve[0].to.y, 184);
  EXPECT_EQ(curve[1].to.x, 478);
  EXPECT_EQ(curve[1].to.y, 34);
}

TEST_F(PlotDrawingTest, HasNamesAndRoundValues) {
  EXPECT_THAT(Texts(PlotThrough({{0, 0}, {2, 20}})), IsSupersetOf({"Height (m)", "Force of member 1 (kN)", "0", "0.5",
                                                                   "1", "1.5", "2", "5", "10", "15", "20"}));
}

TEST_F(PlotDrawingTest, PutsTheNamesUnderTheMiddleAndOverTheBeginning) {
  Draw(PlotThrough({{0, 0}, {2, 20}}));
  const auto centreOf = [this](const std::string& text) {
    const auto found = std::find_if(surface.pixelTexts.begin(), surface.pixelTexts.end(),
                                    [&text](const PixelLabel& label) { return label.text == text; });
    return found == surface.pixelTexts.end() ? PixelPoint{} : found->centre;
  };
  EXPECT_EQ(centreOf("Height (m)").x, 278);
  EXPECT_EQ(centreOf("Height (m)").y, 268);
  EXPECT_EQ(centreOf("Force of member 1 (kN)").y, 14);
  EXPECT_EQ(centreOf("0.5").x, 178) << "a value stands under its line";
  EXPECT_EQ(centreOf("0.5").y, 246);
  EXPECT_EQ(centreOf("10").y, 134) << "and one beside it";
}

TEST_F(PlotDrawingTest, LeavesAGapWhereThereIsNoResult) {
  const auto curve = Curve(PlotThrough({{0, 1}, {1, {}}, {2, 1}, {3, 2}}));
  ASSERT_EQ(curve.size(), 1U);
  EXPECT_GT(curve[0].from.x, 300);
}

TEST_F(PlotDrawingTest, ShowsZeroWhereItIsNear) {
  EXPECT_THAT(Texts(PlotThrough({{1, 2}, {3, 10}})), Contains("0"));
  EXPECT_THAT(Texts(PlotThrough({{1, -2}, {3, -10}})), Contains("0"));
  EXPECT_THAT(Texts(PlotThrough({{1, 100}, {3, 110}})), Not(Contains("0")));
}

TEST_F(PlotDrawingTest, HasARangeAboutAValueThatNeverChanges) {
  const auto curve = Curve(PlotThrough({{0, 7}, {1, 7}}));
  ASSERT_EQ(curve.size(), 1U);
  EXPECT_NEAR(curve[0].from.y, 134, 1e-9); // half way up
  EXPECT_THAT(Texts(PlotThrough({{0, 7}, {1, 7}})), Contains("7"));
}

TEST_F(PlotDrawingTest, ShowsNoRoundingAsAChange) {
  const auto curve = Curve(PlotThrough({{0, -7.5}, {1, -7.49997}, {2, -7.50001}}));
  ASSERT_EQ(curve.size(), 2U);
  EXPECT_NEAR(curve[0].from.y, curve[0].to.y, 1);
  EXPECT_NEAR(curve[1].from.y, curve[1].to.y, 1);
}

TEST_F(PlotDrawingTest, MarksWhereThingsStandNow) {
  Plot plot = PlotThrough({{0, 0}, {2, 20}});
  plot.mark = CurvePoint{1, 10};
  EXPECT_THAT(Texts(plot), Contains("10"));
  ASSERT_EQ(surface.pixelDots.size(), 1U);
  EXPECT_EQ(surface.pixelDots[0].centre.x, 278);
  EXPECT_EQ(surface.pixelDots[0].centre.y, 134);
}

TEST_F(PlotDrawingTest, MarksNothingBesideTheRange) {
  Plot plot = PlotThrough({{0, 0}, {2, 20}});
  plot.mark = CurvePoint{2.5, 10};
  Draw(plot);
  EXPECT_THAT(surface.pixelDots, IsEmpty());
}

TEST_F(PlotDrawingTest, KeepsTheMarksValueOnTheSurface) {
  Plot plot = PlotThrough({{0, 0}, {2, 20}});
  plot.mark = CurvePoint{2, 12.3456};
  Draw(plot);
  const PixelLabel& value = surface.pixelTexts.back();
  EXPECT_EQ(value.text, "12.346"); // five digits
  EXPECT_LT(value.centre.x + surface.TextWidth(value.text, value.size) / 2, 478);
}

TEST_F(PlotDrawingTest, IsDrawnWithoutPointsAndOnASurfaceThatIsTooSmall) {
  EXPECT_THAT(Texts({"x", "y", {}, {}}), IsSupersetOf({"x", "y"}));
  surface.width = 20;
  surface.height = 10;
  const auto curve = Curve(PlotThrough({{0, -1e30}, {1, 1e30}}));
  ASSERT_EQ(curve.size(), 1U);
  EXPECT_TRUE(std::isfinite(curve[0].to.y));
}

} // namespace
} // namespace strutwright
