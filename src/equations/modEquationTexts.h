#pragma once

#include "EquationsState.h"

#include <string>

namespace strutwright {

// The equations view in words.

/// What the last press did, and why, in one sentence.
std::string StepDoneText(const EquationPage& page = TheEquations.page);

/// What to press next, and what it will do.
std::string StepToComeText();

/// Where a cell of K comes from, member by member, for example
/// "K(3 x, 3 x) = 75 (member 1) + 64 (member 3) = 139 kN/mm"; empty for headers and where nothing is shown.
/// Numbers as in the grid, without a point that no digit follows.
std::string CellOrigin(int row, int column);

} // namespace strutwright
