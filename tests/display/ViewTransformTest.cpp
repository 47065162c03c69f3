#include "DisplayFixture.h"
#include "SpecialNumbers.h"
#include "modViewTransform.h"

#include <cmath>
#include <limits>

namespace strutwright {
namespace {

class ViewTransformTest : public DisplayFixture {
 protected:
  static void ExpectExtents(float minX, float maxX, float minY, float maxY) {
    EXPECT_EQ(MinX, minX);
    EXPECT_EQ(MaxX, maxX);
    EXPECT_EQ(MinY, minY);
    EXPECT_EQ(MaxY, maxY);
  }

  void ExpectWindow(double left, double top, double width, double height) const {
    EXPECT_FLOAT_EQ(surface.window.left, static_cast<float>(left));
    EXPECT_FLOAT_EQ(surface.window.top, static_cast<float>(top));
    EXPECT_FLOAT_EQ(surface.window.width, static_cast<float>(width));
    EXPECT_FLOAT_EQ(surface.window.height, static_cast<float>(height));
  }

  const ViewWindow before = surface.window;
};

TEST_F(ViewTransformTest, HasNoExtentsWithoutNodes) {
  MaxX = MaxY = 7;
  MinX = MinY = -7;
  ComputeModelExtents();
  ExpectExtents(0, 0, 0, 0);
}

TEST_F(ViewTransformTest, AlwaysHasTheOriginInItsExtents) {
  SetTables({{{4, 2}}, {}});
  ComputeModelExtents();
  ExpectExtents(0, 4, 0, 2);
  SetTables({{{-5, -6}, {-4, -9}}, {}});
  ComputeModelExtents();
  ExpectExtents(-5, 0, -9, 0);
}

TEST_F(ViewTransformTest, BoundsAllNodes) {
  SetTables({{{-1, 2}, {3, -4}, {0.5F, 5}}, {}});
  ComputeModelExtents();
  ExpectExtents(-1, 3, -4, 5);
}

TEST_F(ViewTransformTest, MeasuresExtentsInItsUnit) {
  SetTables({{{-1, 2}, {3, -4}}, {}});
  const ModelExtents extents = ExtentsOfModel(10);
  EXPECT_EQ(extents.minX, -10);
  EXPECT_EQ(extents.maxX, 30);
  EXPECT_EQ(extents.minY, -40);
  EXPECT_EQ(extents.maxY, 20);
}

TEST_F(ViewTransformTest, LeavesOutCoordinatesThatAreNoNumbers) {
  SetTables({{{NaN, NaN}, {3, 4}}, {}});
  ComputeModelExtents();
  ExpectExtents(0, 3, 0, 4);
}

TEST_F(ViewTransformTest, FramesABoxWithinItsMargin) {
  SetViewWindow(surface, 0, 4, 0, 2); // governed by its width: 4 * 1.4 = 5.6 wide, 5.6 * 600 / 800 high
  ExpectWindow(2 - 2.8, -1 - 2.1, 5.6, 4.2);
}

TEST_F(ViewTransformTest, FramesATallBoxByItsHeight) {
  SetViewWindow(surface, 0, 1, 0, 30);
  ExpectWindow(0.5 - 28, -15 - 21, 56, 42);
}

TEST_F(ViewTransformTest, FramesTheStartUpView) {
  SetViewWindow(surface, -1, 10, 0, 3);
  ExpectWindow(4.5 - 7.7, -1.5 - 5.775, 15.4, 11.55);
}

TEST_F(ViewTransformTest, FramesABoxInEitherOrderOfItsSides) {
  SetViewWindow(surface, 0, 4, 0, 2);
  const ViewWindow expected = surface.window;
  SetViewWindow(surface, 4, 0, 2, 0);
  EXPECT_EQ(surface.window, expected);
}

TEST_F(ViewTransformTest, RoundsItsScaleToSinglePrecision) {
  surface.width = 700;
  surface.height = 1;
  SetViewWindow(surface, 0, 1, 0, 0);
  EXPECT_EQ(surface.window.width, static_cast<float>(700 * (static_cast<double>(1.0F / 700.0F) * 1.4)));
}

TEST_F(ViewTransformTest, LeavesTheWindowForABoxOfZeros) {
  SetViewWindow(surface, 0, 0, 0, 0);
  EXPECT_TRUE(surface.calls.empty());
}

TEST_F(ViewTransformTest, CollapsesToAPointElsewhere) {
  SetViewWindow(surface, 4, 4, 2, 2);
  ExpectWindow(4, -2, 0, 0);
}

TEST_F(ViewTransformTest, NeverSetsAWindowThatNoFloatHolds) {
  const float huge = std::numeric_limits<float>::max();
  SetViewWindow(surface, -huge, huge, 0, 1);
  SetViewWindow(surface, NaN, 1, 0, 1);
  SetViewWindow(surface, 0, Infinity, 0, 1);
  surface.width = 0;
  SetViewWindow(surface, 0, 4, 0, 2);
  EXPECT_EQ(surface.window, before);
}

TEST_F(ViewTransformTest, ZoomsOutAboutTheCentre) {
  surface.window = {-1, -5, 8, 6};
  EnlargeWindow(surface);
  ExpectWindow(3 - 5, -2 - 3.75, 10, 7.5);
  EnlargeWindow(surface);
  ExpectWindow(3 - 6.25, -2 - 4.6875, 12.5, 9.375);
}

TEST_F(ViewTransformTest, ZoomsOutNoFartherThanAFloatReaches) {
  surface.window = {-1e38F, -1e38F, 3e38F, 3e38F};
  const ViewWindow farthest = surface.window;
  EnlargeWindow(surface);
  EXPECT_EQ(surface.window, farthest);
}

TEST_F(ViewTransformTest, PansByTheDistanceOfTheTwoPoints) {
  surface.window = {-1, -5, 8, 6};
  PanWindow(surface, 1, -2, 1.5, -3);
  ExpectWindow(-1.5, -4, 8, 6);
}

TEST_F(ViewTransformTest, ZoomsToARectangleDrawnInAnyDirection) {
  EXPECT_TRUE(ZoomToRectangle(surface, 1, -1, 5, -3));
  ExpectWindow(3 - 2.8, -2 - 2.1, 5.6, 4.2);
  surface.window = before;
  EXPECT_TRUE(ZoomToRectangle(surface, 5, -3, 1, -1));
  ExpectWindow(3 - 2.8, -2 - 2.1, 5.6, 4.2);
}

TEST_F(ViewTransformTest, IgnoresARectangleWithoutWidthOrHeight) {
  EXPECT_FALSE(ZoomToRectangle(surface, 1, -1, 1, -1));
  EXPECT_FALSE(ZoomToRectangle(surface, 1, -1, 1, -3));
  EXPECT_FALSE(ZoomToRectangle(surface, 1, -1, 5, -1));
  EXPECT_EQ(surface.window, before);
}

TEST_F(ViewTransformTest, IgnoresARectangleThatWouldCollapse) {
  EXPECT_FALSE(ZoomToRectangle(surface, 0, 0, 1e-44, -1));
  EXPECT_FALSE(ZoomToRectangle(surface, 0, 0, 1, -1e-7));
  EXPECT_EQ(surface.window, before);
  EXPECT_TRUE(ZoomToRectangle(surface, 0, 0, 2e-6, -2e-6));
  EXPECT_GT(surface.window.width, 0);
}

TEST_F(ViewTransformTest, ZoomsAboutAPoint) {
  surface.window = {-1, -5, 8, 6};
  EXPECT_TRUE(ZoomAbout(surface, 1, -4, 0.5)); // a quarter from the left and a sixth from the top, before and after
  ExpectWindow(0, -4.5, 4, 3);
  EXPECT_TRUE(ZoomAbout(surface, 1, -4, 2));
  ExpectWindow(-1, -5, 8, 6);
}

TEST_F(ViewTransformTest, MovesATenthToTheSideThatAKeyNames) {
  const auto moved = [this](ViewMove move) {
    surface.window = {-1, -5, 8, 6};
    EXPECT_TRUE(MoveView(surface, move));
    return surface.window;
  };
  EXPECT_EQ(moved(ViewMove::Left), (ViewWindow{-1.8F, -5, 8, 6}));
  EXPECT_EQ(moved(ViewMove::Right), (ViewWindow{-0.2F, -5, 8, 6}));
  EXPECT_EQ(moved(ViewMove::Up), (ViewWindow{-1, -5.6F, 8, 6})) << "the surface's y points down";
  EXPECT_EQ(moved(ViewMove::Down), (ViewWindow{-1, -4.4F, 8, 6}));
}

TEST_F(ViewTransformTest, ZoomsAboutItsCentreByKeys) {
  surface.window = {-1, -5, 10, 5};
  EXPECT_TRUE(MoveView(surface, ViewMove::In));
  ExpectWindow(0, -4.5, 8, 4);
  EXPECT_TRUE(MoveView(surface, ViewMove::Out));
  ExpectWindow(-1, -5, 10, 5);
}

TEST_F(ViewTransformTest, MovesByKeysWithinItsLimitsOnly) {
  surface.window = {0, 0, 9e8F, 6e8F};
  EXPECT_FALSE(MoveView(surface, ViewMove::Out));
  surface.window = {3.4e38F, 0, 1e38F, 1};
  const ViewWindow far = surface.window;
  EXPECT_FALSE(MoveView(surface, ViewMove::Right));
  EXPECT_EQ(surface.window, far);
}

TEST_F(ViewTransformTest, ZoomsByFactorsThatMakeSense) {
  for (const double factor : {1.0, 0.0, -2.0, static_cast<double>(NaN), static_cast<double>(Infinity)}) {
    EXPECT_FALSE(ZoomAbout(surface, 1, -1, factor)) << factor;
  }
  EXPECT_FALSE(ZoomAbout(surface, NaN, 0, 0.5));
  EXPECT_FALSE(ZoomAbout(surface, 0, Infinity, 2));
  EXPECT_EQ(surface.window, before);
}

TEST_F(ViewTransformTest, ZoomsInToAMillimetreAtMost) {
  surface.window = {0, 0, 0.004F, 0.003F};
  EXPECT_TRUE(ZoomAbout(surface, 0, 0, 0.5));
  const ViewWindow nearest = surface.window;
  EXPECT_FALSE(ZoomAbout(surface, 0, 0, 0.5));
  EXPECT_EQ(surface.window, nearest);
  EXPECT_TRUE(ZoomAbout(surface, 0, 0, 2));
}

TEST_F(ViewTransformTest, ZoomsInAsFarAsCoordinatesCanBeToldApart) {
  surface.window = {1e6F, 0, 16, 12};
  EXPECT_FALSE(ZoomAbout(surface, 1e6, 0, 0.5));
  surface.window = {0, -1e6F, 16, 12};
  EXPECT_FALSE(ZoomAbout(surface, 0, -1e6, 0.5));
  surface.window = {0, 0, 16, 12};
  EXPECT_TRUE(ZoomAbout(surface, 0, 0, 0.5));
}

TEST_F(ViewTransformTest, ZoomsOutToALimit) {
  surface.window = {0, 0, 9e8F, 6e8F};
  EXPECT_FALSE(ZoomAbout(surface, 0, 0, 1.25));
  EXPECT_TRUE(ZoomAbout(surface, 0, 0, 0.8));
  surface.window = {0, 0, 6e8F, 9e8F};
  EXPECT_FALSE(ZoomAbout(surface, 0, 0, 1.25));
}

TEST_F(ViewTransformTest, StaysInSightHoweverOftenItZooms) {
  for (int turn = 0; turn < 2000; ++turn) ZoomAbout(surface, 1, -1, 0.8);
  EXPECT_GE(surface.window.height, 0.001F);
  for (int turn = 0; turn < 2000; ++turn) ZoomAbout(surface, 1, -1, 1.25);
  EXPECT_LE(surface.window.width, 1e9F);
  EXPECT_LT(surface.window.left, 1);
  EXPECT_GT(surface.window.left + surface.window.width, 1);
}

} // namespace
} // namespace strutwright
