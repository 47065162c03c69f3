#pragma once

#include "TrussView.h"

namespace strutwright {

// What is found, chosen or moves is marked over the drawing, in the way of its style: as described in metres, in the
// clear drawing in pixels, so that a mark is as large at every zoom.

/// Marks a node.  n: 1..NodeCount.
void MarkNode(DrawingSurface& surface, int n, Colour colour, DrawingStyle style);

/// Marks a member.  m: 1..MemberCount.  A node that does not exist throws std::out_of_range.
/// In the clear drawing its number and its force stay readable where the surface is that of the display.
void MarkMember(DrawingSurface& surface, int m, Colour colour, DrawingStyle style);

/// The same at places in m, for nodes and members that have moved.
void MarkPoint(DrawingSurface& surface, double x, double y, Colour colour, DrawingStyle style);
void MarkLine(DrawingSurface& surface, double x1, double y1, double x2, double y2, Colour colour, DrawingStyle style);

} // namespace strutwright
