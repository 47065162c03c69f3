#include "modZeroMembers.h"

#include "AnalysisState.h"
#include "HandTexts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <set>

namespace strutwright {

namespace {

/// Beside the largest force: what is smaller, only rounding makes differ from none.
constexpr double NoneBesideLargest = 1e-9;

/// Something that may act at a joint.
struct ActingLine {
  ForceLine line;
  int member = -1;  ///< index in the truss; -1 for others
  std::string name; ///< of others: "the load", "the reaction"
};

class ZeroSearch {
 public:
  explicit ZeroSearch(const HandTruss& truss) : Truss(truss), IsZero(truss.members.size(), 0) {
    FindIdleReactions();
    for (int node = 1; node <= truss.nodeCount; ++node) Waiting.insert(node);
  }

  std::vector<ZeroMember> Run() {
    while (!Waiting.empty()) {
      const int node = *Waiting.begin();
      Waiting.erase(Waiting.begin());
      Look(node);
    }
    return std::move(Found);
  }

 private:
  /// Reactions along x, or along y, are none where only one support could bear them and no load has such a part.
  void FindIdleReactions() {
    for (const std::size_t first : {XFreedom(1), YFreedom(1)}) {
      int holds = 0;
      bool isLoaded = false;
      for (std::size_t d = first; d < Truss.fixed.size(); d += 2) {
        holds += Truss.fixed[d];
        isLoaded = isLoaded || Truss.load[d] != 0;
      }
      IsIdle[first == YFreedom(1) ? 1 : 0] = holds == 1 && !isLoaded;
    }
  }

  std::vector<ActingLine> LinesAt(int node) const {
    std::vector<ActingLine> lines;
    const auto at = static_cast<std::size_t>(node);
    for (const int index : Truss.membersAt[at]) {
      if (IsZero[static_cast<std::size_t>(index)] == 0) lines.push_back({Truss.LineAt(index, node), index, ""});
    }
    const double x = Truss.x[at];
    const double y = Truss.y[at];
    if (Truss.HasLoad(node)) {
      const double fx = Truss.load[XFreedom(node)];
      const double fy = Truss.load[YFreedom(node)];
      const double size = std::hypot(fx, fy);
      lines.push_back({{x, y, fx / size, fy / size, 0}, -1, "the load"});
    }
    if (Truss.fixed[XFreedom(node)] != 0 && !IsIdle[0]) lines.push_back({{x, y, 1, 0, 0}, -1, "the reaction in x"});
    if (Truss.fixed[YFreedom(node)] != 0 && !IsIdle[1]) lines.push_back({{x, y, 0, 1, 0}, -1, "the reaction in y"});
    return lines;
  }

  /// Whether all lines but one lie along each other, and that one does not.
  static bool IsAcross(const std::vector<ActingLine>& lines, std::size_t one) {
    const ActingLine* first = nullptr;
    for (std::size_t k = 0; k < lines.size(); ++k) {
      if (k == one) continue;
      if (first == nullptr) first = &lines[k];
      if (!LieAlong(first->line, lines[k].line) || LieAlong(lines[one].line, lines[k].line)) return false;
    }
    return true;
  }

  void Look(int node) {
    const std::vector<ActingLine> lines = LinesAt(node);
    std::vector<std::size_t> zeros;
    for (std::size_t k = 0; k < lines.size(); ++k) {
      if (lines[k].member >= 0 && IsAcross(lines, k)) zeros.push_back(k);
    }
    for (const std::size_t k : zeros) Add(node, lines, k);
  }

  void Add(int node, const std::vector<ActingLine>& lines, std::size_t one) {
    const HandMember& member = Truss.members[static_cast<std::size_t>(lines[one].member)];
    IsZero[static_cast<std::size_t>(lines[one].member)] = 1;
    Waiting.insert(member.i);
    Waiting.insert(member.j);
    const bool areTwo = lines.size() == 2 && lines[0].member >= 0 && lines[1].member >= 0;
    const ZeroRule rule = lines.size() == 1 ? ZeroRule::OnlyMember
                          : areTwo          ? ZeroRule::TwoMembers
                                            : ZeroRule::AcrossLine;
    Found.push_back({member.number, node, rule, TextOf(node, lines, one, rule)});
  }

  std::string TextOf(int node, const std::vector<ActingLine>& lines, std::size_t one, ZeroRule rule) const {
    const std::string name = "member " + NumberOf(lines[one]);
    const std::string at = "At node " + std::to_string(node) + " ";
    const std::string idle = IdleReactionsAt(node);
    if (rule == ZeroRule::OnlyMember) return at + "only " + name + " can bear anything, and nothing pulls at it" + idle;
    if (rule == ZeroRule::TwoMembers) {
      return at + "only members " + NumberOf(lines[0]) + " and " + NumberOf(lines[1]) +
             " can bear anything, and they are not in line" + idle;
    }
    return at + OthersOf(lines, one) + " along one line, and " + name + " goes across it" + idle;
  }

  /// Why reactions of a support were left out.
  std::string IdleReactionsAt(int node) const {
    std::string text;
    const auto add = [&](std::size_t freedom, bool isIdle, const std::string& direction) {
      if (Truss.fixed[freedom] == 0 || !isIdle) return;
      text += "; the reaction in " + direction + " is 0, since no load has a part in " + direction +
              " and no other support holds in it";
    };
    add(XFreedom(node), IsIdle[0], "x");
    add(YFreedom(node), IsIdle[1], "y");
    return text;
  }

  std::string NumberOf(const ActingLine& line) const {
    return std::to_string(Truss.members[static_cast<std::size_t>(line.member)].number);
  }

  std::string OthersOf(const std::vector<ActingLine>& lines, std::size_t one) const {
    std::vector<std::string> names;
    for (std::size_t k = 0; k < lines.size(); ++k) {
      if (k != one) names.push_back(lines[k].member >= 0 ? "member " + NumberOf(lines[k]) : lines[k].name);
    }
    return ListText(names) + (names.size() == 1 ? " acts" : " act");
  }

  const HandTruss& Truss;
  std::vector<char> IsZero; ///< by index in the truss
  bool IsIdle[2] = {false, false};
  std::set<int> Waiting;
  std::vector<ZeroMember> Found;
};

} // namespace

std::vector<ZeroMember> FindZeroMembers(const HandTruss& truss) { return ZeroSearch(truss).Run(); }

std::vector<int> ZeroByNumbers(const HandTruss& truss, const HandForces& forces,
                               const std::vector<ZeroMember>& byRule) {
  std::set<int> shown;
  for (const ZeroMember& zero : byRule) shown.insert(zero.member);
  double largest = 0;
  for (const double force : forces.members) largest = std::max(largest, std::abs(force));
  const double none = std::max(NoneBesideLargest * largest, truss.nothing);
  std::vector<int> numbers;
  for (const HandMember& member : truss.members) {
    const auto at = static_cast<std::size_t>(member.number);
    const bool isNone = forces.memberKnown[at] != 0 && std::abs(forces.members[at]) <= none;
    if (isNone && !shown.contains(member.number)) numbers.push_back(member.number);
  }
  return numbers;
}

} // namespace strutwright
