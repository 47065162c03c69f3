#pragma once

#include "CheckedTruss.h"
#include "modFindingList.h"

namespace strutwright {

/// What is odd about the values in MemberTable: nodes that do not exist, no length, E or A that bears nothing or is far
/// out of the usual.  Members with the same odd value make one finding.
void FindOddValues(const CheckedTruss& truss, FindingList& findings);

} // namespace strutwright
