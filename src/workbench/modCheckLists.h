#pragma once

#include "Grid.h"

#include <string>
#include <vector>

namespace strutwright {

// What the check window lists, and the selection of what a line names.

/// A line of a list, with the nodes and members that choosing it shows.
struct CheckLine {
  std::string text;
  std::vector<int> nodes;
  std::vector<int> members;

  bool Selects() const { return !nodes.empty() || !members.empty(); }
};

/// What is odd about the model, a line each; where nothing is, one line says so.
std::vector<CheckLine> FindingLines();

/// The zero bars with their reasons; where there are none, or none were looked for, one line says so.
std::vector<CheckLine> ZeroBarLines();

/// What would stop the shown mechanism.  A member's line shows its nodes, a support's its node, and
/// that of rigidity the members without any.
std::vector<CheckLine> CureLines();

/// Makes rows the selection of a grid: all of them where they follow each other, else the first.
/// rows: ascending.  Rows that the grid does not have are passed over.
void SelectRows(Grid& grid, const std::vector<int>& rows);

} // namespace strutwright
