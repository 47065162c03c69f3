#pragma once

#include <bit>
#include <cstdint>

namespace strutwright {

/// A float's bits in the order of sizes, below the sign's; those from InfinityBits on are not finite.
inline constexpr std::uint32_t InfinityBits = 0x7F800000U;
inline constexpr std::uint32_t NegativeZeroBits = 0x80000000U; ///< The sign's bit and no other.

constexpr std::uint32_t BitsOfFloat(float x) { return std::bit_cast<std::uint32_t>(x); }

} // namespace strutwright
