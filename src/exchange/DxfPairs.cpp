#include "DxfPairs.h"

#include "ImportError.h"
#include "ModelRows.h"
#include "modNumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace strutwright {

namespace {

constexpr int CommentCode = 999;

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::optional<int> WholeIn(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  int whole = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), whole);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return whole;
}

} // namespace

DxfPairs::DxfPairs(std::string_view text) : Rest(text) {
  if (Rest.starts_with("\xEF\xBB\xBF")) Rest.remove_prefix(3);
}

std::string_view DxfPairs::TakeLine() {
  const std::size_t end = std::min(Rest.find_first_of("\r\n"), Rest.size());
  const std::string_view line = Rest.substr(0, end);
  Rest.remove_prefix(end);
  if (Rest.starts_with("\r\n")) {
    Rest.remove_prefix(2);
  } else if (!Rest.empty()) {
    Rest.remove_prefix(1);
  }
  ++LineNumber;
  return WithoutBlanks(line);
}

std::optional<DxfPair> DxfPairs::Next() {
  while (!Rest.empty()) {
    const std::string_view written = TakeLine();
    if (written.empty() && WithoutBlanks(Rest).empty()) break;
    const std::optional<int> code = WholeIn(written);
    if (!code) throw ImportError(LineNumber, "a DXF group code is expected, not " + Quoted(std::string(written)));
    if (Rest.empty()) throw ImportError(LineNumber, "the drawing ends in the middle");
    const std::string_view value = TakeLine();
    if (*code != CommentCode) return DxfPair{*code, value, LineNumber};
  }
  return std::nullopt;
}

bool BeginsAsDxf(std::string_view text) {
  try {
    DxfPairs pairs(text);
    const auto first = pairs.Next();
    return first && first->code == 0 && first->value == "SECTION";
  } catch (const ImportError&) {
    return false;
  }
}

double DxfNumber(const DxfPair& pair) {
  std::string_view text = pair.value;
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool tooSmall = error == std::errc::result_out_of_range && NumericValue(text) == 0.0F;
  const bool isNumber = (error == std::errc() || tooSmall) && end == text.data() + text.size() && std::isfinite(number);
  if (isNumber) return number;
  throw ImportError(pair.line, Quoted(std::string(pair.value)) + " is not a number, or too large for one");
}

int DxfWhole(const DxfPair& pair) { return WholeIn(pair.value).value_or(0); }

const DxfPair* FindGroup(const DxfGroups& groups, int code) {
  const auto found = std::find_if(groups.begin(), groups.end(), [&](const DxfPair& each) { return each.code == code; });
  return found == groups.end() ? nullptr : &*found;
}

double NumberOf(const DxfGroups& groups, int code, double otherwise) {
  const DxfPair* pair = FindGroup(groups, code);
  return pair == nullptr ? otherwise : DxfNumber(*pair);
}

} // namespace strutwright
