#include "Neighbourhood.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace strutwright {

namespace {

constexpr double LengthShare = 1e-6; // of a member, for the tolerance
/// Pieces that are compared with each other without more ado.
constexpr std::size_t FewPieces = 20;
/// Share of the comparisons that may be left where halving a cell is worth it.
constexpr double WorthIt = 0.75;
constexpr double WorthItForNodes = 0.9;
/// Pairs of a node and a piece that are compared without more ado.
constexpr std::size_t FewPairs = 4000;
/// After so many comparisons of rectangles with each other, or with nodes, the model counts as a tangle and the search
/// gives up.  A visit counts as so many comparisons.
constexpr long MaxEffort = 6000000;
constexpr long MaxEffortForNodes = 6000000;
constexpr long VisitEffort = 12;
/// Members nearby for each one at a hub.
constexpr double MaxMembersPerSpoke = 5;
/// Places that are looked at to find about the middle of many.
constexpr std::size_t SampleSize = 16;
/// Where a cut lies between two middles of pieces: at equal distances it then passes beside the nodes.
constexpr double BetweenMiddles = 0.37;

constexpr double Infinity = std::numeric_limits<double>::infinity();

/// Whether so many of the members nearby have a node in common that it saves much not to compare them.
bool IsHub(double spokes, double all) { return MaxMembersPerSpoke * spokes >= all; }

/// A coordinate that leaves about half of some things on each side, by a few of them; nothing where these are all in
/// one place.  middleOf: the coordinate of each thing.
template <typename MiddleOf>
std::optional<double> Divide(std::size_t count, const MiddleOf& middleOf) {
  std::array<double, SampleSize> middles{};
  const std::size_t used = std::min(SampleSize, count);
  for (std::size_t k = 0; k < used; ++k) middles[k] = middleOf(k * count / used);
  const auto end = middles.begin() + static_cast<std::ptrdiff_t>(used);
  std::sort(middles.begin(), end);
  const double median = middles[used / 2];
  const auto above = std::upper_bound(middles.begin(), end, median);
  if (above != end) return median + BetweenMiddles * (*above - median);
  const auto from = std::lower_bound(middles.begin(), end, median);
  if (from == middles.begin()) return std::nullopt;
  return median - BetweenMiddles * (median - *std::prev(from));
}

} // namespace

double ReachOf(const CheckedTruss& truss, int node) {
  return std::max(std::abs(truss.x[At(node)]), std::abs(truss.y[At(node)]));
}

double ReachOf(const CheckedTruss& truss, const CheckedMember& member) {
  return std::max(ReachOf(truss, member.i), ReachOf(truss, member.j));
}

std::vector<double> MemberTolerances(const CheckedTruss& truss) {
  std::vector<double> tolerances;
  tolerances.reserve(truss.members.size());
  for (const CheckedMember& member : truss.members) {
    tolerances.push_back(LengthShare * member.length / 1000 + CoordinateRounding * ReachOf(truss, member));
  }
  return tolerances;
}

Neighbourhood::Neighbourhood(const CheckedTruss& truss, const std::vector<double>& tolerances,
                             NeighbourVisitor& visitor)
    : Truss(truss), Tolerances(tolerances), Visitor(visitor), EndCounts(At(truss.nodeCount) + 1, 0), Left(MaxEffort),
      LeftForNodes(MaxEffortForNodes) {}

bool Neighbourhood::VisitAll() {
  Pieces pieces = AllPieces();
  Nodes nodes;
  for (int n = 1; n <= Truss.nodeCount; ++n) nodes.push_back(n);
  Enter({{-Infinity, -Infinity}, {Infinity, Infinity}}, pieces, nodes);
  return Left >= 0 && LeftForNodes >= 0;
}

Neighbourhood::Pieces Neighbourhood::AllPieces() const {
  Pieces pieces;
  pieces.reserve(Truss.members.size());
  for (std::size_t m = 0; m < Truss.members.size(); ++m) {
    const CheckedMember& member = Truss.members[m];
    const double margin = Tolerances[m];
    const auto [left, right] = std::minmax(Truss.x[At(member.i)], Truss.x[At(member.j)]);
    const auto [bottom, top] = std::minmax(Truss.y[At(member.i)], Truss.y[At(member.j)]);
    pieces.push_back(
        {static_cast<int>(m), member.i, member.j, {left - margin, bottom - margin}, {right + margin, top + margin}});
  }
  return pieces;
}

/// Takes off what lies beyond a cut, but for the tolerance: a point in the cell may be that far from the member.
void Neighbourhood::Cut(Piece& piece, std::size_t axis, double at, bool keepLow) const {
  const CheckedMember& member = Truss.members[static_cast<std::size_t>(piece.member)];
  const double margin = Tolerances[static_cast<std::size_t>(piece.member)];
  const double along = axis == 0 ? member.c : member.s;
  const double beside = axis == 0 ? member.s : member.c;
  const double end = keepLow ? at + 2 * margin : at - 2 * margin;
  if (keepLow ? end >= piece.high[axis] - margin : end <= piece.low[axis] + margin) return;
  (keepLow ? piece.high : piece.low)[axis] = keepLow ? end + margin : end - margin;
  if (along == 0 || beside == 0) return;
  const std::size_t other = 1 - axis;
  const Place start = PlaceOf(Truss, member.i);
  const double height = start[other] + (end - start[axis]) * (beside / along);
  const bool rising = (beside > 0) == (along > 0);
  if (rising == keepLow) {
    piece.high[other] = std::min(piece.high[other], height + margin);
  } else {
    piece.low[other] = std::max(piece.low[other], height - margin);
  }
}

Neighbourhood::Pieces Neighbourhood::Side(const Pieces& pieces, std::size_t axis, double at, bool low) const {
  Pieces side;
  side.reserve(pieces.size());
  for (const Piece& piece : pieces) {
    if (low ? piece.low[axis] > at : piece.high[axis] < at) continue;
    side.push_back(piece);
    const bool reachesAcross = low ? piece.high[axis] > at : piece.low[axis] < at;
    if (reachesAcross) Cut(side.back(), axis, at, low);
  }
  return side;
}

/// hub: counts only the pieces of this node's members; 0 counts all.
Neighbourhood::Counts Neighbourhood::CountsOf(const Pieces& pieces, std::size_t axis, double at, int hub) {
  Counts counts{};
  for (const Piece& piece : pieces) {
    if (hub != 0 && piece.i != hub && piece.j != hub) continue;
    counts.all += 1;
    if (piece.low[axis] <= at) counts.lower += 1;
    if (piece.high[axis] >= at) counts.upper += 1;
  }
  return counts;
}

bool Neighbourhood::IsWorthIt(const Pieces& pieces, std::size_t axis, double at) {
  const auto squared = [](double count) { return count * count; };
  const Counts all = CountsOf(pieces, axis, at, 0);
  if (squared(all.lower) + squared(all.upper) <= WorthIt * squared(all.all)) return true;
  // Members of one node are not compared with each other.
  const Counts spokes = CountsOf(pieces, axis, at, CommonestNode(pieces));
  const double now = squared(all.all) - squared(spokes.all);
  const double then = squared(all.lower) - squared(spokes.lower) + squared(all.upper) - squared(spokes.upper);
  return now > squared(FewPieces) && IsHub(spokes.all, all.all) && then <= WorthIt * now;
}

/// Takes the nodes above a coordinate out of the list.
Neighbourhood::Nodes Neighbourhood::TakeUpper(Nodes& nodes, std::size_t axis, double at) const {
  const std::vector<double>& coordinates = axis == 0 ? Truss.x : Truss.y;
  const auto middle = std::partition(nodes.begin(), nodes.end(), [&](int node) { return coordinates[At(node)] < at; });
  Nodes upper(middle, nodes.end());
  nodes.erase(middle, nodes.end());
  return upper;
}

/// Halves the cell across an axis and enters both halves, if that is worth it.
bool Neighbourhood::EnterHalves(const Cell& cell, const Pieces& pieces, Nodes& nodes, std::size_t axis) {
  const auto middleOf = [&](std::size_t k) { return (pieces[k].low[axis] + pieces[k].high[axis]) / 2; };
  const std::optional<double> at = Divide(pieces.size(), middleOf);
  if (!at || !IsWorthIt(pieces, axis, *at)) return false;
  Pieces lower = Side(pieces, axis, *at, true);
  Pieces upper = Side(pieces, axis, *at, false);
  Nodes upperNodes = TakeUpper(nodes, axis, *at);
  Cell lowerCell = cell;
  Cell upperCell = cell;
  lowerCell.high[axis] = upperCell.low[axis] = *at;
  Enter(lowerCell, lower, nodes);
  Enter(upperCell, upper, upperNodes);
  return true;
}

std::size_t Neighbourhood::LongerAxis(const Pieces& pieces) {
  Place low{Infinity, Infinity};
  Place high{-Infinity, -Infinity};
  for (const Piece& piece : pieces) {
    for (const std::size_t axis : {0U, 1U}) {
      low[axis] = std::min(low[axis], piece.low[axis]);
      high[axis] = std::max(high[axis], piece.high[axis]);
    }
  }
  return high[0] - low[0] >= high[1] - low[1] ? 0 : 1;
}

void Neighbourhood::Enter(const Cell& cell, Pieces& pieces, Nodes& nodes) {
  Left -= static_cast<long>(pieces.size());
  if (pieces.size() > FewPieces && Left >= 0) {
    const std::size_t longer = LongerAxis(pieces);
    if (EnterHalves(cell, pieces, nodes, longer) || EnterHalves(cell, pieces, nodes, 1 - longer)) return;
  }
  CompareNodes(pieces, nodes);
  Compare(cell, pieces);
}

int Neighbourhood::CommonestNode(const Pieces& pieces) {
  int commonest = 0;
  for (const Piece& piece : pieces) {
    for (const int node : {piece.i, piece.j}) {
      if (++EndCounts[At(node)] > EndCounts[At(commonest)]) commonest = node;
    }
  }
  for (const Piece& piece : pieces) EndCounts[At(piece.i)] = EndCounts[At(piece.j)] = 0;
  return commonest;
}

/// Takes out the members of a node that many have in common: they are not compared with each other.
void Neighbourhood::CompareHubs(const Cell& cell, Pieces& pieces) {
  while (pieces.size() > FewPieces && Left >= 0) {
    const int hub = CommonestNode(pieces);
    const auto others =
        std::partition(pieces.begin(), pieces.end(), [hub](const Piece& p) { return p.i == hub || p.j == hub; });
    const auto spokes = static_cast<double>(others - pieces.begin());
    if (!IsHub(spokes, static_cast<double>(pieces.size()))) return;
    for (auto spoke = pieces.begin(); spoke != others && Left >= 0; ++spoke) {
      for (auto other = others; other != pieces.end(); ++other) ComparePair(cell, *spoke, *other);
    }
    pieces.erase(pieces.begin(), others);
  }
}

void Neighbourhood::Compare(const Cell& cell, Pieces& pieces) {
  CompareHubs(cell, pieces);
  for (auto one = pieces.begin(); one != pieces.end() && Left >= 0; ++one) {
    for (auto other = one + 1; other != pieces.end(); ++other) ComparePair(cell, *one, *other);
  }
}

void Neighbourhood::ComparePair(const Cell& cell, const Piece& a, const Piece& b) {
  --Left;
  if (!Touch(a, b) || Meet(a, b)) return;
  Left -= VisitEffort;
  Visitor.VisitMembers(std::min(a.member, b.member), std::max(a.member, b.member), cell);
}

/// Halves a cell where that is worth it for the nodes alone.
bool Neighbourhood::CompareNodesOfHalves(const Pieces& pieces, Nodes& nodes, std::size_t axis) {
  const std::vector<double>& coordinates = axis == 0 ? Truss.x : Truss.y;
  const auto coordinateOf = [&](std::size_t k) { return coordinates[At(nodes[k])]; };
  const std::optional<double> at = Divide(nodes.size(), coordinateOf);
  if (!at) return false;
  const Counts counts = CountsOf(pieces, axis, *at, 0);
  Nodes upperNodes = TakeUpper(nodes, axis, *at);
  const auto lowerCount = static_cast<double>(nodes.size());
  const auto upperCount = static_cast<double>(upperNodes.size());
  const double now = counts.all * (lowerCount + upperCount);
  if (counts.lower * lowerCount + counts.upper * upperCount > WorthItForNodes * now) {
    nodes.insert(nodes.end(), upperNodes.begin(), upperNodes.end());
    return false;
  }
  CompareNodes(Side(pieces, axis, *at, true), nodes);
  CompareNodes(Side(pieces, axis, *at, false), upperNodes);
  return true;
}

void Neighbourhood::CompareNodes(const Pieces& pieces, Nodes& nodes) {
  LeftForNodes -= static_cast<long>(pieces.size());
  if (nodes.empty() || LeftForNodes < 0) return;
  if (pieces.size() * nodes.size() > FewPairs) {
    const std::size_t longer = LongerAxis(pieces);
    if (CompareNodesOfHalves(pieces, nodes, longer) || CompareNodesOfHalves(pieces, nodes, 1 - longer)) return;
  }
  for (auto node = nodes.begin(); node != nodes.end() && LeftForNodes >= 0; ++node) {
    LeftForNodes -= static_cast<long>(pieces.size());
    CompareNode(*node, pieces);
  }
}

void Neighbourhood::CompareNode(int node, const Pieces& pieces) {
  const Place place = PlaceOf(Truss, node);
  for (const Piece& piece : pieces) {
    const bool outsideX = place[0] < piece.low[0] || place[0] > piece.high[0];
    const bool outsideY = place[1] < piece.low[1] || place[1] > piece.high[1];
    if (outsideX || outsideY || piece.i == node || piece.j == node) continue;
    LeftForNodes -= VisitEffort;
    Visitor.VisitNode(node, piece.member);
  }
}

} // namespace strutwright
