#pragma once

#include "CheckedTruss.h"

#include <vector>

namespace strutwright {

/// What the rank of the supported equilibrium matrix tells of a truss.
struct Motions {
  int mechanisms = 0; ///< unrestrained freedoms less rank
  int redundants = 0; ///< members that bear less rank
  /// Independent motions (0..2 nodeCount) that stretch no member and move no support, at most as many as asked for.
  std::vector<std::vector<double>> basis;
};

/// Judges by unit directions only, so that neither E nor A nor the size of the truss plays a part.
/// A column of the matrix that lies closer than 1e-6 to the others' span counts as dependent: that is ten times what
/// 32-bit coordinates leave open, and a thousandth of a chain that sags by a thousandth of its span.
/// A node without members can move both ways, unless a support holds it.  Source: docs/trust.md, 1.
Motions FindMotions(const CheckedTruss& truss, int mostMotions);

} // namespace strutwright
