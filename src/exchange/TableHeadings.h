#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

/// A column of a table that is read: the names that its heading may have, in small letters and without blanks.
struct ReadColumn {
  std::vector<std::string_view> names;
  std::string_view title; ///< how messages call it
  std::string_view unit;  ///< that it is wanted in; empty for none
  bool required = true;
};

/// Where a column stands in the lines, and what makes its values ones in the wanted unit.
struct ColumnPlace {
  std::size_t index = 0;
  double factor = 1;
};

/// Which field of the lines each column is; nothing for one that is not there.
struct HeadingPlaces {
  std::vector<std::optional<ColumnPlace>> columns;
  std::vector<std::string> leftOut; ///< headings of no column
  std::size_t fieldCount = 0;       ///< up to the last heading
};

/// Finds the columns in a line of headings, in any order.  A unit may follow in parentheses.
/// Throws ImportError where a column stands twice or has a unit that can't be converted.
HeadingPlaces FindHeadings(const std::vector<std::string>& fields, const std::vector<ReadColumn>& columns, int line);

/// Whether a heading is one of the column's names, whatever its unit.
bool IsHeadingOf(const std::string& heading, const ReadColumn& column);

} // namespace strutwright
