#include "MouseFixture.h"
#include "modDrawing.h"
#include "modRedraw.h"
#include "modRubberBands.h"

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using RubberBandsTest = MouseFixture;

TEST_F(RubberBandsTest, AreThinAndInverted) {
  ShowRubberBand(RubberBand::ZoomBox, {0, 0, 1, -2});
  ShowRubberBand(RubberBand::MemberLine, {0, 0, 3, -4});
  ShowRubberBand(RubberBand::SnapMark, {1, 1, 2, 2});
  EXPECT_THAT(surface.ink, ElementsAre("box 0 0 1 -2 black 1 inverted", "line 0 0 3 -4 black 1 inverted",
                                       "box 1 1 2 2 black 1 inverted"));
}

TEST_F(RubberBandsTest, LeaveAPenThatCopies) {
  ShowRubberBand(RubberBand::ZoomBox, {0, 0, 1, -2});
  EXPECT_EQ(surface.calls.back(), "PenMode copy");
  HideRubberBand(RubberBand::ZoomBox);
  EXPECT_EQ(surface.calls.back(), "PenMode copy");
}

TEST_F(RubberBandsTest, AreErasedWhereTheyWere) {
  ShowRubberBand(RubberBand::ZoomBox, {0, 0, 1, -2});
  ShowRubberBand(RubberBand::ZoomBox, {0, 0, 5, -5});
  EXPECT_THAT(surface.ink, ElementsAre("box 0 0 1 -2 black 1 inverted", "box 0 0 1 -2 black 1 inverted",
                                       "box 0 0 5 -5 black 1 inverted"));
  HideRubberBand(RubberBand::ZoomBox);
  EXPECT_THAT(InvertedInk(), IsEmpty());
}

TEST_F(RubberBandsTest, AreDrawnOnceAndErasedOnce) {
  ShowRubberBand(RubberBand::MemberLine, {0, 0, 3, -4});
  ShowRubberBand(RubberBand::MemberLine, {0, 0, 3, -4});
  EXPECT_THAT(surface.ink, SizeIs(1));
  HideRubberBand(RubberBand::MemberLine);
  HideRubberBand(RubberBand::MemberLine);
  EXPECT_THAT(surface.ink, SizeIs(2));
}

TEST_F(RubberBandsTest, AreErasedTogether) {
  ShowRubberBand(RubberBand::ZoomBox, {0, 0, 1, -2});
  ShowRubberBand(RubberBand::MemberLine, {0, 0, 3, -4});
  ShowRubberBand(RubberBand::SnapMark, {1, 1, 2, 2});
  HideRubberBands();
  EXPECT_THAT(InvertedInk(), IsEmpty());
}

TEST_F(RubberBandsTest, LeaveNoGhostAfterARedraw) {
  ShowRubberBand(RubberBand::MemberLine, {0, 0, 3, -4});
  RedrawDisplay(&surface, false);
  surface.Forget();
  HideRubberBand(RubberBand::MemberLine);
  EXPECT_THAT(surface.ink, IsEmpty());
  ShowRubberBand(RubberBand::MemberLine, {0, 0, 3, -4});
  EXPECT_THAT(surface.ink, SizeIs(1));
}

TEST_F(RubberBandsTest, StayWhereAnotherSurfaceIsDrawn) {
  ShowRubberBand(RubberBand::MemberLine, {0, 0, 3, -4});
  RecordingSurface picture;
  RedrawDisplay(&picture, false);
  HideRubberBand(RubberBand::MemberLine);
  EXPECT_THAT(InvertedInk(), IsEmpty());
  EXPECT_THAT(surface.ink, SizeIs(2));
}

TEST_F(RubberBandsTest, NeedASurface) {
  DisplaySurface = nullptr;
  ShowRubberBand(RubberBand::ZoomBox, {0, 0, 1, -2});
  DisplaySurface = &surface;
  HideRubberBand(RubberBand::ZoomBox);
  EXPECT_THAT(surface.ink, IsEmpty());
}

TEST_F(RubberBandsTest, ReportALostSurfaceOnceAndForgetWhatItShowed) {
  ShowRubberBand(RubberBand::ZoomBox, {0, 0, 1, -2});
  ShowRubberBand(RubberBand::MemberLine, {0, 0, 3, -4});
  surface.failAt = static_cast<int>(surface.calls.size()) + 1;
  HideRubberBands();
  EXPECT_THAT(TakeMessages(), ElementsAre(DrawingBox("the surface is lost")));
  EXPECT_EQ(TheMouse.RubberBands, MouseState{}.RubberBands);
}

} // namespace
} // namespace strutwright
