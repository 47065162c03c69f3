#pragma once

#include "TrussView.h"

namespace strutwright {

// The window of the world that a surface shows.  A window that a 32-bit float can't hold is never set: the surface
// then keeps the one that it has.

/// The bounding box of the nodes and the origin, in drawn m.  unit: drawn m for a m of the truss.
/// The origin always belongs to it, on purpose: a model is seen where it stands, not only what it looks like.
ModelExtents ExtentsOfModel(float unit);

/// Sets MinX, MaxX, MinY and MaxY to those of the model, in m.
void ComputeModelExtents();

/// Frames a world box, in m: centred, in the surface's proportions, the box filling 1/1.4 of the window in the
/// direction that governs.  The order of two opposite sides does not matter.
/// Four zeros leave the window alone; any other box that is a single point makes it collapse to that point.
void SetViewWindow(DrawingSurface& surface, float minX, float maxX, float minY, float maxY);

/// Frames the rectangle between two points of the surface, in surface coordinates.
/// One that has no width or no height, to a micrometre, is ignored; returns whether the window was set.
bool ZoomToRectangle(DrawingSurface& surface, double x1, double y1, double x2, double y2);

/// Makes the window 1.25 times as wide and high about its centre.
void EnlargeWindow(DrawingSurface& surface);

/// Shifts the window so that what lies at the first point comes to lie where the second one is now.
/// Both are surface coordinates in the window as it is before the shift.
void PanWindow(DrawingSurface& surface, double fromX, double fromY, double toX, double toY);

/// The ways in which keys move the view.
enum class ViewMove { Left, Right, Up, Down, In, Out };

/// Moves the window a tenth of its width or height, to show what lies on that side, or zooms about its centre by 1.25.
/// Returns whether the window was set: the limits of ZoomAbout hold.
bool MoveView(DrawingSurface& surface, ViewMove move);

/// Makes the window `factor` times as wide and high, so that the given point of the surface stays where it is.
/// Nothing happens where that would show less than 1 mm, more than 1e9 m, or a detail finer than coordinates of that
/// size can distinguish; returns whether the window was set.
bool ZoomAbout(DrawingSurface& surface, double x, double y, double factor);

} // namespace strutwright
