#include "modModelRendering.h"

#include "modDrawing.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modViewTransform.h"

#include <cmath>
#include <string>

namespace strutwright {

namespace {

struct Point {
  double x = 0;
  double y = 0;
};

/// In drawn m, of which there are `unit` for a m of the truss.
Point NodePoint(int n, float unit) {
  const float x = NodeTable(n, NodeX) * unit;
  const float y = NodeTable(n, NodeY) * unit;
  return {x, y};
}

Point MemberEnd(int m, MemberField end, float unit) { return NodePoint(RoundNodeNumber(MemberTable(m, end)), unit); }

void DrawMemberLine(DrawingSurface& surface, int m, Colour colour, float unit) {
  const Point start = MemberEnd(m, MemberNodeI, unit);
  const Point end = MemberEnd(m, MemberNodeJ, unit);
  DrawLine(surface, start.x, start.y, end.x, end.y, colour);
}

void DrawMarker(DrawingSurface& surface, int n, Colour colour, float unit) {
  const Point node = NodePoint(n, unit);
  DrawNodeMarker(surface, node.x, node.y, colour);
}

void ResetPen(DrawingSurface& surface) {
  surface.SetPenMode(PenMode::Copy);
  surface.SetFillStyle(FillStyle::Solid);
  surface.SetFillColour(Black);
  surface.SetPenColour(Black);
  surface.SetTextColour(Black);
  surface.SetLineStyle(LineStyle::Solid);
}

void PrintMemberNumber(DrawingSurface& surface, int m, float unit) {
  const Point start = MemberEnd(m, MemberNodeI, unit);
  const Point end = MemberEnd(m, MemberNodeJ, unit);
  PrintText(surface, (start.x + end.x) / 2, -((start.y + end.y) / 2), std::to_string(m), Red);
}

void DrawMembers(DrawingSurface& surface, const TrussView& view) {
  for (int m = 1; m <= MemberCount; ++m) {
    DrawMemberLine(surface, m, Black, view.unit);
    if (view.layers.memberNumbers) PrintMemberNumber(surface, m, view.unit);
  }
}

/// The numbers stand off by a hundredth of the model's largest x, on purpose not of the window: zooming in parts
/// them from their markers.
void DrawNodes(DrawingSurface& surface, const TrussView& view) {
  for (int n = 1; n <= NodeCount; ++n) {
    DrawMarker(surface, n, Black, view.unit);
    if (view.layers.nodeNumbers) {
      PrintText(surface, surface.CurrentX() + view.extents.maxX / 100.0, surface.CurrentY(), std::to_string(n), Black);
    }
  }
}

/// Draws a support symbol in coordinates of its own: `along` the surface that it stands on, `off` away from the node.
/// The symbol lies below the node, or turned on its side to the left of it.
class SupportSymbol {
 public:
  SupportSymbol(DrawingSurface& surface, Point node, bool sideways)
      : Surface(surface), Node(node), Sideways(sideways) {}

  void Line(double along1, double off1, double along2, double off2) const {
    const Point from = At(along1, off1);
    const Point to = At(along2, off2);
    DrawLine(Surface, from.x, from.y, to.x, to.y, Green);
  }

  /// From the node to a base of this half-length.
  void Triangle(double halfBase, double off) const {
    Line(0, 0, -halfBase, off);
    Line(-halfBase, off, halfBase, off);
    Line(halfBase, off, 0, 0);
  }

  void Circle(double along, double off, double radius) const {
    const Point centre = At(along, off);
    UsePen(Surface, Green);
    Surface.SetPenWidth(2);
    Surface.DrawCircle(centre.x, -centre.y, radius);
  }

 private:
  Point At(double along, double off) const {
    return Sideways ? Point{Node.x - off, Node.y + along} : Point{Node.x + along, Node.y - off};
  }

  DrawingSurface& Surface;
  Point Node;
  bool Sideways;
};

constexpr double GroundRatio = 1.2;      // of the ground line to what stands on it
constexpr double GroundOff = 0.06 * 2.4; // the ground line's distance from the node, m

/// The ground line lies as far off as a roller's, so that a pin and a roller stand on one level; the circle goes
/// round the node, where it also shows when the symbol is small.
void DrawPin(const SupportSymbol& symbol) {
  constexpr double HalfBase = 0.06;
  symbol.Triangle(HalfBase, 0.12);
  symbol.Line(-HalfBase * GroundRatio, GroundOff, HalfBase * GroundRatio, GroundOff);
  symbol.Circle(0, 0, 0.1);
}

/// The wheels stand on the ground line side by side and just clear of the node's marker.
void DrawRoller(const SupportSymbol& symbol) {
  constexpr double Wheel = 0.022;
  constexpr double Pitch = 0.05;
  constexpr double HalfGround = (Pitch + Wheel) * GroundRatio;
  symbol.Triangle(0.03, 0.06);
  for (const double along : {-Pitch, 0.0, Pitch}) symbol.Circle(along, GroundOff - Wheel, Wheel);
  symbol.Line(-HalfGround, GroundOff, HalfGround, GroundOff);
}

/// The multiples of a spacing in a part of an axis, counted: a long loop over a small step could stand still.
struct Multiples {
  double first = 0;
  int count = 0;
  double spacing = 0;

  double operator[](int i) const { return (first + i) * spacing; }
};

constexpr double MinPitch = 2; // pixels

bool IsSparse(double spacing, double length, double pixels) {
  return spacing > 0 && std::isfinite(spacing) && spacing * pixels >= MinPitch * length;
}

/// Only for a spacing that IsSparse: then there are at most half as many multiples as pixels.
Multiples MultiplesIn(double spacing, double from, double length) {
  const double first = std::ceil(from / spacing);
  const double count = std::floor((from + length) / spacing) - first + 1;
  return {first, count > 0 && std::isfinite(count) ? static_cast<int>(count) : 0, spacing};
}

void SetGridPen(DrawingSurface& surface, LineStyle style) {
  UsePen(surface, Grey);
  surface.SetPenWidth(1);
  surface.SetLineStyle(style);
}

void PrintGridValue(DrawingSurface& surface, double x, double y, double value) {
  surface.MoveTo(x, y);
  surface.DrawText(FormatNumber(static_cast<float>(value), "#0.0"));
}

void DrawGridLines(DrawingSurface& surface, const GridLines& grid, const ViewWindow& window) {
  const double m = grid.spacingX / 20.0;
  const double right = static_cast<double>(window.left) + window.width;
  const double bottom = static_cast<double>(window.top) + window.height;
  const Multiples across = MultiplesIn(grid.spacingX, window.left, window.width);
  for (int i = 0; i < across.count; ++i) {
    surface.DrawLine(across[i], window.top, across[i], bottom);
    PrintGridValue(surface, across[i] + m, 0, across[i]);
  }
  const Multiples down = MultiplesIn(grid.spacingY, window.top, window.height);
  for (int i = 0; i < down.count; ++i) {
    surface.DrawLine(window.left, down[i], right, down[i]);
    PrintGridValue(surface, m, down[i], -down[i]);
  }
}

void DrawAxes(DrawingSurface& surface, const ViewWindow& window) {
  surface.SetLineStyle(LineStyle::Solid);
  surface.DrawLine(0, window.top, 0, static_cast<double>(window.top) + window.height);
  surface.DrawLine(window.left, 0, static_cast<double>(window.left) + window.width, 0);
}

void DrawModelLayers(DrawingSurface& surface, const TrussView& view) {
  ResetPen(surface);
  const ModelExtents& extents = view.extents;
  if (view.frameExtents) SetViewWindow(surface, extents.minX, extents.maxX, extents.minY, extents.maxY);
  surface.SetPenWidth(2);
  if (view.layers.grid) DrawGrid(surface, view.grid);
  DrawMembers(surface, view);
  DrawNodes(surface, view);
  if (view.layers.loads) DrawLoads(surface, view);
  if (view.layers.supports) DrawSupports(surface, view.unit);
  surface.SetPenWidth(1);
}

} // namespace

void DrawModel(DrawingSurface& surface, const TrussView& view) {
  TryDrawing([&] { DrawModelLayers(surface, view); }, view.failures);
}

void DrawMember(DrawingSurface& surface, int m, Colour colour) { DrawMemberLine(surface, m, colour, 1); }

void HighlightNode(DrawingSurface& surface, int n, Colour colour) { DrawMarker(surface, n, colour, 1); }

void DrawSupports(DrawingSurface& surface, float unit) {
  surface.SetPenWidth(2);
  for (int n = 1; n <= NodeCount; ++n) {
    const float code = NodeTable(n, NodeSupport);
    if (code == 0) continue;
    const SupportSymbol symbol(surface, NodePoint(n, unit), code == 2);
    if (code == 1 || code == 2) {
      DrawRoller(symbol);
    } else {
      DrawPin(symbol);
    }
  }
}

void DrawLoads(DrawingSurface& surface, const TrussView& view) {
  for (int n = 1; n <= NodeCount; ++n) {
    const Point node = NodePoint(n, view.unit);
    DrawHorizontalLoad(surface, NodeTable(n, NodeForceX), node.x, node.y, Red, view.loadsScale);
    DrawVerticalLoad(surface, NodeTable(n, NodeForceY), node.x, node.y, Red, view.loadsScale);
  }
}

void DrawGrid(DrawingSurface& surface, const GridLines& grid) {
  SetGridPen(surface, grid.style);
  surface.SetTextAttribute(false);
  surface.SetTextColour(Grey);
  const ViewWindow window = surface.Window();
  if (IsSparse(grid.spacingX, window.width, surface.PixelWidth()) &&
      IsSparse(grid.spacingY, window.height, surface.PixelHeight())) {
    DrawGridLines(surface, grid, window);
  }
  DrawAxes(surface, window);
  surface.SetLineStyle(grid.style);
  surface.SetTextColour(Black);
}

} // namespace strutwright
