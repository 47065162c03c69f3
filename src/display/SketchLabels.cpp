#include "SketchLabels.h"

#include "ClearPalette.h"
#include "LabelPlacement.h"
#include "modSketch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace strutwright {

namespace {

constexpr std::size_t MostLinesForLabels = 400; // a sketch of more has none but the values of its arrows
constexpr double BoxedRoom = 2.5;               // pixels around a number
constexpr double HalfText = ClearSize::LargestText / 2.0;
constexpr std::array<double, 7> TextRings{12, 20, 30, 42, 56, 72, 90};

/// The text's middle first, or a first step outwards, then farther out, or around it.
std::vector<PixelPoint> PlacesOf(const SketchText& text) {
  std::vector<PixelPoint> places;
  if (text.outX != 0 || text.outY != 0) {
    for (const double out : TextRings) {
      for (const double turn : {0.0, 0.5, -0.5}) {
        const double c = std::cos(turn), s = std::sin(turn);
        places.push_back({out * (c * text.outX - s * text.outY), -out * (s * text.outX + c * text.outY)});
      }
    }
    return places;
  }
  places.push_back({0, 0});
  for (const double out : TextRings) {
    for (const PixelPoint way : {PixelPoint{0, -1}, {1, 0}, {-1, 0}, {0, 1}}) places.push_back((out / 2) * way);
  }
  return places;
}

/// A text that is free nowhere stands at its first place all the same: it names something.
void PlaceTexts(PlacedSketch& placed, const PixelSurface& surface) {
  for (const SketchText& text : placed.sketch.texts) {
    const std::vector<PixelPoint> places = PlacesOf(text);
    const double half = surface.TextWidth(text.text, ClearSize::LargestText) / 2 + 1;
    TurnedBox box{{}, {1, 0}, half, ClearSize::LargestText / 2.0};
    const PixelPoint at = placed.At(text.x, text.y);
    const auto isFree = [&](PixelPoint place) {
      box.centre = at + place;
      return !TouchesAnything(placed.scene, box);
    };
    const auto found = std::find_if(places.begin(), places.end(), isFree);
    box.centre = at + (found == places.end() ? places.front() : *found);
    placed.scene.plane.Add({box, Occupant::Support, 0});
    placed.texts.push_back({box.centre, text.text, text.tone});
  }
}

/// What a box touches: little for a bar, much for what can't be read through.
double CostOf(const ClearScene& scene, const TurnedBox& box) {
  double cost = 0;
  scene.plane.Any(BoundsOf(box), [&](const OccupiedBox& item) {
    if (Overlap(box, item.box)) cost += item.owner == PlacedSketch::Beyond ? 100 : item.kind == Occupant::Bar ? 1 : 4;
    return false;
  });
  return cost;
}

/// Beyond the arrow's outer end, to either side of it, or farther off; where all of these touch something, at the first
/// of those where that matters least: a force without its value would be no use.
TurnedBox PlaceOfValue(const PlacedSketch& placed, const ClearArrow& arrow, double halfWidth) {
  const PixelPoint line = arrow.tip - arrow.tail;
  const PixelPoint out = (arrow.outer == arrow.tip ? 1 / LengthOf(line) : -1 / LengthOf(line)) * line;
  double least = std::numeric_limits<double>::infinity();
  TurnedBox best;
  for (const double gap : {4.0, 14.0, 26.0}) {
    for (const double turn : {0.0, 0.5, -0.5, 1.0, -1.0, 1.5, -1.5, 2.1, -2.1}) {
      const PixelPoint way{out.x * std::cos(turn) - out.y * std::sin(turn),
                           out.x * std::sin(turn) + out.y * std::cos(turn)};
      const double reach =
          std::min(halfWidth / std::max(std::abs(way.x), 1e-9), HalfText / std::max(std::abs(way.y), 1e-9));
      const TurnedBox box{arrow.outer + (gap + reach) * way, {1, 0}, halfWidth, HalfText};
      const double cost = CostOf(placed.scene, box);
      if (cost < least) best = box;
      least = std::min(cost, least);
      if (least == 0) return best;
    }
  }
  return best;
}

void PlaceValues(PlacedSketch& placed, const PixelSurface& surface) {
  for (std::size_t k = 0; k < placed.sketch.arrows.size(); ++k) {
    const SketchArrow& arrow = placed.sketch.arrows[k];
    if (arrow.label.empty()) continue;
    const double half = surface.TextWidth(arrow.label, ClearSize::LargestText) / 2 + 1;
    const TurnedBox box = PlaceOfValue(placed, placed.scene.arrows[k], half);
    placed.scene.plane.Add({box, Occupant::Support, 0});
    placed.texts.push_back({box.centre, arrow.label, arrow.tone});
  }
}

/// In the order in which they get their places.
void MakeLabels(PlacedSketch& placed, const PixelSurface& surface) {
  const Sketch& sketch = placed.sketch;
  const auto add = [&](LabelKind kind, std::size_t owner, const std::string& text, Colour colour) {
    if (text.empty()) return;
    const bool boxed = kind == LabelKind::MemberNumber;
    const int size = placed.scene.text.size - (boxed ? 1 : 0);
    const double room = boxed ? BoxedRoom : 0;
    placed.scene.labels.push_back({kind,
                                   static_cast<int>(owner),
                                   text,
                                   colour,
                                   surface.TextWidth(text, size) / 2 + 1 + room,
                                   size / 2.0 + room / 2,
                                   -1,
                                   {}});
  };
  for (std::size_t k = 0; k < sketch.lines.size(); ++k) {
    add(LabelKind::Force, k, sketch.lines[k].label, ToneColour(sketch.lines[k].tone));
  }
  for (std::size_t k = 0; k < sketch.points.size(); ++k) {
    add(LabelKind::NodeNumber, k + 1, sketch.points[k].name, ClearPalette::Ink);
  }
  for (std::size_t k = 0; k < sketch.lines.size(); ++k) {
    add(LabelKind::MemberNumber, k, sketch.lines[k].number, ClearPalette::MemberNumber);
  }
}

} // namespace

void LabelSketch(PlacedSketch& placed, const PixelSurface& surface) {
  PlaceValues(placed, surface);
  if (placed.sketch.lines.size() > MostLinesForLabels) return;
  PlaceTexts(placed, surface);
  MakeLabels(placed, surface);
  PlaceForces(placed.scene, nullptr, std::numeric_limits<int>::max());
  PlaceNumbers(placed.scene, nullptr);
}

} // namespace strutwright
