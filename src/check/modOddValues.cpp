#include "modOddValues.h"

#include "modEntryGaps.h"
#include "modMechanisms.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modOddPlaces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace strutwright {

namespace {

constexpr double MinArea = 1;       // mm2
constexpr double MaxArea = 1e6;     // mm2
constexpr double MinModulus = 0.1;  // kN/mm2
constexpr double MaxModulus = 1200; // kN/mm2, that of diamond
constexpr double MinLength = 0.01;  // m
constexpr double MaxLength = 1000;  // m

/// "Member 4 has", "Members 1, 2 and 3 have", "Members 1, 2, 3, 4 and 7 more have".
std::string MembersHave(const std::vector<int>& members, std::string_view one, std::string_view several) {
  const bool single = members.size() == 1;
  return (single ? "Member " : "Members ") + FirstNumbers(members) + " " + std::string(single ? one : several);
}

std::string Text(double value) { return NumberText(static_cast<float>(value)); }

std::string ModulusHint(double E) {
  struct Unit {
    double factor;
    const char* name;
  };
  constexpr std::array<Unit, 3> units{{{1e3, "N/mm2"}, {1e6, "kN/m2"}, {1e9, "N/m2"}}};
  for (const auto& [factor, name] : units) {
    const double meant = E / factor;
    if (meant >= 1 && meant <= MaxModulus) {
      return "; was it typed in " + std::string(name) + " (" + Text(meant) + " kN/mm2)?";
    }
  }
  return ", far out of the usual";
}

bool Exists(int node) { return node >= 1 && node <= NodeCount; }

int NodeI(int m) { return RoundNodeNumber(MemberTable(m, MemberNodeI)); }
int NodeJ(int m) { return RoundNodeNumber(MemberTable(m, MemberNodeJ)); }

bool HasNodes(int m) { return Exists(NodeI(m)) && Exists(NodeJ(m)); }

/// Whether a member that is not in the truss has a length all the same, from or to node 0: the analysis computes its
/// matrix and adds it nowhere.
bool HasLength(int m) {
  const auto [low, high] = std::minmax({NodeI(m), NodeJ(m)});
  return low >= 0 && high <= NodeCount && MemberLength(m) > 0;
}

/// The member whose stiffness the analysis adds for each ignored one: the last before it that was computed, 0 where
/// there is none.
std::vector<int> StandIns(const CheckedTruss& truss) {
  std::vector<char> isLeftOut(At(MemberCount) + 1, 0);
  for (const int m : LeftOutMembers(truss)) isLeftOut[At(m)] = 1;
  std::vector<int> standIns(At(MemberCount) + 1, 0);
  int last = 0;
  for (int m = 1; m <= MemberCount; ++m) {
    standIns[At(m)] = last;
    if (MemberTable(m, MemberE) < 0 || MemberTable(m, MemberA) < 0) continue;
    if (isLeftOut[At(m)] == 0 || HasLength(m)) last = m;
  }
  return standIns;
}

/// What becomes of a member that bears nothing.
enum class Fate {
  WithoutStiffness,
  Nowhere,   ///< ignored, and nothing is added since it has no two nodes
  Cancelled, ///< ignored, and what is added to one node by itself cancels
  Zeros,     ///< ignored, and zeros are added
  Replaced,  ///< ignored, and another member's stiffness is added
};

Fate FateOfIgnored(int m, const std::vector<int>& standIns) {
  if (!HasNodes(m)) return Fate::Nowhere;
  if (NodeI(m) == NodeJ(m)) return Fate::Cancelled;
  return standIns[At(m)] == 0 ? Fate::Zeros : Fate::Replaced;
}

/// "the stiffness of member 3 in its place".
std::string Replacement(const std::vector<int>& members, const std::vector<int>& standIns) {
  const int standIn = standIns[At(members.front())];
  const bool allAlike = std::all_of(members.begin(), members.end(), [&](int m) { return standIns[At(m)] == standIn; });
  if (!allAlike) return "the stiffness of the last valid member before each in its place";
  return "the stiffness of member " + std::to_string(standIn) + " in " + (members.size() == 1 ? "its" : "their") +
         " place";
}

/// " and is ignored: the analysis adds the stiffness of member 3 in its place".
std::string FateText(Fate fate, const std::vector<int>& members, const std::vector<int>& standIns) {
  const bool one = members.size() == 1;
  if (fate == Fate::WithoutStiffness) return one ? " and bears nothing" : " and bear nothing";
  std::string ignored = one ? " and is ignored" : " and are ignored";
  switch (fate) {
  case Fate::Cancelled: return ignored + ", which changes nothing";
  case Fate::Zeros: return ignored + ": the analysis adds nothing in " + (one ? "its" : "their") + " place";
  case Fate::Replaced: return ignored + ": the analysis adds " + Replacement(members, standIns);
  default: return ignored;
  }
}

/// The prestress that acts on the nodes of a member, kN; whether it bears is not asked.
float ActingPrestress(int m) { return HasNodes(m) && MemberLength(m) > 0 ? MemberTable(m, MemberPS) : 0.0F; }

std::string PrestressText(float prestress, Fate fate, bool one) {
  if (prestress == 0) return "";
  const std::string its = one ? "its" : "their";
  return (fate == Fate::WithoutStiffness ? ", but " : ", and ") + its + " prestress of " + NumberText(prestress) +
         " kN acts on " + its + " nodes";
}

/// A modulus or an area below or at zero, and what comes of it.
struct BadValue {
  float value = 0;
  Fate fate = Fate::WithoutStiffness;
  float prestress = 0;

  bool operator<(const BadValue& other) const {
    return std::tie(value, fate, prestress) < std::tie(other.value, other.fate, other.prestress);
  }
};

/// Judges a field that should be above zero; `name` is what stands before its value.
void JudgeSign(MemberField field, FindingKind kind, const std::string& name, const std::vector<int>& standIns,
               FindingList& findings) {
  std::map<BadValue, std::vector<int>> bad;
  for (int m = 1; m <= MemberCount; ++m) {
    const float value = MemberTable(m, field);
    if (value > 0) continue;
    const Fate fate = value < 0 ? FateOfIgnored(m, standIns) : Fate::WithoutStiffness;
    bad[{value, fate, ActingPrestress(m)}].push_back(m);
  }
  for (const auto& [what, members] : bad) {
    findings.Add(kind, [&, what = what, &group = members] {
      const std::string text = MembersHave(group, "has ", "have ") + name + " = " + NumberText(what.value) +
                               FateText(what.fate, group, standIns) +
                               PrestressText(what.prestress, what.fate, group.size() == 1);
      return Finding{kind, text, {}, group};
    });
  }
}

/// The members with a value above zero, to each value.
std::map<float, std::vector<int>> MembersByValue(MemberField field) {
  std::map<float, std::vector<int>> members;
  for (int m = 1; m <= MemberCount; ++m) {
    const float value = MemberTable(m, field);
    if (value > 0) members[value].push_back(m);
  }
  return members;
}

void JudgeModuli(const std::vector<int>& standIns, FindingList& findings) {
  JudgeSign(MemberE, FindingKind::BadModulus, "E", standIns, findings);
  for (const auto& [E, members] : MembersByValue(MemberE)) {
    if (E >= MinModulus && E <= MaxModulus) continue;
    findings.Add(FindingKind::UnusualModulus, [E = E, &members = members] {
      const std::string text = MembersHave(members, "has", "have") + " an E of " + NumberText(E) + " kN/mm2";
      return Finding{FindingKind::UnusualModulus, text + ModulusHint(E), {}, members};
    });
  }
}

void JudgeAreas(const std::vector<int>& standIns, FindingList& findings) {
  JudgeSign(MemberA, FindingKind::BadArea, "A", standIns, findings);
  for (const auto& [A, members] : MembersByValue(MemberA)) {
    if (A >= MinArea && A <= MaxArea) continue;
    findings.Add(FindingKind::UnusualArea, [A = A, &members = members] {
      const std::string text = MembersHave(members, "has", "have") + " an area of " + NumberText(A) + " mm2";
      const std::string hint =
          A < MinArea ? "; was it typed in m2 (" + Text(1e6 * A) + " mm2)?" : ", over a square metre";
      return Finding{FindingKind::UnusualArea, text + hint, {}, members};
    });
  }
}

void JudgeNumber(int m, MemberField field, FindingList& findings) {
  findings.Add(FindingKind::BadNodeNumber, [m, field] {
    const std::string number = NumberText(std::nearbyint(MemberTable(m, field)));
    const std::string text = "Member " + std::to_string(m) + " names node " + number + ", which does not exist";
    return Finding{FindingKind::BadNodeNumber, text, {}, {m}};
  });
}

/// "node 2 to itself", "no length between nodes 1 and 4".
std::string NoLengthText(int m) {
  const auto [low, high] = std::minmax({NodeI(m), NodeJ(m)});
  const std::string member = "Member " + std::to_string(m);
  if (low == high) return member + " joins node " + std::to_string(low) + " to itself";
  return member + " has no length between nodes " + ListedNumbers({low, high});
}

void JudgeNodes(int m, const std::vector<int>& standIns, FindingList& findings) {
  const bool sameNumber = NodeI(m) == NodeJ(m);
  if (!Exists(NodeI(m))) JudgeNumber(m, MemberNodeI, findings);
  if (!Exists(NodeJ(m)) && !sameNumber) JudgeNumber(m, MemberNodeJ, findings);
  if (!HasNodes(m) || MemberLength(m) > 0) return;
  findings.Add(FindingKind::NoLength, [&] {
    const auto [low, high] = std::minmax({NodeI(m), NodeJ(m)});
    const std::vector<int> nodes = sameNumber ? std::vector<int>{low} : std::vector<int>{low, high};
    return Finding{
        FindingKind::NoLength, NoLengthText(m) + FateText(FateOfIgnored(m, standIns), {m}, standIns), nodes, {m}};
  });
}

void JudgeLengths(const CheckedTruss& truss, FindingList& findings) {
  std::vector<int> shorter;
  std::vector<int> longer;
  for (const CheckedMember& member : truss.members) {
    if (member.length < 1000 * MinLength) shorter.push_back(member.number);
    if (member.length > 1000 * MaxLength) longer.push_back(member.number);
  }
  const auto add = [&findings](const std::vector<int>& members, const std::string& what) {
    if (members.empty()) return;
    findings.Add(FindingKind::UnusualLength, [&] {
      return Finding{FindingKind::UnusualLength, MembersHave(members, "is", "are") + what, {}, members};
    });
  };
  add(longer, " longer than 1000 m; were the coordinates typed in mm?");
  add(shorter, " shorter than 10 mm");
}

} // namespace

void FindOddValues(const CheckedTruss& truss, FindingList& findings) {
  const std::vector<int> standIns = StandIns(truss);
  for (const int m : LeftOutMembers(truss)) JudgeNodes(m, standIns, findings);
  JudgeModuli(standIns, findings);
  JudgeAreas(standIns, findings);
  JudgeLengths(truss, findings);
}

} // namespace strutwright
