#pragma once

#include <bit>
#include <cstdint>

namespace strutwright {

inline constexpr std::uint32_t InfinityBits = 0x7F800000U;
inline constexpr std::uint32_t NegativeZeroBits = 0x80000000U; ///< The sign's bit and no other.

/// Without the sign's bit they are in the order of the sizes; from InfinityBits on a float is not finite.
constexpr std::uint32_t BitsOfFloat(float x) { return std::bit_cast<std::uint32_t>(x); }

} // namespace strutwright
