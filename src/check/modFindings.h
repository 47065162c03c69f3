#pragma once

#include "CheckReport.h"
#include "CheckedTruss.h"

#include <vector>

namespace strutwright {

/// Most findings of one kind; what goes beyond is counted in one more.
inline constexpr std::size_t MostFindingsOfAKind = 50;

/// What is odd about the places of nodes and members: nodes at one place, members on top of or across each other,
/// nodes on members that they do not belong to, nodes without members.
std::vector<Finding> FindOddPlaces(const CheckedTruss& truss);

/// What is odd about the values in MemberTable: nodes that do not exist, no length, E or A that bears nothing or is far
/// out of the usual.  Members with the same odd value make one finding.
std::vector<Finding> FindOddValues(const CheckedTruss& truss);

/// Both, at most MostFindingsOfAKind of each kind.
std::vector<Finding> FindOddities(const CheckedTruss& truss);

} // namespace strutwright
