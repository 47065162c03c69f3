#pragma once

#include "Grid.h"

#include <string>

namespace strutwright {

// Editing one cell of a data grid: what the edit box over the current cell opens with, how its text is taken, and
// where the current cell goes then.

/// The keys that end an edit and move on.
enum class CellKey { Enter, Down, Up, Left, Right };

/// The value of a cell's text.  A text that is not numeric gives 0 and is shown to the user with this position.
float CheckCellValue(const std::string& text, int row, int column);

/// What the edit box opens with for a character that was typed: the cell's text for a blank or a control character,
/// the character alone for any other.
std::string OpeningText(const Grid& grid, char32_t typed);

/// Makes sure that there is a cell to edit: a grid of headers alone gets its first row, and a current cell among the
/// headers moves to the first data cell beside it.
void EnsureDataCell(Grid& grid);

/// Takes the text of the edit box into a cell, as the text of the number that it stands for.
/// Returns whether the cell holds another text now.
bool CommitCell(Grid& grid, int row, int column, const std::string& text);

/// Moves the current cell as a key asks, not into the headers and not past the last column.  Going down from the last
/// row adds a row.
void MoveCurrentCell(Grid& grid, CellKey key);

/// Adds a row with its number; the current cell stays.
void AddRowAtBottom(Grid& grid);

} // namespace strutwright
