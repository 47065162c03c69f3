#pragma once

#include "Grid.h"
#include "modEquationCells.h"

namespace strutwright {

/// Most cells that are copied at once: a text of more would choke every program that it is pasted into.
inline constexpr long long MaxCopiedCells = 4000000;

/// Puts a block of cells on the clipboard: as shown, cells separated by tabs, rows by carriage returns, with an HTML
/// table beside it; with every digit, rows ended as spreadsheets take them; or as a LaTeX bmatrix of what is shown.
/// A block of more than MaxCopiedCells is refused with a message.
void CopyCells(EquationGrid grid, const GridBlock& block);
void CopyCellsInFullPrecision(EquationGrid grid, const GridBlock& block);
void CopyCellsAsLatex(EquationGrid grid, const GridBlock& block);

} // namespace strutwright
