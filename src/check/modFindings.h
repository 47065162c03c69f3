#pragma once

#include "CheckReport.h"
#include "CheckedTruss.h"
#include "modFindingList.h"

#include <vector>

namespace strutwright {

/// Nodes at one place.  Each group makes one finding.
void FindCoincidentNodes(const CheckedTruss& truss, FindingList& findings);

/// What else is odd about places: members on top of or across each other, nodes on members that they do not belong to,
/// nodes that no member names.
void FindOddPlaces(const CheckedTruss& truss, FindingList& findings);

/// Numbers of the members in MemberTable that are not in the truss.
std::vector<int> LeftOutMembers(const CheckedTruss& truss);

/// What is odd about the values in MemberTable: nodes that do not exist, no length, E or A that bears nothing or is far
/// out of the usual.  Members with the same odd value make one finding.
void FindOddValues(const CheckedTruss& truss, FindingList& findings);

/// All of these, and before them the gaps of the grids.
std::vector<Finding> FindOddities(const CheckedTruss& truss);

} // namespace strutwright
