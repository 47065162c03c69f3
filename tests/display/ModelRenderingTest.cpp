#include "DisplayFixture.h"
#include "modModelRendering.h"
#include "modModelStore.h"

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ModelRenderingTest : public DisplayFixture {
 protected:
  Lines Draw(const ModelData& model) {
    SetTables(model);
    DrawModel(surface, View());
    return surface.ink;
  }
};

const ModelData Bar{{{0, 0, 0, 0, 3}, {4, 2, 10, 0, 0}}, {{1, 2}}};

TEST_F(ModelRenderingTest, DrawsMembersThenNodes) {
  EXPECT_THAT(Draw(Bar), ElementsAre("line 0 0 4 -2 black 2", "circle 0 0 0.1 black 2", "circle 4 -2 0.1 black 2"));
}

TEST_F(ModelRenderingTest, NumbersAMemberAtItsMiddle) {
  TheDisplay.Layers.memberNumbers = true;
  EXPECT_THAT(Draw(Bar), ElementsAre("line 0 0 4 -2 black 2", "text 2 -1 '1' red", "circle 0 0 0.1 black 2",
                                     "circle 4 -2 0.1 black 2"));
}

TEST_F(ModelRenderingTest, NumbersANodeAHundredthOfTheLargestXBesideIt) {
  TheDisplay.Layers.nodeNumbers = true;
  EXPECT_THAT(Draw(Bar), ElementsAre("line 0 0 4 -2 black 2", "circle 0 0 0.1 black 2", "text 0.04 0 '1' black",
                                     "circle 4 -2 0.1 black 2", "text 4.04 -2 '2' black"));
}

TEST_F(ModelRenderingTest, NumbersANodeOnItsCentreWhereNoXIsAboveZero) {
  TheDisplay.Layers.nodeNumbers = true;
  Draw({{{-4, 2}}, {}});
  EXPECT_EQ(surface.ink.back(), "text -4 -2 '1' black");
}

TEST_F(ModelRenderingTest, TakesTheNumbersDistanceFromTheLastExtents) {
  TheDisplay.Layers.nodeNumbers = true;
  KeepView = true;
  MaxX = 50; // as the last framing left it
  Draw({{{4, 2}}, {}});
  EXPECT_EQ(surface.ink.back(), "text 4.5 -2 '1' black");
}

TEST_F(ModelRenderingTest, DrawsSupportsOverLoads) {
  TheDisplay.Layers.loads = true;
  TheDisplay.Layers.supports = true;
  Draw({{{0, 0, 10, 0, 3}}, {}});
  EXPECT_EQ(surface.ink.at(1), "line 0 0 1 0 red 2");
  EXPECT_EQ(surface.ink.back(), "circle 0 0 0.1 green 2");
}

TEST_F(ModelRenderingTest, DrawsTheGridBelowAllElse) {
  TheDisplay.Layers.grid = true;
  Draw(Bar);
  EXPECT_EQ(surface.ink.front().substr(0, 4), "line");
  EXPECT_NE(surface.ink.front().find("grey"), std::string::npos);
  EXPECT_EQ(surface.ink.at(surface.ink.size() - 3), "line 0 0 4 -2 black 2");
}

TEST_F(ModelRenderingTest, LabelsLoadsInBothDirections) {
  TheDisplay.Layers.loads = true;
  Draw({{{1, 2, 5, -10, 0}}, {}});
  EXPECT_EQ(surface.Ink("text", "red"), (Lines{"text 1.1 -2.2 '5.0' red", "text 1.1 -3 '-10.0' red"}));
}

TEST_F(ModelRenderingTest, ReadsTheLayersAtEveryDrawing) {
  Draw(Bar);
  surface.Forget();
  TheDisplay.Layers.nodeNumbers = true;
  DrawModel(surface, View());
  EXPECT_EQ(surface.Ink("text", "black").size(), 2U);
}

TEST_F(ModelRenderingTest, ResetsThePenAndLeavesItOnePixelWide) {
  SetTables({});
  DrawModel(surface, View());
  EXPECT_THAT(surface.calls, ElementsAre("PenMode copy", "FillStyle solid", "FillColour black", "PenColour black",
                                         "TextColour black", "LineStyle solid", "PenWidth 2", "PenWidth 1"));
}

TEST_F(ModelRenderingTest, FramesTheExtentsUnlessTheViewIsKept) {
  Draw(Bar);
  EXPECT_FLOAT_EQ(surface.window.width, 5.6F);
  const ViewWindow view{1, 2, 3, 4};
  surface.window = view;
  KeepView = true;
  Draw(Bar);
  EXPECT_EQ(surface.window, view);
}

TEST_F(ModelRenderingTest, LeavesTheWindowOfAnEmptyModel) {
  const ViewWindow before = surface.window;
  TheDisplay.Layers = ModelLayers{};
  Draw({});
  EXPECT_EQ(surface.window, before);
  EXPECT_EQ(surface.Ink("line", "grey").size() + surface.Ink("text", "grey").size(), surface.ink.size());
}

TEST_F(ModelRenderingTest, RoundsNodeNumbersToEven) {
  const Lines lines = Draw({{{1, 0}, {2, 0}, {3, 0}}, {{1.5F, 2.5F}, {0.6F, 3.4F}}});
  EXPECT_EQ(lines[0], "line 2 0 2 0 black 2");
  EXPECT_EQ(lines[1], "line 1 0 3 0 black 2");
}

TEST_F(ModelRenderingTest, StopsAtAMemberWithoutItsNode) {
  TheDisplay.Layers.supports = true;
  EXPECT_THAT(Draw({{{0, 0, 0, 0, 3}, {4, 2}}, {{1, 2}, {1, 3}, {2, 1}}}), ElementsAre("line 0 0 4 -2 black 2"));
  EXPECT_THAT(TakeMessages(), ElementsAre(DrawingBox("table index 3,1")));
}

TEST_F(ModelRenderingTest, SurvivesNodeNumbersThatNoIntegerHolds) {
  for (const float number : {1e30F, -1e30F, -1.0F}) {
    Draw({{{0, 0}}, {{1, number}}});
    EXPECT_EQ(TakeMessages().size(), 1U) << number;
  }
}

TEST_F(ModelRenderingTest, ReportsWhenTheSurfaceFails) {
  surface.failAt = 12;
  Draw(Bar);
  EXPECT_THAT(TakeMessages(), ElementsAre(DrawingBox("the surface is lost")));
  EXPECT_EQ(surface.calls.size(), 12U);
}

TEST_F(ModelRenderingTest, HighlightsANodeInItsPlace) {
  SetTables(Bar);
  HighlightNode(surface, 2, Orange);
  EXPECT_THAT(surface.ink, ElementsAre("circle 4 -2 0.1 orange 2"));
}

TEST_F(ModelRenderingTest, DrawsAMemberInAnyColour) {
  SetTables(Bar);
  DrawMember(surface, 1, Orange);
  EXPECT_THAT(surface.ink, ElementsAre("line 0 0 4 -2 orange 2"));
}

} // namespace
} // namespace strutwright
