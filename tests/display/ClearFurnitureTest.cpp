#include "AxisValues.h"
#include "ClearFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class ClearFurnitureTest : public ClearFixture {};

TEST_F(ClearFurnitureTest, StepsAreOneTwoOrFive) {
  EXPECT_DOUBLE_EQ(RoundStepAbove(1), 1);
  EXPECT_DOUBLE_EQ(RoundStepAbove(1.01), 2);
  EXPECT_DOUBLE_EQ(RoundStepAbove(2.1), 5);
  EXPECT_DOUBLE_EQ(RoundStepAbove(5.1), 10);
  EXPECT_DOUBLE_EQ(RoundStepAbove(0.03), 0.05);
}

std::vector<std::string> TextsOf(const std::vector<AxisValue>& values) {
  std::vector<std::string> texts;
  for (const AxisValue& value : values) texts.push_back(value.text);
  return texts;
}

TEST_F(ClearFurnitureTest, ValuesCountFromZeroEitherWay) {
  EXPECT_THAT(TextsOf(ValuesAlong(250, 50, 2, 500)), ElementsAre("\u22124", "\u22122", "0", "2", "4"));
  EXPECT_THAT(TextsOf(ValuesAlong(100, -200, 0.5, 300)), ElementsAre("\u22121", "\u22120.5", "0", "0.5"));
}

TEST_F(ClearFurnitureTest, ValuesStandAtTheBorder) {
  settings.layers.grid = true;
  SetTables(Triangle());
  Draw();
  for (const PixelLabel& value : surface.pixelTexts) {
    EXPECT_TRUE(value.centre.y > surface.height - 15 || value.centre.x < 25) << value.text;
  }
  EXPECT_EQ(LabelOf("6").centre.x, 700);
  EXPECT_THAT(Texts(), Contains("5"));
}

TEST_F(ClearFurnitureTest, NoValueStandsUnderANode) {
  settings.layers.grid = true;
  SetTables({{{0, -0.9F}, {4, -0.9F}}, {}});
  Draw();
  for (const PixelLabel& value : surface.pixelTexts) {
    if (value.text != "4") continue;
    EXPECT_LT(value.centre.x, 25); // that of the other axis
  }
  EXPECT_THAT(Texts(), Contains("2"));
}

TEST_F(ClearFurnitureTest, TheGridFollowsItsSpacingUntilItsLinesAreClose) {
  settings.layers.grid = true;
  settings.gridSpacingX = settings.gridSpacingY = 0.5F;
  Draw(100);
  EXPECT_EQ(LinesOf(ClearPalette::GridLine).size(), 17U + 13U); // 8 m by 6 m with both borders
  Draw(10);
  EXPECT_LT(LinesOf(ClearPalette::GridLine).size(), 20U);
}

TEST_F(ClearFurnitureTest, TheLegendExplainsWhatIsThere) {
  settings.legend = settings.memberForces = settings.deflectedShape = settings.layers.loads = settings.reactions = true;
  settings.layers.supports = true;
  Analyse({{{0, 0, 0, 0, 3}, {2, 2, 0, -8}, {4, 0, 0, 0, 1}}, {{1, 2}, {2, 3}, {1, 3}}});
  Draw();
  for (const char* text : {"T  tension, +", "C  compression, \u2212", "load 5 kN", "reaction 5 kN",
                           "displacements \u00d7 100", "forces in kN, lengths in m"}) {
    EXPECT_THAT(Texts(), Contains(text));
  }
  EXPECT_THAT(Texts(), Not(Contains("0  no force")));
}

TEST_F(ClearFurnitureTest, TheLegendCanBeLeftOut) {
  settings.memberForces = true;
  Analyse(Triangle());
  Draw();
  EXPECT_THAT(Texts(), Not(Contains("T  tension, +")));
}

TEST_F(ClearFurnitureTest, TheLegendSaysWhenTheLongestArrowIsCut) {
  settings.legend = settings.layers.loads = true;
  SetTables({{{0, 0}, {2, 2, 0, -80}, {4, 0}}, {{1, 2}, {2, 3}}});
  Draw();
  EXPECT_THAT(Texts(), Contains("load 5 kN, longest cut"));
}

TEST_F(ClearFurnitureTest, TheLegendIsARowWhereAColumnWouldTakeHalfTheHeight) {
  settings.legend = settings.memberForces = true;
  Analyse({{{0, 0, 0, 0, 3}, {2, 2, 0, -8}, {4, 0, 0, 0, 1}}, {{1, 2}, {2, 3}, {1, 3}}});
  Draw();
  EXPECT_LT(LabelOf("T  tension, +").centre.y, LabelOf("C  compression, \u2212").centre.y);
  surface.height = 100;
  Draw(10);
  EXPECT_EQ(LabelOf("T  tension, +").centre.y, LabelOf("C  compression, \u2212").centre.y);
}

// The truss fills the upper left of the view.
TEST_F(ClearFurnitureTest, TheLegendStandsInTheFreestCorner) {
  settings.legend = settings.memberForces = true;
  Analyse({{{0, 2, 0, 0, 3}, {0, 4.5F, 0, 0, 3}, {3, 4.5F, 0, -10}, {5, 4.5F, 0, 0, 1}}, {{1, 3}, {2, 3}, {3, 4}}});
  Draw();
  EXPECT_GT(LabelOf("T  tension, +").centre.x, 400);
  EXPECT_GT(LabelOf("T  tension, +").centre.y, 300);
}

} // namespace
} // namespace strutwright
