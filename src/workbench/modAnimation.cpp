#include "modAnimation.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "Platform.h"
#include "WorkbenchState.h"

namespace strutwright {

namespace {

constexpr int SpinnerRest = 500;
constexpr int SpinnerFirst = 501; // the end of the way back, too
constexpr int SpinnerLast = 551;
constexpr float FirstScale = 10;
constexpr float RestScale = 100;

void EndAnimation(Spinner& spinner) {
  DeflectionScale = RestScale;
  spinner.SetValue(SpinnerRest);
  animating = false;
}

} // namespace

void StartAnimation(Spinner& spinner) {
  if (AnalysisDone == FlagFalse) return;
  DeflectionScale = FirstScale;
  spinner.SetValue(SpinnerRest);
  animating = true;
}

void AnimationTick(Spinner& spinner) {
  if (!animating || MessageIsOpen()) return;
  // EndAnimation sets the spinner one step too low, on purpose: the last line here raises it, and the scale, by one.
  if (spinner.Value() == SpinnerFirst && animStep == -1) EndAnimation(spinner);
  if (spinner.Value() < SpinnerFirst) animStep = 1;
  if (spinner.Value() >= SpinnerLast) animStep = -1;
  spinner.SetValue(spinner.Value() + animStep);
}

} // namespace strutwright
