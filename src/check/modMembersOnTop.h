#pragma once

#include "CheckedTruss.h"
#include "modFindingList.h"

namespace strutwright {

/// Finds members that join the same nodes; each group makes a finding.  Of the first of each group, finds pairs that
/// have a node in common and lie on top of each other, by their numbers.  False where there are too many to find all.
bool FindMembersOnTop(const CheckedTruss& truss, FindingList& findings, LowestPairs& onTop);

} // namespace strutwright
