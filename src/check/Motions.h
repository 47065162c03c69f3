#pragma once

#include "CheckedTruss.h"

#include <cmath>
#include <vector>

namespace strutwright {

/// How every freedom moves (0..2 nodeCount), on a scale of no meaning.
using Motion = std::vector<double>;

/// How far a motion takes a node.
inline double Movement(const Motion& motion, int node) {
  return std::hypot(motion[AlongX(node)], motion[AlongY(node)]);
}

/// From what elongation on a member resists a motion, of the motion's largest movement.
inline constexpr double MinElongation = 1e-5;

/// What the rank of the supported equilibrium matrix shows of a truss.
struct Motions {
  int mechanisms = 0; ///< unrestrained freedoms less rank
  int redundants = 0; ///< members that bear less rank
  /// Independent motions that stretch no member and move no support, at most as many as asked for.
  std::vector<Motion> basis;
};

/// Judges by unit directions only, so that neither E nor A nor the size of the truss plays a part.  What is free only
/// because its coordinates were rounded to 32 bits, or only not free because of that, counts as free; what is nearly
/// free in another way does not.  A node without members can move both ways, unless a support holds it.
/// Throws std::runtime_error when memory runs out inside the factorisation.  Source: docs/trust.md, 1.
Motions FindMotions(const CheckedTruss& truss, int mostMotions);

} // namespace strutwright
