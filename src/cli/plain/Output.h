#pragma once

#include "CsvText.h"
#include "Grid.h"
#include "JsonText.h"
#include "PreciseText.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace strutwright {

enum class OutputFormat { Text, Csv, Json };

using Json = OrderedJson;

/// Prints a grid as a table: headings, then the rows, columns lined up and two blanks apart.
void PrintTable(const Grid& grid, std::ostream& out);

/// Prints a value on a line of its own; what is not valid UTF-8 becomes the replacement character.
void PrintJsonLine(const Json& value, std::ostream& out);

} // namespace strutwright
