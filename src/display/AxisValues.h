#pragma once

#include "ClearSettings.h"

#include <string>
#include <vector>

namespace strutwright {

/// The least of 1, 2 and 5 times a power of ten that is not below a value above zero.
double RoundStepAbove(double value);

/// A value of an axis and where it comes along the border, in pixels.
struct AxisValue {
  double at = 0;
  std::string text;
};

/// The multiples of a round step, counted from zero either way, that lie within 0..length.
/// origin: where zero lies; scale: pixels a metre, below zero where the axis runs upwards.
std::vector<AxisValue> ValuesAlong(double origin, double scale, double step, double length);

/// The step of the values of both axes, m: as close as they can be read.
double AxisStep(const PixelView& view);

} // namespace strutwright
