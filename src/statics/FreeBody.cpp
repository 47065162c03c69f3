#include "FreeBody.h"

#include "AnalysisState.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace strutwright {

namespace {

void AddOuterForces(const HandTruss& truss, int node, const HandForces& forces, FreeBody& body) {
  const auto at = static_cast<std::size_t>(node);
  const double x = truss.x[at];
  const double y = truss.y[at];
  if (truss.HasLoad(node)) {
    const double fx = truss.load[XFreedom(node)];
    const double fy = truss.load[YFreedom(node)];
    const double size = std::hypot(fx, fy);
    body.forces.push_back({ForceKind::Load, node, 0, 0, {x, y, fx / size, fy / size, 0}, "", true, size});
  }
  const auto addReaction = [&](std::size_t freedom, bool isX) {
    if (truss.fixed[freedom] == 0) return;
    const std::string name = "R" + std::to_string(node) + (isX ? "x" : "y");
    const ForceLine line{x, y, isX ? 1.0 : 0.0, isX ? 0.0 : 1.0, 0};
    const bool isKnown = forces.reactionKnown[freedom] != 0;
    body.forces.push_back(
        {ForceKind::Reaction, node, 0, freedom, line, name, isKnown, isKnown ? forces.reactions[freedom] : 0});
  };
  addReaction(XFreedom(node), true);
  addReaction(YFreedom(node), false);
}

void AddCutMembers(const HandTruss& truss, int node, const HandForces& forces, FreeBody& body) {
  for (const int index : truss.membersAt[static_cast<std::size_t>(node)]) {
    const HandMember& member = truss.members[static_cast<std::size_t>(index)];
    if (std::binary_search(body.nodes.begin(), body.nodes.end(), member.OtherEnd(node))) continue;
    const auto number = static_cast<std::size_t>(member.number);
    const bool isKnown = forces.memberKnown[number] != 0;
    BodyForce force{ForceKind::Member,
                    node,
                    member.number,
                    0,
                    truss.LineAt(index, node),
                    "F" + std::to_string(member.number),
                    isKnown,
                    isKnown ? forces.members[number] : 0};
    force.farNode = member.OtherEnd(node);
    force.farX = truss.x[static_cast<std::size_t>(force.farNode)];
    force.farY = truss.y[static_cast<std::size_t>(force.farNode)];
    body.forces.push_back(force);
  }
}

/// Indices of the known forces, clockwise as their arrows stand; of those along one line the earlier first.
std::vector<int> Clockwise(const FreeBody& body) {
  std::vector<std::pair<double, int>> byAngle;
  for (int k = 0; k < static_cast<int>(body.forces.size()); ++k) {
    const BodyForce& force = body.forces[static_cast<std::size_t>(k)];
    if (force.isKnown) byAngle.emplace_back(-std::atan2(force.line.s, force.line.c), k);
  }
  std::sort(byAngle.begin(), byAngle.end());
  std::vector<int> order;
  for (const auto& [angle, k] : byAngle) order.push_back(k);
  return order;
}

} // namespace

HandForces::HandForces(const HandTruss& truss)
    : members(static_cast<std::size_t>(truss.memberCount) + 1, 0), reactions(truss.fixed.size(), 0),
      memberKnown(members.size(), 0), reactionKnown(reactions.size(), 0) {}

HandForces::HandForces(std::vector<double> memberForces, std::vector<double> supportForces)
    : members(std::move(memberForces)), reactions(std::move(supportForces)), memberKnown(members.size(), 1),
      reactionKnown(reactions.size(), 1) {}

FreeBody CutFree(const HandTruss& truss, const std::vector<int>& nodes, const HandForces& forces) {
  FreeBody body{nodes, {}, truss.nothing};
  for (const int node : nodes) AddOuterForces(truss, node, forces, body);
  for (const int node : nodes) AddCutMembers(truss, node, forces, body);
  return body;
}

std::vector<PolygonSide> ForcePolygon(const FreeBody& body, const std::vector<int>& later) {
  const auto isLater = [&](int k) { return std::find(later.begin(), later.end(), k) != later.end(); };
  std::vector<int> order = Clockwise(body);
  // The first that was known before, behind the last of those that were not.
  auto first = std::find_if(order.begin(), order.end(), isLater);
  first = std::find_if_not(first, order.end(), isLater);
  if (first != order.end()) std::rotate(order.begin(), first, order.end());
  std::vector<PolygonSide> polygon;
  double x = 0;
  double y = 0;
  for (const int k : order) {
    const BodyForce& force = body.forces[static_cast<std::size_t>(k)];
    const PolygonSide side{k, x, y, x + force.value * force.line.c, y + force.value * force.line.s};
    polygon.push_back(side);
    x = side.x1;
    y = side.y1;
  }
  return polygon;
}

double ClosingError(const std::vector<PolygonSide>& polygon) {
  return polygon.empty() ? 0 : std::hypot(polygon.back().x1, polygon.back().y1);
}

} // namespace strutwright
