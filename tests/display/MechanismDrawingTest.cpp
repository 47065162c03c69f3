#include "DisplayFixture.h"
#include "modMechanismDrawing.h"
#include "modModelStore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Keeps lines and circles as they were drawn, to the last bit.
class ExactSurface : public RecordingSurface {
 public:
  void DrawLine(double x1, double y1, double x2, double y2) override {
    RecordingSurface::DrawLine(x1, y1, x2, y2);
    lines.push_back({x1, y1, x2, y2});
    colours.push_back(colour);
  }
  void DrawCircle(double x, double y, double radius) override {
    RecordingSurface::DrawCircle(x, y, radius);
    circles.push_back({x, y});
    colours.push_back(colour);
  }
  void SetPenColour(Colour given) override {
    RecordingSurface::SetPenColour(given);
    colour = given;
  }

  std::vector<std::array<double, 4>> lines;
  std::vector<std::array<double, 2>> circles;
  std::vector<Colour> colours;
  Colour colour;
};

/// A published mechanism and its motion: node 2 goes up by 0.75 while node 3 goes to the left by 1.
ModelData LooseTriangle() { return {{{0, 0, 0, 0, 3}, {3, 0, 0, -10, 0}, {0, 4, 0, 0, 1}}, {{1, 2}, {2, 3}, {1, 3}}}; }
const std::vector<double> MotionOfLooseTriangle{0, 0, 0, 0, 0.75, -1, 0};

class MechanismDrawingTest : public DisplayFixture {
 protected:
  MechanismDrawingTest() { SetTables(LooseTriangle()); }

  ExactSurface exact;
};

TEST_F(MechanismDrawingTest, MovesATenthOfTheModelsSizeAtItsWidest) {
  DrawMechanism(exact, MotionOfLooseTriangle, 1);
  ASSERT_THAT(exact.circles, SizeIs(2)); // node 1 does not move
  EXPECT_THAT(exact.circles[0], ElementsAre(3, DoubleNear(-0.3, 1e-12)));
  EXPECT_THAT(exact.circles[1], ElementsAre(DoubleNear(-0.4, 1e-12), -4));
}

TEST_F(MechanismDrawingTest, SwingsToTheOtherSideAndThroughTheModel) {
  DrawMechanism(exact, MotionOfLooseTriangle, -1);
  EXPECT_THAT(exact.circles[1], ElementsAre(DoubleNear(0.4, 1e-12), -4));
  DrawMechanism(exact, MotionOfLooseTriangle, 0);
  EXPECT_THAT(exact.circles[3], ElementsAre(0, -4));
}

TEST_F(MechanismDrawingTest, IsVioletThroughout) {
  DrawMechanism(exact, MotionOfLooseTriangle, 1);
  EXPECT_THAT(exact.colours, testing::Each(Violet));
  EXPECT_THAT(exact.colours, SizeIs(5));
}

TEST_F(MechanismDrawingTest, LeavesOutWhatDoesNotMove) {
  SetTables({{{0, 0}, {4, 0}, {8, 0}}, {{1, 2}, {2, 3}}});
  DrawMechanism(exact, {0, 0, 0, 0, 0, 0, 1}, 1);
  EXPECT_THAT(exact.lines, ElementsAre(ElementsAre(4, 0, 8, DoubleNear(-0.8, 1e-12))));
  EXPECT_THAT(exact.circles, SizeIs(1));
}

TEST_F(MechanismDrawingTest, MeasuresTheNodesWithoutTheOrigin) {
  SetTables({{{100, 50}, {104, 52}}, {}});
  EXPECT_EQ(ModelSize(), 4);
  SetTables({{{100, 50}, {100, 42}}, {}});
  EXPECT_EQ(ModelSize(), 8);
}

TEST_F(MechanismDrawingTest, MovesALoneNodeAsIfItMeasuredAMetre) {
  SetTables({{{5, 5}}, {}});
  EXPECT_EQ(ModelSize(), 1);
  DrawMechanism(exact, {0, 1, 0}, 1);
  EXPECT_THAT(exact.circles, ElementsAre(ElementsAre(DoubleNear(5.1, 1e-12), -5)));
  SetTables({});
  EXPECT_EQ(ModelSize(), 1);
}

TEST_F(MechanismDrawingTest, DrawsNothingForAMotionOfAnotherModel) {
  DrawMechanism(exact, {0, 1, 0}, 1);
  DrawMechanism(exact, {}, 1);
  EXPECT_THAT(exact.calls, IsEmpty());
}

TEST_F(MechanismDrawingTest, PassesOverMembersThatNameNoNode) {
  MemberTable(1, MemberNodeI) = 9;
  MemberTable(2, MemberNodeJ) = 0;
  DrawMechanism(exact, MotionOfLooseTriangle, 1);
  EXPECT_THAT(exact.lines, SizeIs(1));
  EXPECT_THAT(exact.circles, SizeIs(2));
}

} // namespace
} // namespace strutwright
