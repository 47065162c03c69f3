#include "DisplayFixture.h"
#include "modModelRendering.h"

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SupportSymbolsTest : public DisplayFixture {
 protected:
  /// The symbol of a support of this code at (4, 3).
  Lines SymbolOf(float code) {
    SetTables({{{4, 3, 0, 0, code}}, {}});
    surface.Forget();
    DrawSupports(surface);
    return surface.ink;
  }
};

TEST_F(SupportSymbolsTest, ShowNothingAtAFreeNode) { EXPECT_THAT(SymbolOf(0), IsEmpty()); }

TEST_F(SupportSymbolsTest, PinANodeThatIsHeldBothWays) {
  EXPECT_THAT(SymbolOf(3), ElementsAre("line 4 -3 3.94 -2.88 green 2",           // the triangle, 0.12 deep
                                       "line 3.94 -2.88 4.06 -2.88 green 2",     //
                                       "line 4.06 -2.88 4 -3 green 2",           //
                                       "line 3.928 -2.856 4.072 -2.856 green 2", // the ground, 1.2 times the base
                                       "circle 4 -3 0.1 green 2"));
}

TEST_F(SupportSymbolsTest, PinANodeOfAnyOtherCode) {
  const Lines pin = SymbolOf(3);
  for (const float code : {4.0F, -1.0F, 1.5F, 0.5F}) EXPECT_EQ(SymbolOf(code), pin) << code;
}

TEST_F(SupportSymbolsTest, PutARollerUnderANodeThatIsHeldInY) {
  EXPECT_THAT(SymbolOf(1), ElementsAre("line 4 -3 3.97 -2.94 green 2",               // the triangle, 0.06 deep
                                       "line 3.97 -2.94 4.03 -2.94 green 2",         //
                                       "line 4.03 -2.94 4 -3 green 2",               //
                                       "circle 3.95 -2.878 0.022 green 2",           // the wheels, on the ground
                                       "circle 4 -2.878 0.022 green 2",              //
                                       "circle 4.05 -2.878 0.022 green 2",           //
                                       "line 3.9136 -2.856 4.0864 -2.856 green 2")); // 0.144 below the node
}

TEST_F(SupportSymbolsTest, PutARollerBesideANodeThatIsHeldInX) {
  EXPECT_THAT(SymbolOf(2), ElementsAre("line 4 -3 3.94 -2.97 green 2",               //
                                       "line 3.94 -2.97 3.94 -3.03 green 2",         //
                                       "line 3.94 -3.03 4 -3 green 2",               //
                                       "circle 3.878 -2.95 0.022 green 2",           //
                                       "circle 3.878 -3 0.022 green 2",              //
                                       "circle 3.878 -3.05 0.022 green 2",           //
                                       "line 3.856 -2.9136 3.856 -3.0864 green 2")); // 0.144 left of the node
}

TEST_F(SupportSymbolsTest, StandAtTheirNodes) {
  SetTables({{{0, 0, 0, 0, 1}, {1, 0}, {9, 5, 0, 0, 3}}, {}});
  DrawSupports(surface);
  EXPECT_EQ(surface.ink.size(), 12U);
  EXPECT_EQ(surface.ink.back(), "circle 9 -5 0.1 green 2");
}

} // namespace
} // namespace strutwright
