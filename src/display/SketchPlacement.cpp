#include "SketchPlacement.h"

#include "SketchArrows.h"
#include "SketchLabels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace strutwright {

namespace {

constexpr double SketchMargin = 16;     // pixels around points and labels
constexpr double TitleRoom = 20;        // above
constexpr double ScaleRoom = 22;        // below, where there is a scale
constexpr double PointRoom = 14;        // around a point, for its name
constexpr double SketchSymbolRoom = 26; // around a support
constexpr double LineWidth = 3;
constexpr double TextReach = 20; // from a text's place to its middle

/// What the points take up, and how far what keeps its size in pixels reaches beyond them.
class SketchFrame {
 public:
  SketchFrame(const Sketch& sketch, const Bounds& inside, const PixelSurface& surface)
      : Figure(sketch), Inside(inside), Surface(surface), Lengths(ArrowLengthsOf(sketch, inside, surface)) {
    for (const SketchPoint& point : sketch.points) Take(point.x, point.y);
    for (const SketchText& text : sketch.texts) Take(text.x, text.y);
    if (!(Left <= Right)) Left = Right = Low = High = 0;
  }

  /// Scale and origin.  Items keep their size, so that the margins follow from the scale and it from the margins.
  std::pair<double, PixelPoint> Fit() const {
    constexpr int Rounds = 6;
    Bounds margin{SketchMargin, SketchMargin, SketchMargin, SketchMargin};
    double scale = ScaleFor(margin);
    for (int round = 0; round < Rounds; ++round) {
      margin = MarginsAt(scale);
      scale = ScaleFor(margin);
    }
    const double spareX = Inside.Width() - margin.left - margin.right - scale * (Right - Left);
    const double spareY = Inside.Height() - margin.top - margin.bottom - scale * (High - Low);
    return {
        scale,
        {Inside.left + margin.left + spareX / 2 - scale * Left, Inside.top + margin.top + spareY / 2 + scale * High}};
  }

 private:
  void Take(double x, double y) {
    Left = std::min(Left, x);
    Right = std::max(Right, x);
    Low = std::min(Low, y);
    High = std::max(High, y);
  }

  double ScaleFor(const Bounds& margin) const {
    constexpr double LeastPart = 0.2; // what arrows leave to the figure at least
    const double across = std::max(Inside.Width() - margin.left - margin.right, LeastPart * Inside.Width());
    const double down = std::max(Inside.Height() - margin.top - margin.bottom, LeastPart * Inside.Height());
    const double scale =
        std::min(Right > Left ? across / (Right - Left) : HUGE_VAL, High > Low ? down / (High - Low) : HUGE_VAL);
    return std::isfinite(scale) && scale > 0 ? scale : 1;
  }

  /// How far it reaches beyond the points on each side.
  Bounds MarginsAt(double scale) const {
    const Bounds points{scale * Left, -scale * High, scale * Right, -scale * Low};
    Bounds all = points;
    const auto take = [&](PixelPoint at, double halfWidth, double halfHeight) {
      all.Take(Bounds{at.x - halfWidth, at.y - halfHeight, at.x + halfWidth, at.y + halfHeight});
    };
    for (const SketchPoint& point : Figure.points) {
      const double room = point.support != 0 ? SketchSymbolRoom : PointRoom;
      take({scale * point.x, -scale * point.y}, room, room);
    }
    for (const SketchText& text : Figure.texts) {
      take({scale * text.x + TextReach * text.outX, -scale * text.y - TextReach * text.outY}, 8, 8);
    }
    for (const SketchArrow& arrow : Figure.arrows) TakeArrow(arrow, scale, take);
    return {points.left - all.left + 4, points.top - all.top + 4, all.right - points.right + 4,
            all.bottom - points.bottom + 4};
  }

  /// With its label beyond its outer end.
  template <typename Taker>
  void TakeArrow(const SketchArrow& arrow, double scale, const Taker& take) const {
    const SketchPoint& point = Figure.points[static_cast<std::size_t>(arrow.point)];
    const PixelPoint at{scale * point.x, -scale * point.y};
    const ClearArrow placed = StandArrow(arrow, at, Lengths.Of(arrow), arrow.pulls);
    const PixelPoint out = (1 / LengthOf(placed.outer - at)) * (placed.outer - at);
    const double half = Surface.TextWidth(arrow.label, ClearSize::LargestText) / 2 + 3;
    take(placed.outer + PixelPoint{half * out.x, 8 * out.y}, half, 8);
  }

  const Sketch& Figure;
  Bounds Inside;
  const PixelSurface& Surface;
  SketchArrowLengths Lengths;
  double Left = std::numeric_limits<double>::infinity();
  double Right = -Left;
  double Low = Left;
  double High = -Left;
};

ClearBar BarOf(const SketchLine& line, int number, const ClearTruss& truss) {
  ClearBar bar;
  bar.number = number;
  bar.i = line.from + 1;
  bar.j = line.to + 1;
  bar.from = truss.joints[static_cast<std::size_t>(bar.i)].at;
  bar.to = truss.joints[static_cast<std::size_t>(bar.j)].at;
  const PixelPoint way = bar.to - bar.from;
  bar.length = LengthOf(way);
  if (bar.length > 0) bar.along = (1 / bar.length) * way;
  bar.width = LineWidth;
  return bar;
}

void AddJointsAndBars(PlacedSketch& placed) {
  placed.scene = {};
  ClearTruss& truss = placed.scene.truss;
  truss.joints.emplace_back();
  for (const SketchPoint& point : placed.sketch.points) {
    ClearJoint joint;
    joint.at = placed.At(point.x, point.y);
    joint.support = point.support;
    truss.joints.push_back(joint);
  }
  for (const SketchLine& line : placed.sketch.lines) {
    truss.bars.push_back(BarOf(line, static_cast<int>(truss.bars.size()) + 1, truss));
  }
  SortDirections(truss);
}

/// No label may stand beyond what is left of the area by title and scale.
void AddWalls(const Bounds& area, OccupiedPlane& plane) {
  constexpr double Thick = 300; // pixels
  const PixelPoint middle{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
  const double halfAcross = area.Width() / 2 + Thick;
  const double halfDown = area.Height() / 2 + Thick;
  for (const double side : {-1.0, 1.0}) {
    const PixelPoint beside{middle.x + side * (area.Width() + Thick) / 2, middle.y};
    plane.Add({{beside, {1, 0}, Thick / 2, halfDown}, Occupant::Support, PlacedSketch::Beyond});
    const PixelPoint above{middle.x, middle.y + side * (area.Height() + Thick) / 2};
    plane.Add({{above, {1, 0}, halfAcross, Thick / 2}, Occupant::Support, PlacedSketch::Beyond});
  }
}

void Occupy(PlacedSketch& placed, const PixelSurface& surface) {
  ClearScene& scene = placed.scene;
  scene.plane = OccupiedPlane(placed.area, 4 * scene.truss.bars.size() + 2 * scene.truss.joints.size());
  for (std::size_t b = 0; b < scene.truss.bars.size(); ++b) {
    const ClearBar& bar = scene.truss.bars[b];
    scene.plane.Add({StripOf(bar.from, bar.to, bar.width), Occupant::Bar, static_cast<int>(b)});
  }
  constexpr double Half = ClearSize::NodeRadius + ClearSize::NodeEdge / 2;
  for (std::size_t n = 1; n < scene.truss.joints.size(); ++n) {
    if (!placed.sketch.points[n - 1].isDot) continue;
    scene.plane.Add({{scene.truss.joints[n].at, {1, 0}, Half, Half}, Occupant::Node, static_cast<int>(n)});
  }
  scene.supports = PlaceSupports(scene.truss, scene.plane);
  PlaceSketchArrows(placed.sketch, ArrowLengthsOf(placed.sketch, placed.area, surface), scene);
}

/// Whether an arrow stands on the other side than room was made for; room is made for where it stands from now on.
bool TakeSides(PlacedSketch& placed) {
  bool moved = false;
  for (std::size_t k = 0; k < placed.sketch.arrows.size(); ++k) {
    SketchArrow& arrow = placed.sketch.arrows[k];
    const ClearArrow& stands = placed.scene.arrows[k];
    const bool pulls = stands.outer == stands.tip;
    moved = moved || arrow.pulls != pulls;
    arrow.pulls = pulls;
  }
  return moved;
}

} // namespace

PlacedSketch PlaceSketch(const Sketch& sketch, const Bounds& area, const PixelSurface& surface) {
  PlacedSketch placed;
  placed.sketch = sketch;
  placed.area = area;
  Bounds inside = area;
  if (!sketch.title.empty()) inside.top += TitleRoom;
  if (!sketch.unit.empty()) inside.bottom -= ScaleRoom;
  constexpr int MostRounds = 3;
  for (int round = 0; round < MostRounds && (round == 0 || TakeSides(placed)); ++round) {
    std::tie(placed.scale, placed.origin) = SketchFrame(placed.sketch, inside, surface).Fit();
    AddJointsAndBars(placed);
    Occupy(placed, surface);
  }
  AddWalls(inside.GrownBy(-2), placed.scene.plane);
  LabelSketch(placed, surface);
  return placed;
}

std::vector<PlacedSketch> PlaceSheet(const SketchSheet& sheet, const PixelSurface& surface) {
  const double width = surface.PixelWidth();
  const double height = surface.PixelHeight();
  std::vector<PlacedSketch> placed;
  for (const SketchPart& part : sheet) {
    const Bounds area{part.left * width, part.top * height, (part.left + part.width) * width,
                      (part.top + part.height) * height};
    placed.push_back(PlaceSketch(part.sketch, area, surface));
  }
  return placed;
}

} // namespace strutwright
