#pragma once

#include "CheckedTruss.h"
#include "modFindingList.h"

namespace strutwright {

/// Nodes at one place.  Each group makes one finding.
void FindCoincidentNodes(const CheckedTruss& truss, FindingList& findings);

} // namespace strutwright
