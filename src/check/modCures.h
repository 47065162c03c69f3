#pragma once

#include "CheckReport.h"
#include "CheckedTruss.h"

#include <vector>

namespace strutwright {

/// Most cures that are named for each mechanism.
inline constexpr int MaxCures = 5;

/// Single members or supports that stop a motion, best first.  Whatever works against a motion that the truss leaves
/// free raises the rank by one: its row is no combination of the rows there are, for these do not see the motion.
std::vector<Cure> FindCures(const CheckedTruss& truss, const std::vector<double>& motion);

} // namespace strutwright
