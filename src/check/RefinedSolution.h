#pragma once

#include "CheckedTruss.h"

#include <memory>
#include <vector>

namespace strutwright {

/// The answer of a stable truss, far more exact than the analysis gives it.
struct RefinedSolution {
  std::vector<double> displacements; ///< (0..2 nodeCount), mm
  std::vector<double> forces;        ///< (0..memberCount), kN; 0 for members that can't bear
  std::vector<double> reactions;     ///< (0..2 nodeCount), kN; meaningful at restrained freedoms
  double uncertainty = 1;            ///< of the largest displacement and the balance of the nodes, relative
};

/// The equations of a stable truss, factorised once for all loads that they are solved for: sparse factors of the
/// equilibrated stiffness matrix in double.  Source: docs/trust.md, 2.
class FactoredTruss {
 public:
  explicit FactoredTruss(CheckedTruss truss);
  ~FactoredTruss();
  FactoredTruss(FactoredTruss&&) noexcept;
  FactoredTruss& operator=(FactoredTruss&&) noexcept;

  const CheckedTruss& Truss() const;

  /// Solves for loads P (0..2 nodeCount) in kN, refined with residuals in long double.  Loads at restrained freedoms
  /// go to the reactions.  Prestress counts in the forces of its members; what it exerts on the nodes belongs to P.
  /// Where there are no factors, displacements are 0 and the uncertainty is 1.
  RefinedSolution Solve(const std::vector<double>& P) const;

 private:
  struct Parts;
  std::unique_ptr<const Parts> Factored;
};

/// The answer of a stable truss to its own loads and prestress.
RefinedSolution Refine(const CheckedTruss& truss);

} // namespace strutwright
