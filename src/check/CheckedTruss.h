#pragma once

#include "Directions.h"

#include <cstddef>
#include <vector>

namespace strutwright {

/// A member that has two nodes and a length.
struct CheckedMember {
  int number = 0;           ///< in MemberTable
  int i = 0;                ///< start node
  int j = 0;                ///< end node
  double c = 0;             ///< cosine of the direction from i to j
  double s = 0;             ///< sine of it
  double length = 0;        ///< mm
  double axialRigidity = 0; ///< E A in kN; 0 where E or A is not above zero
  double prestress = 0;     ///< kN
  double doubt = 0;         ///< how far rounding of its coordinates may have turned it, an angle

  bool CanCarryForce() const { return axialRigidity > 0; }
  Direction Towards() const { return {c, s, doubt}; }
};

/// The model as the check sees it: read from the tables, kept in double, without what can't bear anything.
/// The analysis has its own way with members that it ignores (docs/method.md, 3); the check leaves them out.
struct CheckedTruss {
  int nodeCount = 0;
  int memberCount = 0;                ///< all, also those that are left out
  double size = 0;                    ///< largest extent of the nodes, m
  std::vector<double> x;              ///< (0..nodeCount), m
  std::vector<double> y;              ///< (0..nodeCount), m
  std::vector<double> load;           ///< (0..2 nodeCount), kN, as applied at the nodes
  std::vector<char> fixed;            ///< (0..2 nodeCount), 1 marks a restrained freedom
  std::vector<CheckedMember> members; ///< in the order of their numbers

  const CheckedMember& MemberAt(int index) const { return members[static_cast<std::size_t>(index)]; }
  std::size_t FreedomCount() const { return 2 * static_cast<std::size_t>(nodeCount); }
  bool IsFixed(int node) const;
  bool HasSupport(int node) const;
};

/// Stands where an index of a member is expected and there is none.
inline constexpr std::size_t NoMember = static_cast<std::size_t>(-1);

/// The freedoms of a node in the arrays above.
constexpr std::size_t AlongX(int node) { return static_cast<std::size_t>(2 * node - 1); }
constexpr std::size_t AlongY(int node) { return static_cast<std::size_t>(2 * node); }
constexpr std::size_t At(int number) { return static_cast<std::size_t>(number); }

/// Load of every freedom (0..2 nodeCount) in kN, with what prestress exerts on the nodes.  What can't bear holds no
/// prestress either, though the analysis pushes with it.
std::vector<double> LoadsWithPrestress(const CheckedTruss& truss);

/// The largest load or prestress, kN; the measure for what counts as no force.
double LargestCause(const CheckedTruss& truss);

/// How far the rounding of coordinates has turned a member at most, taken that they were typed as decimal numbers; an
/// angle, and so about the relative error that it makes in forces.
double LargestTurn(const CheckedTruss& truss);

/// Reads the model tables.  Members that name no existing node, join a node to itself or have no length stay out.
CheckedTruss ReadTruss();

/// Elongation of a member under displacements (0..2 nodeCount), in their unit.
// e = c (uj - ui) + s (vj - vi).   Checked: rigid motion gives none.
template <typename Number>
Number Elongation(const CheckedMember& member, const std::vector<Number>& u) {
  return member.c * (u[AlongX(member.j)] - u[AlongX(member.i)]) +
         member.s * (u[AlongY(member.j)] - u[AlongY(member.i)]);
}

} // namespace strutwright
