#include "DisplayFixture.h"
#include "SpecialNumbers.h"
#include "modModelStore.h"
#include "modRedraw.h"

#include <functional>
#include <limits>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RedrawTest : public DisplayFixture {
 protected:
  RedrawTest() {
    SetTables({{{0, 0, 0, 0, 3}, {4, 2}}, {{1, 2}}});
    MemberTable(1, MemberFieldForce) = 5;
    Displacements = {0, 0, 0, 1, 1};
    Reactions = {0, 20, 30, 0, 0};
  }

  /// The colours of what was drawn, each time they change.
  Lines Colours() const {
    Lines colours;
    for (const std::string& line : surface.ink) {
      for (const char* colour : {"black", "red", "blue", "green"}) {
        if (line.find(colour) == std::string::npos) continue;
        if (colours.empty() || colours.back() != colour) colours.emplace_back(colour);
      }
    }
    return colours;
  }
};

TEST_F(RedrawTest, DoesNothingWithoutASurface) {
  DisplaySurface = nullptr;
  RedrawDisplay(&surface, true);
  EXPECT_THAT(surface.calls, IsEmpty());
  EXPECT_FALSE(KeepView);
  DisplaySurface = &surface;
  RedrawDisplay(nullptr, true);
  EXPECT_THAT(surface.calls, IsEmpty());
}

TEST_F(RedrawTest, ClearsFirst) {
  RedrawDisplay(&surface, false);
  EXPECT_EQ(surface.calls.front(), "Clear");
}

TEST_F(RedrawTest, DrawsTheLayersInTheirOrder) {
  ShowReactions = ShowMemberForces = ShowDeflectedShape = true;
  RedrawDisplay(&surface, false);
  EXPECT_THAT(Colours(), ElementsAre("black", "red", "blue", "green"));
}

TEST_F(RedrawTest, DrawsOnlyTheLayersThatAreShown) {
  RedrawDisplay(&surface, false);
  EXPECT_THAT(Colours(), ElementsAre("black"));
  surface.Forget();
  ShowReactions = true;
  RedrawDisplay(&surface, false);
  EXPECT_THAT(Colours(), ElementsAre("black", "green"));
}

TEST_F(RedrawTest, KeepsTheViewOrFramesTheModel) {
  const ViewWindow before = surface.window;
  RedrawDisplay(&surface, false);
  EXPECT_TRUE(KeepView);
  EXPECT_EQ(surface.window, before);
  RedrawDisplay(&surface, true);
  EXPECT_FALSE(KeepView);
  EXPECT_FLOAT_EQ(surface.window.width, 5.6F);
}

TEST_F(RedrawTest, ScalesTheDeflectedShape) {
  ShowDeflectedShape = true;
  DeflectionScale = 1000;
  RedrawDisplay(&surface, false);
  EXPECT_EQ(surface.ink.back(), "line 0 0 5 -3 red 1 dashed");
}

TEST_F(RedrawTest, GoesOnAfterAFailure) {
  MemberTable(1, MemberNodeJ) = 9;
  ShowReactions = true;
  RedrawDisplay(&surface, false);
  EXPECT_THAT(TakeMessages(), ElementsAre(DrawingBox("table index 9,1")));
  EXPECT_FALSE(surface.Ink("text", "green").empty());
}

TEST_F(RedrawTest, NeverThrows) {
  ShowReactions = ShowMemberForces = ShowDeflectedShape = true;
  TheDisplay.Layers = ModelLayers{};
  RedrawDisplay(&surface, true);
  const int calls = static_cast<int>(surface.calls.size());
  for (int n = 1; n <= calls; ++n) {
    surface.Forget();
    surface.failAt = n;
    EXPECT_NO_THROW(RedrawDisplay(&surface, true));
    EXPECT_EQ(TakeMessages().size(), 1U) << n;
  }
}

TEST_F(RedrawTest, CanKeepItsFailuresForTheStatusBar) {
  MemberTable(1, MemberNodeJ) = 9;
  Lines failures;
  const auto keep = [&failures](const std::string& text) { failures.push_back(text); };
  RedrawDisplay(&surface, false, keep);
  EXPECT_THAT(failures, ElementsAre("Drawing error: check the input data\ntable index 9,1"));
  failures.clear();
  MemberTable(1, MemberNodeJ) = 2;
  RedrawDisplay(&surface, false, keep);
  EXPECT_THAT(failures, IsEmpty());
}

/// A desktop that paints a window anew while it shows a box over it.
class RepaintingBoxes : public FakeMessageBoxes {
 public:
  explicit RepaintingBoxes(std::function<void()> paint) : Paint(std::move(paint)) {}
  void Show(const Message& message) override {
    FakeMessageBoxes::Show(message);
    if (Depth++ < 3) Paint();
  }

 private:
  std::function<void()> Paint;
  int Depth = 0;
};

TEST_F(RedrawTest, ShowsNoSecondBoxUnderAnOpenOne) {
  RepaintingBoxes boxes([this] { RedrawDisplay(&surface, false); });
  ThePlatform().messages = &boxes;
  MemberTable(1, MemberNodeJ) = 9;
  RedrawDisplay(&surface, false);
  EXPECT_EQ(boxes.shown.size(), 1U);
  ShowMessage(MessageIcon::Information, "anything");
  EXPECT_EQ(boxes.shown.size(), 2U);
  RedrawDisplay(&surface, false);
  EXPECT_EQ(boxes.shown.size(), 3U);
}

TEST_F(RedrawTest, SurvivesCoordinatesOfAnySize) {
  ShowReactions = ShowMemberForces = ShowDeflectedShape = true;
  TheDisplay.Layers = ModelLayers{};
  const float huge = std::numeric_limits<float>::max();
  for (const float x : {1e30F, huge, -huge, 1e-30F, Infinity, NaN}) {
    SetTables({{{0, 0, x, x, 3}, {x, -x, x, x, x}}, {{1, 2}, {2, 2}}});
    MemberTable(1, MemberFieldForce) = x;
    Displacements = Reactions = {0, x, -x, x, x};
    RedrawDisplay(&surface, true);
    RedrawDisplay(&surface, false);
    EXPECT_LT(surface.ink.size(), 10000U);
    surface.Forget();
  }
}

TEST_F(RedrawTest, SurvivesLoadsWithoutAScale) {
  TheDisplay.Layers.loads = true;
  LoadsScale = 0;
  SetTables({{{0, 0, 5, 5}}, {}});
  RedrawDisplay(&surface, true);
  EXPECT_EQ(surface.Ink("text", "red").size(), 2U);
}

} // namespace
} // namespace strutwright
