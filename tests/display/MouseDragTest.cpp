#include "MouseFixture.h"
#include "SpecialNumbers.h"

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class MouseDragTest : public MouseFixture {
 protected:
  const ViewWindow before = surface.window;
};

TEST_F(MouseDragTest, PansWhileTheButtonIsHeld) {
  SetMouseMode(MouseMode::Pan);
  EXPECT_EQ(Press(1, 1), MouseVerdict{});
  EXPECT_EQ(Move(1.5F, 2), Of(MouseAction::Redraw));
  EXPECT_EQ(surface.window, (ViewWindow{-2.5F, -4, 8, 6}));
  Release(1, 1);
  EXPECT_EQ(Move(3, 3), MouseVerdict{});
  EXPECT_EQ(surface.window, (ViewWindow{-2.5F, -4, 8, 6}));
}

TEST_F(MouseDragTest, KeepsThePointUnderTheMouseWhilePanning) {
  SetMouseMode(MouseMode::Pan);
  Press(1, 1);                           // pixel (300, 400) of 800 by 600
  Move(2, 1);                            // pixel (400, 400)
  EXPECT_EQ(Move(1, 1), MouseVerdict{}); // the mouse rests, and the window lies so that this is (1, 1) again
  Move(1, 2);                            // pixel (400, 300)
  EXPECT_EQ(surface.window, (ViewWindow{-3, -4, 8, 6}));
}

TEST_F(MouseDragTest, DrawsNothingWhilePanning) {
  SetMouseMode(MouseMode::Pan);
  Press(1, 1);
  Move(2, 2);
  EXPECT_THAT(surface.ink, IsEmpty());
}

TEST_F(MouseDragTest, NeedsAPressToPan) {
  SetMouseMode(MouseMode::Pan);
  EXPECT_EQ(Move(2, 2), MouseVerdict{});
  EXPECT_EQ(surface.window, before);
}

TEST_F(MouseDragTest, PansWithTheMiddleButtonInTheOtherModes) {
  for (const MouseMode mode :
       {MouseMode::None, MouseMode::Pan, MouseMode::SelectMember, MouseMode::SelectNode, MouseMode::Delete}) {
    surface.window = before;
    SetMouseMode(mode);
    EXPECT_EQ(Press(1, 1, MouseButton::Middle), MouseVerdict{});
    EXPECT_EQ(Move(2, 1), Of(MouseAction::Redraw));
    EXPECT_EQ(TheMouse.Cursor, MouseCursor::Hand);
    EXPECT_EQ(Release(1, 1, MouseButton::Middle), MouseVerdict{});
    EXPECT_EQ(Move(2, 1), MouseVerdict{});
    EXPECT_EQ(surface.window, (ViewWindow{-3, -5, 8, 6}));
  }
}

TEST_F(MouseDragTest, DoesNotPanInTheDrawingModes) {
  for (const MouseMode mode : {MouseMode::DrawNode, MouseMode::DrawMember}) {
    SetMouseMode(mode);
    Press(0, 0, MouseButton::Middle);
    Move(2, 1);
    Release(2, 1, MouseButton::Middle);
    EXPECT_EQ(surface.window, before);
  }
}

TEST_F(MouseDragTest, DrawsARectangleWhileZooming) {
  ArmZoom();
  EXPECT_EQ(Press(0, 0), MouseVerdict{});
  EXPECT_THAT(InvertedInk(), IsEmpty());
  EXPECT_EQ(Move(1, 2), MouseVerdict{});
  EXPECT_THAT(InvertedInk(), ElementsAre("box 0 0 1 -2 black 1 inverted"));
  Move(3, 1);
  EXPECT_THAT(InvertedInk(), ElementsAre("box 0 0 3 -1 black 1 inverted"));
}

TEST_F(MouseDragTest, FramesTheRectangle) {
  ArmZoom();
  Press(0, 2);
  Move(3, 1);
  EXPECT_EQ(Release(4, 0), Of(MouseAction::Redraw));
  EXPECT_THAT(InvertedInk(), IsEmpty());
  EXPECT_FLOAT_EQ(surface.window.left, 2 - 2.8F); // governed by its width: 4 * 1.4 = 5.6 wide
  EXPECT_FLOAT_EQ(surface.window.top, -1 - 2.1F);
  EXPECT_FLOAT_EQ(surface.window.width, 5.6F);
  EXPECT_FLOAT_EQ(surface.window.height, 4.2F);
}

TEST_F(MouseDragTest, ErasesTheRectangleBeforeTheWindowMoves) {
  ArmZoom();
  Press(0, 2);
  Move(3, 1);
  surface.Forget();
  Release(4, 0);
  EXPECT_THAT(surface.calls, Contains("Box 0 -2 3 -1"));
  EXPECT_TRUE(surface.calls.back().starts_with("Window"));
}

TEST_F(MouseDragTest, IgnoresARectangleWithoutWidthOrHeight) {
  for (const auto& [x, y] : {std::pair(1.0F, 1.0F), std::pair(3.0F, 1.0F), std::pair(1.0F, 3.0F)}) {
    ArmZoom();
    Press(1, 1);
    Move(x, y);
    EXPECT_EQ(Release(x, y), MouseVerdict{});
    EXPECT_THAT(InvertedInk(), IsEmpty());
  }
  EXPECT_EQ(surface.window, before);
}

TEST_F(MouseDragTest, ZoomsOnce) {
  ArmZoom();
  Press(0, 2);
  EXPECT_FALSE(TheMouse.ZoomArmed);
  Release(4, 0);
  EXPECT_EQ(Press(0, 2), MouseVerdict{});
  Move(1, 1);
  EXPECT_THAT(InvertedInk(), IsEmpty());
}

TEST_F(MouseDragTest, DoesNothingElseWithThePressThatStartsTheZoom) {
  for (const MouseMode mode : {MouseMode::Pan, MouseMode::DrawNode, MouseMode::DrawMember, MouseMode::SelectMember,
                               MouseMode::SelectNode, MouseMode::Delete}) {
    SetMouseMode(mode);
    ArmZoom();
    EXPECT_EQ(Press(0, 0), MouseVerdict{});
    EXPECT_TRUE(TheMouse.ZoomDragging);
    EXPECT_FALSE(TheMouse.Panning);
    EXPECT_EQ(TheMouse.PickCount, 0);
    Release(0, 0);
    EXPECT_EQ(CurrentMouseMode(), mode);
  }
}

TEST_F(MouseDragTest, ResumesTheModeAfterTheZoom) {
  SetMouseMode(MouseMode::SelectNode);
  ArmZoom();
  Press(-1, -1);
  Release(5, 4);
  EXPECT_EQ(MouseModeText(), "Select Node");
  EXPECT_EQ(Click(4, 3), Of(MouseAction::InspectNode, 3));
}

TEST_F(MouseDragTest, StartsTheZoomWithTheLeftButtonOnly) {
  SetMouseMode(MouseMode::DrawNode);
  ArmZoom();
  EXPECT_EQ(Click(1, 1, MouseButton::Middle), At(MouseAction::AddNode, 1, 1));
  EXPECT_TRUE(TheMouse.ZoomArmed);
}

TEST_F(MouseDragTest, CopiesAgainAfterARelease) {
  surface.SetPenMode(PenMode::Invert);
  surface.Forget();
  Release(0, 0);
  EXPECT_THAT(surface.calls, ElementsAre("PenMode copy"));
}

TEST_F(MouseDragTest, LeavesTheOtherButtonsOutOfADrag) {
  ArmZoom();
  Press(0, 2);
  EXPECT_EQ(Press(1, 1, MouseButton::Middle), MouseVerdict{});
  EXPECT_EQ(Release(1, 1, MouseButton::Middle), MouseVerdict{});
  Move(2, 1);
  EXPECT_THAT(InvertedInk(), ElementsAre("box 0 -2 2 -1 black 1 inverted"));
  EXPECT_EQ(Release(4, 0), Of(MouseAction::Redraw));
}

TEST_F(MouseDragTest, EndsADragForThePopUp) {
  ArmZoom();
  Press(0, 2);
  Move(2, 1);
  EXPECT_EQ(Press(2, 1, MouseButton::Right), Of(MouseAction::ShowPopUp));
  EXPECT_THAT(InvertedInk(), IsEmpty());
  EXPECT_EQ(Release(2, 1), MouseVerdict{});
  EXPECT_EQ(surface.window, before);
}

TEST_F(MouseDragTest, EndsADragWhoseReleaseWentElsewhere) {
  ArmZoom();
  Press(0, 2);
  Move(2, 1);
  EXPECT_EQ(MouseMove({3, -3}), MouseVerdict{}); // nothing is held any more
  EXPECT_THAT(InvertedInk(), IsEmpty());
  EXPECT_FALSE(TheMouse.ZoomDragging);
  EXPECT_EQ(surface.window, before);
}

TEST_F(MouseDragTest, EndsADragThatIsReleasedNowhere) {
  ArmZoom();
  Press(0, 2);
  Move(2, 1);
  EXPECT_EQ(Release(NaN, 0), MouseVerdict{});
  EXPECT_FALSE(TheMouse.ZoomDragging);
  EXPECT_THAT(InvertedInk(), IsEmpty());
}

TEST_F(MouseDragTest, ZoomsWithTheWheelAboutTheMouse) {
  EXPECT_EQ(MouseWheel({2, -2}, -1), Of(MouseAction::Redraw));
  EXPECT_EQ(surface.window, (ViewWindow{-3, -5.75F, 10, 7.5F}));
  EXPECT_EQ(MouseWheel({2, -2}, 1), Of(MouseAction::Redraw));
  EXPECT_EQ(surface.window, before);
}

TEST_F(MouseDragTest, ZoomsWithTheWheelInEveryMode) {
  for (const MouseMode mode : {MouseMode::DrawNode, MouseMode::DrawMember, MouseMode::Delete}) {
    SetMouseMode(mode);
    EXPECT_EQ(MouseWheel({2, -2}, 1), Of(MouseAction::Redraw));
    EXPECT_EQ(CurrentMouseMode(), mode);
  }
}

TEST_F(MouseDragTest, StopsTheWheelAtTheLimits) {
  int turns = 0;
  while (MouseWheel({0, 0}, 1) == Of(MouseAction::Redraw)) ASSERT_LT(++turns, 1000);
  EXPECT_GE(surface.window.height, 0.001F);
  EXPECT_EQ(MouseWheel({0, 0}, 0), MouseVerdict{});
  EXPECT_EQ(MouseWheel({0, 0}, -1e9), MouseVerdict{});
}

} // namespace
} // namespace strutwright
