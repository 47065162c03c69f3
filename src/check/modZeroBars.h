#pragma once

#include "CheckReport.h"
#include "CheckedTruss.h"
#include "RefinedSolution.h"

#include <vector>

namespace strutwright {

/// The members of a stable truss that bear no force, with the rule that shows it where there is one.  A rule that the
/// refined solution contradicts does not count.  Members that can't carry force are not among them.
std::vector<ZeroBar> FindZeroBars(const CheckedTruss& truss, const RefinedSolution& refined);

} // namespace strutwright
