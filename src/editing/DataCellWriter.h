#pragma once

#include "Grid.h"

#include <optional>
#include <string>

namespace strutwright {

/// Writes texts into a grid for a command that takes its rows and columns from outside: cells that the grid does not
/// have are passed over, and the first of them is shown to the user in the end.  The header row counts as not there.
class DataCellWriter {
 public:
  explicit DataCellWriter(Grid& grid) : Target(grid) {}

  void Write(int row, int column, const std::string& text);

  /// Empties a cell; where the grid has none, there is nothing to empty and nothing to show.
  void Empty(int row, int column);

  /// Shows the first cell that was not there, if any.
  void ShowFirstMiss() const;

 private:
  bool HasCell(int row, int column) const;

  Grid& Target;
  std::optional<GridRangeError> FirstMiss;
};

} // namespace strutwright
