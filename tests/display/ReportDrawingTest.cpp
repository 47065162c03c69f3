#include "DisplayFixture.h"
#include "modAnalysis.h"
#include "modModelStore.h"
#include "modReportDrawing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class ReportDrawingTest : public DisplayFixture {
 protected:
  /// Analyses a model and draws it for a report.
  ReportFrame Draw(const ModelData& model) {
    SetTables(model);
    EXPECT_EQ(AnalyseTruss(), AnalysisEnd::Done);
    AnalysisDone = FlagTrue;
    const ReportFrame frame = FrameReport();
    page.width = static_cast<float>(frame.width);
    page.height = static_cast<float>(frame.height);
    DrawReport(page, frame);
    return frame;
  }

  RecordingSurface page;
};

/// A truss of triangles with another unit of length.
ModelData Scaled(ModelData model, float factor) {
  for (NodeData& node : model.nodes) {
    node.x *= factor;
    node.y *= factor;
  }
  return model;
}

TEST_F(ReportDrawingTest, ShowsEverythingButTheGrid) {
  Draw(Triangle());
  EXPECT_THAT(page.Ink("text", "black"), SizeIs(3)); // numbers of nodes
  EXPECT_THAT(page.Ink("text", "red"), SizeIs(5));   // of members, and two loads
  EXPECT_THAT(page.Ink("text", "blue"), SizeIs(3));  // member forces
  EXPECT_THAT(page.Ink("text", "green"), SizeIs(3)); // reactions
  EXPECT_THAT(page.Ink("line", "red"), Contains(HasSubstr("dashed")));
  EXPECT_THAT(page.Ink("line", "grey"), IsEmpty());
}

TEST_F(ReportDrawingTest, LeavesTheDisplayAsItIs) {
  surface.window = {1, 2, 3, 4};
  DeflectionScale = 30;
  LoadsScale = 7;
  KeepView = false;
  DrawNodeMode = true;
  TheMouse.RubberBands[0] = RubberShape{1, 2, 3, 4};
  MaxX = 99;

  Draw(Triangle());

  EXPECT_THAT(surface.calls, IsEmpty());
  EXPECT_EQ(surface.window, (ViewWindow{1, 2, 3, 4}));
  EXPECT_EQ(DisplaySurface, &surface);
  EXPECT_EQ(DeflectionScale, 30.0F);
  EXPECT_EQ(LoadsScale, 7.0F);
  EXPECT_FALSE(KeepView || ShowReactions || ShowMemberForces || ShowDeflectedShape);
  EXPECT_TRUE(DrawNodeMode);
  EXPECT_TRUE(TheMouse.RubberBands[0].has_value());
  EXPECT_EQ(MaxX, 99.0F);
  EXPECT_EQ(TheDisplay.Layers, (ModelLayers{false, false, false, false, false}));
}

TEST_F(ReportDrawingTest, LeavesTheModelAsItIs) {
  Draw(Scaled(Triangle(), 0.37F));
  const FieldTable nodes = NodeTable;
  page.Forget();
  page.failAt = 20;
  DrawReport(page, FrameReport());
  EXPECT_EQ(NodeTable, nodes);
  EXPECT_EQ(NodeTable(3, NodeX), 4 * 0.37F);
}

TEST_F(ReportDrawingTest, NeedsNoDisplay) {
  DisplaySurface = nullptr;
  Draw(Triangle());
  EXPECT_THAT(page.ink, Not(IsEmpty()));
  EXPECT_EQ(DisplaySurface, nullptr);
}

/// The coordinates of an ink line.
std::vector<double> Numbers(const std::string& ink) {
  std::istringstream text(ink);
  std::string kind;
  text >> kind;
  std::vector<double> numbers;
  for (double number = 0; text >> number;) numbers.push_back(number);
  return numbers;
}

TEST_F(ReportDrawingTest, KeepsEveryLineOnThePage) {
  for (const float factor : {0.01F, 1.0F, 500.0F}) {
    const ModelData up{{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {4, 3, 5, 10, 0}}, {{1, 2}, {2, 3}, {1, 3}}};
    for (const ModelData& model : {Triangle(), up, PrattTruss(40)}) {
      page.Forget();
      const ReportFrame frame = Draw(Scaled(model, factor));
      const ViewWindow& view = frame.window;
      for (const std::string& ink : page.ink) {
        if (!ink.starts_with("line")) continue;
        const std::vector<double> ends = Numbers(ink);
        ASSERT_EQ(ends.size(), 4U) << ink;
        for (const std::size_t x : {0U, 2U}) {
          EXPECT_GE(ends[x], view.left) << ink;
          EXPECT_LE(ends[x], view.left + view.width) << ink;
          EXPECT_GE(ends[x + 1], view.top) << ink;
          EXPECT_LE(ends[x + 1], view.top + view.height) << ink;
        }
      }
    }
  }
}

// The head of an arrow reaches as far to one side of its shaft as to the other.
TEST_F(ReportDrawingTest, LeavesAPostWhereItStandsHoweverItIsLoaded) {
  const auto placeOfThePost = [](const ReportFrame& frame) { return -frame.window.left / frame.window.width; };
  ModelData post{{{0, 0, 0, 0, 3}, {0, 4, 0, 0, 2}}, {{1, 2}}};
  const float unloaded = placeOfThePost(Draw(post));
  post.nodes[1].forceY = -40;
  EXPECT_NEAR(placeOfThePost(Draw(post)), unloaded, 1e-5);
}

TEST_F(ReportDrawingTest, HasNoHeightThatIsOutOfProportion) {
  const ReportFrame flat = Draw({{{0, 0, 0, 0, 3}, {100, 0, 40, 0, 1}}, {{1, 2}}});
  EXPECT_EQ(flat.width, ReportWidth);
  EXPECT_EQ(flat.height, 160);
  const ReportFrame tall = Draw({{{0, 0, 0, 0, 3}, {0, 100, 0, -40, 2}}, {{1, 2}}});
  EXPECT_EQ(tall.height, 576);
  EXPECT_NEAR(tall.window.width / tall.window.height, static_cast<float>(tall.width) / 576.0F, 1e-4);
}

// Symbols that have a size in m would be dots in one truss and cover the other.
TEST_F(ReportDrawingTest, LooksAlikeInEverySize) {
  Draw(Triangle());
  const auto circles = page.Ink("circle", "black");
  page.Forget();
  Draw(Scaled(Triangle(), 512));
  EXPECT_EQ(page.Ink("circle", "black"), circles);
}

// The node moves 1 mm; of the 5 m of the truss a twelfth is 417 mm.
TEST_F(ReportDrawingTest, RoundsItsScales) {
  const ReportFrame frame = Draw({{{0, 0, 0, 0, 3}, {5, 0, 40, 0, 1}}, {{1, 2}}});
  EXPECT_EQ(frame.deflectionScale, 200.0F);
  EXPECT_EQ(frame.loadsScale, 50.0F); // 40 kN in a sixth of 5 m would be 48 kN/m
}

TEST_F(ReportDrawingTest, LeavesOutWhatShortMembersHaveNoRoomFor) {
  const ReportFrame some = Draw(PrattTruss(40));
  EXPECT_TRUE(some.numbers);
  EXPECT_FALSE(some.forces);
  EXPECT_THAT(page.Ink("text", "black"), SizeIs(40));
  EXPECT_THAT(page.Ink("text", "blue"), IsEmpty());
  EXPECT_THAT(page.Ink("line", "blue"), IsEmpty());
  page.Forget();
  EXPECT_FALSE(Draw(PrattTruss(200)).numbers);
  EXPECT_THAT(page.Ink("text", "black"), IsEmpty());
}

TEST_F(ReportDrawingTest, IsWiderForMoreNodes) {
  EXPECT_EQ(Draw(PrattTruss(30)).width, ReportWidth);
  EXPECT_EQ(Draw(PrattTruss(32)).width, 960);
}

TEST_F(ReportDrawingTest, CanBeOfATrussThatNothingMoves) {
  const ReportFrame frame = Draw({{{0, 0, 0, 0, 3}, {5, 0, 0, 0, 1}}, {{1, 2}}});
  EXPECT_EQ(frame.deflectionScale, 1.0F);
  EXPECT_EQ(frame.loadsScale, 1.0F);
  EXPECT_TRUE(std::isfinite(frame.window.width));
}

} // namespace
} // namespace strutwright
