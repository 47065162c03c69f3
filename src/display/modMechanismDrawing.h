#pragma once

#include "TrussView.h"

#include <vector>

namespace strutwright {

/// The colour of what moves, which nothing else has.
inline constexpr Colour Violet{148, 0, 211};

/// How far the largest movement is drawn, as a part of ModelSize.
inline constexpr double MotionShare = 0.1;

/// The larger extent of the nodes, m; 1 where they have none.
double ModelSize();

/// Draws a motion over the model, in violet: the nodes that move, where they come to, and the members that go with
/// them.  A node is moved by its part of the motion times swing times MotionShare of ModelSize.
/// motion: (0..2 NodeCount), freedom 2n-1 is x and 2n is y of node n, largest entry 1; one of another length draws
/// nothing.  swing: -1 to 1.  Members that name no node are passed over.
/// style: that of the drawing below; its marks are of the same kind.
void DrawMechanism(DrawingSurface& surface, const std::vector<double>& motion, double swing,
                   DrawingStyle style = DrawingStyle::Described);

} // namespace strutwright
