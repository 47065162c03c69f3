#include "MouseFixture.h"

#include <array>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array<MouseMode, 6> AllModes{MouseMode::Pan,          MouseMode::DrawNode,   MouseMode::DrawMember,
                                            MouseMode::SelectMember, MouseMode::SelectNode, MouseMode::Delete};

using MouseModesTest = MouseFixture;

TEST_F(MouseModesTest, BeginsWithThePlainMouse) {
  EXPECT_EQ(CurrentMouseMode(), MouseMode::None);
  EXPECT_EQ(MouseModeText(), "Mouse Mode");
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::Default);
}

TEST_F(MouseModesTest, SetsTheFlagOfItsMode) {
  const std::array<const bool*, 6> flags{&TheMouse.PanMode,        &DrawNodeMode,
                                         &DrawMemberMode,          &TheMouse.SelectMemberMode,
                                         &TheMouse.SelectNodeMode, &TheMouse.DeleteMode};
  for (std::size_t chosen = 0; chosen < AllModes.size(); ++chosen) {
    SetMouseMode(AllModes.at(chosen));
    for (std::size_t other = 0; other < flags.size(); ++other) EXPECT_EQ(*flags.at(other), other == chosen) << chosen;
  }
}

TEST_F(MouseModesTest, ReplacesAnyModeByAnyOther) {
  for (const MouseMode before : AllModes) {
    for (const MouseMode mode : AllModes) {
      SetMouseMode(before);
      SetMouseMode(mode);
      EXPECT_EQ(CurrentMouseMode(), mode);
      EXPECT_EQ(ModesOn(), 1);
    }
  }
}

TEST_F(MouseModesTest, NamesTheMode) {
  Lines texts;
  for (const MouseMode mode : AllModes) {
    SetMouseMode(mode);
    texts.push_back(MouseModeText());
  }
  EXPECT_THAT(texts,
              ElementsAre("Pan Mode", "Draw Node", "Draw Member", "Select Member", "Select Node", "Delete Mode"));
}

TEST_F(MouseModesTest, ArmsTheZoomOverTheMode) {
  for (const MouseMode mode : AllModes) {
    SetMouseMode(mode);
    ArmZoom();
    EXPECT_EQ(MouseModeText(), "Zoom Mode");
    EXPECT_EQ(CurrentMouseMode(), mode);
  }
}

TEST_F(MouseModesTest, DisarmsTheZoomForAMode) {
  for (const MouseMode mode : AllModes) {
    ArmZoom();
    SetMouseMode(mode);
    EXPECT_FALSE(TheMouse.ZoomArmed);
  }
}

TEST_F(MouseModesTest, ClearsEverything) {
  SetMouseMode(MouseMode::Delete);
  Move(0, 0);
  ArmZoom();
  ClearModes();
  EXPECT_EQ(MouseModeText(), "Mouse Mode");
  EXPECT_EQ(ModesOn(), 0);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::Default);
}

TEST_F(MouseModesTest, ShowsThePointerOfTheModeOnMoving) {
  SetMouseMode(MouseMode::Pan);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::Default);
  Move(0, 0);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::Hand);
  SetMouseMode(MouseMode::Delete);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::Default);
  Move(0, 0);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::UpArrow);
  SetMouseMode(MouseMode::DrawNode);
  Move(0, 0);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::Default);
}

TEST_F(MouseModesTest, ShowsThePlainPointerWhileItZoomsInPanMode) {
  SetMouseMode(MouseMode::Pan);
  ArmZoom();
  Move(0, 0);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::Default);
  Press(0, 0);
  Move(1, 1);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::Default);
  Release(1, 1);
  Move(1, 1);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::Hand);
}

TEST_F(MouseModesTest, KeepsTheArrowWhileItZoomsInDeleteMode) {
  SetMouseMode(MouseMode::Delete);
  ArmZoom();
  Move(0, 0);
  EXPECT_EQ(TheMouse.Cursor, MouseCursor::UpArrow);
}

TEST_F(MouseModesTest, ShowsCoordinatesWithYUpwards) {
  EXPECT_EQ(CoordinatesText(1.5F, 2), "x: 1.50   y: -2.00");
  EXPECT_EQ(CoordinatesText(-0.126F, -3.004F), "x: -0.13   y: 3.00");
  EXPECT_EQ(CoordinatesText(0, 0), "x: 0.00   y: 0.00");
  EXPECT_EQ(CoordinatesText(-0.001F, 0.001F), "x: 0.00   y: 0.00");
}

TEST_F(MouseModesTest, ReportsWhetherThereAreResults) {
  EXPECT_EQ(AnalysisText(), "No Analysis");
  AnalysisDone = true;
  EXPECT_EQ(AnalysisText(), "Analysis Done");
}

TEST_F(MouseModesTest, ForgetsAHalfDrawnMemberWithTheMode) {
  for (const MouseMode mode : {MouseMode::None, MouseMode::Pan, MouseMode::DrawMember}) {
    SetMouseMode(MouseMode::DrawMember);
    Click(0, 0);
    Move(2, 2);
    events.clear();
    SetMouseMode(mode);
    EXPECT_EQ(TheMouse.PickCount, 0);
    EXPECT_THAT(InvertedInk(), IsEmpty());
    EXPECT_THAT(events, ElementsAre("ViewChanged"));
  }
}

TEST_F(MouseModesTest, DropsNoHighlightWithoutAHalfDrawnMember) {
  SetMouseMode(MouseMode::DrawMember);
  ClearModes();
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(MouseModesTest, KeepsAHalfDrawnMemberThroughAZoom) {
  SetMouseMode(MouseMode::DrawMember);
  Click(0, 0);
  ArmZoom();
  Press(-1, -1);
  Release(5, 4);
  EXPECT_EQ(Click(4, 3), Of(MouseAction::AddMember, 1, 3));
}

TEST_F(MouseModesTest, EndsADragWithTheMode) {
  ArmZoom();
  Press(0, 0);
  Move(2, 2);
  ClearModes();
  EXPECT_FALSE(TheMouse.ZoomDragging);
  EXPECT_THAT(InvertedInk(), IsEmpty());
  EXPECT_EQ(Release(2, 2), MouseVerdict{});
  SetMouseMode(MouseMode::Pan);
  Press(0, 0);
  SetMouseMode(MouseMode::SelectNode);
  EXPECT_EQ(Move(1, 1), MouseVerdict{});
}

TEST_F(MouseModesTest, ErasesTheMarkWithTheMode) {
  SetMouseMode(MouseMode::DrawNode);
  Move(1, 1);
  SetMouseMode(MouseMode::SelectNode);
  EXPECT_THAT(InvertedInk(), IsEmpty());
}

TEST_F(MouseModesTest, ClearsTheModesWhenThePopUpCloses) {
  for (const MouseMode mode : AllModes) {
    SetMouseMode(mode);
    EXPECT_EQ(Press(2, 1, MouseButton::Right), Of(MouseAction::ShowPopUp));
    EXPECT_EQ(CurrentMouseMode(), mode);
    PopUpClosed();
    EXPECT_EQ(ModesOn(), 0);
  }
}

TEST_F(MouseModesTest, DisarmsTheZoomWhenThePopUpCloses) {
  ArmZoom();
  Press(2, 1, MouseButton::Right);
  PopUpClosed();
  EXPECT_EQ(MouseModeText(), "Mouse Mode");
}

TEST_F(MouseModesTest, KeepsTheModeThatWasChosenInThePopUp) {
  for (const MouseMode mode : AllModes) {
    SetMouseMode(MouseMode::DrawNode);
    Press(2, 1, MouseButton::Right);
    SetMouseMode(mode);
    PopUpClosed();
    EXPECT_EQ(CurrentMouseMode(), mode);
  }
}

TEST_F(MouseModesTest, KeepsTheZoomThatWasChosenInThePopUp) {
  SetMouseMode(MouseMode::DrawNode);
  Press(2, 1, MouseButton::Right);
  ArmZoom();
  PopUpClosed();
  EXPECT_EQ(MouseModeText(), "Zoom Mode");
  EXPECT_EQ(CurrentMouseMode(), MouseMode::DrawNode);
}

TEST_F(MouseModesTest, ClearsTheModesAfterEachPopUpAnew) {
  Press(2, 1, MouseButton::Right);
  SetMouseMode(MouseMode::DrawNode);
  PopUpClosed();
  Press(2, 1, MouseButton::Right);
  PopUpClosed();
  EXPECT_EQ(ModesOn(), 0);
}

} // namespace
} // namespace strutwright
