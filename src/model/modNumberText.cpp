#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace strutwright {

namespace {

constexpr std::string_view Blanks = " \t";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes a run of digits off the front and returns it.
std::string_view TakeDigits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
  const auto length = static_cast<std::size_t>(end - text.begin());
  const std::string_view digits = text.substr(0, length);
  text.remove_prefix(length);
  return digits;
}

bool TakeSign(std::string_view& text) {
  const bool signPresent = !text.empty() && (text.front() == '+' || text.front() == '-');
  if (signPresent) text.remove_prefix(1);
  return signPresent;
}

/// An unsigned decimal number taken apart, its digits as they were written.
struct WrittenNumber {
  std::string_view whole;
  std::string_view fraction;
  bool exponentNegative = false;
  std::string_view exponent;
};

/// Nothing when the text is not of the numeric form.
std::optional<WrittenNumber> TakeApart(std::string_view text) {
  WrittenNumber number;
  number.whole = TakeDigits(text);
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    number.fraction = TakeDigits(text);
  }
  if (number.whole.empty() && number.fraction.empty()) return std::nullopt;
  if (text.empty()) return number;
  if (text.front() != 'e' && text.front() != 'E') return std::nullopt;
  text.remove_prefix(1);
  number.exponentNegative = text.starts_with('-');
  TakeSign(text);
  number.exponent = TakeDigits(text);
  if (number.exponent.empty() || !text.empty()) return std::nullopt;
  return number;
}

/// For a number outside the range of a float: is it too small rather than too large?
bool IsBelowRange(const WrittenNumber& number) {
  const std::size_t firstWhole = number.whole.find_first_not_of('0');
  const std::size_t firstFraction = number.fraction.find_first_not_of('0');
  if (firstWhole == std::string_view::npos && firstFraction == std::string_view::npos) return true;
  const double leadingDigit = firstWhole != std::string_view::npos
                                  ? static_cast<double>(number.whole.size() - firstWhole)
                                  : -static_cast<double>(firstFraction);
  // No text is long enough to outweigh an exponent that does not fit.
  std::int64_t exponent = 0;
  const auto [end, error] =
      std::from_chars(number.exponent.data(), number.exponent.data() + number.exponent.size(), exponent);
  if (error == std::errc::result_out_of_range) return number.exponentNegative;
  return leadingDigit + static_cast<double>(number.exponentNegative ? -exponent : exponent) < 0;
}

constexpr std::size_t SignificantDigits = 7;

/// A value as 0.d1d2...d7 * 10^pointAfter; no digits for zero.
struct Decimal {
  bool negative = false;
  std::string digits;
  int pointAfter = 0;
};

/// Without trailing zeros.  digits: seven of them, or 0000000.
Decimal MakeDecimal(bool negative, std::string_view digits, int pointAfter) {
  digits = digits.substr(0, digits.find_last_not_of('0') + 1);
  return {negative, std::string(digits), digits.empty() ? 0 : pointAfter};
}

Decimal SevenDigitDecimalOfAny(float value) {
  std::array<char, 32> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), std::abs(value),
                                          std::chars_format::scientific, SignificantDigits - 1);
  // "d.dddddde+xx"
  text[1] = text[0];
  const std::string_view digits(&text[1], SignificantDigits);
  const char* exponentText = &text[SignificantDigits + 2];
  if (*exponentText == '+') ++exponentText;
  int exponent = 0;
  std::from_chars(exponentText, end, exponent);
  return MakeDecimal(std::signbit(value), digits, exponent + 1);
}

static_assert(FLT_EVAL_METHOD == 0, "products and sums of doubles are rounded to doubles, to the nearest");

/// Exact like the general way, but in a tenth of the time for what drawings are full of: a float has 24 bits and 10^12
/// has 28 before its zeros, so that their product fits into a double.
Decimal SevenDigitDecimal(float value) {
  constexpr double Least = 1e6; // of the numbers with seven digits
  constexpr int MaxPlaces = 12;
  constexpr double ToWhole = 0x1p52; // a sum with it has no fraction
  const double size = std::abs(static_cast<double>(value));
  double product = size;
  if (!(product < 10 * Least)) return SevenDigitDecimalOfAny(value);
  int places = 0;
  for (double power = 1; product < Least && places < MaxPlaces; ++places) {
    power *= 10;
    product = size * power;
  }
  if (product < Least) return SevenDigitDecimalOfAny(value);
  double whole = product + ToWhole - ToWhole; // a half goes to the even neighbour
  if (whole == 10 * Least) {
    whole = Least;
    --places;
  }
  std::array<char, SignificantDigits> digits{};
  std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<int>(whole));
  return MakeDecimal(std::signbit(value), {digits.data(), digits.size()}, static_cast<int>(SignificantDigits) - places);
}

/// The digits before the point, none below 1.
std::string WholeDigits(const Decimal& decimal) {
  if (decimal.pointAfter <= 0) return {};
  const auto length = static_cast<std::size_t>(decimal.pointAfter);
  std::string whole = decimal.digits.substr(0, length);
  whole.resize(length, '0');
  return whole;
}

/// The digits behind the point, without trailing zeros.
std::string FractionDigits(const Decimal& decimal) {
  if (decimal.digits.empty()) return {};
  if (decimal.pointAfter <= 0) return std::string(static_cast<std::size_t>(-decimal.pointAfter), '0') + decimal.digits;
  const auto length = static_cast<std::size_t>(decimal.pointAfter);
  return decimal.digits.size() > length ? decimal.digits.substr(length) : std::string();
}

std::string NotFiniteText(float value) {
  if (std::isnan(value)) return "NaN";
  return value < 0 ? "-Infinity" : "Infinity";
}

std::string ExponentForm(const Decimal& decimal) {
  const int exponent = decimal.pointAfter - 1;
  std::string text(1, decimal.digits[0]);
  if (decimal.digits.size() > 1) text += "." + decimal.digits.substr(1);
  const std::string size = std::to_string(std::abs(exponent));
  return text + (exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
}

/// Rounds half away from zero to so many digits behind the point.
void RoundToPlaces(Decimal& decimal, std::size_t places) {
  const int keep = decimal.pointAfter + static_cast<int>(places);
  if (keep >= static_cast<int>(decimal.digits.size())) return;
  const bool up = keep >= 0 && decimal.digits[static_cast<std::size_t>(keep)] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(std::max(keep, 0)));
  if (up) {
    auto digit = decimal.digits.rbegin();
    while (digit != decimal.digits.rend() && *digit == '9') *digit++ = '0';
    if (digit != decimal.digits.rend()) {
      ++*digit;
    } else {
      decimal.digits.insert(0, 1, '1');
      ++decimal.pointAfter;
    }
  }
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  if (decimal.digits.empty()) decimal.pointAfter = 0;
}

std::size_t CountZeros(std::string_view pattern) {
  return static_cast<std::size_t>(std::count(pattern.begin(), pattern.end(), '0'));
}

} // namespace

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(Blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::optional<float> NumericValue(std::string_view text) {
  text = TrimBlanks(text);
  const bool negative = text.starts_with('-');
  TakeSign(text);
  const std::optional<WrittenNumber> number = TakeApart(text);
  if (!number) return std::nullopt;
  float value = 0.0F;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) {
    if (!IsBelowRange(*number)) return std::nullopt;
    value = 0.0F;
  }
  return negative ? -value : value;
}

bool IsNumberForm(std::string_view text) {
  text = TrimBlanks(text);
  TakeSign(text);
  return TakeApart(text).has_value();
}

std::optional<std::int16_t> IntegerValue(std::string_view text) {
  if (!NumericValue(text)) return std::nullopt;
  text = TrimBlanks(text);
  const bool negative = text.starts_with('-');
  TakeSign(text);
  // Not rounded to a float first: that would make a tie of 2.50000001.  What is too small for a double stays 0.
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  const double nearest = std::nearbyint(negative ? -value : value);
  using Limits = std::numeric_limits<std::int16_t>;
  if (nearest < Limits::min() || nearest > Limits::max()) return std::nullopt;
  return static_cast<std::int16_t>(nearest);
}

std::string NumberText(float value) {
  if (!std::isfinite(value)) return NotFiniteText(value);
  const Decimal decimal = SevenDigitDecimal(value);
  if (decimal.digits.empty()) return "0";
  const std::string sign = decimal.negative ? "-" : "";
  // Plain from 0.0001 = 0.1 * 10^-3 up to 9999999 = 0.9999999 * 10^7.
  if (decimal.pointAfter < -3 || decimal.pointAfter > 7) return sign + ExponentForm(decimal);
  const std::string whole = WholeDigits(decimal);
  const std::string fraction = FractionDigits(decimal);
  return sign + (whole.empty() ? "0" : whole) + (fraction.empty() ? "" : "." + fraction);
}

std::string ShortestText(float value) {
  if (value == 0.0F) return "0";
  if (!std::isfinite(value)) return NotFiniteText(value);
  std::array<char, 32> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), end};
}

std::string FormatNumber(float value, std::string_view pattern) {
  if (!std::isfinite(value)) return NotFiniteText(value);
  const std::size_t point = pattern.find('.');
  const std::string_view wholePattern = pattern.substr(0, point);
  const std::string_view fractionPattern = point == std::string_view::npos ? "" : pattern.substr(point + 1);
  Decimal decimal = SevenDigitDecimal(value);
  RoundToPlaces(decimal, fractionPattern.size());
  std::string whole = WholeDigits(decimal);
  if (whole.size() < CountZeros(wholePattern)) whole.insert(0, CountZeros(wholePattern) - whole.size(), '0');
  std::string fraction = FractionDigits(decimal);
  if (fraction.size() < CountZeros(fractionPattern)) fraction.resize(CountZeros(fractionPattern), '0');
  std::string text;
  if (decimal.negative && !decimal.digits.empty()) text += '-';
  text += whole;
  if (point != std::string_view::npos) text += '.';
  return text += fraction;
}

} // namespace strutwright
