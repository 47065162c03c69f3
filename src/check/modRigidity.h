#pragma once

#include "CheckReport.h"
#include "CheckedTruss.h"

#include <string>
#include <vector>

namespace strutwright {

// Members that resist nothing because E or A is not above zero, as members have that were drawn and not yet given any.

/// Their numbers, from MemberTable, ascending.
std::vector<int> MembersWithoutRigidity();

/// "Members 1 and 2 have no rigidity: their E and A are not above zero. "; empty for no member.
/// members: as MembersWithoutRigidity gives them.
std::string RigidityVerdict(const std::vector<int>& members);

/// Makes rigidity the one cure of every mechanism that members without any would stop if they had some.
/// report: of this truss, with its stability and its members without rigidity.
void ProposeRigidity(const CheckedTruss& truss, CheckReport& report);

} // namespace strutwright
