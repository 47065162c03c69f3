#include "LabelCandidates.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace strutwright {

namespace {

/// How far from the middle of a member a label stands, as parts of the way to where it would reach its end.
constexpr std::array<double, 9> AlongMember{0, -0.25, 0.25, -0.5, 0.5, -0.75, 0.75, -1, 1};
constexpr int AlongCount = static_cast<int>(AlongMember.size());
static_assert(LabelCandidates::AlongPlaces == 4 * AlongCount);
constexpr double EndGap = ClearSize::NodeRadius + 2.5; // pixels that a label keeps from its member's ends
constexpr double DotGap = ClearSize::NodeRadius + ClearSize::NodeEdge + 1;
constexpr double NumberDotGap = ClearSize::NodeRadius + ClearSize::NodeEdge / 2 + 0.25; // a number keeps from its dot
constexpr double MinSteepness = 0.6;                                                    // sine of a member's slope
constexpr double MinFreeAngle = 0.35;                                                   // radians
constexpr double NumberGap = ClearSize::NodeRadius + 2;
constexpr std::array<double, 4> NumberRings{0, 3, 6, 10}; // pixels that a node's number stands farther off
constexpr double CloseGap = 1.5;                          // between a member's edge and a force that has little room
constexpr int CloseCount = 25;                            // places along a member, on either side, both ways to stand

/// A direction for each side of an arrow and how far from its ends the label stands.
struct ArrowPlace {
  bool beyond; ///< the outer end, otherwise beside
  double side; ///< 1 right of the way outwards, -1 left
  double part; ///< of the arrow from its outer end; below zero, of the label out over it
};
constexpr std::array<ArrowPlace, 11> ArrowPlaces{{{true, 0, 0},
                                                  {false, 1, 0},
                                                  {false, -1, 0},
                                                  {false, 1, 0.5},
                                                  {false, -1, 0.5},
                                                  {false, 1, 1},
                                                  {false, -1, 1},
                                                  {false, 1, -0.5},
                                                  {false, -1, -0.5},
                                                  {false, 1, -1},
                                                  {false, -1, -1}}};

/// How far the middle of an upright box stands from a point that it touches, on its way in a direction.
double ReachOf(const ClearLabel& label, PixelPoint way) {
  const double x = std::fabs(way.x) > 1e-9 ? label.halfWidth / std::fabs(way.x) : 1e9;
  const double y = std::fabs(way.y) > 1e-9 ? label.halfHeight / std::fabs(way.y) : 1e9;
  return std::min(x, y);
}

TurnedBox Upright(const ClearLabel& label, PixelPoint centre) {
  return {centre, {1, 0}, label.halfWidth, label.halfHeight};
}

/// A box off a node's dot, which a wide one comes near to when it stands askew; moved farther on its way.
TurnedBox OffDot(const TurnedBox& box, PixelPoint node, PixelPoint way) {
  const PixelPoint from = box.centre - node;
  const PixelPoint nearest{from.x - std::clamp(from.x, -box.halfLength, box.halfLength),
                           from.y - std::clamp(from.y, -box.halfHeight, box.halfHeight)};
  const double distance = LengthOf(nearest);
  if (distance >= NumberDotGap) return box;
  const PixelPoint across = distance > 0 ? (1 / distance) * nearest : way;
  return box.MovedBy(((NumberDotGap - distance) / Dot(across, way)) * way);
}

/// The places of a force beside its member.
struct BesideBar {
  const ClearLabel& label;
  const ClearBar& bar;
  double firstSide; ///< 1 on the reader's upper side, -1 on the lower one

  /// gap: between the line's middle and the label; end: what it keeps from the member's ends.
  TurnedBox Along(int place, double gap, double end) const {
    const double room = bar.length / 2 - end - label.halfWidth;
    if (place % AlongCount > 0 && room <= 0) return {};
    const double along = std::max(room, 0.0) * AlongMember.at(static_cast<std::size_t>(place % AlongCount));
    return AlongAt(along, place < AlongCount ? firstSide : -firstSide, gap);
  }

  /// part: of the way from the member's middle to where the label would reach its end.
  TurnedBox Level(double side, double part, double gap) const {
    const PixelPoint reading = ReadingDirection(bar.along);
    const double room = bar.length / 2 - label.halfHeight;
    if (room <= 0) return {};
    const PixelPoint across = side * LeftOf(reading);
    const double reach = label.halfWidth * std::fabs(across.x) + label.halfHeight * std::fabs(across.y);
    return Upright(label, 0.5 * (bar.from + bar.to) + room * part * reading + (gap + reach) * across);
  }

  /// Level or along, anywhere between the ends, as close to the line as can be; from the middle outwards.
  std::optional<TurnedBox> Closely(int place) const {
    if (place >= 4 * CloseCount) return std::nullopt;
    const int step = place / 4;
    const int stepsOut = (step + 1) / 2; // 0, 1 to one side, 1 to the other, 2 and so on
    const double part = (step % 2 == 0 ? stepsOut : -stepsOut) / (CloseCount / 2.0);
    const double side = place % 2 == 0 ? firstSide : -firstSide;
    const double gap = bar.width / 2 + CloseGap;
    return place % 4 < 2 ? Level(side, part, gap) : AlongAt(part * bar.length / 2, side, gap);
  }

 private:
  TurnedBox AlongAt(double along, double side, double gap) const {
    const PixelPoint reading = ReadingDirection(bar.along);
    const PixelPoint off = (side * (gap + label.halfHeight)) * LeftOf(reading);
    return {0.5 * (bar.from + bar.to) + along * reading + off, reading, label.halfWidth, label.halfHeight};
  }
};

} // namespace

PixelPoint ReadingDirection(PixelPoint along) {
  constexpr double Upright = 1e-6;
  if (std::fabs(along.x) < Upright) return {0, -1};
  return along.x > 0 ? along : -1 * along;
}

LabelCandidates::LabelCandidates(const ClearScene& scene, bool fine)
    : Scene(scene), Fine(fine), FirstSides(scene.truss.bars.size(), 0), Blocked(scene.truss.joints.size()) {
  for (const ClearSupport& support : scene.supports) {
    Blocked[static_cast<std::size_t>(support.node)].push_back(support.off);
  }
  for (const ClearArrow& arrow : scene.arrows) {
    const auto n = static_cast<std::size_t>(arrow.node);
    Blocked[n].push_back(arrow.outer - scene.truss.joints[n].at);
  }
}

std::optional<TurnedBox> LabelCandidates::At(const ClearLabel& label, int place) {
  switch (label.kind) {
  case LabelKind::Force: return AtForce(label, place);
  case LabelKind::MemberNumber: return AtMemberNumber(label, place);
  case LabelKind::NodeNumber: return AtNodeNumber(label, place);
  case LabelKind::Arrow: break;
  }
  return AtArrow(label, place);
}

double LabelCandidates::FirstSide(int bar) {
  signed char& side = FirstSides[static_cast<std::size_t>(bar)];
  if (side == 0) side = FreeSideOf(Scene.truss.bars[static_cast<std::size_t>(bar)]) > 0 ? 1 : -1;
  return side;
}

/// The side on which the member's neighbours are not; the reader's upper side where they are on both.
double LabelCandidates::FreeSideOf(const ClearBar& bar) const {
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

/// First beside the line, then as far off that it passes the dots at its ends, then, beside a steep member, level.
std::optional<TurnedBox> LabelCandidates::AtForce(const ClearLabel& label, int place) {
  const BesideBar beside{label, Scene.truss.bars[static_cast<std::size_t>(label.owner)], FirstSide(label.owner)};
  const ClearBar& bar = beside.bar;
  const double close = bar.width / 2 + ClearSize::LabelGap;
  if (place < 2 * AlongCount) return beside.Along(place, close, EndGap);
  const double off = std::max(close, DotGap);
  if (place < 4 * AlongCount) return beside.Along(place - 2 * AlongCount, off, 1);
  if (place >= 6 * AlongCount) return Fine ? beside.Closely(place - 6 * AlongCount) : std::nullopt;
  if (std::fabs(bar.along.y) < MinSteepness) return TurnedBox{};
  const int level = place - 4 * AlongCount;
  const double side = level < AlongCount ? -beside.firstSide : beside.firstSide;
  return beside.Level(side, AlongMember.at(static_cast<std::size_t>(level % AlongCount)), off);
}

std::optional<TurnedBox> LabelCandidates::AtMemberNumber(const ClearLabel& label, int place) const {
  if (place >= AlongCount) return std::nullopt;
  const ClearBar& bar = Scene.truss.bars[static_cast<std::size_t>(label.owner)];
  const double room = bar.length / 2 - EndGap - ReachOf(label, bar.along);
  if (room < 0) return place == 0 ? std::optional(TurnedBox{}) : std::nullopt;
  const double along = room * AlongMember.at(static_cast<std::size_t>(place));
  return Upright(label, 0.5 * (bar.from + bar.to) + along * ReadingDirection(bar.along));
}

/// In the middle of each angle and beside it.
const std::vector<PixelPoint>& LabelCandidates::WaysFrom(int n) {
  constexpr std::array<double, 5> Parts{0, -0.25, 0.25, -0.1, 0.1};
  if (WaysOf == n) return Ways;
  const auto members = Scene.truss.DirectionsAt(n);
  std::vector<double> directions(members.begin(), members.end());
  for (const PixelPoint& way : Blocked[static_cast<std::size_t>(n)]) directions.push_back(std::atan2(way.y, way.x));
  Ways.clear();
  for (const FreeAngle& angle : FreeAngles(std::move(directions))) {
    if (angle.width < MinFreeAngle) break;
    for (std::size_t part = 0; part < (Fine ? Parts.size() : 1); ++part) {
      const double direction = angle.middle + Parts.at(part) * angle.width;
      Ways.push_back({std::cos(direction), std::sin(direction)});
    }
  }
  WaysOf = n;
  return Ways;
}

/// Close to the node in each direction; then the same a little farther off.
std::optional<TurnedBox> LabelCandidates::AtNodeNumber(const ClearLabel& label, int place) {
  const std::vector<PixelPoint>& ways = WaysFrom(label.owner);
  const std::size_t rings = Fine ? NumberRings.size() : 1;
  const auto index = static_cast<std::size_t>(place);
  if (index >= ways.size() * rings) return std::nullopt;
  const PixelPoint way = ways[index % ways.size()];
  const PixelPoint node = Scene.truss.joints[static_cast<std::size_t>(label.owner)].at;
  const double off = NumberGap + NumberRings.at(index / ways.size()) + ReachOf(label, way);
  return OffDot(Upright(label, node + off * way), node, way);
}

std::optional<TurnedBox> LabelCandidates::AtArrow(const ClearLabel& label, int place) const {
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
  const double reach = ReachOf(label, outwards);
  const double room = chosen.part < 0 ? reach : std::max(0.0, LengthOf(line) - 2 * reach);
  const double inwards = reach + chosen.part * room;
  const double off = ClearSize::HeadHalfWidth + ClearSize::LabelGap + ReachOf(label, side);
  return Upright(label, arrow.outer - inwards * outwards + off * side);
}

} // namespace strutwright
