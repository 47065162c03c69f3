#include "modFindings.h"

#include "modMechanisms.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <string_view>

namespace strutwright {

namespace {

constexpr double LeastArea = 1;      // mm2
constexpr double MostArea = 1e6;     // mm2
constexpr double LeastModulus = 0.1; // kN/mm2
constexpr double MostModulus = 1200; // kN/mm2, that of diamond
constexpr double LeastLength = 0.01; // m
constexpr double MostLength = 1000;  // m

/// "Member 4 has", "Members 1, 2 and 3 have", "Members 1, 2, 3, 4 and 7 more have".
std::string MembersHave(const std::vector<int>& members, std::string_view one, std::string_view several) {
  constexpr std::size_t mostNamed = 4;
  if (members.size() == 1) return "Member " + std::to_string(members[0]) + " " + std::string(one);
  if (members.size() <= mostNamed) return "Members " + ListedNumbers(members) + " " + std::string(several);
  std::string text = "Members ";
  for (std::size_t k = 0; k < mostNamed; ++k) text += (k > 0 ? ", " : "") + std::to_string(members[k]);
  return text + " and " + std::to_string(members.size() - mostNamed) + " more " + std::string(several);
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
    if (meant >= 1 && meant <= MostModulus) {
      return "; was it typed in " + std::string(name) + " (" + Text(meant) + " kN/mm2)?";
    }
  }
  return ", far out of the usual";
}

constexpr const char* Ignored = " and is ignored: the analysis adds the stiffness of an earlier member in its place";
constexpr const char* SeveralIgnored =
    " and are ignored: the analysis adds the stiffness of an earlier member in their place";

/// What a modulus or an area below or at zero does.
std::string BearsNothing(const std::vector<int>& members, const std::string& what, float value) {
  const bool one = members.size() == 1;
  const std::string text = MembersHave(members, "has ", "have ") + what + " " + NumberText(value);
  if (value < 0) return text + (one ? Ignored : SeveralIgnored);
  return text + (one ? " and bears nothing" : " and bear nothing");
}

std::map<float, std::vector<int>> MembersByValue(MemberField field) {
  std::map<float, std::vector<int>> members;
  for (int m = 1; m <= MemberCount; ++m) members[MemberTable(m, field)].push_back(m);
  return members;
}

void JudgeModuli(std::vector<Finding>& findings) {
  for (const auto& [E, members] : MembersByValue(MemberE)) {
    if (!(E > 0)) findings.push_back({FindingKind::BadModulus, BearsNothing(members, "E =", E), {}, members});
    if (!(E > 0) || (E >= LeastModulus && E <= MostModulus)) continue;
    findings.push_back({FindingKind::UnusualModulus,
                        MembersHave(members, "has", "have") + " an E of " + NumberText(E) + " kN/mm2" + ModulusHint(E),
                        {},
                        members});
  }
}

void JudgeAreas(std::vector<Finding>& findings) {
  for (const auto& [A, members] : MembersByValue(MemberA)) {
    if (!(A > 0)) findings.push_back({FindingKind::BadArea, BearsNothing(members, "A =", A), {}, members});
    if (!(A > 0) || (A >= LeastArea && A <= MostArea)) continue;
    const std::string hint =
        A < LeastArea ? "; was it typed in m2 (" + Text(1e6 * A) + " mm2)?" : ", over a square metre";
    findings.push_back({FindingKind::UnusualArea,
                        MembersHave(members, "has", "have") + " an area of " + NumberText(A) + " mm2" + hint,
                        {},
                        members});
  }
}

bool Exists(int node) { return node >= 1 && node <= NodeCount; }

void JudgeNodes(int m, std::vector<Finding>& findings) {
  const std::string member = "Member " + std::to_string(m);
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  for (const int node : {i, j}) {
    if (Exists(node)) continue;
    findings.push_back({FindingKind::BadNodeNumber,
                        member + " names node " + std::to_string(node) + ", which does not exist",
                        {},
                        {m}});
  }
  if (!Exists(i) || !Exists(j)) return;
  if (i == j) {
    const std::string text = member + " joins node " + std::to_string(i) + " to itself" + Ignored;
    findings.push_back({FindingKind::NoLength, text, {i}, {m}});
  } else if (NodeTable(i, NodeX) == NodeTable(j, NodeX) && NodeTable(i, NodeY) == NodeTable(j, NodeY)) {
    const auto [low, high] = std::minmax(i, j);
    const std::string text = member + " has no length between nodes " + ListedNumbers({low, high}) + Ignored;
    findings.push_back({FindingKind::NoLength, text, {low, high}, {m}});
  }
}

void JudgeLengths(const CheckedTruss& truss, std::vector<Finding>& findings) {
  std::vector<int> shorter;
  std::vector<int> longer;
  for (const CheckedMember& member : truss.members) {
    if (member.length < 1000 * LeastLength) shorter.push_back(member.number);
    if (member.length > 1000 * MostLength) longer.push_back(member.number);
  }
  if (!longer.empty()) {
    findings.push_back({FindingKind::UnusualLength,
                        MembersHave(longer, "is", "are") + " longer than 1000 m; were the coordinates typed in mm?",
                        {},
                        longer});
  }
  if (!shorter.empty()) {
    findings.push_back(
        {FindingKind::UnusualLength, MembersHave(shorter, "is", "are") + " shorter than 10 mm", {}, shorter});
  }
}

/// Keeps so many findings of each kind, and says in one more how many there were.
std::vector<Finding> Shortened(const std::vector<Finding>& findings) {
  std::map<FindingKind, std::size_t> counts;
  std::vector<Finding> kept;
  for (const Finding& finding : findings) {
    if (++counts[finding.kind] <= MostFindingsOfAKind) kept.push_back(finding);
  }
  for (const auto& [kind, count] : counts) {
    if (count <= MostFindingsOfAKind) continue;
    const auto last = std::find_if(kept.rbegin(), kept.rend(), [k = kind](const Finding& f) { return f.kind == k; });
    const std::string more = std::to_string(count - MostFindingsOfAKind);
    kept.insert(last.base(), Finding{kind, "And " + more + " more of this kind", {}, {}});
  }
  return kept;
}

} // namespace

std::vector<Finding> FindOddValues(const CheckedTruss& truss) {
  std::vector<Finding> findings;
  for (int m = 1; m <= MemberCount; ++m) JudgeNodes(m, findings);
  JudgeModuli(findings);
  JudgeAreas(findings);
  JudgeLengths(truss, findings);
  return findings;
}

std::vector<Finding> FindOddities(const CheckedTruss& truss) {
  std::vector<Finding> findings = FindOddPlaces(truss);
  const std::vector<Finding> values = FindOddValues(truss);
  findings.insert(findings.end(), values.begin(), values.end());
  return Shortened(findings);
}

} // namespace strutwright
