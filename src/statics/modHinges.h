#pragma once

#include "HandTruss.h"

#include <vector>

namespace strutwright {

/// A part of the truss that hangs together with the rest at one node only, and has a support of its own.
struct HingePart {
  int hinge = 0;
  std::vector<int> nodes; ///< ascending, without the hinge
};

/// The parts at every node where the members come apart when it is taken out, at most as many as a hand would try.
std::vector<HingePart> PartsAtHinges(const HandTruss& truss);

} // namespace strutwright
