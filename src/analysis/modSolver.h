#pragma once

#include "Matrix.h"
#include "TiledMatrix.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace strutwright {

/// A diagonal entry below this size makes a truss unstable, kN/mm.
inline constexpr float PivotTolerance = 0.0001F;

// Gaussian elimination with row pivoting on K (0..n, 0..n + 1), whose column n + 1 is the right-hand side.
// Every entry is rounded to a 32-bit float after each of its updates.  Source: docs/method.md, 5.

/// Solves K D = P for n freedoms.
/// K is destroyed.  D, P: (0..n), entry 0 not used; K in kN/mm, P in kN, D in mm.
/// Unstable: reports it with code 2, clears `ok` and leaves D untouched; otherwise `ok` stays as it was.
void SolveEquations(Matrix& K, std::vector<float>& D, const std::vector<float>& P, std::int16_t n, std::int16_t& ok);

/// The same, to the last bit, for equations that hold little else than zeros; P goes into their last column.
/// inFull: makes the same K anew, (0..n, 0..n + 1).  It is asked where a value is no finite number: GlobalStiffness
/// takes what it makes and is solved as above.
void SolveEquations(TiledMatrix& K, std::vector<float>& D, const std::vector<float>& P, std::int16_t n,
                    std::int16_t& ok, const std::function<Matrix()>& inFull);

/// How much of the elimination of n freedoms is done before column p, 0..1, if every entry costs the same.
double ShareOfElimination(int p, int n);

/// Subtracts multiples of row p from the rows below it, in columns p + 1..n + 1; column p itself is not cleared.
/// A pivot of exactly zero changes nothing.
void EliminateColumn(Matrix& K, std::int16_t p, std::int16_t n);

/// False when a diagonal entry is below 0.0001 in size.
bool IsStable(const Matrix& K, std::int16_t n);

/// Turns column n + 1 into the solution, from the last row up.  The diagonal must hold no zero.
void BackSubstitute(Matrix& K, std::int16_t n);

} // namespace strutwright
