#pragma once

#include "DrawingSurface.h"

namespace strutwright {

/// Draws the model: grid, members, nodes, loads and supports, as far as the host's layers ask for them.
/// Frames the extents first unless KeepView is set.
/// A failure stops the drawing and has been reported by then; what was drawn stays.
void DrawModel(DrawingSurface& surface);

/// The line between a member's nodes.  m: 1..MemberCount.
/// A node that does not exist throws std::out_of_range.
void DrawMember(DrawingSurface& surface, int m, Colour colour);

/// The marker of node n, in another colour than the drawing gave it.
void HighlightNode(DrawingSurface& surface, int n, Colour colour);

/// The symbols of all supported nodes, green.  Their sizes are fixed in m, so that they scale with the zoom.
void DrawSupports(DrawingSurface& surface);

/// The arrows of all applied loads, red.
void DrawLoads(DrawingSurface& surface);

/// Grid lines at the multiples of GridSpacingX and GridSpacingY with their values, and the two axes, grey.
/// Lines that would lie closer than 2 pixels, or a spacing not above zero, leave only the axes.
void DrawGrid(DrawingSurface& surface);

} // namespace strutwright
