#pragma once

#include "HandTruss.h"

#include <cstddef>
#include <string>
#include <vector>

namespace strutwright {

/// The spaces that the members of a truss without crossings divide the plane into.  A member has two sides: half 2m
/// runs along the member of index m from i to j and half 2m + 1 back; the space of a half lies on its left.
struct PlanarTruss {
  std::vector<std::vector<int>> around; ///< (0..nodeCount): the halves that leave a node, clockwise
  std::vector<int> faceOf;              ///< of each half
  std::vector<std::vector<int>> faces;  ///< the halves round each space, in the order in which they follow each other
  int outer = 0;                        ///< the face that has no end

  static int Twin(int half) { return half ^ 1; }
};

/// Why the truss has no such spaces: members that cross or lie on each other, nodes on members or at one place, nodes
/// without members, parts that do not hang together.  Empty where it has them.
std::string WhyNotPlanar(const HandTruss& truss);

/// Finds the spaces.  WhyNotPlanar must be empty.
PlanarTruss FindSpaces(const HandTruss& truss);

/// The node that a half leaves, and the one that it comes to.
int TailOf(const HandTruss& truss, int half);
int HeadOf(const HandTruss& truss, int half);

/// The half's line as it leaves its node.
ForceLine LineOfHalf(const HandTruss& truss, int half);

} // namespace strutwright
