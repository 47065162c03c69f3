#include "ClearFixture.h"
#include "modMarks.h"
#include "modMechanismDrawing.h"
#include "modModelStore.h"
#include "modMouseEvents.h"
#include "modPicking.h"
#include "modRedraw.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class MarksTest : public ClearFixture {
 protected:
  MarksTest() { SetTables({{{0, 0}, {4, 2}}, {{1, 2}}}); }
};

TEST_F(MarksTest, InTheDescribedStyleAreInMetres) {
  MarkNode(surface, 2, Orange, DrawingStyle::Described);
  MarkMember(surface, 1, Orange, DrawingStyle::Described);
  EXPECT_THAT(surface.ink, ElementsAre("circle 4 -2 0.1 orange 2", "line 0 0 4 -2 orange 2"));
  EXPECT_THAT(surface.pixelDots, IsEmpty());
}

TEST_F(MarksTest, OfANodeAreAsLargeAtEveryZoomInTheClearStyle) {
  for (const double pixelsPerMetre : {5.0, 100.0, 2000.0}) {
    Draw(pixelsPerMetre);
    surface.Forget();
    MarkNode(surface, 1, Orange, DrawingStyle::Clear);
    EXPECT_THAT(surface.ink, IsEmpty());
    ASSERT_THAT(surface.pixelDots, SizeIs(1));
    EXPECT_EQ(surface.pixelDots[0].edge.colour, Orange);
    EXPECT_EQ(surface.pixelDots[0].radius, ClearSize::NodeRadius + 2);
    EXPECT_NEAR(surface.pixelDots[0].centre.x, pixelsPerMetre, 0.1);
  }
}

TEST_F(MarksTest, OfAMemberRunFromNodeToNode) {
  Draw(100);
  surface.Forget();
  MarkMember(surface, 1, Orange, DrawingStyle::Clear);
  const auto lines = LinesOf(Orange);
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_NEAR(lines[0].from.x, 100, 1e-3);
  EXPECT_NEAR(lines[0].to.x, 500, 1e-3);
  EXPECT_NEAR(lines[0].to.y, 300, 1e-3);
}

TEST_F(MarksTest, LeaveTheNumberOfTheirMemberReadable) {
  DisplaySurface = &surface;
  TheDisplay.Style = DrawingStyle::Clear;
  TheDisplay.Layers = {false, false, false, true, false};
  RedrawDisplay(&surface, true);
  surface.Forget();
  MarkMember(surface, 1, Orange, DrawingStyle::Clear);
  EXPECT_THAT(Texts(), ElementsAre("1"));
}

TEST_F(MarksTest, OfWhatIsPickedFollowTheStyleOfTheDisplay) {
  DisplaySurface = &surface;
  TheDisplay.Style = DrawingStyle::Clear;
  DrawMemberMode = true;
  NodeWasAdded(2);
  EXPECT_THAT(surface.pixelDots, SizeIs(1));
  EXPECT_THAT(surface.ink, IsEmpty());
}

TEST_F(MarksTest, OfAMechanismAreInPixelsInTheClearStyle) {
  Draw(100);
  surface.Forget();
  DrawMechanism(surface, {0, 0, 0, 0, 1}, 1, DrawingStyle::Clear);
  EXPECT_THAT(surface.ink, IsEmpty());
  ASSERT_THAT(surface.pixelDots, SizeIs(1));
  EXPECT_EQ(surface.pixelDots[0].edge.colour, Violet);
  EXPECT_NEAR(surface.pixelDots[0].centre.y, 300 - 40, 1e-3); // a tenth of 4 m higher
  EXPECT_THAT(LinesOf(Violet), SizeIs(1));
}

} // namespace
} // namespace strutwright
