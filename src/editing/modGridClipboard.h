#pragma once

#include "Grid.h"

#include <array>
#include <string_view>

namespace strutwright {

// The commands of the grids' menu.  Cells travel as plain text with a tab between cells, and as an HTML table.

enum class GridCommand { Copy, Cut, Paste, Delete, SelectAll, Compress };

/// One entry of the grids' menu, and on which grids it is enabled.
struct GridMenuEntry {
  GridCommand command;
  std::string_view name;
  bool onDataGrids;
  bool onResultsGrids;
};

inline constexpr std::array<GridMenuEntry, 6> GridMenu{{
    {GridCommand::Copy, "mnuGrid_Copy", true, true},
    {GridCommand::Cut, "mnuGrid_Cut", true, false},
    {GridCommand::Paste, "mnuGrid_Paste", true, false},
    {GridCommand::Delete, "mnuGrid_Delete", true, false},
    {GridCommand::SelectAll, "mnuGrid_SelectAll", true, true},
    {GridCommand::Compress, "mnuGrid_Compress", true, false},
}};

/// Whether an entry of the menu is enabled on a grid: all of them on GrJoints and GrMembers.
bool IsEnabled(GridCommand command, const Grid& grid);

/// Carries out a command on the grid that the menu was opened on; does nothing where it is not enabled.
/// Cut, Delete and Compress end the analysis, rebuild the model and draw it.
void RunGridCommand(GridCommand command, Grid& grid);

/// Puts the texts of the selection on the clipboard: a tab between cells, a carriage return between rows.
void copyGrid(const Grid& grid);

/// Empties the data cells of the selection.
void blankSelection(Grid& grid);

/// Makes the first data cell the current one and selects all data cells; nothing in a grid without any.
void selectAllCells(Grid& grid);

/// Writes the clipboard's plain text into the rows from the current one on, always from column 1, and numbers them.
/// What stands behind the last line end is not pasted.  A line feed ends a line, with or without a carriage return
/// before it; a carriage return alone does not.  A cell may stand in quotation marks, as spreadsheets write one with
/// tabs, line ends or quotation marks in it.
/// An empty or blank cell empties its cell.  One that is not numeric becomes 0; the first of these is shown to the user
/// with a row and a column one greater than its own, the others together in one box afterwards.
/// The grid grows by the rows that it lacks and a spare one; more than Grid::MaxDataRows data rows throw
/// std::length_error, and nothing has changed then.  Cells in columns that the grid does not have are passed over, and
/// the first that is not empty is shown.  A grid without a data row gets its first one.
/// A current analysis is left alone, and a hint says that the grids have changed; otherwise the model is rebuilt and
/// drawn.
void pasteCells(Grid& grid);

/// Asks, and removes the rows without any entry as CompressZeroRows does.
void compressCells(Grid& grid);

} // namespace strutwright
