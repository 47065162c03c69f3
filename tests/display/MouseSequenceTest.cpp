#include "MouseFixture.h"
#include "modModelStore.h"
#include "modRedraw.h"

#include <random>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::IsEmpty;

/// A user without a plan.
class MouseSequenceTest : public MouseFixture, public testing::WithParamInterface<unsigned> {
 protected:
  MouseSequenceTest() : Chance(GetParam()), Trace(__FILE__, __LINE__, "seed " + std::to_string(GetParam())) {}

  int OneOf(int count) { return std::uniform_int_distribution<int>(0, count - 1)(Chance); }
  float Place() { return static_cast<float>(OneOf(33)) / 4 - 2; }
  MouseButton AnyButton() { return static_cast<MouseButton>(OneOf(4)); }

  MouseVerdict Step() {
    switch (OneOf(10)) {
    case 0: SetMouseMode(static_cast<MouseMode>(OneOf(7))); return {};
    case 1: ArmZoom(); return {};
    case 2: return MouseWheel({Place(), Place()}, OneOf(41) - 20);
    case 3: MouseLeave(); return {};
    case 4:
    case 5: return Press(Place(), Place(), AnyButton());
    case 6: return Release(Place(), Place(), AnyButton());
    default: return Move(Place(), Place());
    }
  }

  /// What a window would do after the event.
  void Obey(const MouseVerdict& verdict) {
    if (verdict.action == MouseAction::Redraw || OneOf(20) == 0) {
      RedrawDisplay(&surface, false);
      surface.ink.clear();
    }
    if (verdict.action == MouseAction::ShowPopUp) {
      if (OneOf(2) == 0) SetMouseMode(static_cast<MouseMode>(OneOf(7)));
      PopUpClosed();
    }
    if (verdict.action == MouseAction::OfferNode && OneOf(2) == 0) Obey(NodeWasAdded(1 + OneOf(4)));
    if (verdict.action == MouseAction::AddMember) {
      EXPECT_TRUE(verdict.number >= 1 && verdict.number <= NodeCount && verdict.endNode >= 1);
    }
  }

  std::mt19937 Chance;

 private:
  testing::ScopedTrace Trace;
};

TEST_P(MouseSequenceTest, NeverLeavesTwoModesOn) {
  for (int step = 0; step < 2000; ++step) {
    Obey(Step());
    ASSERT_LE(ModesOn(), 1);
    ASSERT_FALSE(TheMouse.Panning && TheMouse.ZoomDragging);
    ASSERT_LE(TheMouse.PickCount, DrawMemberMode ? 1 : 0);
  }
}

TEST_P(MouseSequenceTest, NeverLeavesAGhostBehind) {
  for (int sequence = 0; sequence < 50; ++sequence) {
    surface.Forget();
    for (int step = OneOf(40); step > 0; --step) Obey(Step());
    ClearModes();
    ASSERT_THAT(InvertedInk(), IsEmpty());
  }
}

TEST_P(MouseSequenceTest, NeverLosesTheView) {
  for (int step = 0; step < 2000; ++step) {
    Obey(Step());
    ASSERT_GT(surface.window.width, 0);
    ASSERT_GT(surface.window.height, 0);
    ASSERT_LE(surface.window.width, 1e9F);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, MouseSequenceTest, testing::Range(1U, 9U));

} // namespace
} // namespace strutwright
