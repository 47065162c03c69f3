#include "modRangeList.h"

#include "EditingState.h"
#include "Ensure.h"
#include "Platform.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <exception>
#include <iterator>
#include <limits>
#include <optional>
#include <stdexcept>
#include <utility>

namespace strutwright {

namespace {

using Limits = std::numeric_limits<std::int16_t>;

struct Range {
  std::int16_t start = 0;
  std::int16_t end = 0; ///< stays 0 in a range that is never closed, which then contributes nothing
};

/// What stands in a text, in the order in which it was typed.
struct TypedNumbers {
  std::vector<Range> ranges;
  std::vector<std::int16_t> numbers;
};

std::int16_t ToNumber(const std::string& text) {
  const std::optional<std::int16_t> number = IntegerValue(text);
  if (!number) throw std::invalid_argument("not a number of a row: " + text);
  return *number;
}

/// Appends to a list whose count has to fit 16 bits.
template <typename Entry>
void Append(std::vector<Entry>& list, const Entry& entry) {
  if (list.size() == Limits::max()) throw std::length_error("too many entries");
  list.push_back(entry);
}

TypedNumbers Scan(const std::string& text) {
  TypedNumbers typed;
  std::string numStr;
  bool open = false;
  for (const char c : text + ",") {
    if (c == '-') {
      Append(typed.ranges, {ToNumber(std::exchange(numStr, {})), 0});
      open = true;
    } else if (c == ',') {
      const std::int16_t number = ToNumber(std::exchange(numStr, {}));
      if (std::exchange(open, false)) typed.ranges.back().end = number;
      Append(typed.numbers, number);
    } else {
      numStr.push_back(c);
    }
  }
  return typed;
}

std::size_t CountEntries(const TypedNumbers& typed) {
  std::size_t count = typed.numbers.size();
  for (const Range& range : typed.ranges) count += static_cast<std::size_t>(std::max(range.end - range.start + 1, 0));
  return count;
}

std::vector<std::int16_t> BuildList(const TypedNumbers& typed) {
  std::vector<std::int16_t> list{0};
  list.reserve(1 + CountEntries(typed));
  for (const Range& range : typed.ranges) {
    for (int number = range.start; number <= range.end; ++number) list.push_back(static_cast<std::int16_t>(number));
  }
  list.insert(list.end(), typed.numbers.begin(), typed.numbers.end());
  sortList(list, list.size() - 1);
  return list;
}

std::size_t PositionOf(std::int16_t number) { return static_cast<std::size_t>(number - Limits::min()); }

} // namespace

void parseRangeList(const std::string& text) {
  rangeError = false;
  try {
    rangeList = BuildList(Scan(text));
  } catch (const std::exception&) {
    ShowMessage(MessageIcon::Information, "Text input error: the format is 1,2,4-7,59");
    rangeError = true;
  }
}

void sortList(std::vector<std::int16_t>& list, std::size_t count) {
  Ensure(count < list.size(), "a list is sorted within its entries");
  // A few ranges typed again and again give millions of entries of few values: each value is counted.
  std::vector<std::size_t> times(PositionOf(Limits::max()) + 1);
  const auto begin = std::next(list.begin());
  std::for_each(begin, std::next(begin, static_cast<std::ptrdiff_t>(count)),
                [&times](std::int16_t number) { ++times[PositionOf(number)]; });
  auto next = begin;
  for (int number = Limits::min(); number <= Limits::max(); ++number) {
    const auto value = static_cast<std::int16_t>(number);
    next = std::fill_n(next, times[PositionOf(value)], value);
  }
}

std::int16_t maxOfList(const std::vector<std::int16_t>& list) {
  Ensure(list.size() > 1, "the largest is asked of a list with entries");
  return *std::max_element(std::next(list.begin()), list.end());
}

} // namespace strutwright
