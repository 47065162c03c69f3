#include "ClassTexts.h"

#include "modNumberText.h"
#include "modTables.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace strutwright {

std::string InQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string CountOf(std::size_t count, const std::string& one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string PlainName(const std::string& name) {
  std::string plain;
  for (const char c : InSmallLetters(name)) {
    if (c == ' ' && (plain.empty() || plain.back() == ' ')) continue;
    plain += c;
  }
  return plain;
}

std::optional<double> PlainNumber(std::string_view text) {
  std::string_view number = TrimBlanks(text);
  if (!IsNumberForm(number)) return std::nullopt;
  if (number.starts_with('+')) number.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc() || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size() || number < 0) return std::nullopt;
  return number;
}

} // namespace strutwright
