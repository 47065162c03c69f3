#include "modHinges.h"

#include <algorithm>
#include <cstddef>

namespace strutwright {

namespace {

constexpr std::size_t MaxHingeParts = 64;

/// Finds the nodes without which the members fall apart, depth first and without recursion.
class HingeSearch {
 public:
  explicit HingeSearch(const HandTruss& truss)
      : Truss(truss), Order(truss.x.size(), 0), Low(truss.x.size(), 0), Parent(truss.x.size(), 0),
        Next(truss.x.size(), 0), IsHinge(truss.x.size(), 0) {}

  std::vector<int> Hinges() {
    for (int node = 1; node <= Truss.nodeCount; ++node) {
      if (Order[Spot(node)] == 0) VisitFrom(node);
    }
    std::vector<int> hinges;
    for (int node = 1; node <= Truss.nodeCount; ++node) {
      if (IsHinge[Spot(node)] != 0) hinges.push_back(node);
    }
    return hinges;
  }

 private:
  static std::size_t Spot(int node) { return static_cast<std::size_t>(node); }

  void VisitFrom(int root) {
    int branches = 0;
    std::vector<int> path{root};
    Order[Spot(root)] = Low[Spot(root)] = ++Count;
    while (!path.empty()) {
      const int node = path.back();
      if (const int next = Step(node); next > 0) {
        if (node == root) ++branches;
        path.push_back(next);
        continue;
      }
      path.pop_back();
      const int parent = Parent[Spot(node)];
      if (parent == 0) continue;
      Low[Spot(parent)] = std::min(Low[Spot(parent)], Low[Spot(node)]);
      if (parent != root && Low[Spot(node)] >= Order[Spot(parent)]) IsHinge[Spot(parent)] = 1;
    }
    if (branches > 1) IsHinge[Spot(root)] = 1;
  }

  /// The next node that was not reached before; 0 where there is none.
  int Step(int node) {
    const std::vector<int>& members = Truss.membersAt[Spot(node)];
    while (Next[Spot(node)] < members.size()) {
      const int end = Truss.members[Spot(members[Next[Spot(node)]++])].OtherEnd(node);
      if (Order[Spot(end)] == 0) {
        Parent[Spot(end)] = node;
        Order[Spot(end)] = Low[Spot(end)] = ++Count;
        return end;
      }
      if (end != Parent[Spot(node)]) Low[Spot(node)] = std::min(Low[Spot(node)], Order[Spot(end)]);
    }
    return 0;
  }

  const HandTruss& Truss;
  std::vector<int> Order; ///< in which the nodes are reached; 0 for not yet
  std::vector<int> Low;   ///< the earliest that a node's branch leads back to
  std::vector<int> Parent;
  std::vector<std::size_t> Next;
  std::vector<char> IsHinge;
  int Count = 0;
};

/// What hangs together with a node when the hinge is taken out.
std::vector<int> Branch(const HandTruss& truss, int hinge, int from, std::vector<char>& seen) {
  std::vector<int> nodes{from};
  seen[static_cast<std::size_t>(from)] = 1;
  for (std::size_t k = 0; k < nodes.size(); ++k) {
    const int node = nodes[k];
    for (const int member : truss.membersAt[static_cast<std::size_t>(node)]) {
      const int end = truss.members[static_cast<std::size_t>(member)].OtherEnd(node);
      if (end == hinge || seen[static_cast<std::size_t>(end)] != 0) continue;
      seen[static_cast<std::size_t>(end)] = 1;
      nodes.push_back(end);
    }
  }
  std::sort(nodes.begin(), nodes.end());
  return nodes;
}

void AddPartsAt(const HandTruss& truss, int hinge, std::vector<HingePart>& parts) {
  std::vector<char> seen(truss.x.size(), 0);
  for (const int member : truss.membersAt[static_cast<std::size_t>(hinge)]) {
    const int end = truss.members[static_cast<std::size_t>(member)].OtherEnd(hinge);
    if (seen[static_cast<std::size_t>(end)] != 0) continue;
    std::vector<int> nodes = Branch(truss, hinge, end, seen);
    const bool isHeld = std::any_of(nodes.begin(), nodes.end(), [&truss](int node) { return truss.HasSupport(node); });
    if (isHeld && parts.size() < MaxHingeParts) parts.push_back({hinge, std::move(nodes)});
  }
}

} // namespace

std::vector<HingePart> PartsAtHinges(const HandTruss& truss) {
  std::vector<HingePart> parts;
  for (const int hinge : HingeSearch(truss).Hinges()) {
    if (parts.size() >= MaxHingeParts) break;
    AddPartsAt(truss, hinge, parts);
  }
  return parts;
}

} // namespace strutwright
