#pragma once

#include "TrussView.h"

#include <exception>
#include <functional>
#include <string>

namespace strutwright {

// The primitives of the drawing.  Each sets its own pen first, so that none depends on what was drawn before it; a
// primitive that is said to keep the pen width leaves that to its caller.
// Node, line and load positions are world points in m, y upwards; arrows are given in surface coordinates.

/// Solid pen of this colour that copies, hollow fill.
void UsePen(DrawingSurface& surface, Colour colour);

/// A line from one world point to another, 2 pixels wide.
void DrawLine(DrawingSurface& surface, double x1, double y1, double x2, double y2, Colour colour);

/// An arrow between two points of the surface, its head at the second one; keeps the pen width.
/// Each of the two strokes of the head is sqrt(2) * headSize * headRatio long.  Without any length it has no head.
void DrawArrow(DrawingSurface& surface, double headSize, double x1, double y1, double x2, double y2, Colour colour,
               double headRatio = 1);

/// A hollow circle of 0.1 m round a world point, which becomes the current point; pen 2 pixels wide.
void DrawNodeMarker(DrawingSurface& surface, double x, double y, Colour colour);

/// The x component F of a load or reaction, in kN, at a world point; nothing below 0.01 kN in size.
/// scale: kN per m of arrow.
/// The arrow lies to the right of the point for either sign: it pulls to the right or pushes to the left.
void DrawHorizontalLoad(DrawingSurface& surface, float F, double x, double y, Colour colour, float scale);

/// The y component likewise; the arrow lies above the point for either sign.
void DrawVerticalLoad(DrawingSurface& surface, float F, double x, double y, Colour colour, float scale);

/// Prints at a point of the surface so that lines under the text show, and sets the text colour back to black.
void PrintText(DrawingSurface& surface, double x, double y, const std::string& text, Colour colour);

/// Reports what kept a part of the drawing from being finished: `text`, then the failure's description on a line of
/// its own.
void ReportDrawingFailure(const std::string& text, const std::exception& failure, const FailureReport& report);

/// Draws a part of the model or what marks it.  A failure ends that part and has been reported, under the words for
/// the model, when this returns false.
bool TryDrawing(const std::function<void()>& draw, const FailureReport& report = ShowDrawingFailure);

} // namespace strutwright
