#include "MouseFixture.h"
#include "modModelStore.h"
#include "modRedraw.h"

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DrawNodeTest : public MouseFixture {
 protected:
  DrawNodeTest() { SetMouseMode(MouseMode::DrawNode); }
};

TEST_F(DrawNodeTest, AddsANodeAtTheGridPoint) {
  EXPECT_EQ(Click(1.125F, -2.125F), At(MouseAction::AddNode, 1, -2));
  EXPECT_EQ(CurrentMouseMode(), MouseMode::DrawNode);
}

TEST_F(DrawNodeTest, AddsNothingFarther) {
  EXPECT_EQ(Click(1.25F, 2), MouseVerdict{}); // exactly the radius off
  EXPECT_EQ(Click(1, 2.5F), MouseVerdict{});
}

TEST_F(DrawNodeTest, AddsNothingWithoutASpacing) {
  GridSpacingX = 0;
  EXPECT_EQ(Click(1, 2), MouseVerdict{});
}

TEST_F(DrawNodeTest, AddsANodeWithTheMiddleButtonToo) {
  EXPECT_EQ(Click(1, 2, MouseButton::Middle), At(MouseAction::AddNode, 1, 2));
  EXPECT_EQ(Click(1, 2, MouseButton::Right), Of(MouseAction::ShowPopUp));
}

TEST_F(DrawNodeTest, MarksTheGridPointThatAClickWouldTake) {
  Move(1.125F, 2.125F);
  EXPECT_THAT(InvertedInk(), ElementsAre("box 0.96 -2.04 1.04 -1.96 black 1 inverted")); // 4 pixels to each side
  Move(1.0625F, 2);
  EXPECT_THAT(InvertedInk(), ElementsAre("box 0.96 -2.04 1.04 -1.96 black 1 inverted"));
  Move(2, 2);
  EXPECT_THAT(InvertedInk(), ElementsAre("box 1.96 -2.04 2.04 -1.96 black 1 inverted"));
  Move(2.5F, 2);
  EXPECT_THAT(InvertedInk(), IsEmpty());
}

TEST_F(DrawNodeTest, MarksNothingThatAZoomWouldTake) {
  Move(1, 1);
  ArmZoom();
  EXPECT_THAT(InvertedInk(), IsEmpty());
  Move(2, 2);
  EXPECT_THAT(InvertedInk(), IsEmpty());
  Press(2, 2);
  Move(3, 3);
  EXPECT_THAT(InvertedInk(), ElementsAre("box 2 -2 3 -3 black 1 inverted"));
}

TEST_F(DrawNodeTest, ErasesTheMarkWhenTheMouseLeaves) {
  Move(1, 1);
  MouseLeave();
  EXPECT_THAT(InvertedInk(), IsEmpty());
}

TEST_F(DrawNodeTest, MarksNothingInOtherModes) {
  SetMouseMode(MouseMode::SelectNode);
  Move(1, 1);
  EXPECT_THAT(surface.ink, IsEmpty());
}

class DrawMemberTest : public MouseFixture {
 protected:
  DrawMemberTest() { SetMouseMode(MouseMode::DrawMember); }

  void AddNode(float x, float y) {
    SetTables({{{0, 0}, {4, 0}, {4, 3}, {x, y}}, {}});
    RedrawDisplay(&surface, false);
    surface.Forget();
  }
};

TEST_F(DrawMemberTest, AddsAMemberBetweenTwoNodes) {
  EXPECT_EQ(Click(4.125F, 0), Of(MouseAction::NodePicked, 2));
  EXPECT_EQ(Click(4, 3), Of(MouseAction::AddMember, 2, 3));
}

TEST_F(DrawMemberTest, HighlightsTheNodes) {
  Click(4, 0);
  Click(4, 3);
  EXPECT_THAT(surface.ink, ElementsAre("circle 4 0 0.1 orange 2", "circle 4 -3 0.1 orange 2"));
}

TEST_F(DrawMemberTest, StartsAgainAfterAMember) {
  Click(0, 0);
  Click(4, 0);
  EXPECT_EQ(TheMouse.PickCount, 0);
  EXPECT_EQ(CurrentMouseMode(), MouseMode::DrawMember);
  EXPECT_EQ(Click(4, 3), Of(MouseAction::NodePicked, 3));
  EXPECT_EQ(Click(0, 0), Of(MouseAction::AddMember, 3, 1));
}

TEST_F(DrawMemberTest, TakesTheSameNodeTwice) {
  Click(4, 0);
  EXPECT_EQ(Click(4, 0), Of(MouseAction::AddMember, 2, 2));
}

TEST_F(DrawMemberTest, PicksWithTheMiddleButtonToo) {
  Click(0, 0, MouseButton::Middle);
  EXPECT_EQ(Click(4, 0, MouseButton::Middle), Of(MouseAction::AddMember, 1, 2));
}

TEST_F(DrawMemberTest, CountsNoMiss) {
  EXPECT_EQ(Click(1, 2.5F), At(MouseAction::OfferNode, 1, 2.5F));
  EXPECT_EQ(TheMouse.PickCount, 0);
  EXPECT_EQ(Click(0, 0), Of(MouseAction::NodePicked, 1));
  EXPECT_EQ(Click(1, 2.5F), At(MouseAction::OfferNode, 1, 2.5F));
  EXPECT_EQ(TheMouse.PickCount, 1);
  EXPECT_EQ(Click(4, 0), Of(MouseAction::AddMember, 1, 2));
}

TEST_F(DrawMemberTest, CountsANodeThatWasOfferedAndAdded) {
  Click(1, 3.5F);
  AddNode(1, 4);
  EXPECT_EQ(NodeWasAdded(4), Of(MouseAction::NodePicked, 4));
  EXPECT_THAT(surface.ink, ElementsAre("circle 1 -4 0.1 orange 2"));
  EXPECT_EQ(Click(4, 3), Of(MouseAction::AddMember, 4, 3));
}

TEST_F(DrawMemberTest, EndsAMemberAtANodeThatWasOfferedAndAdded) {
  Click(0, 0);
  Click(1, 3.5F);
  AddNode(1, 4);
  EXPECT_EQ(NodeWasAdded(4), Of(MouseAction::AddMember, 1, 4));
  EXPECT_EQ(TheMouse.PickCount, 0);
}

TEST_F(DrawMemberTest, CountsNoNodeThatIsNotThere) {
  EXPECT_EQ(NodeWasAdded(0), MouseVerdict{});
  EXPECT_EQ(NodeWasAdded(4), MouseVerdict{});
  EXPECT_EQ(TheMouse.PickCount, 0);
}

TEST_F(DrawMemberTest, DrawsALineFromTheFirstNode) {
  Move(1, 1);
  EXPECT_THAT(InvertedInk(), IsEmpty());
  Click(4.125F, 3);
  Move(1, 1);
  EXPECT_THAT(InvertedInk(), ElementsAre("line 4 -3 1 -1 black 1 inverted"));
  Move(2, 0);
  EXPECT_THAT(InvertedInk(), ElementsAre("line 4 -3 2 0 black 1 inverted"));
}

TEST_F(DrawMemberTest, ErasesTheLineBeforeItHighlights) {
  Click(0, 0);
  Move(4, 0);
  surface.Forget();
  Press(4, 0);
  EXPECT_THAT(surface.ink, ElementsAre("line 0 0 4 0 black 1 inverted", "circle 4 0 0.1 orange 2"));
}

TEST_F(DrawMemberTest, BringsTheLineBackAfterAMissAndARedraw) {
  Click(0, 0);
  Move(1, 2.5F);
  Click(1, 2.5F);
  EXPECT_THAT(InvertedInk(), IsEmpty());
  RedrawDisplay(&surface, false);
  surface.Forget();
  Move(2, 2);
  EXPECT_THAT(surface.ink, ElementsAre("line 0 0 2 -2 black 1 inverted"));
}

TEST_F(DrawMemberTest, DrawsNoLineAfterTheMember) {
  Click(0, 0);
  Move(2, 2);
  Click(4, 3);
  Move(1, 1);
  EXPECT_THAT(InvertedInk(), IsEmpty());
}

TEST_F(DrawMemberTest, DrawsTheLineBesideAZoomRectangle) {
  Click(0, 0);
  ArmZoom();
  Press(1, 1);
  Move(2, 2);
  EXPECT_THAT(InvertedInk(), ElementsAre("box 1 -1 2 -2 black 1 inverted", "line 0 0 2 -2 black 1 inverted"));
}

TEST_F(DrawMemberTest, ForgetsAFirstNodeThatIsGone) {
  Click(4, 3);
  SetTables({{{0, 0}, {4, 0}}, {}});
  EXPECT_EQ(Click(4, 0), Of(MouseAction::NodePicked, 2));
}

TEST_F(DrawMemberTest, ForgetsAFirstNodeThatHasMoved) {
  Click(4, 3);
  Move(2, 2);
  NodeTable(3, NodeX) = 5;
  Move(1, 1);
  EXPECT_THAT(InvertedInk(), IsEmpty());
  EXPECT_EQ(TheMouse.PickCount, 0);
}

} // namespace
} // namespace strutwright
