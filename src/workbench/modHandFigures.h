#pragma once

#include "FreeBody.h"
#include "HandTruss.h"
#include "Sketch.h"
#include "modForceDiagram.h"
#include "modZeroMembers.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace strutwright {

// The figures of the hand methods.  An arrow points where its force acts; a member's force that is not known yet is
// drawn as tension.

/// What stands out in the figure of a whole truss.
struct FigureMarks {
  std::vector<int> nodes;
  std::vector<int> members; ///< numbers
  std::optional<SketchStroke> stroke;
};

/// The truss with its loads, supports and numbers; members whose force is known show whether it is tension or
/// compression.  Points stand in the order of the nodes.
Sketch TrussFigure(const HandTruss& truss, const HandForces& forces, const FigureMarks& marks);

/// Nodes cut free: the members between them, and every force that acts on them with its value.
Sketch BodyFigure(const HandTruss& truss, const FreeBody& body);

/// The forces of a joint put end to end, to scale.
Sketch PolygonFigure(const FreeBody& body, const std::vector<PolygonSide>& polygon);

/// The truss when the rules have found so many members without force; the last of them and its joint are marked.
Sketch ZeroFigure(const HandTruss& truss, const std::vector<ZeroMember>& zeros, std::size_t found);

/// The form diagram: the truss with its outer forces and the letters of the spaces, its first lines drawn.
/// The key of each line is its index in the diagram, from 1.
Sketch FormFigure(const HandTruss& truss, const ForceDiagram& diagram, std::size_t drawn);

/// The force diagram to scale, as far as it is drawn, with the same keys.
Sketch ForceFigure(const ForceDiagram& diagram, std::size_t drawn);

} // namespace strutwright
