#pragma once

#include "ModelRows.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

/// The open model as comma-separated values (RFC 4180): the node table under its headings, the member table under
/// its own.  Every number is the shortest text that reads back to the same float.
std::string ModelToCsv();

/// Whether the first line of a text is the headings of a node or a member table.
bool BeginsWithHeadings(const std::string& text);

/// Reads a node and a member table, each below its headings, as a spreadsheet writes them: values between tabs,
/// semicolons or commas; numbers with a point or, where no comma stands between the values or in quotation marks, a
/// comma; line ends CRLF, LF or CR; blank lines and empty columns ignored.
/// The headings are those of ModelToCsv or the keys of the JSON, in any order and in letters of any case; a unit in
/// parentheses, or none for that of ModelToCsv.  Loads, support and prestress may be missing, and an empty value is 0
/// but in x and node i.  The numbers in the first column, where it is there, are 1, 2, 3...
/// remarks: takes a sentence for each column that is left out.
/// Throws ImportError for the first line that is wrong.
ModelRows RowsFromTables(const std::string& text, std::vector<std::string>& remarks);

/// What the members of one layer of a drawing are made of.
struct LayerRigidity {
  float E = 200;  ///< kN/mm2
  float A = 1000; ///< mm2

  bool operator==(const LayerRigidity&) const = default;
};

/// By the layer's name in small letters.
using LayerTable = std::map<std::string, LayerRigidity>;

/// Reads a table with the headings "layer", "E" and "A", by the same rules.  Throws ImportError.
LayerTable ReadLayerTable(const std::string& text);

/// A number as in a cell of a table, with a point or one comma.  Nothing where the text is none.
std::optional<float> CellNumber(const std::string& text);

/// The letters A to Z as a to z.
std::string InSmallLetters(std::string_view text);

} // namespace strutwright
