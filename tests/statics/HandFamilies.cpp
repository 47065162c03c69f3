#include "HandFamilies.h"

#include "TrussBuilder.h"
#include "TrussFamilies.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace strutwright {

namespace {

class HandBuilder : public TrussBuilder {
 public:
  explicit HandBuilder(std::mt19937& generator) : TrussBuilder(generator, 2) {}

  /// A strip of triangles along a line from one node to a last one, which may be there already; its nodes in order,
  /// every other one so far to the left of the line.
  std::vector<int> Strip(int from, double x, double y, int nodes, double left, int last = 0) {
    std::vector<int> strip{from};
    const double dx = (x - X(from)) / (nodes - 1);
    const double dy = (y - Y(from)) / (nodes - 1);
    for (int k = 1; k < nodes; ++k) {
      const double aside = k % 2 == 1 && k + 1 < nodes ? left : 0;
      const double px = X(from) + k * dx - aside * dy / std::hypot(dx, dy);
      const double py = Y(from) + k * dy + aside * dx / std::hypot(dx, dy);
      strip.push_back(k + 1 == nodes && last > 0 ? last : Node(px, py));
      Join(strip[strip.size() - 2], strip.back());
      if (k > 1) Join(strip[strip.size() - 3], strip.back());
    }
    return strip;
  }

  DeterminateTruss Done(TrussKind kind) const { return {Model, kind}; }
};

DeterminateTruss HingeAndTie(HandBuilder build, int nodes) {
  const int half = std::max(4, nodes / 2);
  const int left = build.Node(0, 0);
  build.Support(left, 3);
  const std::vector<int> one = build.Strip(left, 3.0 * half, 2.5 * half, half, 2);
  const int right = build.Node(6.0 * half, 0);
  build.Support(right, 1);
  const std::vector<int> other = build.Strip(right, build.X(one.back()), build.Y(one.back()), half, -2, one.back());
  const auto at = static_cast<std::size_t>(2 * ((build.Any(half - 3) - 1) / 2));
  build.Join(one[at], other[at]);
  return build.Done(TrussKind::Compound);
}

/// Two towers, and bars between them at the bottom, at the top, and aslant in between.
DeterminateTruss ThreeLinks(HandBuilder build, int nodes) {
  const int half = std::max(5, nodes / 2 / 2 * 2 + 1);
  const int left = build.Node(0, 0);
  build.Support(left, 3);
  const std::vector<int> one = build.Strip(left, 0, 2.0 * half, half, 2);
  const int right = build.Node(6, 0);
  build.Support(right, 1);
  const std::vector<int> other = build.Strip(right, 8, 2.0 * half, half, -2);
  const std::size_t top = one.size() - 1;
  build.Join(one[0], other[0]);
  build.Join(one[top], other[top]);
  build.Join(one[2], other[top]);
  return build.Done(TrussKind::Compound);
}

DeterminateTruss Hexagon(HandBuilder build, int nodes) {
  constexpr std::array<double, 6> radius{6, 4, 6.5, 5, 3.5, 6};
  for (int k = 0; k < 6; ++k) {
    const double angle = std::numbers::pi / 3 * k + 0.1;
    build.Node(radius[static_cast<std::size_t>(k)] * std::cos(angle),
               radius[static_cast<std::size_t>(k)] * std::sin(angle), 0.3);
  }
  for (int k = 1; k <= 6; ++k) build.Join(k, k % 6 + 1);
  for (int k = 1; k <= 3; ++k) build.Join(k, k + 3);
  build.Support(4, 3);
  build.Support(6, 1);
  while (build.NodeCount() < nodes) {
    const int a = build.Any(build.NodeCount());
    const int b = build.Any(build.NodeCount());
    build.HangBetween(a, b, 0.5);
  }
  return build.Done(TrussKind::Complex);
}

/// Those of the shared families that have no redundant member.
DeterminateTruss OfSharedFamily(KnownFamily family, TrussKind kind, int nodes, std::mt19937& random) {
  return {MakeTruss(family, nodes, random).model, kind};
}

} // namespace

DeterminateTruss MakeDeterminate(HandFamily family, int nodes, std::mt19937& random) {
  const HandBuilder build(random);
  switch (family) {
  case HandFamily::Pratt: return OfSharedFamily(KnownFamily::Pratt, TrussKind::Simple, nodes, random);
  case HandFamily::Howe: return OfSharedFamily(KnownFamily::Howe, TrussKind::Simple, nodes, random);
  case HandFamily::Warren: return OfSharedFamily(KnownFamily::Warren, TrussKind::Simple, nodes, random);
  case HandFamily::FanRoof: return OfSharedFamily(KnownFamily::FanRoof, TrussKind::Simple, nodes, random);
  case HandFamily::KTruss: return OfSharedFamily(KnownFamily::KTruss, TrussKind::Simple, nodes, random);
  case HandFamily::Cantilever: return OfSharedFamily(KnownFamily::Cantilever, TrussKind::Simple, nodes, random);
  case HandFamily::RandomSimple: return OfSharedFamily(KnownFamily::RandomSimple, TrussKind::Simple, nodes, random);
  case HandFamily::ThreeHingedArch:
    return OfSharedFamily(KnownFamily::ThreeHingedArch, TrussKind::Compound, nodes, random);
  case HandFamily::HingeAndTie: return HingeAndTie(build, nodes);
  case HandFamily::ThreeLinks: return ThreeLinks(build, nodes);
  case HandFamily::Hexagon: return Hexagon(build, nodes);
  }
  return {};
}

DeterminateTruss SeededDeterminate(int number, std::mt19937& random) {
  const int nodes = 6 + (number < HandFamilyCount ? 0 : Below(55, random));
  return MakeDeterminate(static_cast<HandFamily>(number % HandFamilyCount), nodes, random);
}

} // namespace strutwright
