#pragma once

#include "CheckedTruss.h"
#include "modFindingList.h"

#include <vector>

namespace strutwright {

/// What is odd about places: members on top of or across each other, nodes on members that they do not belong to,
/// nodes that no member names; not nodes at one place.
void FindOddPlaces(const CheckedTruss& truss, FindingList& findings);

/// Numbers of the members in MemberTable that are not in the truss.
std::vector<int> LeftOutMembers(const CheckedTruss& truss);

} // namespace strutwright
