#include "modScales.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "ViewEvents.h"
#include "modNumberText.h"

#include <algorithm>

namespace strutwright {

namespace {

constexpr std::int16_t SpinnerStart = 500;
constexpr float DeflectionStep = 10;
constexpr double LoadsFactor = 1.25;
constexpr float MinScale = 1;
constexpr float GreatestScale = 5000;

float WithinLimits(float scale) { return std::clamp(scale, MinScale, GreatestScale); }

} // namespace

bool SpinnerWentUp(std::int16_t& last, std::int16_t value) {
  const std::int16_t before = last == 0 ? SpinnerStart : last;
  last = value;
  return value > before;
}

void stepDeflectionScale(bool up) {
  if (AnalysisDone == FlagFalse) return;
  ShowDeflectedShape = true;
  // From 1 the steps go on with 10, 20, ... and not with 11, 21, ...
  if (up && DeflectionScale == MinScale) DeflectionScale = 0;
  DeflectionScale = WithinLimits(DeflectionScale + (up ? DeflectionStep : -DeflectionStep));
  ViewEvents().ViewChanged();
}

void stepLoadsScale(bool up) {
  const double scale = static_cast<double>(LoadsScale);
  LoadsScale = WithinLimits(static_cast<float>(up ? scale * LoadsFactor : scale / LoadsFactor));
  ViewEvents().ViewChanged();
}

std::string DeflectionScaleText() { return FormatNumber(DeflectionScale, "#0") + " mm/mm"; }

std::string LoadsScaleText() { return FormatNumber(LoadsScale, "#0.0") + " kN/m"; }

void ResetScales() {
  DeflectionScale = 100;
  LoadsScale = 10;
}

} // namespace strutwright
