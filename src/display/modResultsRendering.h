#pragma once

#include "TrussView.h"

#include <vector>

namespace strutwright {

// The results of an analysis, drawn over the model.  A failure stops the layer and has been reported by then.

/// The components of the reactions that a support of code 1, 2 or 3 restrains, green, with their values.
/// Any other code draws none, on purpose: only these three are codes that the program itself gives.
void DrawReactions(DrawingSurface& surface, const TrussView& view);

/// The members' forces, blue: two arrows that push on the joints in compression, or pull on them in tension, and the
/// value beside the middle.  Forces up to 0.0001 kN have no arrows.
void DrawMemberForces(DrawingSurface& surface, const TrussView& view);

/// The displaced truss, red and dashed.
/// displacements: (0..2 * NodeCount) in mm, x and y of node n at 2n-1 and 2n.
void DrawDeflectedShape(const std::vector<float>& displacements, DrawingSurface& surface, const TrussView& view);

} // namespace strutwright
