#pragma once

#include "CheckReport.h"
#include "CheckedTruss.h"

#include <vector>

namespace strutwright {

/// All that is odd about the model: gaps in the grids, nodes at one place, odd places and odd values.
std::vector<Finding> FindOddities(const CheckedTruss& truss);

} // namespace strutwright
