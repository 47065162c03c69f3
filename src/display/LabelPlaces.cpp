#include "LabelPlaces.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace strutwright {

namespace {

/// How far from the middle of a member a label stands, as parts of the way to where it would reach its end.
constexpr std::array<double, 9> AlongMember{0, -0.25, 0.25, -0.5, 0.5, -0.75, 0.75, -1, 1};
constexpr int AlongCount = static_cast<int>(AlongMember.size());
constexpr double EndGap = ClearSize::NodeRadius + 2.5; // pixels that a label keeps from its member's ends
constexpr double DotGap = ClearSize::NodeRadius + ClearSize::NodeEdge + 1;
constexpr double MinSteepness = 0.6;  // sine of a member's slope
constexpr double MinFreeAngle = 0.35; // radians
constexpr double NumberGap = ClearSize::NodeRadius + 2;

/// A direction for each side of an arrow and how far from its ends the label stands.
struct ArrowPlace {
  bool beyond; ///< the outer end, otherwise beside
  double side; ///< 1 right of the way outwards, -1 left
  double part; ///< of the arrow from its outer end
};
constexpr std::array<ArrowPlace, 7> ArrowPlaces{
    {{true, 0, 0}, {false, 1, 0}, {false, -1, 0}, {false, 1, 0.5}, {false, -1, 0.5}, {false, 1, 1}, {false, -1, 1}}};

/// How far the middle of an upright box stands from a point that it touches, on its way in a direction.
double ReachOf(const ClearLabel& label, PixelPoint way) {
  const double x = std::fabs(way.x) > 1e-9 ? label.halfWidth / std::fabs(way.x) : 1e9;
  const double y = std::fabs(way.y) > 1e-9 ? label.halfHeight / std::fabs(way.y) : 1e9;
  return std::min(x, y);
}

TurnedBox Upright(const ClearLabel& label, PixelPoint centre) {
  return {centre, {1, 0}, label.halfWidth, label.halfHeight};
}

} // namespace

PixelPoint ReadingDirection(PixelPoint along) {
  constexpr double Upright = 1e-6;
  if (std::fabs(along.x) < Upright) return {0, -1};
  return along.x > 0 ? along : -1 * along;
}

LabelPlaces::LabelPlaces(const ClearScene& scene) : Scene(scene), Blocked(scene.truss.joints.size()) {
  for (const ClearSupport& support : scene.supports) {
    Blocked[static_cast<std::size_t>(support.node)].push_back(support.off);
  }
  for (const ClearArrow& arrow : scene.arrows) {
    const auto n = static_cast<std::size_t>(arrow.node);
    Blocked[n].push_back(arrow.outer - scene.truss.joints[n].at);
  }
}

std::optional<TurnedBox> LabelPlaces::At(const ClearLabel& label, int place) {
  switch (label.kind) {
  case LabelKind::Force: return AtForce(label, place);
  case LabelKind::MemberNumber: return AtMemberNumber(label, place);
  case LabelKind::NodeNumber: return AtNodeNumber(label, place);
  case LabelKind::Arrow: break;
  }
  return AtArrow(label, place);
}

/// The side on which the member's neighbours are not; the reader's upper side where they are on both.
double LabelPlaces::FirstSide(const ClearBar& bar) const {
  const PixelPoint up = LeftOf(ReadingDirection(bar.along));
  bool above = false;
  bool below = false;
  for (const int n : {bar.i, bar.j}) {
    for (const double direction : Scene.truss.DirectionsAt(n)) {
      const double height = Dot({std::cos(direction), std::sin(direction)}, up);
      above = above || height > 0.1;
      below = below || height < -0.1;
    }
  }
  return above && !below ? -1 : 1;
}

/// First beside the line, then as far off that it passes the dots at its ends, and last, beside a steep member, level.
std::optional<TurnedBox> LabelPlaces::AtForce(const ClearLabel& label, int place) const {
  const ClearBar& bar = Scene.truss.bars[static_cast<std::size_t>(label.owner)];
  const double close = bar.width / 2 + ClearSize::LabelGap;
  if (place < 2 * AlongCount) return Along(label, bar, place, close, EndGap);
  const double off = std::max(close, DotGap);
  if (place < 4 * AlongCount) return Along(label, bar, place - 2 * AlongCount, off, 1);
  if (place >= 6 * AlongCount || std::fabs(bar.along.y) < MinSteepness) return std::nullopt;
  return Level(label, bar, place - 4 * AlongCount, off);
}

/// gap: between the line's middle and the label; end: what it keeps from the member's ends.
TurnedBox LabelPlaces::Along(const ClearLabel& label, const ClearBar& bar, int place, double gap, double end) const {
  const PixelPoint reading = ReadingDirection(bar.along);
  const double room = bar.length / 2 - end - label.halfWidth;
  if (place % AlongCount > 0 && room <= 0) return {};
  const double along = std::max(room, 0.0) * AlongMember.at(static_cast<std::size_t>(place % AlongCount));
  const double side = place < AlongCount ? FirstSide(bar) : -FirstSide(bar);
  const PixelPoint centre =
      0.5 * (bar.from + bar.to) + along * reading + (side * (gap + label.halfHeight)) * LeftOf(reading);
  return {centre, reading, label.halfWidth, label.halfHeight};
}

TurnedBox LabelPlaces::Level(const ClearLabel& label, const ClearBar& bar, int place, double gap) const {
  const PixelPoint reading = ReadingDirection(bar.along);
  const double room = bar.length / 2 - label.halfHeight;
  if (room <= 0) return {};
  const double along = room * AlongMember.at(static_cast<std::size_t>(place % AlongCount));
  const PixelPoint side = (place < AlongCount ? -FirstSide(bar) : FirstSide(bar)) * LeftOf(reading);
  const double reach = label.halfWidth * std::fabs(side.x) + label.halfHeight * std::fabs(side.y);
  return Upright(label, 0.5 * (bar.from + bar.to) + along * reading + (gap + reach) * side);
}

std::optional<TurnedBox> LabelPlaces::AtMemberNumber(const ClearLabel& label, int place) const {
  if (place >= AlongCount) return std::nullopt;
  const ClearBar& bar = Scene.truss.bars[static_cast<std::size_t>(label.owner)];
  const double room = bar.length / 2 - EndGap - ReachOf(label, bar.along);
  if (room < 0) return place == 0 ? std::optional(TurnedBox{}) : std::nullopt;
  const double along = room * AlongMember.at(static_cast<std::size_t>(place));
  return Upright(label, 0.5 * (bar.from + bar.to) + along * ReadingDirection(bar.along));
}

const std::vector<FreeAngle>& LabelPlaces::AnglesAt(int n) {
  if (AnglesOf == n) return Angles;
  const auto members = Scene.truss.DirectionsAt(n);
  std::vector<double> directions(members.begin(), members.end());
  for (const PixelPoint& way : Blocked[static_cast<std::size_t>(n)]) directions.push_back(std::atan2(way.y, way.x));
  Angles = FreeAngles(std::move(directions));
  AnglesOf = n;
  return Angles;
}

/// In the middle of each angle, and in a wide one also beside it.
std::optional<TurnedBox> LabelPlaces::AtNodeNumber(const ClearLabel& label, int place) {
  constexpr std::array<double, 3> Parts{0, -0.25, 0.25};
  const std::vector<FreeAngle>& angles = AnglesAt(label.owner);
  const std::size_t angle = static_cast<std::size_t>(place) / Parts.size();
  if (angle >= angles.size() || angles[angle].width < MinFreeAngle) return std::nullopt;
  const double part = Parts.at(static_cast<std::size_t>(place) % Parts.size());
  const double direction = angles[angle].middle + part * angles[angle].width;
  const PixelPoint way{std::cos(direction), std::sin(direction)};
  const PixelPoint node = Scene.truss.joints[static_cast<std::size_t>(label.owner)].at;
  return Upright(label, node + (NumberGap + ReachOf(label, way)) * way);
}

std::optional<TurnedBox> LabelPlaces::AtArrow(const ClearLabel& label, int place) const {
  if (place >= static_cast<int>(ArrowPlaces.size())) return std::nullopt;
  const ArrowPlace& chosen = ArrowPlaces.at(static_cast<std::size_t>(place));
  const ClearArrow& arrow = Scene.arrows[static_cast<std::size_t>(label.owner)];
  const PixelPoint line = arrow.tip - arrow.tail;
  const PixelPoint inner = arrow.outer == arrow.tail ? arrow.tip : arrow.tail;
  const PixelPoint outwards = (1 / LengthOf(line)) * (arrow.outer - inner);
  if (chosen.beyond) {
    return Upright(label, arrow.outer + (ClearSize::LabelGap + ReachOf(label, outwards)) * outwards);
  }
  const PixelPoint side = chosen.side * LeftOf(outwards);
  const double inwards =
      ReachOf(label, outwards) + chosen.part * std::max(0.0, LengthOf(line) - 2 * ReachOf(label, outwards));
  const double off = ClearSize::HeadHalfWidth + ClearSize::LabelGap + ReachOf(label, side);
  return Upright(label, arrow.outer - inwards * outwards + off * side);
}

} // namespace strutwright
