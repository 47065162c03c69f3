#pragma once

#include "TrussRim.h"
#include "modForceDiagram.h"

#include <cstddef>
#include <string>
#include <vector>

namespace strutwright {

/// The spaces of a force diagram and the halves of members that they touch.
struct DiagramSpaces {
  PlanarTruss planar;
  std::vector<int> spaceOf;                         ///< on the left of each half: index of a space
  std::vector<std::vector<int>> membersOf;          ///< indices, around each inner space
  std::vector<std::vector<std::size_t>> outerLines; ///< (0..nodeCount): lines of the outer forces, clockwise

  int LeftOf(int half) const { return spaceOf[static_cast<std::size_t>(half)]; }
  int RightOf(int half) const { return LeftOf(PlanarTruss::Twin(half)); }
};

/// The name of a space by its place among all: "A", ..., "Z", "A1", ...
std::string LetterOf(int index);

/// Adds the spaces to a diagram that has none: the outer ones with their points and letters and the lines between them,
/// the inner ones without points.  outerAt: (0..nodeCount), the outer forces of each node, at least one in all.
DiagramSpaces AddSpaces(const HandTruss& truss, PlanarTruss planar, const std::vector<std::vector<OuterForce>>& outerAt,
                        ForceDiagram& diagram);

/// Fills in `polygonOf`: around a node clockwise the spaces between its members, and at the rim those between its outer
/// forces too.
void CollectPolygons(const DiagramSpaces& spaces, ForceDiagram& diagram);

} // namespace strutwright
