#include "PreciseText.h"

#include "Ensure.h"

#include <array>
#include <charconv>
#include <cmath>

namespace strutwright {

std::string PreciseText(double value, int digits) {
  std::array<char, 32> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value == 0 ? 0.0 : value,
                                          std::chars_format::general, digits);
  Ensure(error == std::errc() && std::isfinite(value), "a number is finite and fits its text");
  return {text.data(), end};
}

} // namespace strutwright
