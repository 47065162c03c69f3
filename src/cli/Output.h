#pragma once

#include "Grid.h"

#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace strutwright {

enum class OutputFormat { Text, Csv, Json };

/// Prints a grid as a table: headings, then the rows, columns lined up and two blanks apart.
void PrintTable(const Grid& grid, std::ostream& out);

/// One record of comma-separated values (RFC 4180), line end included.
std::string CsvRecord(const std::vector<std::string>& fields);

/// The text with the replacement character for what is not valid UTF-8.
std::string ValidText(const std::string& text);

/// A JSON string literal; what is not valid UTF-8 becomes the replacement character.
std::string JsonText(const std::string& text);

/// A JSON number with the shortest digits that read back to the same float; null where it is not finite.
std::string JsonNumber(float value);

/// Up to so many significant digits of a finite number, also as JSON.  Of a number computed in double precision twelve
/// are right, and those behind would be rounding.
std::string PreciseText(double value, int digits = 12);

/// A JSON object or list of values that are JSON already, on one line.
std::string JsonObject(const std::vector<std::pair<std::string_view, std::string>>& values);
std::string JsonList(const std::vector<std::string>& values);

} // namespace strutwright
