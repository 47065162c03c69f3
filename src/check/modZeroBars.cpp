#include "modZeroBars.h"

#include "CheckedTruss.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <deque>
#include <numeric>
#include <string>
#include <vector>

namespace strutwright {

namespace {

constexpr double MinContradiction = 1e-6; // of the largest force: one beyond this contradicts a rule
constexpr double MaxContradiction = 1e-4;
constexpr double ZeroBySolution = 1e-7; // of the largest force: below what 32-bit coordinates can show

/// A force at a node: of a member, a load or a support.
struct ForceLine {
  Direction direction;
  std::size_t member = NoMember; ///< index in the truss
};

using ForcesAlongLine = std::vector<ForceLine>;

/// Loads are 32-bit floats, too: what rounding may have turned them by.
constexpr double LoadDoubt = 6e-8;

/// From what share of the largest force on a force contradicts a rule: rounded directions leave a little in members
/// that were meant to be without.
double Contradiction(const CheckedTruss& truss) {
  double doubt = 0;
  for (const CheckedMember& member : truss.members) doubt = std::max(doubt, member.doubt);
  return std::clamp(10 * doubt, MinContradiction, MaxContradiction);
}

/// Rules out members joint by joint, until no rule shows any more.
class JointRules {
 public:
  explicit JointRules(const CheckedTruss& checked) : Truss(checked), Reasons(checked.members.size()) {
    MembersAt.resize(At(Truss.nodeCount) + 1);
    for (std::size_t m = 0; m < Truss.members.size(); ++m) {
      MembersAt[At(Truss.members[m].i)].push_back(m);
      MembersAt[At(Truss.members[m].j)].push_back(m);
    }
  }

  /// The reason of each member of the truss; empty where no rule shows it to be zero.
  std::vector<std::string> Apply() {
    Waiting.resize(At(Truss.nodeCount));
    std::iota(Waiting.begin(), Waiting.end(), 1);
    while (!Waiting.empty()) {
      const int node = Waiting.front();
      Waiting.pop_front();
      Judge(node);
    }
    RuleOutUnreached();
    return Reasons;
  }

 private:
  bool IsOut(std::size_t m) const { return !Reasons[m].empty() || !Truss.members[m].CanCarryForce(); }

  /// Load in the directions in which the node is free.
  double FreeLoad(int node, bool alongX) const {
    const std::size_t freedom = alongX ? AlongX(node) : AlongY(node);
    return Truss.fixed[freedom] != 0 ? 0 : Truss.load[freedom];
  }

  bool HasLoad(int node) const { return FreeLoad(node, true) != 0 || FreeLoad(node, false) != 0; }

  std::vector<ForceLine> ForcesAt(int node) const {
    std::vector<ForceLine> forces;
    for (const std::size_t m : MembersAt[At(node)]) {
      const CheckedMember& member = Truss.members[m];
      if (!IsOut(m)) forces.push_back({member.Towards(), m});
    }
    const double x = FreeLoad(node, true);
    const double y = FreeLoad(node, false);
    if (HasLoad(node)) forces.push_back({{x / std::hypot(x, y), y / std::hypot(x, y), LoadDoubt}});
    if (Truss.fixed[AlongX(node)] != 0) forces.push_back({{1, 0}});
    if (Truss.fixed[AlongY(node)] != 0) forces.push_back({{0, 1}});
    return forces;
  }

  std::vector<ForcesAlongLine> GroupsOf(const std::vector<ForceLine>& forces) const {
    std::vector<ForcesAlongLine> groups;
    for (const ForceLine& force : forces) {
      auto group = std::find_if(groups.begin(), groups.end(), [&force](const ForcesAlongLine& each) {
        return AreInLine(each.front().direction, force.direction);
      });
      if (group == groups.end()) group = groups.insert(groups.end(), ForcesAlongLine{});
      group->push_back(force);
    }
    return groups;
  }

  // Forces along two lines balance only if those along each line do; so one that is alone on its line is zero.
  void Judge(int node) {
    const std::vector<ForcesAlongLine> groups = GroupsOf(ForcesAt(node));
    if (groups.size() > 2) return;
    std::vector<std::size_t> zero;
    for (const ForcesAlongLine& group : groups) {
      if (group.size() == 1 && group.front().member != NoMember) zero.push_back(group.front().member);
    }
    const std::string reason = zero.empty() ? "" : ReasonAt(node, groups, zero.size());
    for (const std::size_t m : zero) RuleOut(m, reason);
  }

  void RuleOut(std::size_t m, const std::string& reason) {
    Reasons[m] = reason;
    Waiting.push_back(Truss.members[m].i);
    Waiting.push_back(Truss.members[m].j);
  }

  std::string ReasonAt(int node, const std::vector<ForcesAlongLine>& groups, std::size_t zeroCount) const {
    const auto& members = MembersAt[At(node)];
    const bool anyOut = std::any_of(members.begin(), members.end(), [this](std::size_t m) { return IsOut(m); });
    const std::string besides = anyOut ? " besides members without force" : "";
    const std::string place = "Node " + std::to_string(node);
    if (groups.size() == 1) return place + " has no load and no other member" + besides;
    if (zeroCount == 2) return place + " has no load and only two members, not in line" + besides;
    const ForcesAlongLine& others = groups[groups[0].size() == 1 && groups[0][0].member != NoMember ? 1 : 0];
    const bool twoMembers = others.size() == 2 && others[0].member != NoMember && others[1].member != NoMember;
    if (twoMembers) return place + " has no load, and its other two members are in line" + besides;
    return "All other forces at node " + std::to_string(node) + " act along one line" + besides;
  }

  /// Parts of the truss that hang together by nodes that can move.
  void RuleOutUnreached() {
    std::vector<char> seen(Truss.members.size(), 0);
    for (std::size_t m = 0; m < Truss.members.size(); ++m) {
      if (seen[m] != 0 || IsOut(m)) continue;
      bool loaded = false;
      const std::vector<std::size_t> part = PartOf(m, seen, loaded);
      if (loaded) continue;
      for (const std::size_t member : part) Reasons[member] = "No load or prestress reaches it";
    }
  }

  std::vector<std::size_t> PartOf(std::size_t first, std::vector<char>& seen, bool& loaded) const {
    std::vector<std::size_t> part{first};
    seen[first] = 1;
    for (std::size_t k = 0; k < part.size(); ++k) {
      const CheckedMember& member = Truss.members[part[k]];
      loaded = loaded || member.prestress != 0;
      for (const int node : {member.i, member.j}) {
        if (Truss.IsFixed(node)) continue;
        loaded = loaded || HasLoad(node);
        for (const std::size_t next : MembersAt[At(node)]) {
          if (seen[next] != 0 || IsOut(next)) continue;
          seen[next] = 1;
          part.push_back(next);
        }
      }
    }
    return part;
  }

  const CheckedTruss& Truss;
  std::vector<std::vector<std::size_t>> MembersAt; ///< by node, indices in the truss
  std::vector<std::string> Reasons;
  std::deque<int> Waiting;
};

} // namespace

std::vector<ZeroBar> FindZeroBars(const CheckedTruss& truss, const RefinedSolution& refined) {
  double largest = LargestCause(truss);
  for (const double force : refined.forces) largest = std::max(largest, std::abs(force));
  const double contradiction = Contradiction(truss);
  const std::vector<std::string> reasons = JointRules(truss).Apply();
  std::vector<ZeroBar> bars;
  for (std::size_t m = 0; m < truss.members.size(); ++m) {
    const CheckedMember& member = truss.members[m];
    const double force = std::abs(refined.forces[At(member.number)]);
    if (!member.CanCarryForce() || force > contradiction * largest) continue;
    if (!reasons[m].empty()) bars.push_back({member.number, reasons[m]});
    if (reasons[m].empty() && force <= ZeroBySolution * largest) {
      bars.push_back(
          {member.number, "Its force is below a ten-millionth of the largest, though no rule of joints shows why"});
    }
  }
  return bars;
}

} // namespace strutwright
