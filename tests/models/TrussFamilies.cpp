#include "TrussFamilies.h"

#include "TrussBuilder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace strutwright {

namespace {

constexpr int OneMore = 1; // redundant member of a cross-braced storey

class Builder : public TrussBuilder {
 public:
  using TrussBuilder::TrussBuilder;
  KnownTruss Done(int indeterminacy = 0) { return {Model, 0, indeterminacy}; }
};

/// Two chords; rising and falling diagonals.
KnownTruss Girder(Builder build, int nodes, bool (*falls)(int panel, int panels)) {
  const int panels = std::max(2, nodes / 2 - 1);
  int lower = build.Node(0, 0);
  int upper = build.Node(0, 4);
  build.Join(lower, upper);
  build.Support(lower, 3);
  for (int panel = 0; panel < panels; ++panel) {
    const double x = 3.0 * (panel + 1);
    const int nextLower = falls(panel, panels) ? build.Hang(x, 0, lower, upper) : build.Node(x, 0);
    const int nextUpper = falls(panel, panels) ? build.Hang(x, 4, upper, nextLower) : build.Hang(x, 4, upper, lower);
    if (!falls(panel, panels)) {
      build.Join(lower, nextLower);
      build.Join(nextUpper, nextLower);
    }
    lower = nextLower;
    upper = nextUpper;
  }
  build.Support(lower, 1);
  return build.Done();
}

KnownTruss Pratt(const Builder& build, int nodes) {
  return Girder(build, nodes, [](int panel, int panels) { return 2 * panel < panels; });
}

KnownTruss Howe(const Builder& build, int nodes) {
  return Girder(build, nodes, [](int panel, int panels) { return 2 * panel >= panels; });
}

KnownTruss Warren(Builder build, int nodes) {
  build.Support(build.Node(0, 0), 3);
  build.Join(1, build.Node(1.5, 2.5));
  for (int n = 3; n <= std::max(7, nodes); ++n) build.Hang(1.5 * (n - 1), n % 2 == 1 ? 0 : 2.5, n - 2, n - 1);
  build.Support(build.NodeCount() - (build.NodeCount() + 1) % 2, 1);
  return build.Done();
}

/// Spokes from a hub to a rising and falling chord.
KnownTruss FanRoof(Builder build, int nodes) {
  const int hub = build.Node(0, 0);
  const int count = std::max(5, nodes - 1);
  int last = build.Node(-10, 0);
  build.Support(last, 3);
  build.Join(hub, last);
  for (int k = 1; k < count; ++k) {
    const double angle = std::numbers::pi * (1 - static_cast<double>(k) / (count - 1));
    last = build.Hang(10 * std::cos(angle), 6 * std::sin(angle), hub, last);
  }
  build.Support(last, 1);
  return build.Done();
}

KnownTruss KTruss(Builder build, int nodes) {
  int lower = build.Node(0, 0);
  int upper = build.Node(0, 4);
  build.Join(lower, upper);
  build.Support(lower, 3);
  for (int panel = 1; panel <= std::max(2, (nodes - 2) / 3); ++panel) {
    const int middle = build.Hang(3.0 * panel, 2, lower, upper);
    lower = build.Hang(3.0 * panel, 0, lower, middle);
    upper = build.Hang(3.0 * panel, 4, upper, middle);
  }
  build.Support(lower, 1);
  return build.Done();
}

KnownTruss Cantilever(Builder build, int nodes) {
  build.Support(build.Node(0, 0), 3);
  build.Support(build.Node(0, 3), 3);
  for (int n = 3; n <= std::max(6, nodes); ++n) build.Hang(1.5 * (n - 1), n % 2 == 1 ? 0 : 3, n - 2, n - 1);
  return build.Done();
}

/// Each node is held by members to two of the nodes before it, well out of line.
KnownTruss RandomSimple(Builder build, int nodes) {
  build.Support(build.Node(0, 0), 3);
  build.Support(build.Node(5, 0), 1);
  build.Join(1, 2);
  while (build.NodeCount() < std::max(6, nodes)) {
    const int a = std::max(1, build.NodeCount() - static_cast<int>(3 + 3 * build.Chance()));
    const int b = std::max(1, build.NodeCount() - static_cast<int>(3 + 3 * build.Chance()));
    build.HangBetween(a, b, 0.4);
  }
  return build.Done();
}

/// Nodes on two arcs, the outer one behind the inner one; joined by a hinge at the crown.
int HalfArch(Builder& build, int first, int pairs, int crown, double side) {
  int inner = first;
  int outer = 0;
  for (int k = 1; k <= pairs; ++k) {
    const double angle = std::numbers::pi / 2 * k / (pairs + 1.0);
    const double x = side * 20 * std::cos(angle);
    const double y = 12 * std::sin(angle);
    const int nextOuter = outer == 0 ? build.Node(1.15 * x, 1.15 * y) : build.Hang(1.15 * x, 1.15 * y, inner, outer);
    if (outer == 0) build.Join(inner, nextOuter);
    inner = build.Hang(x, y, inner, nextOuter);
    outer = nextOuter;
  }
  build.Join(inner, crown);
  build.Join(outer, crown);
  return inner;
}

KnownTruss ThreeHingedArch(Builder build, int nodes) {
  const int crown = build.Node(0, 12);
  const int left = build.Node(-20, 0);
  const int right = build.Node(20, 0);
  build.Support(left, 3);
  build.Support(right, 3);
  const int pairs = std::max(1, (nodes - 3) / 4);
  HalfArch(build, left, pairs, crown, -1);
  HalfArch(build, right, pairs, crown, 1);
  return build.Done();
}

KnownTruss CrossBracedTower(Builder build, int nodes) {
  int left = build.Node(0, 0);
  int right = build.Node(3, 0);
  build.Support(left, 3);
  build.Support(right, 3);
  const int storeys = std::max(2, (nodes - 3) / 2);
  for (int storey = 1; storey <= storeys; ++storey) {
    const int above = build.Hang(0, 3.0 * storey, left, right);
    const int opposite = build.Hang(3, 3.0 * storey, right, left);
    build.Join(above, opposite);
    left = above;
    right = opposite;
  }
  build.Hang(1.5, 3.0 * storeys + 2, left, right);
  return build.Done(storeys * OneMore);
}

KnownTruss TakeMember(KnownTruss truss, int index) {
  truss.model.members.erase(truss.model.members.begin() + index);
  truss.mechanisms = 1;
  return truss;
}

/// A pin becomes a roller either way, a roller nothing.
KnownTruss TakeSupport(KnownTruss truss, std::mt19937& random) {
  std::vector<NodeData*> supported;
  for (NodeData& node : truss.model.nodes) {
    if (node.support != 0) supported.push_back(&node);
  }
  NodeData& node = *supported[static_cast<std::size_t>(Below(static_cast<int>(supported.size()), random))];
  node.support = node.support == 3 ? static_cast<float>(1 + Below(2, random)) : 0;
  truss.mechanisms = 1;
  return truss;
}

} // namespace

KnownTruss MakeTruss(KnownFamily family, int nodes, std::mt19937& random) {
  const Builder build(random);
  switch (family) {
  case KnownFamily::Pratt: return Pratt(build, nodes);
  case KnownFamily::Howe: return Howe(build, nodes);
  case KnownFamily::Warren: return Warren(build, nodes);
  case KnownFamily::FanRoof: return FanRoof(build, nodes);
  case KnownFamily::KTruss: return KTruss(build, nodes);
  case KnownFamily::Cantilever: return Cantilever(build, nodes);
  case KnownFamily::RandomSimple: return RandomSimple(build, nodes);
  case KnownFamily::ThreeHingedArch: return ThreeHingedArch(build, nodes);
  case KnownFamily::CrossBracedTower: return CrossBracedTower(build, nodes);
  }
  return {};
}

KnownTruss Weakened(KnownTruss truss, KnownFamily family, std::mt19937& random) {
  const int members = static_cast<int>(truss.model.members.size());
  // Of the tower only the top hangs on two members alone.
  if (family == KnownFamily::CrossBracedTower) return TakeMember(std::move(truss), members - 1 - Below(2, random));
  if (Below(3, random) == 0) return TakeSupport(std::move(truss), random);
  return TakeMember(std::move(truss), Below(members, random));
}

ModelData Scaled(const ModelData& model, float E, float A, float length) {
  ModelData scaled = model;
  for (NodeData& node : scaled.nodes) {
    node.x *= length;
    node.y *= length;
  }
  for (MemberData& member : scaled.members) {
    member.E *= E;
    member.A *= A;
  }
  return scaled;
}

} // namespace strutwright
