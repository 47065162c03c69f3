#include "modFindings.h"

#include "Neighbourhood.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace strutwright {

namespace {

constexpr double InLine = 1e-6; // sine of the angle up to which two members are parallel

std::string Number(int number) { return std::to_string(number); }

struct Point {
  double x = 0;
  double y = 0;
};

Point PlaceOf(const CheckedTruss& truss, int node) { return {truss.x[At(node)], truss.y[At(node)]}; }

/// Where a point lies as seen from the start of a member: along it and beside it, m.
struct Position {
  double along = 0;
  double beside = 0;
};

Position PositionOn(const CheckedTruss& truss, const CheckedMember& member, int node) {
  const Point start = PlaceOf(truss, member.i);
  const Point point = PlaceOf(truss, node);
  const double dx = point.x - start.x;
  const double dy = point.y - start.y;
  return {dx * member.c + dy * member.s, dy * member.c - dx * member.s};
}

bool Meet(const CheckedMember& a, const CheckedMember& b) {
  return a.i == b.i || a.i == b.j || a.j == b.i || a.j == b.j;
}

bool JoinTheSame(const CheckedMember& a, const CheckedMember& b) {
  return std::minmax(a.i, a.j) == std::minmax(b.i, b.j);
}

/// Whether two members share more than a point.
bool Overlap(const CheckedTruss& truss, const CheckedMember& a, const CheckedMember& b, double tolerance) {
  if (std::abs(a.c * b.s - a.s * b.c) > InLine) return false;
  const Position start = PositionOn(truss, a, b.i);
  const Position end = PositionOn(truss, a, b.j);
  if (std::max(std::abs(start.beside), std::abs(end.beside)) > tolerance) return false;
  const double from = std::max(0.0, std::min(start.along, end.along));
  const double to = std::min(a.length / 1000, std::max(start.along, end.along));
  return to - from > tolerance;
}

/// Whether two members pass through each other away from all four ends.
bool Cross(const CheckedTruss& truss, const CheckedMember& a, const CheckedMember& b, double tolerance) {
  if (Meet(a, b) || std::abs(a.c * b.s - a.s * b.c) <= InLine) return false;
  const auto apart = [&truss, tolerance](const CheckedMember& one, const CheckedMember& other) {
    const double start = PositionOn(truss, one, other.i).beside;
    const double end = PositionOn(truss, one, other.j).beside;
    return std::min(std::abs(start), std::abs(end)) > tolerance && (start < 0) != (end < 0);
  };
  return apart(a, b) && apart(b, a);
}

using Pairs = std::vector<std::pair<int, int>>;

/// In order, and each once.
Pairs Sorted(Pairs pairs) {
  std::sort(pairs.begin(), pairs.end());
  pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
  return pairs;
}

void FindCoincidentNodes(const CheckedTruss& truss, const Neighbourhood& near, std::vector<Finding>& findings) {
  Pairs pairs;
  near.ForNodePairs([&](int a, int b) {
    const Point first = PlaceOf(truss, a);
    const Point second = PlaceOf(truss, b);
    if (std::hypot(second.x - first.x, second.y - first.y) <= near.Tolerance()) pairs.emplace_back(a, b);
  });
  for (const auto& [a, b] : Sorted(pairs)) {
    findings.push_back({FindingKind::CoincidentNodes,
                        "Nodes " + Number(a) + " and " + Number(b) + " are at the same place",
                        {a, b},
                        {}});
  }
}

void FindNodesOnMembers(const CheckedTruss& truss, const Neighbourhood& near, std::vector<Finding>& findings) {
  Pairs pairs;
  near.ForNodesByMembers([&](int node, int index) {
    const CheckedMember& member = truss.members[static_cast<std::size_t>(index)];
    const Position position = PositionOn(truss, member, node);
    const double tolerance = near.Tolerance();
    const bool within = position.along > tolerance && position.along < member.length / 1000 - tolerance;
    if (within && std::abs(position.beside) <= tolerance) pairs.emplace_back(node, member.number);
  });
  for (const auto& [node, member] : Sorted(pairs)) {
    findings.push_back({FindingKind::NodeOnMember,
                        "Node " + Number(node) + " lies on member " + Number(member) + " but is not joined to it",
                        {node},
                        {member}});
  }
}

std::string TextOf(const CheckedMember& a, const CheckedMember& b, FindingKind kind) {
  const std::string both = "Members " + Number(a.number) + " and " + Number(b.number);
  if (kind == FindingKind::CrossingMembers) return both + " cross without a node";
  const auto [i, j] = std::minmax(a.i, a.j);
  if (JoinTheSame(a, b)) return both + " join the same nodes, " + Number(i) + " and " + Number(j) + "; both bear";
  return "Member " + Number(b.number) + " lies on top of member " + Number(a.number);
}

void FindMembersInTheWay(const CheckedTruss& truss, const Neighbourhood& near, std::vector<Finding>& findings) {
  const auto member = [&truss](int index) -> const CheckedMember& {
    return truss.members[static_cast<std::size_t>(index)];
  };
  Pairs onTop;
  Pairs crossing;
  near.ForMemberPairs([&](int first, int second) {
    if (!near.MayTouch(first, second)) return;
    const CheckedMember& a = member(first);
    const CheckedMember& b = member(second);
    if (Overlap(truss, a, b, near.Tolerance())) onTop.emplace_back(first, second);
    if (Cross(truss, a, b, near.Tolerance())) crossing.emplace_back(first, second);
  });
  const auto report = [&](const Pairs& pairs, FindingKind kind) {
    for (const auto& [a, b] : Sorted(pairs)) {
      findings.push_back({kind, TextOf(member(a), member(b), kind), {}, {member(a).number, member(b).number}});
    }
  };
  report(onTop, FindingKind::MemberOnMember);
  report(crossing, FindingKind::CrossingMembers);
}

void FindFreeNodes(const CheckedTruss& truss, std::vector<Finding>& findings) {
  std::vector<char> joined(At(truss.nodeCount) + 1, 0);
  for (const CheckedMember& member : truss.members) joined[At(member.i)] = joined[At(member.j)] = 1;
  for (int n = 1; n <= truss.nodeCount; ++n) {
    if (joined[At(n)] != 0) continue;
    const std::string text = "Node " + Number(n) + " has no member";
    findings.push_back({FindingKind::FreeNode, truss.HasSupport(n) ? text : text + " and no support", {n}, {}});
  }
}

} // namespace

std::vector<Finding> FindOddPlaces(const CheckedTruss& truss) {
  std::vector<Finding> findings;
  const Neighbourhood near(truss);
  FindCoincidentNodes(truss, near, findings);
  FindMembersInTheWay(truss, near, findings);
  FindNodesOnMembers(truss, near, findings);
  FindFreeNodes(truss, findings);
  return findings;
}

} // namespace strutwright
