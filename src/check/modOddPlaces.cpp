#include "modOddPlaces.h"

#include "Neighbourhood.h"
#include "modMembersOnTop.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace strutwright {

namespace {

std::string Number(int number) { return std::to_string(number); }

/// Where a point lies as seen from the start of a member: along it and beside it, m.
struct Position {
  double along = 0;
  double beside = 0;
};

Position PositionOn(const CheckedTruss& truss, const CheckedMember& member, int node) {
  const double dx = truss.x[At(node)] - truss.x[At(member.i)];
  const double dy = truss.y[At(node)] - truss.y[At(member.i)];
  return {dx * member.c + dy * member.s, dy * member.c - dx * member.s};
}

/// The point at a share of a member's length.
Place PointOf(const CheckedTruss& truss, const CheckedMember& member, double share) {
  const Place start = PlaceOf(truss, member.i);
  const Place end = PlaceOf(truss, member.j);
  return {start[0] + share * (end[0] - start[0]), start[1] + share * (end[1] - start[1])};
}

/// Examines what lies close together, and keeps what is odd.
class OddNeighbours : public NeighbourVisitor {
 public:
  OddNeighbours(const CheckedTruss& truss, const std::vector<double>& tolerances)
      : Truss(truss), Tolerances(tolerances) {}

  void VisitMembers(int first, int second, const Cell& cell) override {
    const bool firstIsLonger = Truss.MemberAt(first).length >= Truss.MemberAt(second).length;
    const int longerIndex = firstIsLonger ? first : second;
    const int shorterIndex = firstIsLonger ? second : first;
    const CheckedMember& longer = Truss.MemberAt(longerIndex);
    const CheckedMember& shorter = Truss.MemberAt(shorterIndex);
    const Position start = PositionOn(Truss, longer, shorter.i);
    const Position end = PositionOn(Truss, longer, shorter.j);
    const double tolerance = Tolerances[At(longerIndex)];
    if (std::max(std::abs(start.beside), std::abs(end.beside)) <= tolerance) {
      if (OverlapIn(cell, longer, shorter, start, end, tolerance)) onTop.Add(NumberOf(first), NumberOf(second));
    } else if (AreApart(start, end, tolerance) && CrossIn(cell, longerIndex, shorterIndex, start, end)) {
      crossing.Add(NumberOf(first), NumberOf(second));
    }
  }

  void VisitNode(int node, int index) override {
    const CheckedMember& member = Truss.MemberAt(index);
    const Position position = PositionOn(Truss, member, node);
    const double end = CoordinateRounding * ReachOf(Truss, member);
    const bool within = position.along > end && position.along < member.length / 1000 - end;
    if (within && std::abs(position.beside) <= Tolerances[At(index)]) onMember.Add(node, member.number);
  }

  LowestPairs onTop;
  LowestPairs crossing;
  LowestPairs onMember;

 private:
  /// Whether both ends are off a line, on different sides of it.
  static bool AreApart(const Position& start, const Position& end, double tolerance) {
    return std::min(std::abs(start.beside), std::abs(end.beside)) > tolerance && (start.beside < 0) != (end.beside < 0);
  }

  /// Whether two members in line share more than a point, and this cell is the one to report it.
  bool OverlapIn(const Cell& cell, const CheckedMember& longer, const CheckedMember& shorter, const Position& start,
                 const Position& end, double tolerance) const {
    const double from = std::max(0.0, std::min(start.along, end.along));
    const double to = std::min(longer.length / 1000, std::max(start.along, end.along));
    if (to - from <= tolerance) return false;
    const double share = ((from + to) / 2 - start.along) / (end.along - start.along);
    return cell.Holds(PointOf(Truss, shorter, share));
  }

  /// Whether a member that passes the line of a longer one passes the member itself, in this cell.
  bool CrossIn(const Cell& cell, int longerIndex, int shorterIndex, const Position& start, const Position& end) const {
    const CheckedMember& longer = Truss.MemberAt(longerIndex);
    const CheckedMember& shorter = Truss.MemberAt(shorterIndex);
    const Position i = PositionOn(Truss, shorter, longer.i);
    const Position j = PositionOn(Truss, shorter, longer.j);
    if (!AreApart(i, j, Tolerances[At(shorterIndex)])) return false;
    return cell.Holds(PointOf(Truss, shorter, start.beside / (start.beside - end.beside)));
  }

  int NumberOf(int index) const { return Truss.MemberAt(index).number; }

  const CheckedTruss& Truss;
  const std::vector<double>& Tolerances;
};

void Report(const LowestPairs& pairs, FindingKind kind, FindingList& findings, Finding (*make)(int, int)) {
  const std::vector<LowestPairs::Pair> lowest = pairs.Lowest();
  for (const LowestPairs::Pair& pair : lowest) {
    findings.Add(kind, [&] { return make(pair.first, pair.second); });
  }
  findings.Count(kind, pairs.Count() - lowest.size());
}

Finding OnTopFinding(int below, int above) {
  return {FindingKind::MemberOnMember,
          "Member " + Number(above) + " lies on top of member " + Number(below),
          {},
          {below, above}};
}

Finding CrossingFinding(int first, int second) {
  return {FindingKind::CrossingMembers,
          "Members " + Number(first) + " and " + Number(second) + " cross without a node",
          {},
          {first, second}};
}

Finding NodeFinding(int node, int member) {
  return {FindingKind::NodeOnMember,
          "Node " + Number(node) + " lies on member " + Number(member) + " but is not joined to it",
          {node},
          {member}};
}

void FindFreeNodes(const CheckedTruss& truss, FindingList& findings) {
  std::vector<char> named(At(truss.nodeCount) + 1, 0);
  for (const CheckedMember& member : truss.members) named[At(member.i)] = named[At(member.j)] = 1;
  for (const int m : LeftOutMembers(truss)) {
    for (const MemberField field : {MemberNodeI, MemberNodeJ}) {
      const int node = RoundNodeNumber(MemberTable(m, field));
      if (node >= 1 && node <= truss.nodeCount) named[At(node)] = 1;
    }
  }
  for (int n = 1; n <= truss.nodeCount; ++n) {
    if (named[At(n)] != 0) continue;
    findings.Add(FindingKind::FreeNode, [&truss, n] {
      const std::string text = "Node " + Number(n) + " has no member";
      return Finding{FindingKind::FreeNode, truss.HasSupport(n) ? text : text + " and no support", {n}, {}};
    });
  }
}

void SayThatMoreMayBe(FindingList& findings) {
  findings.LeaveOpen(FindingKind::MemberOnMember);
  findings.LeaveOpen(FindingKind::NodeOnMember);
  findings.LeaveOpen(FindingKind::CrossingMembers,
                     "Too many members are close together to compare all of them; more of them may cross, or lie on "
                     "top of each other or on nodes");
}

} // namespace

std::vector<int> LeftOutMembers(const CheckedTruss& truss) {
  std::vector<int> leftOut;
  auto member = truss.members.begin();
  for (int m = 1; m <= truss.memberCount; ++m) {
    if (member != truss.members.end() && member->number == m) {
      ++member;
    } else {
      leftOut.push_back(m);
    }
  }
  return leftOut;
}

void FindOddPlaces(const CheckedTruss& truss, FindingList& findings) {
  const std::vector<double> tolerances = MemberTolerances(truss);
  OddNeighbours odd(truss, tolerances);
  const bool allFolds = FindMembersOnTop(truss, findings, odd.onTop);
  const bool allCells = Neighbourhood(truss, tolerances, odd).VisitAll();
  Report(odd.onTop, FindingKind::MemberOnMember, findings, OnTopFinding);
  Report(odd.crossing, FindingKind::CrossingMembers, findings, CrossingFinding);
  Report(odd.onMember, FindingKind::NodeOnMember, findings, NodeFinding);
  if (!allFolds || !allCells) SayThatMoreMayBe(findings);
  FindFreeNodes(truss, findings);
}

} // namespace strutwright
