#include "ClearSymbols.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace strutwright {

namespace {

constexpr double Beside = 13; // pixels between an arrow and one that stands where it would

// What speaks against a place for an arrow; no place at all is worse than any of it.
constexpr double OnSymbol = 1000;
constexpr double OnBar = 10;
constexpr double InsideTruss = 3;
constexpr double TailAtNode = 1;
constexpr double StandsBeside = 2;

/// A load or a reaction that wants an arrow.
struct ArrowWish {
  int node = 0;
  bool reaction = false;
  float force = 0;
  PixelPoint way; ///< in which it acts, of length 1
  double length = 0;
};

/// Where an arrow of a node begins on one side of it.
double StartOf(const ArrowWish& wish, PixelPoint side, const std::vector<const ClearSupport*>& supportOf) {
  const double fromNode = ClearSize::NodeRadius + ClearSize::ArrowGap;
  const ClearSupport* support = supportOf[static_cast<std::size_t>(wish.node)];
  if (support == nullptr || Dot(support->off, side) < 0.5) return fromNode;
  return SupportReach(*support) + ClearSize::ArrowGap;
}

class ArrowPlacer {
 public:
  ArrowPlacer(const ClearTruss& truss, const std::vector<ClearSupport>& supports, OccupiedPlane& plane)
      : Truss(truss), SupportOf(truss.joints.size(), nullptr), Plane(plane) {
    for (const ClearSupport& support : supports) SupportOf[static_cast<std::size_t>(support.node)] = &support;
  }

  /// The first of the best places.
  std::optional<ClearArrow> Place(const ArrowWish& wish) {
    double least = OnSymbol;
    std::optional<ClearArrow> best;
    for (const double shift : {0.0, Beside, -Beside}) {
      for (const bool pulls : {false, true}) {
        const ClearArrow arrow = ArrowAt(wish, pulls, shift);
        const double cost = CostOf(arrow, wish, pulls) + (shift == 0 ? 0 : StandsBeside);
        if (cost >= least) continue;
        least = cost;
        best = arrow;
      }
    }
    if (best) Plane.Add({BoxOfArrow(*best), Occupant::Arrow, wish.node});
    return best;
  }

 private:
  ClearArrow ArrowAt(const ArrowWish& wish, bool pulls, double shift) const {
    const PixelPoint side = pulls ? wish.way : -1 * wish.way;
    const PixelPoint node = Truss.joints[static_cast<std::size_t>(wish.node)].at + shift * LeftOf(wish.way);
    const PixelPoint inner = node + StartOf(wish, side, SupportOf) * side;
    const PixelPoint outer = inner + wish.length * side;
    return {wish.node, wish.reaction, wish.force, pulls ? inner : outer, pulls ? outer : inner, outer};
  }

  double CostOf(const ClearArrow& arrow, const ArrowWish& wish, bool pulls) const {
    double cost = pulls ? TailAtNode : 0;
    if (!LeavesTruss(Truss, wish.node, pulls ? wish.way : -1 * wish.way)) cost += InsideTruss;
    const TurnedBox box = BoxOfArrow(arrow).GrownBy(1);
    Plane.Any(BoundsOf(box), [&](const OccupiedBox& item) {
      if (item.kind == Occupant::Bar && IsClearOf(item.owner, arrow)) return false;
      if (Overlap(item.box, box)) cost += item.kind == Occupant::Bar ? OnBar : OnSymbol;
      return cost >= OnSymbol;
    });
    return cost;
  }

  /// Whether a bar leaves the arrow's node in another direction, so that they only come close at the node.
  bool IsClearOf(int index, const ClearArrow& arrow) const {
    constexpr double MinSine = 0.4;
    const ClearBar& bar = Truss.bars[static_cast<std::size_t>(index)];
    if (bar.i != arrow.node && bar.j != arrow.node) return false;
    const PixelPoint from = Truss.joints[static_cast<std::size_t>(arrow.node)].at;
    const PixelPoint outwards = bar.i == arrow.node ? bar.along : -1 * bar.along;
    const PixelPoint way = arrow.outer - from;
    const double sine = std::fabs(Dot(LeftOf(way), outwards)) / LengthOf(way);
    return sine > MinSine || Dot(way, outwards) < 0;
  }

  const ClearTruss& Truss;
  std::vector<const ClearSupport*> SupportOf;
  OccupiedPlane& Plane;
};

std::vector<ArrowWish> WishesOf(const ClearTruss& truss) {
  std::vector<ArrowWish> wishes;
  const auto wish = [&](int n, bool reaction, float force, bool upright) {
    if (force == 0) return;
    const double sign = force > 0 ? 1 : -1;
    wishes.push_back({n, reaction, force, upright ? PixelPoint{0, -sign} : PixelPoint{sign, 0}});
  };
  for (int n = 1; n < static_cast<int>(truss.joints.size()); ++n) {
    const ClearJoint& joint = truss.joints[static_cast<std::size_t>(n)];
    wish(n, true, joint.reactionY, true);
    wish(n, true, joint.reactionX, false);
    wish(n, false, joint.loadY, true);
    wish(n, false, joint.loadX, false);
  }
  return wishes;
}

} // namespace

bool LeavesTruss(const ClearTruss& truss, int n, PixelPoint side) {
  constexpr double MinAngle = 1.75; // a third of a turn is 2.09
  const auto directions = truss.DirectionsAt(n);
  if (directions.size() < 2) return true;
  const FreeAngle widest = FreeAngles({directions.begin(), directions.end()}).front();
  const double away = std::remainder(std::atan2(side.y, side.x) - widest.middle, 6.283185307179586);
  return widest.width >= MinAngle && std::fabs(away) < widest.width / 2;
}

TurnedBox BoxOfArrow(const ClearArrow& arrow) { return StripOf(arrow.tail, arrow.tip, 2 * ClearSize::HeadHalfWidth); }

std::vector<ClearArrow> PlaceArrows(const ClearTruss& truss, const std::vector<ClearSupport>& supports,
                                    float loadsScale, double scale, double longest, OccupiedPlane& plane,
                                    std::vector<int>& leftOut) {
  std::vector<ClearArrow> arrows;
  ArrowPlacer placer(truss, supports, plane);
  for (ArrowWish& wish : WishesOf(truss)) {
    wish.length = ArrowLength(wish.force, loadsScale, scale, longest);
    if (const auto arrow = placer.Place(wish)) {
      arrows.push_back(*arrow);
    } else {
      leftOut.push_back(wish.node);
    }
  }
  return arrows;
}

} // namespace strutwright
