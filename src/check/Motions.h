#pragma once

#include "CheckedTruss.h"

#include <vector>

namespace strutwright {

/// What the rank of the supported equilibrium matrix shows of a truss.
struct Motions {
  int mechanisms = 0; ///< unrestrained freedoms less rank
  int redundants = 0; ///< members that bear less rank
  /// Independent motions (0..2 nodeCount) that stretch no member and move no support, at most as many as asked for.
  std::vector<std::vector<double>> basis;
};

/// Judges by unit directions only, so that neither E nor A nor the size of the truss plays a part.  What is free only
/// because its coordinates were rounded to 32 bits, or only not free because of that, counts as free; what is nearly
/// free in another way does not.  A node without members can move both ways, unless a support holds it.
/// Throws std::runtime_error when memory runs out inside the factorisation.  Source: docs/trust.md, 1.
Motions FindMotions(const CheckedTruss& truss, int mostMotions);

} // namespace strutwright
