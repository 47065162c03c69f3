#pragma once

#include "CheckReport.h"
#include "CheckedTruss.h"
#include "RefinedSolution.h"

namespace strutwright {

/// Most digits that 32-bit floats can have right.
inline constexpr int MaxDigits = 7;

/// Correct digits of a value with such a relative error, 0 to MaxDigits.  What is no number has none.
int DigitsOf(double error);

/// Compares the results in the tables and arrays of the analysis with the refined ones.
/// Displacements, Reactions and member forces must be those of the model that `truss` was read from.
AccuracyReport CompareResults(const CheckedTruss& truss, const RefinedSolution& refined);

/// How the results of the analysis balance by themselves.  The same must hold.
BalanceReport BalanceResults(const CheckedTruss& truss);

} // namespace strutwright
