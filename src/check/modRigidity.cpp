#include "modRigidity.h"

#include "Motions.h"
#include "modFindingList.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

bool Lacks(int m, MemberField field) { return !(MemberTable(m, field) > 0); }

/// What the members lack: all of them the same, or each one or the other.
std::string WhatIsMissing(const std::vector<int>& members) {
  const auto all = [&members](auto lacks) { return std::all_of(members.begin(), members.end(), lacks); };
  const bool allE = all([](int m) { return Lacks(m, MemberE); });
  const bool allA = all([](int m) { return Lacks(m, MemberA); });
  const bool noneE = all([](int m) { return !Lacks(m, MemberE); });
  const bool noneA = all([](int m) { return !Lacks(m, MemberA); });
  if (allE && allA) return "E and A are";
  if (allE && noneA) return "E is";
  if (allA && noneE) return "A is";
  return "E or A is";
}

std::string MembersText(const std::vector<int>& members) {
  return (members.size() == 1 ? "member " : "members ") + FirstNumbers(members);
}

/// Whether a member without rigidity would work against a motion if it had some.
bool WouldResist(const CheckedTruss& truss, const Motion& motion) {
  return std::any_of(truss.members.begin(), truss.members.end(), [&motion](const CheckedMember& member) {
    return !member.CanCarryForce() && std::abs(Elongation(member, motion)) >= MinElongation;
  });
}

} // namespace

std::vector<int> MembersWithoutRigidity() {
  std::vector<int> members;
  for (int m = 1; m <= MemberCount; ++m) {
    if (Lacks(m, MemberE) || Lacks(m, MemberA)) members.push_back(m);
  }
  return members;
}

std::string RigidityVerdict(const std::vector<int>& members) {
  if (members.empty()) return "";
  const bool one = members.size() == 1;
  return (one ? "Member " : "Members ") + FirstNumbers(members) + (one ? " has" : " have") +
         " no rigidity: " + (one ? "its " : "their ") + WhatIsMissing(members) + " not above zero. ";
}

void ProposeRigidity(const CheckedTruss& truss, CheckReport& report) {
  const std::string text = "Give " + MembersText(report.withoutRigidity) + " an E and an A above zero";
  for (Mechanism& mechanism : report.stability.mechanisms) {
    if (WouldResist(truss, mechanism.motion)) mechanism.cures = {{0, 0, 0, text}};
  }
}

} // namespace strutwright
