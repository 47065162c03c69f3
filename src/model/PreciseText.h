#pragma once

#include <string>

namespace strutwright {

/// Up to so many significant digits of a finite number.  Of a number computed in double precision twelve
/// are right, and those behind would be rounding.
std::string PreciseText(double value, int digits = 12);

} // namespace strutwright
