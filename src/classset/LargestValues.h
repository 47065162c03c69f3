#pragma once

namespace strutwright {

// Of the results in the tables, for telling a value from rounding.

/// So small beside the largest value of its kind, a value is nothing but rounding.
inline constexpr double NoValue = 1e-5;

/// The largest member force, kN.
double LargestForce();

/// The largest displacement in any direction, mm.
double LargestDisplacement();

} // namespace strutwright
