#pragma once

#include "CheckedTruss.h"

#include <vector>

namespace strutwright {

/// The answer of a stable truss, far more exact than the analysis gives it.
struct RefinedSolution {
  std::vector<double> displacements; ///< (0..2 nodeCount), mm
  std::vector<double> forces;        ///< (0..memberCount), kN; 0 for members that can't bear
  std::vector<double> reactions;     ///< (0..2 nodeCount), kN; meaningful at restrained freedoms
  double uncertainty = 1;            ///< of the largest displacement and the balance of the nodes, relative
};

/// Solves the equations of a stable truss: sparse factors of the equilibrated stiffness matrix in double, refined with
/// residuals in long double.  Loads at restrained freedoms go to the reactions.  Source: docs/trust.md, 2.
RefinedSolution Refine(const CheckedTruss& truss);

} // namespace strutwright
