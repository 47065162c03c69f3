#include "modModelRendering.h"

#include "DisplayState.h"
#include "Platform.h"
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

Point NodePoint(int n) { return {NodeTable(n, NodeX), NodeTable(n, NodeY)}; }

Point MemberEnd(int m, MemberField end) { return NodePoint(RoundNodeNumber(MemberTable(m, end))); }

void ResetPen(DrawingSurface& surface) {
  surface.SetPenMode(PenMode::Copy);
  surface.SetFillStyle(FillStyle::Solid);
  surface.SetFillColour(Black);
  surface.SetPenColour(Black);
  surface.SetTextColour(Black);
  surface.SetLineStyle(LineStyle::Solid);
}

void PrintMemberNumber(DrawingSurface& surface, int m) {
  const Point start = MemberEnd(m, MemberNodeI);
  const Point end = MemberEnd(m, MemberNodeJ);
  PrintText(surface, (start.x + end.x) / 2, -((start.y + end.y) / 2), std::to_string(m), Red);
}

void DrawMembers(DrawingSurface& surface, bool numbers) {
  for (int m = 1; m <= MemberCount; ++m) {
    DrawMember(surface, m, Black);
    if (numbers) PrintMemberNumber(surface, m);
  }
}

/// The numbers stand off by a hundredth of the model's largest x, on purpose not of the window: zooming in parts
/// them from their markers.
void DrawNodes(DrawingSurface& surface, bool numbers) {
  for (int n = 1; n <= NodeCount; ++n) {
    HighlightNode(surface, n, Black);
    if (numbers) {
      PrintText(surface, surface.CurrentX() + MaxX / 100.0, surface.CurrentY(), std::to_string(n), Black);
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

constexpr double LeastPitch = 2; // pixels

bool IsSparse(double spacing, double length, double pixels) {
  return spacing > 0 && std::isfinite(spacing) && spacing * pixels >= LeastPitch * length;
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

void DrawGridLines(DrawingSurface& surface, const ViewWindow& window) {
  const double m = GridSpacingX / 20.0;
  const double right = static_cast<double>(window.left) + window.width;
  const double bottom = static_cast<double>(window.top) + window.height;
  const Multiples across = MultiplesIn(GridSpacingX, window.left, window.width);
  for (int i = 0; i < across.count; ++i) {
    surface.DrawLine(across[i], window.top, across[i], bottom);
    PrintGridValue(surface, across[i] + m, 0, across[i]);
  }
  const Multiples down = MultiplesIn(GridSpacingY, window.top, window.height);
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

void DrawModelLayers(DrawingSurface& surface) {
  ResetPen(surface);
  const ModelLayers layers = TheDisplay.OwnLayers ? *TheDisplay.OwnLayers : TheHost().Layers();
  if (!KeepView) {
    ComputeModelExtents();
    SetViewWindow(surface, MinX, MaxX, MinY, MaxY);
  }
  surface.SetPenWidth(2);
  if (layers.grid) DrawGrid(surface);
  DrawMembers(surface, layers.memberNumbers);
  DrawNodes(surface, layers.nodeNumbers);
  if (layers.loads) DrawLoads(surface);
  if (layers.supports) DrawSupports(surface);
  surface.SetPenWidth(1);
}

} // namespace

void DrawModel(DrawingSurface& surface) {
  TryDrawing([&] { DrawModelLayers(surface); });
}

void DrawMember(DrawingSurface& surface, int m, Colour colour) {
  const Point start = MemberEnd(m, MemberNodeI);
  const Point end = MemberEnd(m, MemberNodeJ);
  DrawLine(surface, start.x, start.y, end.x, end.y, colour);
}

void HighlightNode(DrawingSurface& surface, int n, Colour colour) {
  const Point node = NodePoint(n);
  DrawNodeMarker(surface, node.x, node.y, colour);
}

void DrawSupports(DrawingSurface& surface) {
  surface.SetPenWidth(2);
  for (int n = 1; n <= NodeCount; ++n) {
    const float code = NodeTable(n, NodeSupport);
    if (code == 0) continue;
    const SupportSymbol symbol(surface, NodePoint(n), code == 2);
    if (code == 1 || code == 2) {
      DrawRoller(symbol);
    } else {
      DrawPin(symbol);
    }
  }
}

void DrawLoads(DrawingSurface& surface) {
  for (int n = 1; n <= NodeCount; ++n) {
    const Point node = NodePoint(n);
    DrawHorizontalLoad(surface, NodeTable(n, NodeForceX), node.x, node.y, Red);
    DrawVerticalLoad(surface, NodeTable(n, NodeForceY), node.x, node.y, Red);
  }
}

void DrawGrid(DrawingSurface& surface) {
  const LineStyle style = GridLineStyle == 0 ? LineStyle::Solid : LineStyle::Dashed;
  SetGridPen(surface, style);
  surface.SetTextAttribute(false);
  surface.SetTextColour(Grey);
  const ViewWindow window = surface.Window();
  if (IsSparse(GridSpacingX, window.width, surface.PixelWidth()) &&
      IsSparse(GridSpacingY, window.height, surface.PixelHeight())) {
    DrawGridLines(surface, window);
  }
  DrawAxes(surface, window);
  surface.SetLineStyle(style);
  surface.SetTextColour(Black);
}

} // namespace strutwright
