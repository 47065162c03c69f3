#pragma once

#include "Matrix.h"
#include "TiledMatrix.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace strutwright {

/// Most nodes that can be analysed: their freedoms are counted in 16 bits.
inline constexpr std::int16_t MostAnalysedNodes = 16383;

/// Analyses the model in the tables: displacements, member fields 6 to 9 and reactions.
/// Clears `ok` when the model is empty, too large, names a node that does not exist, or is unstable; each has
/// been reported by then, and forces and reactions are not computed.  Source: docs/method.md.
/// The equations are kept as a TiledMatrix meanwhile; GlobalStiffness comes out empty unless a value was not finite.
void AnalyseTruss(std::int16_t& ok);

/// Creates the working arrays afresh for DofCount freedoms, all zero.
void AllocateAnalysisArrays();

/// Re-creates K for the model, (0..DofCount, 0..DofCount + 1) in kN/mm, and adds every member's matrix to it.
/// A member that MemberStiffness ignores adds its predecessor's matrix at its own freedoms, on purpose; the first
/// member's predecessor is a matrix of zeros.  Source: docs/method.md, 3.
void AssembleGlobalStiffness(Matrix& K);
void AssembleGlobalStiffness(TiledMatrix& K);

/// Writes the applied loads into P (0..DofCount, kN) and adds what the prestress of the members exerts on the nodes.
/// Loads of zero are not written: P should come in zeroed.  Source: docs/method.md, 4.
void BuildLoadVector(std::vector<float>& P);

/// Imposes the supports: R of a restrained freedom becomes its load with the opposite sign, its load zero, `fixed` 1,
/// its row and column zero with 1 on the diagonal.  All vectors: (0..DofCount).  Source: docs/method.md, 5.
void ApplySupports(Matrix& K, std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed);
void ApplySupports(TiledMatrix& K, std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed);

/// The part of ApplySupports that knows no matrix: R, P and `fixed` of every restrained freedom.
void RestrainSupports(std::vector<float>& P, std::vector<float>& R, std::vector<std::int16_t>& fixed);

/// Adds the member forces at supported nodes to Reactions, in kN.  The entries of free directions of such nodes
/// accumulate too and mean nothing.  Source: docs/method.md, 7.
void ComputeReactions();

/// Tells the user that the analysis was given up, and why by a code: 0 no node, 2 unstable.  Clears AnalysisDone.
void ReportAnalysisFailure(int code);

/// Displacement of node n in mm: in x when direction is "x", otherwise in y.
float NodeDisplacement(int n, std::string_view direction);

} // namespace strutwright
