#include "Neighbourhood.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace strutwright {

namespace {

constexpr double LengthShare = 1e-6;
/// Pieces that are compared with each other without more ado.
constexpr std::size_t FewPieces = 20;
/// Share of the comparisons that may be left where halving a cell is worth it.
constexpr double WorthIt = 0.75;
constexpr double WorthItForNodes = 0.9;
/// Pairs of a node and a piece that are compared without more ado.
constexpr std::size_t FewPairs = 4000;
/// Comparisons of rectangles with each other, and with nodes, that are enough to say that a model is a tangle, and what
/// a visit counts beside them.
constexpr long MostEffort = 6000000;
constexpr long MostEffortForNodes = 6000000;
constexpr long VisitEffort = 12;
/// Where a cut lies between two middles of pieces: at equal distances it then passes beside the nodes.
constexpr double BetweenMiddles = 0.37;

constexpr double Infinity = std::numeric_limits<double>::infinity();

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
    : Truss(truss), Tolerances(tolerances), Visitor(visitor), EndCounts(At(truss.nodeCount) + 1, 0), Left(MostEffort),
      LeftForNodes(MostEffortForNodes) {}

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

/// A coordinate that leaves about half of the pieces on each side; nothing where all are in the same place.
std::optional<double> Neighbourhood::Divide(const Pieces& pieces, std::size_t axis) {
  constexpr std::size_t most = 16;
  std::array<double, most> middles{};
  const std::size_t count = std::min(most, pieces.size());
  for (std::size_t k = 0; k < count; ++k) {
    const Piece& piece = pieces[k * pieces.size() / count];
    middles[k] = (piece.low[axis] + piece.high[axis]) / 2;
  }
  const auto end = middles.begin() + static_cast<std::ptrdiff_t>(count);
  std::sort(middles.begin(), end);
  const double median = middles[count / 2];
  const auto above = std::upper_bound(middles.begin(), end, median);
  if (above != end) return median + BetweenMiddles * (*above - median);
  const auto from = std::lower_bound(middles.begin(), end, median);
  if (from == middles.begin()) return std::nullopt;
  return median - BetweenMiddles * (median - *std::prev(from));
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

Neighbourhood::Shares Neighbourhood::SharesOf(const Pieces& pieces, std::size_t axis, double at) {
  std::size_t lower = 0;
  std::size_t upper = 0;
  for (const Piece& piece : pieces) {
    if (piece.low[axis] <= at) ++lower;
    if (piece.high[axis] >= at) ++upper;
  }
  const auto count = static_cast<double>(pieces.size());
  return {static_cast<double>(lower) / count, static_cast<double>(upper) / count};
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
  const std::optional<double> at = Divide(pieces, axis);
  if (!at) return false;
  const Shares shares = SharesOf(pieces, axis, *at);
  if (shares.lower * shares.lower + shares.upper * shares.upper > WorthIt) return false;
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
    if (4 * (others - pieces.begin()) < pieces.end() - others) return;
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
  const std::optional<double> at = Divide(pieces, axis);
  if (!at) return false;
  const Shares shares = SharesOf(pieces, axis, *at);
  Nodes upperNodes = TakeUpper(nodes, axis, *at);
  const auto lowerCount = static_cast<double>(nodes.size());
  const auto upperCount = static_cast<double>(upperNodes.size());
  if (shares.lower * lowerCount + shares.upper * upperCount > WorthItForNodes * (lowerCount + upperCount)) {
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
