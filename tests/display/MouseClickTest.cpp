#include "MouseFixture.h"
#include "SpecialNumbers.h"

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using MouseClickTest = MouseFixture;

TEST_F(MouseClickTest, DoesNothingWithoutAMode) {
  EXPECT_EQ(Click(4, 3), MouseVerdict{});
  EXPECT_THAT(surface.ink, IsEmpty());
}

TEST_F(MouseClickTest, OpensTheInspectorOfAMember) {
  SetMouseMode(MouseMode::SelectMember);
  EXPECT_EQ(Click(4.125F, 1.5F), Of(MouseAction::InspectMember, 2));
  EXPECT_THAT(surface.ink, ElementsAre("line 4 0 4 -3 orange 2"));
}

TEST_F(MouseClickTest, ReportsWhereNoMemberIs) {
  SetMouseMode(MouseMode::SelectMember);
  EXPECT_EQ(Click(1, 2.5F), At(MouseAction::MemberNotFound, 1, 2.5F));
  EXPECT_THAT(surface.ink, IsEmpty());
}

TEST_F(MouseClickTest, OpensTheInspectorOfANode) {
  SetMouseMode(MouseMode::SelectNode);
  EXPECT_EQ(Click(4.125F, 3), Of(MouseAction::InspectNode, 3));
  EXPECT_THAT(surface.ink, ElementsAre("circle 4 -3 0.1 orange 2"));
}

TEST_F(MouseClickTest, OffersANodeWhereNoneIs) {
  SetMouseMode(MouseMode::SelectNode);
  EXPECT_EQ(Click(1, 2.5F), At(MouseAction::OfferNode, 1, 2.5F));
  SetTables({{{0, 0}, {4, 0}, {4, 3}, {1, 3}}, {}});
  EXPECT_EQ(NodeWasAdded(4), MouseVerdict{}); // the inspector opens on a hit only
  EXPECT_THAT(surface.ink, IsEmpty());
}

TEST_F(MouseClickTest, DeletesTheNodeBeforeTheMember) {
  SetMouseMode(MouseMode::Delete);
  EXPECT_EQ(Click(4, 0.125F), Of(MouseAction::DeleteNode, 2));
  EXPECT_THAT(surface.ink, ElementsAre("circle 4 0 0.1 orange 2"));
}

TEST_F(MouseClickTest, DeletesTheMemberWhereNoNodeIs) {
  SetMouseMode(MouseMode::Delete);
  EXPECT_EQ(Click(2, 0), Of(MouseAction::DeleteMember, 1));
  EXPECT_THAT(surface.ink, ElementsAre("line 0 0 4 0 orange 2"));
}

TEST_F(MouseClickTest, OffersNoNodeInDeleteMode) {
  SetMouseMode(MouseMode::Delete);
  EXPECT_EQ(Click(1, 2.5F), At(MouseAction::MemberNotFound, 1, 2.5F));
}

TEST_F(MouseClickTest, KeepsTheModeAfterAClick) {
  for (const MouseMode mode : {MouseMode::SelectMember, MouseMode::SelectNode, MouseMode::Delete}) {
    SetMouseMode(mode);
    Click(2, 0);
    EXPECT_EQ(CurrentMouseMode(), mode);
  }
}

TEST_F(MouseClickTest, SelectsAndDeletesWithTheLeftButtonOnly) {
  for (const MouseMode mode : {MouseMode::SelectMember, MouseMode::SelectNode, MouseMode::Delete}) {
    SetMouseMode(mode);
    EXPECT_EQ(Click(4, 3, MouseButton::Middle), MouseVerdict{});
    EXPECT_EQ(Click(4, 3, MouseButton::Right), Of(MouseAction::ShowPopUp));
  }
  EXPECT_THAT(surface.ink, IsEmpty());
}

TEST_F(MouseClickTest, TakesNoPressWithoutAButton) {
  SetMouseMode(MouseMode::SelectNode);
  EXPECT_EQ(Press(4, 3, MouseButton::None), MouseVerdict{});
}

TEST_F(MouseClickTest, KeepsWhereAButtonWasPressed) {
  Click(1, 2);
  EXPECT_EQ(TheMouse.PressX, 1);
  EXPECT_EQ(TheMouse.PressY, -2);
  Click(3, 4, MouseButton::Right);
  EXPECT_EQ(TheMouse.PressX, 3);
  EXPECT_EQ(TheMouse.PressY, -4);
}

TEST_F(MouseClickTest, ShowsThePopUpForTheRightButton) {
  EXPECT_EQ(Click(1, 2, MouseButton::Right), Of(MouseAction::ShowPopUp));
}

TEST_F(MouseClickTest, RestoresThePointerBeforeThePopUp) {
  for (const MouseMode mode : {MouseMode::Pan, MouseMode::Delete}) {
    SetMouseMode(mode);
    Move(1, 1);
    EXPECT_NE(TheMouse.Cursor, MouseCursor::Default);
    Press(1, 1, MouseButton::Right);
    EXPECT_EQ(TheMouse.Cursor, MouseCursor::Default);
  }
}

TEST_F(MouseClickTest, ForgetsOneNodeOfAMemberWithThePopUp) {
  SetMouseMode(MouseMode::DrawMember);
  Click(0, 0);
  EXPECT_EQ(Click(1, 2, MouseButton::Right), Of(MouseAction::ShowPopUp));
  EXPECT_EQ(TheMouse.PickCount, 1);
  PopUpClosed();
  EXPECT_EQ(TheMouse.PickCount, 0);
  EXPECT_EQ(CurrentMouseMode(), MouseMode::None);
}

TEST_F(MouseClickTest, CancelsAMemberOfTwoNodesWithoutThePopUp) {
  SetMouseMode(MouseMode::DrawMember);
  Click(0, 0);
  TheMouse.PickCount = 2;
  EXPECT_EQ(Click(1, 2, MouseButton::Right), MouseVerdict{});
  EXPECT_EQ(TheMouse.PickCount, 0);
  EXPECT_EQ(CurrentMouseMode(), MouseMode::DrawMember);
}

TEST_F(MouseClickTest, ReportsALostSurfaceAndGoesOn) {
  SetMouseMode(MouseMode::SelectNode);
  surface.failAt = 1;
  EXPECT_EQ(Press(4, 3), Of(MouseAction::InspectNode, 3));
  EXPECT_THAT(TakeMessages(), ElementsAre(DrawingBox("the surface is lost")));
}

TEST_F(MouseClickTest, NeedsASurface) {
  SetMouseMode(MouseMode::DrawMember);
  DisplaySurface = nullptr;
  EXPECT_EQ(Press(0, 0), MouseVerdict{});
  EXPECT_EQ(Move(1, 0), MouseVerdict{});
  EXPECT_EQ(Release(0, 0), MouseVerdict{});
  EXPECT_EQ(MouseWheel({}, 1), MouseVerdict{});
  EXPECT_EQ(NodeWasAdded(1), MouseVerdict{});
  EXPECT_EQ(TheMouse.PickCount, 0);
}

TEST_F(MouseClickTest, IgnoresAPlaceThatIsNone) {
  SetMouseMode(MouseMode::SelectNode);
  EXPECT_EQ(Press(NaN, 0), MouseVerdict{});
  EXPECT_EQ(Press(0, Infinity), MouseVerdict{});
  EXPECT_EQ(Move(NaN, NaN), MouseVerdict{});
  EXPECT_EQ(MouseWheel({NaN, 0}, 1), MouseVerdict{});
}

} // namespace
} // namespace strutwright
