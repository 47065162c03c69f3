#include "SketchArrows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

namespace strutwright {

namespace {

constexpr double AreaPerArrow = 5; // the longest arrow is this part of the area's shorter side
constexpr double AreaPerAlone = 3.5;
constexpr double MostArrow = 64; // pixels
constexpr double MostAlone = 90;
constexpr double LabelRoom = 16; // around its label
constexpr double AsideStep = 12; // pixels between an arrow and one that stands where it would
constexpr double PassingSine = 0.35;

// What speaks against a place.
constexpr double OverSymbol = 100;
constexpr double OverBar = 10;
constexpr double StandsAside = 2;
constexpr double PullsAway = 1;
constexpr double StandsInside = 3;

PixelPoint WayOf(const SketchArrow& arrow) { return {arrow.c, -arrow.s}; }

/// Whether something that leaves the same point this way stays clear of an arrow that leaves it that way.
bool Parts(PixelPoint way, PixelPoint other) {
  return std::fabs(Dot(LeftOf(way), other)) > PassingSine || Dot(way, other) < 0;
}

class ArrowStand {
 public:
  ArrowStand(ClearScene& scene, const SketchArrowLengths& lengths) : Scene(scene), Lengths(lengths) {}

  void Fix(const SketchArrow& arrow) { Add(At(arrow, arrow.pulls, 0)); }

  void FixBest(const SketchArrow& arrow) {
    double least = std::numeric_limits<double>::infinity();
    ClearArrow best;
    for (const double shift : {0.0, AsideStep, -AsideStep}) {
      for (const bool pulls : {false, true}) {
        const ClearArrow placed = At(arrow, pulls, shift);
        const double cost = CostOf(placed) + (pulls ? PullsAway : 0) + (shift == 0 ? 0 : StandsAside);
        if (cost >= least) continue;
        least = cost;
        best = placed;
      }
    }
    Add(best);
  }

 private:
  ClearArrow At(const SketchArrow& arrow, bool pulls, double shift) const {
    const PixelPoint joint = Scene.truss.joints[static_cast<std::size_t>(arrow.point) + 1].at;
    return StandArrow(arrow, joint, Lengths.Of(arrow), pulls, shift);
  }

  void Add(const ClearArrow& arrow) {
    const auto index = static_cast<int>(Scene.arrows.size());
    Scene.arrows.push_back(arrow);
    Scene.plane.Add({BoxOfArrow(arrow), Occupant::Arrow, index});
  }

  double CostOf(const ClearArrow& arrow) const {
    const PixelPoint joint = Scene.truss.joints[static_cast<std::size_t>(arrow.node)].at;
    const PixelPoint way = arrow.outer - joint;
    const PixelPoint out = (1 / std::max(LengthOf(way), 1e-9)) * way;
    const TurnedBox box = BoxOfArrow(arrow).GrownBy(1);
    double cost = LeavesTruss(Scene.truss, arrow.node, out) ? 0 : StandsInside;
    Scene.plane.Any(BoundsOf(box), [&](const OccupiedBox& item) {
      if (!IsPassed(item, arrow.node, out) && Overlap(item.box, box)) {
        cost += item.kind == Occupant::Bar ? OverBar : OverSymbol;
      }
      return false;
    });
    return cost;
  }

  bool IsPassed(const OccupiedBox& item, int node, PixelPoint out) const {
    const auto owner = static_cast<std::size_t>(item.owner);
    if (item.kind == Occupant::Node) return item.owner == node;
    if (item.kind == Occupant::Arrow) {
      const ClearArrow& other = Scene.arrows[owner];
      if (other.node != node) return false;
      const PixelPoint way = other.outer - Scene.truss.joints[static_cast<std::size_t>(node)].at;
      return Parts((1 / std::max(LengthOf(way), 1e-9)) * way, out);
    }
    if (item.kind != Occupant::Bar) return false;
    const ClearBar& bar = Scene.truss.bars[owner];
    if (bar.i != node && bar.j != node) return false;
    return Parts(bar.i == node ? bar.along : -1 * bar.along, out);
  }

  ClearScene& Scene;
  SketchArrowLengths Lengths;
};

} // namespace

SketchArrowLengths ArrowLengthsOf(const Sketch& sketch, const Bounds& area, const PixelSurface& surface) {
  const double side = std::min(area.Width(), area.Height());
  double longest = std::min(side / AreaPerArrow, MostArrow);
  if (sketch.lines.empty()) {
    double widest = 0;
    for (const SketchArrow& arrow : sketch.arrows) {
      widest = std::max(widest, surface.TextWidth(arrow.label, ClearSize::LargestText));
    }
    longest = std::min({side / AreaPerAlone, MostAlone, area.Width() / 2 - widest - LabelRoom});
  }
  return {std::max(longest, ClearSize::MinArrow), ClearSize::MinArrow};
}

ClearArrow StandArrow(const SketchArrow& arrow, PixelPoint at, double length, bool pulls, double shift) {
  const PixelPoint way = WayOf(arrow);
  const PixelPoint side = pulls ? way : -1 * way;
  const PixelPoint inner = at + (ClearSize::NodeRadius + ClearSize::ArrowGap) * side + shift * LeftOf(way);
  const PixelPoint outer = inner + length * side;
  return {arrow.point + 1, false, 0, pulls ? inner : outer, pulls ? outer : inner, outer};
}

/// The order of the scene's arrows is that of the sketch's.
void PlaceSketchArrows(const Sketch& sketch, const SketchArrowLengths& lengths, ClearScene& scene) {
  ArrowStand stand(scene, lengths);
  std::vector<std::size_t> order;
  for (const bool movable : {false, true}) {
    for (std::size_t k = 0; k < sketch.arrows.size(); ++k) {
      if (sketch.arrows[k].mayMove != movable) continue;
      if (movable) stand.FixBest(sketch.arrows[k]);
      if (!movable) stand.Fix(sketch.arrows[k]);
      order.push_back(k);
    }
  }
  std::vector<ClearArrow> sorted(order.size());
  for (std::size_t k = 0; k < order.size(); ++k) sorted[order[k]] = scene.arrows[k];
  scene.arrows = std::move(sorted);
}

} // namespace strutwright
