#pragma once

#include "Grid.h"

#include <cstdint>
#include <string>

namespace strutwright {

// Rows made in bulk, and the appending of one row that all drawing of nodes and members comes down to.

/// Appends a node row at (x, y), in m, behind the nodes that NodeCount counts; its other columns keep what they hold.
/// A caller takes the model from the grids first, so that the row is a free one, and again when it has done.
/// More than Grid::MaxDataRows rows throw std::length_error; nothing has changed then.
void addNode(float x, float y);

/// Appends a member row from node i to node j; the same for MemberCount.
void AddMember(std::int16_t i, std::int16_t j);

/// What the user has typed for a line of nodes; coordinates in m.
struct NodeLineTexts {
  std::string nodes = "11"; ///< how many, ends included
  std::string x1 = "0";
  std::string y1 = "0";
  std::string x2 = "10";
  std::string y2 = "0";
};

/// Appends equally spaced nodes from (x1, y1) to (x2, y2), both ends included; a count below 2 gives the first end
/// alone. A count that is no 16-bit integer is shown in a message and taken for 0; coordinates that are not numeric are
/// shown in one, and nothing has changed then.  Existing nodes stay as they are, also at the same places. More than
/// Grid::MaxDataRows nodes throw std::length_error; nothing has changed then.
void GenerateNodeLine(const NodeLineTexts& texts);

/// Writes two texts as they stand into two columns of every row that a list such as "1-3,5" names; the grid grows where
/// it has too few rows.  A list that can't be read shows a message and changes nothing.
/// Cells that the grid does not have are passed over, and the first is shown.
/// Results of an analysis stay marked valid, but member fields 6 to 9 become 0; where the rebuild afterwards finds
/// another number of nodes or members, the analysis ends.
void fillListedRows(const std::string& list, Grid& grid, const std::string& value1, const std::string& value2,
                    int column1, int column2);

} // namespace strutwright
