#include "modSamePlaces.h"

#include "Neighbourhood.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <utility>

namespace strutwright {

namespace {

/// Sets of nodes that are taken for one, each named by its lowest.
class NodeSets {
 public:
  explicit NodeSets(int nodeCount) : LowerOf(At(nodeCount) + 1) {
    for (std::size_t n = 0; n < LowerOf.size(); ++n) LowerOf[n] = static_cast<int>(n);
  }

  int Lowest(int node) {
    while (LowerOf[At(node)] != node) node = LowerOf[At(node)] = LowerOf[At(LowerOf[At(node)])];
    return node;
  }

  void Join(int a, int b) {
    const auto [low, high] = std::minmax({Lowest(a), Lowest(b)});
    LowerOf[At(high)] = low;
  }

 private:
  std::vector<int> LowerOf;
};

/// A node and its distance along a direction across which few trusses have many members.
struct Sighted {
  double distance;
  Place place;
  int node;

  bool operator<(const Sighted& other) const {
    return std::tie(distance, place, node) < std::tie(other.distance, other.place, other.node);
  }
};

std::vector<Sighted> InOrder(const CheckedTruss& truss) {
  constexpr double c = 0.9151;
  constexpr double s = 0.4032;
  std::vector<Sighted> nodes;
  nodes.reserve(At(truss.nodeCount));
  for (int n = 1; n <= truss.nodeCount; ++n) {
    const Place place = PlaceOf(truss, n);
    nodes.push_back({c * place[0] + s * place[1], place, n});
  }
  std::sort(nodes.begin(), nodes.end());
  return nodes;
}

/// Joins what is at exactly one place, and leaves the lowest node there.
void JoinTheSamePlace(std::vector<Sighted>& nodes, NodeSets& sets) {
  const auto same = [&sets](const Sighted& one, const Sighted& other) {
    if (one.place != other.place) return false;
    sets.Join(one.node, other.node);
    return true;
  };
  nodes.erase(std::unique(nodes.begin(), nodes.end(), same), nodes.end());
}

void JoinWhatIsClose(const CheckedTruss& truss, const std::vector<Sighted>& nodes, NodeSets& sets) {
  constexpr double spare = 1.01; // the other node's coordinates may be a little larger
  for (auto one = nodes.begin(); one != nodes.end(); ++one) {
    const double reach = ReachOf(truss, one->node);
    const double last = one->distance + spare * CoordinateRounding * reach;
    for (auto other = one + 1; other != nodes.end() && other->distance <= last; ++other) {
      const double apart = std::hypot(other->place[0] - one->place[0], other->place[1] - one->place[1]);
      const double largest = std::max(reach, ReachOf(truss, other->node));
      if (apart <= CoordinateRounding * largest) sets.Join(one->node, other->node);
    }
  }
}

} // namespace

void FindCoincidentNodes(const CheckedTruss& truss, FindingList& findings) {
  NodeSets sets(truss.nodeCount);
  std::vector<Sighted> nodes = InOrder(truss);
  JoinTheSamePlace(nodes, sets);
  JoinWhatIsClose(truss, nodes, sets);
  std::vector<std::vector<int>> groups(At(truss.nodeCount) + 1);
  for (int n = 1; n <= truss.nodeCount; ++n) {
    if (sets.Lowest(n) != n) groups[At(sets.Lowest(n))].push_back(n);
  }
  for (int n = 1; n <= truss.nodeCount; ++n) {
    std::vector<int>& group = groups[At(n)];
    if (group.empty()) continue;
    group.insert(group.begin(), n);
    findings.Add(FindingKind::CoincidentNodes, [&group] {
      const std::string text = "Nodes " + FirstNumbers(group) + " are at the same place";
      return Finding{FindingKind::CoincidentNodes, text, group, {}};
    });
  }
}

} // namespace strutwright
