#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

/// Takes the plain text of a table apart: lines of cells, as spreadsheets put them on the clipboard.
/// What stands behind the last line end is left out.  Cells come without the quotation marks around them, without line
/// ends inside, and without blanks on either side.
std::vector<std::vector<std::string>> TakeTableApart(std::string_view text);

} // namespace strutwright
