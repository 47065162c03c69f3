#pragma once

#include "FreeBody.h"
#include "modBalance.h"

#include <string>
#include <vector>

namespace strutwright {

/// The reactions found before any member, from the whole truss cut free and, where there are more than three, from the
/// hinges at which it comes apart.
struct ReactionsFirst {
  bool found = false;
  FreeBody body;                       ///< the whole truss, its reactions unknown
  std::vector<HandEquation> equations; ///< in the order in which they are solved; unknowns by index in `body`
  std::vector<std::string> solution;   ///< "R1y = 10 kN", in the order in which they are found
  std::vector<int> hinges;             ///< nodes about which a part was taken
  std::string whyNot;                  ///< why they don't come first; empty where they do
};

/// Finds the reactions and puts them into `forces`.  A mechanism must have been sorted out before.
/// Where they can't be found first, `forces` stays as it is.  Source: docs/method.md, 12.
ReactionsFirst FindReactionsFirst(const HandTruss& truss, HandForces& forces);

} // namespace strutwright
