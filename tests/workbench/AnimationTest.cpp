#include "modAnimation.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "EventsTest.h"
#include "WorkbenchState.h"
#include "modScales.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A spinner whose changes step the deflection scale, as in the window.
class ScaleSpinnerModel : public Spinner {
 public:
  int Value() const override { return value; }
  void SetValue(int newValue) override {
    if (newValue == value) return;
    value = newValue;
    stepDeflectionScale(SpinnerWentUp(lastDeflectionSpin, static_cast<std::int16_t>(value)));
  }

  int value = 500;
};

class AnimationTest : public EventsTest {
 protected:
  AnimationTest() {
    TheEditing = EditingState{};
    TheWorkbench = WorkbenchState{};
    TheDisplay = DisplayState{};
    TheAnalysis = AnalysisState{};
    AnalysisDone = FlagTrue;
  }

  /// Ticks until the animation has ended; the values that the spinner took.
  std::vector<int> RunThrough() {
    std::vector<int> values;
    StartAnimation(spinner);
    while (animating && values.size() < 1000) {
      AnimationTick(spinner);
      values.push_back(spinner.value);
    }
    return values;
  }

  ScaleSpinnerModel spinner;
};

TEST_F(AnimationTest, GrowsOverFiftyOneTicksAndShrinksOverFifty) {
  const std::vector<int> values = RunThrough();
  ASSERT_EQ(values.size(), 102U);
  EXPECT_EQ(values.front(), 501);
  EXPECT_EQ(values[50], 551);
  EXPECT_EQ(values[100], 501);
  EXPECT_EQ(values.back(), 501);
  EXPECT_EQ(*std::max_element(values.begin(), values.end()), 551);
}

TEST_F(AnimationTest, BeginsAtScaleTenAndEndsAtAHundred) {
  StartAnimation(spinner);
  EXPECT_EQ(DeflectionScale, 10.0F);
  AnimationTick(spinner);
  EXPECT_EQ(DeflectionScale, 20.0F);
  for (int tick = 2; tick <= 51; ++tick) AnimationTick(spinner);
  EXPECT_EQ(DeflectionScale, 520.0F);
  while (animating) AnimationTick(spinner);
  EXPECT_EQ(DeflectionScale, 100.0F);
  EXPECT_EQ(spinner.value, 501);
}

TEST_F(AnimationTest, StepsDownOnceWhereItBeginsAgainFromItsEnd) {
  RunThrough();
  StartAnimation(spinner);
  EXPECT_EQ(DeflectionScale, 1.0F);
  AnimationTick(spinner);
  EXPECT_EQ(DeflectionScale, 10.0F);
}

TEST_F(AnimationTest, DoesNothingWithoutResultsOrBeforeItIsStarted) {
  AnimationTick(spinner);
  EXPECT_EQ(spinner.value, 500);
  AnalysisDone = FlagFalse;
  StartAnimation(spinner);
  EXPECT_FALSE(animating);
  EXPECT_EQ(DeflectionScale, 100.0F);
}

/// Ticks while it is shown.
class TickingBoxes : public MessageBoxes {
 public:
  explicit TickingBoxes(Spinner& each) : Ticked(each) {}
  void Show(const Message& /*message*/) override { AnimationTick(Ticked); }
  bool Ask(const Message& /*question*/) override { return false; }

 private:
  Spinner& Ticked;
};

TEST_F(AnimationTest, WaitsWhileAMessageIsOpen) {
  StartAnimation(spinner);
  TickingBoxes boxes(spinner);
  ThePlatform().messages = &boxes;
  ShowMessage(MessageIcon::Information, "text");
  EXPECT_EQ(spinner.value, 500);
  AnimationTick(spinner);
  EXPECT_EQ(spinner.value, 501);
}

using ScalesTest = AnimationTest;

TEST_F(ScalesTest, TakesTheFirstChangeFromFiveHundred) {
  std::int16_t last = 0;
  EXPECT_FALSE(SpinnerWentUp(last, 500));
  EXPECT_EQ(last, 500);
  EXPECT_TRUE(SpinnerWentUp(last, 501));
  EXPECT_FALSE(SpinnerWentUp(last, 501));
  EXPECT_FALSE(SpinnerWentUp(last, 0));
  EXPECT_FALSE(SpinnerWentUp(last, 500)) << "after 0 the next change counts as the first";
}

TEST_F(ScalesTest, ClearsAndRedrawsAtEachStep) {
  stepDeflectionScale(true);
  EXPECT_THAT(events, ElementsAre("ViewChanged"));
  events.clear();
  stepLoadsScale(true);
  EXPECT_THAT(events, ElementsAre("ViewChanged"));
}

TEST_F(ScalesTest, StepsTheDeflectionScaleWithResultsOnly) {
  AnalysisDone = FlagFalse;
  stepDeflectionScale(true);
  EXPECT_EQ(DeflectionScale, 100.0F);
  EXPECT_THAT(events, IsEmpty());
  EXPECT_FALSE(ShowDeflectedShape);
}

TEST_F(ScalesTest, RunsThroughOneTenTwentyAndStopsAtFiveThousand) {
  DeflectionScale = 1;
  stepDeflectionScale(true);
  EXPECT_EQ(DeflectionScale, 10.0F);
  stepDeflectionScale(true);
  EXPECT_EQ(DeflectionScale, 20.0F);
  DeflectionScale = 4995;
  stepDeflectionScale(true);
  EXPECT_EQ(DeflectionScale, 5000.0F);
  DeflectionScale = 10;
  stepDeflectionScale(false);
  EXPECT_EQ(DeflectionScale, 1.0F);
}

TEST_F(ScalesTest, WritesTheScalesWithTheirUnits) {
  EXPECT_EQ(DeflectionScaleText(), "100 mm/mm");
  EXPECT_EQ(LoadsScaleText(), "10.0 kN/m");
  LoadsScale = 15.625F;
  EXPECT_EQ(LoadsScaleText(), "15.6 kN/m");
}

} // namespace
} // namespace strutwright
