#pragma once

#include "Grid.h"
#include "PreciseText.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace strutwright {

enum class OutputFormat { Text, Csv, Json };

/// Prints a grid as a table: headings, then the rows, columns lined up and two blanks apart.
void PrintTable(const Grid& grid, std::ostream& out);

/// One record of comma-separated values (RFC 4180), line end included.
std::string CsvRecord(const std::vector<std::string>& fields);

/// The text with the replacement character for what is not valid UTF-8.
std::string ValidText(const std::string& text);

/// Keeps the order of its keys, and prints a float with the digits that read back to the same float.
using Json =
    nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool, std::int64_t, std::uint64_t, float>;

/// A number: zero without a sign, null where it is not finite.
Json JsonNumber(float value);

/// A list of what `value` makes of each item.
template <typename Items, typename Value>
Json JsonListOf(const Items& items, const Value& value) {
  Json list = Json::array();
  for (const auto& item : items) list.push_back(value(item));
  return list;
}

/// Prints a value on a line of its own; what is not valid UTF-8 becomes the replacement character.
void PrintJsonLine(const Json& value, std::ostream& out);

} // namespace strutwright
