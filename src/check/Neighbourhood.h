#pragma once

#include "CheckedTruss.h"

#include <array>
#include <cstddef>
#include <vector>

namespace strutwright {

/// Two coordinates, x and y, in m.
using Place = std::array<double, 2>;

inline Place PlaceOf(const CheckedTruss& truss, int node) { return {truss.x[At(node)], truss.y[At(node)]}; }

/// How far two numbers of the size of a coordinate may be apart and still count as one: a few units in the last place
/// of a 32-bit float.
inline constexpr double CoordinateRounding = 2.5e-7;

/// The larger coordinate of a node without its sign, m.
double ReachOf(const CheckedTruss& truss, int node);

/// The same of both ends of a member.
double ReachOf(const CheckedTruss& truss, const CheckedMember& member);

/// How far from each member a point may lie and still count as on it, m: what 32-bit coordinates leave open, and a
/// millionth of its length.
std::vector<double> MemberTolerances(const CheckedTruss& truss);

/// A rectangle of the plane, without its right and upper edges.  The cells of a Neighbourhood hold each point once.
struct Cell {
  Place low;
  Place high;

  bool Holds(const Place& point) const {
    return point[0] >= low[0] && point[0] < high[0] && point[1] >= low[1] && point[1] < high[1];
  }
};

/// Is called with what lies close together.
class NeighbourVisitor {
 public:
  virtual ~NeighbourVisitor() = default;

  /// Two members without a common node, as indices in the truss in ascending order, that may come within their
  /// tolerances of each other in this cell; they may come in other cells again.
  virtual void VisitMembers(int first, int second, const Cell& cell) = 0;

  /// A node and the index of a member that doesn't end there but may come within its tolerance; each pair comes once.
  virtual void VisitNode(int node, int member) = 0;
};

/// Nodes and members of a truss in rectangular cells, halved as long as that saves comparisons, so that only what is
/// near is compared with each other.  Neither scale nor place of the truss matters, nor single nodes far away.
/// An R-tree (Boost.Geometry's) over the members' rectangles is a third of the code, and the findings take twice to
/// seven times as long: rectangles of sloping members are large, and all members of a node lie near each other.
class Neighbourhood {
 public:
  /// tolerances: MemberTolerances.  All three must outlive this.
  Neighbourhood(const CheckedTruss& truss, const std::vector<double>& tolerances, NeighbourVisitor& visitor);

  /// Visits everything that is near each other; false where there is so much of it that it gave up.
  bool VisitAll();

 private:
  /// The rectangle around what lies of a member in a cell, the tolerance of the member larger.
  struct Piece {
    int member; ///< index
    int i;
    int j;
    Place low;
    Place high;
  };
  using Pieces = std::vector<Piece>;
  using Nodes = std::vector<int>;
  /// How many pieces there are, and how many lie, at least in part, on either side of a cut.
  struct Counts {
    double all;
    double lower;
    double upper;
  };

  static bool Meet(const Piece& a, const Piece& b) { return a.i == b.i || a.i == b.j || a.j == b.i || a.j == b.j; }
  static bool Touch(const Piece& a, const Piece& b) {
    return a.low[0] <= b.high[0] && b.low[0] <= a.high[0] && a.low[1] <= b.high[1] && b.low[1] <= a.high[1];
  }
  static Counts CountsOf(const Pieces& pieces, std::size_t axis, double at, int hub);
  static std::size_t LongerAxis(const Pieces& pieces);

  Pieces AllPieces() const;
  bool IsWorthIt(const Pieces& pieces, std::size_t axis, double at);
  void Cut(Piece& piece, std::size_t axis, double at, bool keepLow) const;
  Pieces Side(const Pieces& pieces, std::size_t axis, double at, bool low) const;
  void Enter(const Cell& cell, Pieces& pieces, Nodes& nodes);
  Nodes TakeUpper(Nodes& nodes, std::size_t axis, double at) const;
  bool EnterHalves(const Cell& cell, const Pieces& pieces, Nodes& nodes, std::size_t axis);
  void Compare(const Cell& cell, Pieces& pieces);
  void CompareHubs(const Cell& cell, Pieces& pieces);
  int CommonestNode(const Pieces& pieces);
  void ComparePair(const Cell& cell, const Piece& a, const Piece& b);
  void CompareNodes(const Pieces& pieces, Nodes& nodes);
  bool CompareNodesOfHalves(const Pieces& pieces, Nodes& nodes, std::size_t axis);
  void CompareNode(int node, const Pieces& pieces);

  const CheckedTruss& Truss;
  const std::vector<double>& Tolerances;
  NeighbourVisitor& Visitor;
  std::vector<int> EndCounts; ///< of the nodes, while a commonest is looked for
  long Left;                  ///< effort that is left to compare members
  long LeftForNodes;          ///< the same for nodes with members
};

} // namespace strutwright
