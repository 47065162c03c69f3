#include "DisplayState.h"
#include "RecordingSurface.h"
#include "WorkbenchFixture.h"
#include "modDrags.h"

#include <memory>
#include <string>

namespace strutwright {
namespace {

/// The 3-4-5 triangle on a grid of a metre, on a surface of 100 pixels a metre; the load of node 3 is (5, -10).
class DragsTest : public WorkbenchFixture {
 protected:
  DragsTest() {
    TheDisplay = DisplayState{};
    surface.window = {0, -6, 8, 6};
    DisplaySurface = &surface;
    LoadsScale = 10;
    SetModel(Triangle());
  }
  ~DragsTest() override { TheDisplay = DisplayState{}; }

  static std::string Place(int n) { return GrJoints.Text(n, 1) + " " + GrJoints.Text(n, 2); }
  static std::string Load(int n) { return GrJoints.Text(n, 3) + " " + GrJoints.Text(n, 4); }

  static void Type(Drag& drag, const std::string& keys) {
    for (const char key : keys) EXPECT_TRUE(drag.Type(static_cast<char32_t>(key)));
  }

  RecordingSurface surface;
};

TEST_F(DragsTest, PutTheNodeThatIsHeldOnTheNearestGridPointAndTheOthersAsFarAway) {
  const auto drag = DragNodes(3, {2, 3}, {4.1F, 3.1F}); // taken beside its middle

  drag->MoveTo({5.4F, 2.4F}, false);

  EXPECT_EQ(Place(3), "5 2"); // (5.3, 2.3) on the grid
  EXPECT_EQ(Place(2), "5 -1");
  EXPECT_EQ(drag->Way(), (WorldPoint{1, -1}));
  EXPECT_EQ(drag->Text(), "Node 3: x = 5 m, y = 2 m");
  EXPECT_EQ(drag->Name(), "Move Nodes");
}

TEST_F(DragsTest, LeaveTheGridWhereTheUserAsks) {
  const auto drag = DragNodes(3, {3}, {4, 3});
  drag->MoveTo({4.25F, 3.5F}, true);
  EXPECT_EQ(Place(3), "4.25 3.5");
  EXPECT_EQ(drag->Name(), "Move Node");
}

TEST_F(DragsTest, TakeTypedNumbersOverTheMouse) {
  const auto drag = DragNodes(3, {3}, {4, 3});
  drag->MoveTo({6, 5}, false);
  Type(*drag, "-1.5");
  EXPECT_EQ(Place(3), "-1.5 5"); // y is still the mouse's
  Type(*drag, ";2");
  drag->MoveTo({7, 7}, false);
  EXPECT_EQ(Place(3), "-1.5 2");
  EXPECT_EQ(drag->Text(), "Node 3: x = -1.5 m, y = 2 m   [-1.5,2]");
}

TEST_F(DragsTest, TakeYAloneBehindAComma) {
  const auto drag = DragNodes(3, {3}, {4, 3});
  Type(*drag, ",8");
  EXPECT_EQ(Place(3), "4 8");
}

TEST_F(DragsTest, TakeBackTypedKeys) {
  const auto drag = DragNodes(3, {3}, {4, 3});
  Type(*drag, "12\b\b\b");
  EXPECT_EQ(Place(3), "4 3");
  EXPECT_EQ(drag->Text(), "Node 3: x = 4 m, y = 3 m");
  EXPECT_FALSE(drag->Type(U'a'));
}

TEST_F(DragsTest, GiveTheTextsBack) {
  const auto drag = DragNodes(3, {2, 3}, {4, 3});
  drag->MoveTo({6, 5}, false);
  EXPECT_TRUE(drag->Edits.ChangeAny());

  drag->Edits.PutBack();
  EXPECT_EQ(Place(2) + ", " + Place(3), "4 0, 4 3");

  drag->Edits.PutAgain();
  EXPECT_EQ(Place(2) + ", " + Place(3), "6 2, 6 5");
  drag->MoveTo({4, 3}, false);
  EXPECT_FALSE(drag->Edits.ChangeAny());
}

TEST_F(DragsTest, RefuseADropOnAnotherNode) {
  const auto drag = DragNodes(3, {3}, {4, 3});
  drag->MoveTo({0, 0}, false);
  EXPECT_EQ(drag->Refusal(), "Node 3 would lie on node 1: drop it elsewhere");
  drag->MoveTo({1, 0}, false);
  EXPECT_EQ(drag->Refusal(), "");
}

TEST_F(DragsTest, RefuseADropSoNearToAnotherNodeThatNeitherCouldBePicked) {
  PickRadius = 0.5F;
  const auto drag = DragNodes(3, {3}, {4, 3});
  drag->MoveTo({0.049F, 0}, true);
  EXPECT_EQ(drag->Refusal(), "Node 3 would lie on node 1: drop it elsewhere");
  drag->MoveTo({0.051F, 0}, true);
  EXPECT_EQ(drag->Refusal(), "");
}

TEST_F(DragsTest, LetNodesPassWhereOthersOfThemWere) {
  const auto drag = DragNodes(2, {2, 3}, {4, 0});
  drag->MoveTo({4, 3}, false); // node 3 is there, and moves along
  EXPECT_EQ(drag->Refusal(), "");
}

TEST_F(DragsTest, StayWhereTheyWereBeyondTheFloats) {
  const auto drag = DragNodes(3, {3}, {4, 3});
  drag->MoveTo({6, 5}, false);
  drag->MoveTo({3e38F, 3e38F}, true);
  drag->MoveTo({-3e38F, 5}, true);
  EXPECT_EQ(Place(3), "-3E+38 5") << "within the floats";
  Type(*drag, "999999999999999999999999999999999999999999"); // beyond them, so no number
  EXPECT_EQ(Place(3), "-3E+38 5");
}

TEST_F(DragsTest, MoveNodesByNumbers) {
  CellEdits edits;
  EXPECT_EQ(MoveNodesBy({1, 2}, 0.5, -2, edits), "");
  EXPECT_EQ(Place(1) + ", " + Place(2), "0.5 -2, 4.5 -2");
}

TEST_F(DragsTest, ChangeNothingWhereTheNodesMayNotLie) {
  CellEdits edits;
  EXPECT_EQ(MoveNodesBy({1}, 4, 0, edits), "Node 1 would lie on node 2: drop it elsewhere");
  EXPECT_EQ(MoveNodesBy({1}, 1e39, 0, edits), "The nodes would lie too far away: move them less");
  EXPECT_FALSE(edits.ChangeAny());
}

// Arrows lie to the right of their node and above it, 10 kN a metre: the ends are 0.5 m right and 1 m above.
TEST_F(DragsTest, FindTheEndsOfTheLoads) {
  const LoadEnd x = LoadEndAt(4.45, 3.05, 0.2);
  EXPECT_EQ(x.node, 3);
  EXPECT_FALSE(x.alongY);
  EXPECT_EQ(x.sideX, 1);
  const LoadEnd y = LoadEndAt(4.05, 4.05, 0.2);
  EXPECT_EQ(y.node, 3);
  EXPECT_TRUE(y.alongY);
  EXPECT_EQ(y.sideY, 1);
}

TEST_F(DragsTest, FindNoEndFarAwayOrUnseen) {
  EXPECT_EQ(LoadEndAt(4, 4.2, 0.2).node, 0) << "exactly as far away as it may not be";
  TheDisplay.Layers.loads = false;
  EXPECT_EQ(LoadEndAt(4, 4, 0.2).node, 0);
  TheDisplay.Layers.loads = true;
  DisplaySurface = nullptr;
  EXPECT_EQ(LoadEndAt(4, 4, 0.2).node, 0);
}

// 5 pixels are 0.05 m and 0.5 kN: that is a round step.
TEST_F(DragsTest, ChangeALoadInRoundSteps) {
  const auto drag = DragLoad(LoadEndAt(4, 4, 0.2), {4, 4}, 0.01);
  drag->MoveTo({4.3F, 4.13F}, false); // 1.3 kN more; aside does nothing
  EXPECT_EQ(Load(3), "5 -11.5");
  EXPECT_EQ(drag->Text(), "Load at node 3 in y: -11.5 kN");
  drag->MoveTo({4, 4.13F}, true);
  EXPECT_EQ(Load(3), "5 -11.3");
  EXPECT_EQ(drag->Name(), "Drag Load");
}

TEST_F(DragsTest, EndALoadAtZero) {
  const auto drag = DragLoad(LoadEndAt(4.5, 3, 0.2), {4.5F, 3}, 0.01);
  drag->MoveTo({1, 3}, false);
  EXPECT_EQ(Load(3), "0 -10");
  drag->MoveTo({4.7F, 3}, false);
  EXPECT_EQ(Load(3), "7 -10");
}

TEST_F(DragsTest, EnterTheLoadOfASymbol) {
  EnterSymbolLoad(3, LoadSymbol::Down);
  EXPECT_EQ(Load(3), "5 -10");
  EnterSymbolLoad(3, LoadSymbol::Up);
  EXPECT_EQ(Load(3), "5 10");
  EnterSymbolLoad(3, LoadSymbol::Left);
  EXPECT_EQ(Load(3), "-10 10");
  EnterSymbolLoad(3, LoadSymbol::Right);
  EXPECT_EQ(Load(3), "10 10");
  EnterSymbolLoad(3, LoadSymbol::None);
  EXPECT_EQ(Load(3), "0 0");
}

} // namespace
} // namespace strutwright
