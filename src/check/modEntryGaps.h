#pragma once

#include "modFindingList.h"

#include <string>
#include <vector>

namespace strutwright {

// What the data grids hold and the model does not take as it was meant, because something is still to be entered.

/// Data rows of a grid that have no number in column 1, though rows below them have one, so that as many of the last
/// rows are not read.
struct RowGap {
  int readRows = 0;            ///< the first rows, as many as have that number
  std::vector<int> emptyRows;  ///< ascending
  std::vector<int> unreadRows; ///< rows with that number beyond the first readRows; ascending, empty without a gap

  bool IsOne() const { return !unreadRows.empty(); }
};

RowGap GapInJoints();
RowGap GapInMembers();

/// "Row 2 has no x: 2 nodes are read, row 3 is not." and the like, nodes before members; empty without a gap.
std::string RowGapText();

/// "Member 1 has no Node j: it is drawn to the origin." and the like: members in MemberTable that name node 0; empty
/// where none does.
std::string MissingNodeText();

/// The gaps of the grids, each with its empty rows to select.
void FindRowGaps(FindingList& findings);

} // namespace strutwright
