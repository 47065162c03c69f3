#pragma once

#include <cstdint>

namespace strutwright {

/// A 24-bit colour.
struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Colour&) const = default;
};

inline constexpr Colour Black{0, 0, 0};
inline constexpr Colour Red{255, 0, 0};
inline constexpr Colour Green{0, 255, 0};
inline constexpr Colour Blue{0, 0, 255};
inline constexpr Colour Grey{128, 128, 128};
inline constexpr Colour Orange{255, 140, 0};

} // namespace strutwright
