#include "modMembersOnTop.h"

#include "Neighbourhood.h"
#include "modMechanisms.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace strutwright {

namespace {

using Indices = std::vector<int>;

int LowNode(const CheckedMember& member) { return std::min(member.i, member.j); }
int HighNode(const CheckedMember& member) { return std::max(member.i, member.j); }

/// The indices of the members at each node, in ascending order.
class MembersAtNodes {
 public:
  explicit MembersAtNodes(const CheckedTruss& truss)
      : Starts(At(truss.nodeCount) + 2, 0), Members(2 * truss.members.size()) {
    for (const CheckedMember& member : truss.members) {
      ++Starts[At(member.i) + 1];
      ++Starts[At(member.j) + 1];
    }
    for (std::size_t n = 1; n < Starts.size(); ++n) Starts[n] += Starts[n - 1];
    std::vector<std::size_t> next = Starts;
    for (std::size_t m = 0; m < truss.members.size(); ++m) {
      const CheckedMember& member = truss.members[m];
      Members[next[At(member.i)]++] = Members[next[At(member.j)]++] = static_cast<int>(m);
    }
  }

  const int* Begin(int node) const { return Members.data() + Starts[At(node)]; }
  const int* End(int node) const { return Members.data() + Starts[At(node) + 1]; }

 private:
  std::vector<std::size_t> Starts;
  Indices Members;
};

/// Members that join the same nodes.
struct Parallels {
  std::vector<Indices> groups;  ///< in the order of their first members
  std::vector<char> isRepeated; ///< of each member: an earlier one joins the same nodes
};

Parallels FindParallels(const CheckedTruss& truss, const MembersAtNodes& at) {
  Parallels parallels;
  parallels.isRepeated.assign(truss.members.size(), 0);
  std::vector<int> lowNode(At(truss.nodeCount) + 1, 0); // of the last member seen that ends at a node
  std::vector<int> first(At(truss.nodeCount) + 1, 0);   // the first member between these two
  std::vector<int> group(truss.members.size(), -1);     // that begins with a member
  for (int n = 1; n <= truss.nodeCount; ++n) {
    for (const int* index = at.Begin(n); index != at.End(n); ++index) {
      const CheckedMember& member = truss.MemberAt(*index);
      if (LowNode(member) != n) continue;
      const std::size_t high = At(HighNode(member));
      if (std::exchange(lowNode[high], n) != n) {
        first[high] = *index;
        continue;
      }
      parallels.isRepeated[At(*index)] = 1;
      int& own = group[At(first[high])];
      if (own < 0) {
        own = static_cast<int>(parallels.groups.size());
        parallels.groups.push_back({first[high]});
      }
      parallels.groups[At(own)].push_back(*index);
    }
  }
  std::sort(parallels.groups.begin(), parallels.groups.end());
  return parallels;
}

Finding ParallelFinding(const CheckedTruss& truss, const Indices& group) {
  std::vector<int> numbers;
  bool allBear = true;
  for (const int index : group) {
    numbers.push_back(truss.MemberAt(index).number);
    allBear = allBear && truss.MemberAt(index).CanCarryForce();
  }
  const CheckedMember& first = truss.MemberAt(group.front());
  std::string text =
      "Members " + FirstNumbers(numbers) + " join the same nodes, " + ListedNumbers({LowNode(first), HighNode(first)});
  if (allBear) text += group.size() == 2 ? "; both bear" : "; all bear";
  return {FindingKind::MemberOnMember, text, {}, numbers};
}

/// Sine of the angle that may be between the direction of a member and the one that was meant.
double UncertaintyOf(const CheckedTruss& truss, const CheckedMember& member) {
  constexpr double inLine = 5e-7;
  constexpr double rounding = 1e-7;
  constexpr double most = 1e-3; // beyond, coordinates say little of a direction
  return std::min(most, inLine + rounding * ReachOf(truss, member) / (member.length / 1000));
}

/// A member as seen from one of its nodes, in its direction.
struct Ray {
  int index;
  double c;
  double s;
  double uncertainty;
  double turn; ///< how far round it points, about -2 to 2 quarters; straight in between

  bool operator<(const Ray& other) const { return turn != other.turn ? turn < other.turn : index < other.index; }
};

bool GoTheSameWay(const Ray& a, const Ray& b) {
  return a.c * b.c + a.s * b.s > 0 && std::abs(a.c * b.s - a.s * b.c) <= a.uncertainty + b.uncertainty;
}

/// Rays from one node after another, each compared with those that go about the same way.
class FoldFinder {
 public:
  FoldFinder(const CheckedTruss& truss, LowestPairs& onTop) : Truss(truss), OnTop(onTop) {}

  void Look(int node, const MembersAtNodes& at, const std::vector<char>& isLeftOut) {
    Rays.clear();
    for (const int* index = at.Begin(node); index != at.End(node); ++index) {
      if (isLeftOut[At(*index)] == 0) AddRay(*index, node);
    }
    constexpr std::size_t few = 12;
    if (Rays.size() > few) return CompareNeighbours();
    for (std::size_t b = 1; b < Rays.size(); ++b) {
      for (std::size_t a = 0; a < b; ++a) Compare(Rays[a], Rays[b]);
    }
  }

  bool IsDone() const { return Left >= 0; }

 private:
  static constexpr double WholeTurn = 4;

  void AddRay(int index, int node) {
    const CheckedMember& member = Truss.MemberAt(index);
    const double sign = member.i == node ? 1 : -1;
    const double c = sign * member.c;
    const double s = sign * member.s;
    const double turn = std::copysign(1 - c / (std::abs(c) + std::abs(s)), s);
    Rays.push_back({index, c, s, UncertaintyOf(Truss, member), turn});
  }

  void Compare(const Ray& a, const Ray& b) {
    if (!GoTheSameWay(a, b)) return;
    const auto [first, second] = std::minmax(a.index, b.index);
    OnTop.Add(Truss.MemberAt(first).number, Truss.MemberAt(second).number);
  }

  /// The rays in their order round the node; those where the turn begins follow those where it ends.
  void CompareNeighbours() {
    std::sort(Rays.begin(), Rays.end());
    double largest = 0;
    for (const Ray& ray : Rays) largest = std::max(largest, ray.uncertainty);
    const double reach = 2 * largest;
    const std::size_t count = Rays.size();
    for (std::size_t a = 0; a < count; ++a) {
      for (std::size_t b = a + 1; b < a + count && Left >= 0; ++b, --Left) {
        const Ray& next = Rays[b % count];
        const double turn = next.turn + (b < count ? 0 : WholeTurn);
        if (turn - Rays[a].turn > reach) break;
        Compare(Rays[a], next);
      }
    }
  }

  const CheckedTruss& Truss;
  LowestPairs& OnTop;
  std::vector<Ray> Rays;
  long Left = 1000000; ///< comparisons
};

} // namespace

bool FindMembersOnTop(const CheckedTruss& truss, FindingList& findings, LowestPairs& onTop) {
  const MembersAtNodes at(truss);
  const Parallels parallels = FindParallels(truss, at);
  for (const Indices& group : parallels.groups) {
    findings.Add(FindingKind::MemberOnMember, [&] { return ParallelFinding(truss, group); });
  }
  FoldFinder folds(truss, onTop);
  for (int n = 1; n <= truss.nodeCount && folds.IsDone(); ++n) folds.Look(n, at, parallels.isRepeated);
  return folds.IsDone();
}

} // namespace strutwright
