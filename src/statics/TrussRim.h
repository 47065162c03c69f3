#pragma once

#include "FreeBody.h"
#include "modPlanar.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace strutwright {

/// A load, or a reaction as a whole.
struct OuterForce {
  ForceKind kind = ForceKind::Load;
  int node = 0;
  double x = 0; ///< kN
  double y = 0;
};

/// What acts on a node from outside: its load, then its reaction.
std::vector<OuterForce> OuterForcesAt(const HandTruss& truss, int node, const HandForces& forces);

/// Where two halves of the rim meet: who comes, who goes on.
struct RimCorner {
  int in = 0;
  int out = 0;
};

/// The outside of a truss without crossings: its corners clockwise, and where on them outer forces stand.
class TrussRim {
 public:
  /// Both must outlive it.
  TrussRim(const HandTruss& truss, const PlanarTruss& planar) : Truss(truss), Planar(planar) {}

  bool StandsOutside(int node) const;

  std::size_t CornerCount() const { return Halves().size(); }
  RimCorner CornerAt(std::size_t place) const;

  /// The outer forces of each corner, clockwise.  outerAt: (0..nodeCount), those of each node.
  std::vector<std::vector<OuterForce>> ForcesByCorner(const std::vector<std::vector<OuterForce>>& outerAt) const;

  /// The direction out of a corner half-way between the arrows of two forces that stand there.
  std::pair<double, double> Between(const RimCorner& corner, const OuterForce& one, const OuterForce& other) const;

 private:
  const std::vector<int>& Halves() const { return Planar.faces[static_cast<std::size_t>(Planar.outer)]; }
  double WidthOf(const RimCorner& corner) const;
  double TurnInto(const RimCorner& corner, double c, double s) const;
  std::pair<bool, double> Standing(const RimCorner& corner, const OuterForce& force) const;
  std::size_t CornerFor(const OuterForce& force, const std::vector<std::size_t>& corners) const;

  const HandTruss& Truss;
  const PlanarTruss& Planar;
};

} // namespace strutwright
