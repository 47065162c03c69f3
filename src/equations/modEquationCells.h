#pragma once

#include "Grid.h"

#include <optional>
#include <string>

namespace strutwright {

// What the cells of the equations view's grids hold.  Nothing is stored as text: a cell is formatted when it is asked
// for, so that the matrix of a large truss costs no more than what is seen of it.  Row 0 and column 0 are the headers.
// Naming a cell outside throws GridRangeError.

enum class EquationGrid {
  Force,       ///< grForce: freedoms and loads
  Stiffness,   ///< grK: freedoms by freedoms
  Displacement ///< grDisp: freedoms and displacements
};

/// What the last step left to be seen in a cell.
enum class CellTint {
  None,
  Added,   ///< a member was added here, or here is the label of one of its freedoms
  Cleared, ///< in a row or column that was cleared, or its label
  Solved,  ///< part of the solution, or answered right
  Wrong    ///< answered wrong, and still blank
};

/// "1 x", "1 y", "2 x", ... for freedom 1, 2, 3, ...
std::string FreedomLabel(int freedom);

int EquationRowCount();
int EquationColumnCount(EquationGrid grid);

/// The text of a cell; numbers as "#0.##".
std::string EquationCell(EquationGrid grid, int row, int column);

/// The number in a cell; nothing in a header and where nothing is shown.
std::optional<float> EquationValue(EquationGrid grid, int row, int column);

/// A number as the grids show it, but without a point that no digit follows: for sentences and formulas.
std::string NumberAsShown(float value);

CellTint EquationTint(EquationGrid grid, int row, int column);

} // namespace strutwright
