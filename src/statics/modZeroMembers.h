#pragma once

#include "FreeBody.h"
#include "HandTruss.h"

#include <string>
#include <vector>

namespace strutwright {

/// The rules by which a joint shows a member without force.
enum class ZeroRule {
  OnlyMember, ///< nothing else acts at the joint
  TwoMembers, ///< two members that are not in line, and nothing else
  AcrossLine, ///< everything else at the joint lies on one line
};

/// A member that bears nothing, as a joint shows it before any number is known.
struct ZeroMember {
  int member = 0; ///< its number
  int node = 0;   ///< the joint that shows it
  ZeroRule rule = ZeroRule::OnlyMember;
  std::string text; ///< the rule at this joint, in a sentence
};

/// The members without force, in the order in which the rules find them: always at the lowest-numbered joint that shows
/// one.  A member found has left the joints for those that follow.  A roller's reaction lies on a line; a reaction is
/// none where no load has a part in its direction and no other support holds in it.
/// The rules see one joint at a time: what only a section, or a sum of moments, shows is not found.
/// Source: docs/method.md, 15.
std::vector<ZeroMember> FindZeroMembers(const HandTruss& truss);

/// The numbers of the members whose force is none although no rule shows it, ascending.
std::vector<int> ZeroByNumbers(const HandTruss& truss, const HandForces& forces, const std::vector<ZeroMember>& byRule);

} // namespace strutwright
