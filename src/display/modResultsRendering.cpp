#include "modResultsRendering.h"

#include "AnalysisState.h"
#include "PlaneGeometry.h"
#include "modDrawing.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <exception>
#include <stdexcept>
#include <string>

namespace strutwright {

namespace {

constexpr float ZeroForce = 0.0001F; // kN
constexpr double ForceHead = 0.07;   // of the member
constexpr double ForceHeadRatio = 0.9;
constexpr double LabelOff = 0.05; // m
constexpr double LabelShift = 0.02 * 5;
constexpr double DeflectedRadius = 0.1; // m

float EntryOf(const std::vector<float>& results, int n, int direction) {
  const auto dof = static_cast<std::ptrdiff_t>(2) * n - 1 + direction;
  if (dof < 1 || dof >= static_cast<std::ptrdiff_t>(results.size())) {
    throw std::out_of_range("node " + std::to_string(n) + " has no result");
  }
  return results[static_cast<std::size_t>(dof)];
}

/// A coordinate of a node in drawn m.
float Drawn(int n, NodeField coordinate, float unit) { return NodeTable(n, coordinate) * unit; }

/// A member as a drawn line: start, direction (not normalised) and length, in m, y upwards.
struct MemberLine {
  MemberLine(int m, float unit) {
    const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
    const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
    x = Drawn(i, NodeX, unit);
    y = Drawn(i, NodeY, unit);
    dx = Drawn(j, NodeX, unit) - x;
    dy = Drawn(j, NodeY, unit) - y;
    L = std::sqrt(dx * dx + dy * dy);
  }

  double x, y, dx, dy, L;
};

/// An arrow on the member; both ends as fractions of it.
void DrawForceArrow(DrawingSurface& surface, const MemberLine& line, double from, double to) {
  DrawArrow(surface, ForceHead * line.L, line.x + from * line.dx, -(line.y + from * line.dy), line.x + to * line.dx,
            -(line.y + to * line.dy), Blue, ForceHeadRatio);
}

/// About as large as a surface prints a text, in pixels; a little more does no harm.
constexpr int TextSize = 13;
constexpr double TextHeight = 16;

/// Across a member, of length 1, away from its number, whose text hangs down from the member's middle to the right.
PixelPoint AcrossFrom(PixelPoint numberSize, PixelPoint along) {
  const PixelPoint across{-along.y, along.x};
  return Dot(across, numberSize) > 0 ? -1.0 * across : across;
}

/// How far a number's text reaches over its member's line, on the side of `across`.
double ReachOver(PixelPoint numberSize, PixelPoint across) {
  return std::max({0.0, across.x * numberSize.x, across.y * numberSize.y});
}

/// Where the text of a force begins, in pixels from the member's middle: on the other side of the line than the
/// member's number, so that the two are never read as one, and clear of both.
PixelPoint ForcePlace(PixelPoint forceSize, PixelPoint numberSize, PixelPoint along, double pixelsPerMetre) {
  const PixelPoint across = AcrossFrom(numberSize, along);
  const PixelPoint half = 0.5 * forceSize;
  const double reach = std::fabs(across.x) * half.x + std::fabs(across.y) * half.y;
  const double off = LabelOff * pixelsPerMetre + ReachOver(numberSize, across) + reach;
  return off * across + (LabelShift * pixelsPerMetre) * along - half;
}

/// The direction in which a member is read, in pixels: to the right, or down where it is vertical.
PixelPoint ReadAlong(const MemberLine& line) {
  if (line.L <= 0) return {1, 0};
  const PixelPoint along{line.dx / line.L, -line.dy / line.L};
  const bool isBackward = along.x < 0 || (along.x == 0 && along.y < 0);
  return isBackward ? -1.0 * along : along;
}

void PrintForce(DrawingSurface& surface, const MemberLine& line, int m, float F) {
  const std::string text = FormatNumber(F, "#0.0");
  const double pixelsPerMetre = surface.PixelWidth() / surface.Window().width;
  const PixelPoint force{surface.TextWidth(text, TextSize), TextHeight};
  const PixelPoint number{surface.TextWidth(std::to_string(m), TextSize), TextHeight};
  const PixelPoint place = ForcePlace(force, number, ReadAlong(line), pixelsPerMetre);
  const double x = line.x + line.dx / 2 + place.x / pixelsPerMetre;
  const double y = line.y + line.dy / 2 - place.y / pixelsPerMetre;
  PrintText(surface, x, -y, text, Blue);
}

void DrawForce(DrawingSurface& surface, int m, float unit) {
  const MemberLine line(m, unit);
  const float F = MemberForce(m);
  surface.SetPenWidth(2);
  if (F < -ZeroForce) {
    DrawForceArrow(surface, line, 0.3, 0.1);
    DrawForceArrow(surface, line, 0.7, 0.9);
  } else if (F > ZeroForce) {
    DrawForceArrow(surface, line, 0.1, 0.3);
    DrawForceArrow(surface, line, 0.9, 0.7);
  }
  PrintForce(surface, line, m, F);
}

void DrawReaction(DrawingSurface& surface, int n, const TrussView& view) {
  const float code = NodeTable(n, NodeSupport);
  const double x = Drawn(n, NodeX, view.unit);
  const double y = Drawn(n, NodeY, view.unit);
  const float scale = view.loadsScale;
  if (code == 1 || code == 3) DrawVerticalLoad(surface, EntryOf(Reactions, n, 1), x, y, Green, scale);
  if (code == 2 || code == 3) DrawHorizontalLoad(surface, EntryOf(Reactions, n, 0), x, y, Green, scale);
}

struct Displaced {
  float x = 0;
  float y = 0;
};

// xd = x + D scale / 10^3, D in mm.   D scale is rounded to a float, the rest is not before the sum is.
float Displace(float coordinate, float D, float scale) {
  const float product = D * scale;
  return static_cast<float>(coordinate + product / std::pow(10.0, 3));
}

/// Node 0 stands for a node that a member does not name: the model is drawn from there too, and it never moves.
Displaced DisplacedNode(const std::vector<float>& displacements, int n, const TrussView& view) {
  if (n == 0) return {Drawn(0, NodeX, view.unit), Drawn(0, NodeY, view.unit)};
  // A node without a result is named as such, whichever argument a compiler takes first.
  const float u = EntryOf(displacements, n, 0);
  const float v = EntryOf(displacements, n, 1);
  return {Displace(Drawn(n, NodeX, view.unit), u, view.deflectionScale),
          Displace(Drawn(n, NodeY, view.unit), v, view.deflectionScale)};
}

/// One pixel wide: the shape often lies close to the model, which must stay visible under it.
void DrawDeflectedLayer(const std::vector<float>& displacements, DrawingSurface& surface, const TrussView& view) {
  UsePen(surface, Red);
  surface.SetPenWidth(1);
  for (int n = 1; n <= NodeCount; ++n) {
    const Displaced node = DisplacedNode(displacements, n, view);
    surface.DrawCircle(node.x, -node.y, DeflectedRadius);
  }
  surface.SetLineStyle(LineStyle::Dashed);
  for (int m = 1; m <= MemberCount; ++m) {
    const Displaced i = DisplacedNode(displacements, RoundNodeNumber(MemberTable(m, MemberNodeI)), view);
    const Displaced j = DisplacedNode(displacements, RoundNodeNumber(MemberTable(m, MemberNodeJ)), view);
    surface.DrawLine(i.x, -i.y, j.x, -j.y);
  }
  surface.SetLineStyle(LineStyle::Solid);
}

} // namespace

void DrawReactions(DrawingSurface& surface, const TrussView& view) {
  try {
    for (int n = 1; n <= NodeCount; ++n) DrawReaction(surface, n, view);
  } catch (const std::exception& failure) {
    ReportDrawingFailure("Drawing error: check the input data", failure, view.failures);
  }
}

void DrawMemberForces(DrawingSurface& surface, const TrussView& view) {
  try {
    for (int m = 1; m <= MemberCount; ++m) DrawForce(surface, m, view.unit);
  } catch (const std::exception& failure) {
    ReportDrawingFailure("Drawing error: check the input data", failure, view.failures);
  }
}

void DrawDeflectedShape(const std::vector<float>& displacements, DrawingSurface& surface, const TrussView& view) {
  try {
    DrawDeflectedLayer(displacements, surface, view);
  } catch (const std::exception& failure) {
    ReportDrawingFailure("Drawing error: drawDSD function", failure, view.failures);
  }
}

} // namespace strutwright
