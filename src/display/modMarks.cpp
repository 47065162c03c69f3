#include "modMarks.h"

#include "ClearPalette.h"
#include "DisplayState.h"
#include "modDrawing.h"
#include "modModelRendering.h"
#include "modModelStore.h"

namespace strutwright {

namespace {

constexpr double PointRadius = ClearSize::NodeRadius + 2;
constexpr double PointEdge = 3;   // pixels
constexpr double MemberWidth = 3; // of a member's line

PixelPoint PixelOf(const DrawingSurface& surface, double x, double y) {
  const PixelView view = ViewOf(surface, surface.Window());
  return view.origin + PixelPoint{x * view.scaleX, -y * view.scaleY};
}

} // namespace

void MarkPoint(DrawingSurface& surface, double x, double y, Colour colour, DrawingStyle style) {
  if (style == DrawingStyle::Described) return DrawNodeMarker(surface, x, y, colour);
  surface.PixelDot(PixelOf(surface, x, y), PointRadius, {colour, PointEdge}, ClearPalette::Ground);
}

void MarkLine(DrawingSurface& surface, double x1, double y1, double x2, double y2, Colour colour, DrawingStyle style) {
  if (style == DrawingStyle::Described) return DrawLine(surface, x1, y1, x2, y2, colour);
  surface.PixelLine(PixelOf(surface, x1, y1), PixelOf(surface, x2, y2), {colour, MemberWidth});
}

void MarkNode(DrawingSurface& surface, int n, Colour colour, DrawingStyle style) {
  if (style == DrawingStyle::Described) return HighlightNode(surface, n, colour);
  MarkPoint(surface, NodeTable(n, NodeX), NodeTable(n, NodeY), colour, style);
}

void MarkMember(DrawingSurface& surface, int m, Colour colour, DrawingStyle style) {
  if (style == DrawingStyle::Described) return DrawMember(surface, m, colour);
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  MarkLine(surface, NodeTable(i, NodeX), NodeTable(i, NodeY), NodeTable(j, NodeX), NodeTable(j, NodeY), colour, style);
  if (&surface == DisplaySurface) DrawLabelsOfMember(surface, ViewOf(surface, surface.Window()), TheDisplay.Memory, m);
}

} // namespace strutwright
