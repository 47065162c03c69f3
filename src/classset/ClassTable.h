#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

/// A table as the program reads it: the line "sep=;", with which spreadsheets begin some, is blank, and what it names
/// stands between the values.
struct TableText {
  std::string text;
  char separator;
};
TableText ReadableTable(const std::string& text);

/// A row of a table of texts with the values of the columns that were asked for.
struct ClassRow {
  int line = 0; ///< where it stands, from 1
  std::vector<std::string> values;
};

/// Reads a table of separated values by the headings of its first line, in any order and in letters of either case;
/// other columns and blank lines are passed over.  Values come without the blanks around them.
/// Where the last heading is the last of `columns`, what stands beyond it belongs to it, so that a decimal comma does
/// not cut a number off.
/// what: the table in a message, such as "The key".  Throws ClassFault.
std::vector<ClassRow> ReadClassTable(const std::string& text, const std::vector<std::string_view>& columns,
                                     const std::string& what);

} // namespace strutwright
