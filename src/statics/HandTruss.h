#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// A member that joins two nodes over some length.  Its E and A play no part in statics, whatever they are.
struct HandMember {
  int number = 0;       ///< in MemberTable
  int i = 0;            ///< start node
  int j = 0;            ///< end node
  double c = 0;         ///< cosine of the direction from i to j
  double s = 0;         ///< sine of it
  double length = 0;    ///< m
  double doubt = 0;     ///< how far the rounding of its coordinates to 32 bits may have turned it, an angle
  double prestress = 0; ///< kN

  int OtherEnd(int node) const { return node == i ? j : i; }
  /// 1 where the direction points away from the node, so that tension pulls the node along it; -1 at the other end.
  int SignAt(int node) const { return node == i ? 1 : -1; }
};

/// A straight line that a force acts along.
struct ForceLine {
  double x = 0; ///< of a point on it, m
  double y = 0;
  double c = 1; ///< its direction
  double s = 0;
  double doubt = 0; ///< angle

  double Sine(const ForceLine& other) const { return c * other.s - s * other.c; }
};

/// The model as equilibrium sees it: nodes, loads, supports, and members as lines.
struct HandTruss {
  int nodeCount = 0;
  int memberCount = 0;                     ///< all rows, also those that are left out
  double size = 0;                         ///< largest extent of the nodes, m
  double nothing = 0;                      ///< a force no larger than this counts as none, kN
  std::vector<double> x;                   ///< (0..nodeCount), m
  std::vector<double> y;                   ///< (0..nodeCount), m
  std::vector<double> load;                ///< (0..2 nodeCount), kN, x of node n at 2n-1, y at 2n
  std::vector<char> fixed;                 ///< (0..2 nodeCount), 1 marks a restrained freedom
  std::vector<HandMember> members;         ///< in the order of their numbers
  std::vector<std::vector<int>> membersAt; ///< (0..nodeCount), indices in `members`, ascending
  std::vector<std::string> notes;          ///< a sentence for each member left out, and one about prestress

  int RestraintCount() const;
  bool HasSupport(int node) const;
  bool HasLoad(int node) const;
  /// The member's line as it leaves a node.
  ForceLine LineAt(int index, int node) const;
};

/// Reads the model tables.  A member counts unless it has no length or one of its numbers is no node; what is left out
/// is named in `notes`.
HandTruss ReadHandTruss();

/// True when two directions are one line, or were before their coordinates were rounded to 32 bits.
bool LieAlong(const ForceLine& one, const ForceLine& other);

} // namespace strutwright
