#include "ClearTexts.h"

#include "modNumberText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace strutwright {

namespace {

constexpr int MaxDecimals = 6;
constexpr double LeastInPowers = 1e7; // from there on, and below the other, numbers show a power of ten
constexpr double MostInPowers = 1e-6;
constexpr const char* Minus = "\u2212";

/// Of a force, rounded as the grids and the other drawing round it, so that it reads the same everywhere.
std::string Digits(float size, int decimals) {
  std::string text = FormatNumber(size, "0." + std::string(static_cast<std::size_t>(decimals), '0'));
  if (decimals == 0) text.pop_back(); // the point of a pattern always shows
  return text;
}

/// Enough decimals that a value does not read as zero.
int DecimalsFor(double size, int decimals) {
  constexpr std::array<double, MaxDecimals + 1> Steps{1, 1e-1, 1e-2, 1e-3, 1e-4, 1e-5, 1e-6};
  while (decimals < MaxDecimals && size < 0.5 * Steps.at(static_cast<std::size_t>(decimals))) ++decimals;
  return decimals;
}

std::string WithoutZeros(std::string text) {
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

} // namespace

int ForceDecimals(double largest) {
  if (largest >= 999.95) return 0;
  if (largest >= 9.995) return 1;
  return largest >= 0.9995 ? 2 : 3;
}

std::string ForceText(float force, int decimals, bool compact) {
  constexpr double FourDigits = 99.95;
  if (force == 0) return "0";
  const float size = std::fabs(force);
  const std::string digits = Digits(size, compact && size >= FourDigits ? 0 : DecimalsFor(size, decimals));
  const std::string blank = compact ? "" : " ";
  return force > 0 ? "+" + digits + blank + "T" : Minus + digits + blank + "C";
}

std::string ShortForceText(float force, int decimals) {
  std::string text = ForceText(force, decimals, true);
  if (force == 0) return text;
  return text.substr(force > 0 ? 1 : std::string(Minus).size());
}

std::string LoadText(float force, int decimals) {
  const float size = std::fabs(force);
  return WithoutZeros(Digits(size, DecimalsFor(size, decimals))) + " kN";
}

std::string PlainText(double value, int decimals) {
  if (value == 0) return "0";
  const double size = std::fabs(value);
  const bool isPlain = size < LeastInPowers && (size >= MostInPowers || decimals <= MaxDecimals);
  if (!isPlain) return (value < 0 ? Minus : "") + NumberText(static_cast<float>(size));
  std::array<char, 64> text{}; // seven digits before the point, and no float has more than 45 zeros behind it
  const auto end = std::to_chars(text.data(), text.data() + text.size(), size, std::chars_format::fixed, decimals).ptr;
  const std::string digits = WithoutZeros({text.data(), end});
  return value < 0 && digits != "0" ? Minus + digits : digits;
}

std::string ReadingText(double value, int digits) {
  if (static_cast<float>(value) == 0) return "0";
  const double unit = std::pow(10.0, std::floor(std::log10(std::fabs(value))) + 1 - digits);
  return NumberText(static_cast<float>(std::round(value / unit) * unit));
}

} // namespace strutwright
