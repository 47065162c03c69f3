#pragma once

#include "TrussView.h"

namespace strutwright {

/// Draws the model: grid, members, nodes, loads and supports, as far as the view's layers ask for them.
/// A failure stops the drawing and has been reported by then; what was drawn stays.
void DrawModel(DrawingSurface& surface, const TrussView& view);

/// The line between a member's nodes.  m: 1..MemberCount.
/// A node that does not exist throws std::out_of_range.
void DrawMember(DrawingSurface& surface, int m, Colour colour);

/// The marker of node n, in another colour than the drawing gave it.
void HighlightNode(DrawingSurface& surface, int n, Colour colour);

/// The symbols of all supported nodes, green.  Their sizes are fixed in m, so that they scale with the zoom.
void DrawSupports(DrawingSurface& surface, float unit = 1);

/// The arrows of all applied loads, red.
void DrawLoads(DrawingSurface& surface, const TrussView& view);

/// Grid lines at the multiples of the spacings with their values, and the two axes, grey.
/// Lines that would lie closer than 2 pixels, or a spacing not above zero, leave only the axes.
void DrawGrid(DrawingSurface& surface, const GridLines& grid);

} // namespace strutwright
