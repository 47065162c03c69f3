#include "TrussRim.h"

#include "AnalysisState.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace strutwright {

namespace {

std::size_t RimPlace(int number) { return static_cast<std::size_t>(number); }

/// How far one turns clockwise from one direction to another, above 0 and up to a whole turn.
double ClockwiseTurn(double fromC, double fromS, double c, double s) {
  const double turn = std::atan2(fromS, fromC) - std::atan2(s, c);
  constexpr double whole = 2 * std::numbers::pi;
  const double positive = turn <= 0 ? turn + whole : turn;
  return positive <= 0 ? positive + whole : positive;
}

} // namespace

std::vector<OuterForce> OuterForcesAt(const HandTruss& truss, int node, const HandForces& forces) {
  std::vector<OuterForce> outer;
  if (truss.HasLoad(node)) {
    outer.push_back({ForceKind::Load, node, truss.load[XFreedom(node)], truss.load[YFreedom(node)]});
  }
  const auto reaction = [&](std::size_t d) { return truss.fixed[d] != 0 ? forces.reactions[d] : 0; };
  const double x = reaction(XFreedom(node));
  const double y = reaction(YFreedom(node));
  if (std::hypot(x, y) > truss.nothing) outer.push_back({ForceKind::Reaction, node, x, y});
  return outer;
}

bool TrussRim::StandsOutside(int node) const {
  const auto& halves = Planar.around[RimPlace(node)];
  return std::any_of(halves.begin(), halves.end(),
                     [this](int half) { return Planar.faceOf[RimPlace(half)] == Planar.outer; });
}

RimCorner TrussRim::CornerAt(std::size_t place) const {
  return {Halves()[place], Halves()[(place + 1) % Halves().size()]};
}

/// How wide the outside is at a corner of the rim, and how far into it a direction points; beyond it where it points
/// into the truss.
double TrussRim::WidthOf(const RimCorner& corner) const {
  const ForceLine out = LineOfHalf(Truss, corner.out);
  return TurnInto(corner, out.c, out.s);
}

double TrussRim::TurnInto(const RimCorner& corner, double c, double s) const {
  const ForceLine in = LineOfHalf(Truss, PlanarTruss::Twin(corner.in));
  return ClockwiseTurn(in.c, in.s, c, s);
}

/// How far into a corner the arrow of a force stands: its shaft where it pushes, else its head; the middle of a
/// corner that has room for neither.
std::pair<bool, double> TrussRim::Standing(const RimCorner& corner, const OuterForce& force) const {
  const double width = WidthOf(corner);
  const double shaft = TurnInto(corner, -force.x, -force.y);
  if (shaft < width) return {true, shaft};
  const double head = TurnInto(corner, force.x, force.y);
  if (head < width) return {true, head};
  return {false, width / 2};
}

/// The corner of a node's rim where a force stands: the first that has room for its arrow, else the widest.
std::size_t TrussRim::CornerFor(const OuterForce& force, const std::vector<std::size_t>& corners) const {
  std::size_t widest = corners.front();
  for (const std::size_t at : corners) {
    if (Standing(CornerAt(at), force).first) return at;
    if (WidthOf(CornerAt(at)) > WidthOf(CornerAt(widest))) widest = at;
  }
  return widest;
}

std::vector<std::vector<OuterForce>>
TrussRim::ForcesByCorner(const std::vector<std::vector<OuterForce>>& outerAt) const {
  std::vector<std::vector<std::size_t>> cornersOf(Truss.x.size());
  for (std::size_t at = 0; at < Halves().size(); ++at) {
    cornersOf[RimPlace(HeadOf(Truss, Halves()[at]))].push_back(at);
  }
  std::vector<std::vector<OuterForce>> byCorner(Halves().size());
  for (std::size_t node = 1; node < outerAt.size(); ++node) {
    for (const OuterForce& force : outerAt[node]) byCorner[CornerFor(force, cornersOf[node])].push_back(force);
  }
  for (std::size_t at = 0; at < byCorner.size(); ++at) {
    const RimCorner corner = CornerAt(at);
    std::stable_sort(byCorner[at].begin(), byCorner[at].end(), [&](const OuterForce& a, const OuterForce& b) {
      return Standing(corner, a).second < Standing(corner, b).second;
    });
  }
  return byCorner;
}

std::pair<double, double> TrussRim::Between(const RimCorner& corner, const OuterForce& one,
                                            const OuterForce& other) const {
  const ForceLine in = LineOfHalf(Truss, PlanarTruss::Twin(corner.in));
  const double turn = (Standing(corner, one).second + Standing(corner, other).second) / 2;
  return {in.c * std::cos(turn) + in.s * std::sin(turn), in.s * std::cos(turn) - in.c * std::sin(turn)};
}

} // namespace strutwright
