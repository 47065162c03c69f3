#include "AxisValues.h"

#include "ClearTexts.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

constexpr double MinPitchOfValues = 60; // pixels

int DecimalsOf(double step) { return std::clamp(static_cast<int>(std::ceil(-std::log10(step) - 1e-9)), 0, 9); }

} // namespace

double RoundStepAbove(double value) {
  const double power = std::pow(10.0, std::floor(std::log10(value)));
  for (const double step : {1.0, 2.0, 5.0}) {
    if (step * power >= value * (1 - 1e-9)) return step * power;
  }
  return 10 * power;
}

std::vector<AxisValue> ValuesAlong(double origin, double scale, double step, double length) {
  const double first = std::ceil(std::min(-origin / scale, (length - origin) / scale) / step);
  const double last = std::floor(std::max(-origin / scale, (length - origin) / scale) / step);
  std::vector<AxisValue> values;
  if (!std::isfinite(first) || !std::isfinite(last) || last - first > length) return values;
  for (int k = 0; k <= static_cast<int>(last - first); ++k) {
    const double value = (first + k) * step;
    values.push_back({origin + value * scale, PlainText(value, DecimalsOf(step))});
  }
  return values;
}

double AxisStep(const PixelView& view) { return RoundStepAbove(MinPitchOfValues / std::min(view.scaleX, view.scaleY)); }

} // namespace strutwright
