#include "DisplayFixture.h"
#include "modAnalysis.h"
#include "modModelStore.h"
#include "modOverprint.h"

namespace strutwright {
namespace {

/// Letters of the recording surface are 0.6 of 13 pixels wide; a pixel is 0.01 m in a window of 8 m by 6 m.
class OverprintTest : public DisplayFixture {
 protected:
  OverprintTest() {
    surface.window = {-2, -5, 8, 6};
    KeepView = true;
    TheDisplay.Layers = {.grid = false};
  }

  bool Overprints() { return PrintsOverItself(surface, ViewOfDisplay()); }
};

TEST_F(OverprintTest, FindsNothingWhereNumbersStandApart) {
  SetTables(Triangle());
  EXPECT_FALSE(Overprints());
}

TEST_F(OverprintTest, FindsTwoNumbersInOnePlace) {
  SetTables({{{0, 0}, {0.05F, 0}}, {}});
  EXPECT_TRUE(Overprints());
  SetTables({{{0, 0}, {0.2F, 0}}, {}});
  EXPECT_FALSE(Overprints());
}

TEST_F(OverprintTest, LooksAtWhatTheDisplayShowsAlone) {
  SetTables({{{0, 0}, {0.05F, 0}}, {}});
  TheDisplay.Layers.nodeNumbers = false;
  EXPECT_FALSE(Overprints());
}

TEST_F(OverprintTest, CountsValuesOfTheGrid) {
  SetTables({{{1, 0}}, {}});
  EXPECT_FALSE(Overprints());
  TheDisplay.Layers.grid = true;
  EXPECT_TRUE(Overprints());
}

TEST_F(OverprintTest, PassesOverWhatLiesOutsideTheView) {
  SetTables({{{100, 0}, {100.05F, 0}}, {}});
  EXPECT_FALSE(Overprints());
}

TEST_F(OverprintTest, LooksAtTheDescribedDrawingInEitherStyleAndDrawsNothing) {
  SetTables({{{0, 0}, {0.05F, 0}}, {}});
  TheDisplay.Style = DrawingStyle::Clear;
  EXPECT_TRUE(Overprints());
  EXPECT_TRUE(surface.calls.empty());
}

TEST_F(OverprintTest, SaysNothingOfWhatCanNotBeDrawn) {
  SetTables({{{0, 0}, {4, 0}}, {{1, 9}}});
  EXPECT_FALSE(Overprints());
}

TEST_F(OverprintTest, FindsTheTangleOfALongTruss) {
  SetTables(PrattTruss(40));
  ASSERT_EQ(AnalyseTruss(), AnalysisEnd::Done);
  AnalysisDone = FlagTrue;
  ShowMemberForces = ShowReactions = true;
  surface.window = {-5, -40, 67, 50};
  EXPECT_TRUE(Overprints());
}

} // namespace
} // namespace strutwright
