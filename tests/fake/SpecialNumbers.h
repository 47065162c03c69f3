#pragma once

#include <limits>

namespace strutwright {

inline constexpr float Infinity = std::numeric_limits<float>::infinity();
inline constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

} // namespace strutwright
