#pragma once

#include "RowEquations.h"
#include "StiffnessMatrix.h"

#include <vector>

namespace strutwright {

class LongWork;

/// A diagonal entry below this size makes a truss unstable, kN/mm.
inline constexpr float PivotTolerance = 0.0001F;

enum class SolveOutcome { Solved, Unstable };

/// Solves K D = P.  K: kN/mm; P, D: (0..n), entry 0 not used, in kN and mm.  D is untouched unless it is solved.
/// work: learns how far it is; what it throws passes through.
/// Gaussian elimination with row pivoting; every entry is rounded to a 32-bit float after each of its updates.
/// Leaving out entries that are zero changes no bit of the result.  Source: docs/method.md, 5 and 9.
SolveOutcome SolveEquations(const StiffnessMatrix& K, std::vector<float>& D, const std::vector<float>& P,
                            LongWork& work);

/// Whether elimination in tiles is faster within this envelope than row by row.
bool TilesAreFaster(const Envelope& envelope);

// The steps of elimination row by row.

/// Exchanges row p with the one below that has the largest entry in column p; of equal ones the upper is taken.
/// Returns the row that it was; p where none was exchanged.
int BringPivotUp(RowEquations& equations, int p);

/// Subtracts multiples of row p from the rows below it, in the columns after p; column p itself is not cleared.
/// A pivot of exactly zero changes nothing.
void EliminateColumn(RowEquations& equations, int p);

/// False when a diagonal entry is below 0.0001 in size.
bool IsStable(const RowEquations& equations);

/// Turns P into the solution, from the last row up.  The diagonal must hold no zero.
void BackSubstitute(RowEquations& equations);

} // namespace strutwright
