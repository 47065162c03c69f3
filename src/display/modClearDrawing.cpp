#include "modClearDrawing.h"

#include "AnalysisState.h"
#include "AxisValues.h"
#include "ClearFurniture.h"
#include "ClearLegend.h"
#include "ClearPalette.h"
#include "modDrawing.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace strutwright {

namespace {

constexpr LineLook DeflectedLine{ClearPalette::Deflected, 1.3, true};
constexpr double StepBack = 0.8; // of a member's width, under its deflected shape

/// What of the scene a drawing needs at hand.
struct Canvas {
  PixelSurface& surface;
  const PixelView& view;
  const ClearSettings& settings;
  const ClearScene& scene;

  Bounds Area() const { return {0, 0, view.width, view.height}; }
  bool IsInView(const TurnedBox& box) const { return BoundsOf(box.MovedBy(view.origin)).Touches(Area()); }
};

void DrawBar(const Canvas& canvas, const ClearBar& bar) {
  const PixelPoint from = bar.from + canvas.view.origin;
  const PixelPoint to = bar.to + canvas.view.origin;
  const bool back = canvas.settings.deflectedShape;
  const double width = bar.width * (back ? StepBack : 1);
  if (!canvas.settings.memberForces) {
    canvas.surface.PixelLine(from, to, {back ? ClearPalette::SteppedBack : ClearPalette::Ink, width});
  } else if (bar.force == 0) {
    canvas.surface.PixelLine(from, to, {ClearPalette::ZeroBar, 1});
  } else if (bar.force > 0) {
    DrawTie(canvas.surface, from, to, width);
  } else {
    DrawStrut(canvas.surface, from, to, width);
  }
}

void DrawBars(const Canvas& canvas) {
  for (const ClearBar& bar : canvas.scene.truss.bars) {
    if (canvas.IsInView(StripOf(bar.from, bar.to, bar.width))) DrawBar(canvas, bar);
  }
}

/// The places of the nodes with their displacements.  A node without a result throws.
std::vector<PixelPoint> DisplacedNodes(const Canvas& canvas) {
  std::vector<PixelPoint> places;
  const std::size_t count = canvas.scene.truss.joints.size();
  const double scale = canvas.settings.deflectionScale / 1000.0;
  for (std::size_t n = 0; n < count; ++n) {
    const PixelPoint at = canvas.scene.truss.joints[n].at + canvas.view.origin;
    places.push_back(at);
    if (n == 0) continue;
    if (YFreedom(static_cast<int>(n)) >= Displacements.size()) {
      throw std::out_of_range("node " + std::to_string(n) + " has no result");
    }
    const double dx = Displacements[XFreedom(static_cast<int>(n))] * scale * canvas.view.scaleX;
    const double dy = Displacements[YFreedom(static_cast<int>(n))] * scale * canvas.view.scaleY;
    places.back() = {at.x + dx, at.y - dy};
  }
  return places;
}

void DrawDeflected(const Canvas& canvas) {
  const std::vector<PixelPoint> places = DisplacedNodes(canvas);
  for (const ClearBar& bar : canvas.scene.truss.bars) {
    const PixelPoint from = places[static_cast<std::size_t>(bar.i)];
    const PixelPoint to = places[static_cast<std::size_t>(bar.j)];
    if (BoundsOf(StripOf(from, to, 2)).Touches(canvas.Area())) canvas.surface.PixelLine(from, to, DeflectedLine);
  }
}

void DrawSymbols(const Canvas& canvas) {
  const PixelPoint by = canvas.view.origin;
  for (const ClearSupport& support : canvas.scene.supports) {
    if (canvas.IsInView(BoxOfSupport(support))) DrawSupport(canvas.surface, support, by);
  }
  const Bounds area = canvas.Area().GrownBy(ClearSize::NodeRadius + ClearSize::NodeEdge);
  for (std::size_t n = 1; canvas.scene.dots && n < canvas.scene.truss.joints.size(); ++n) {
    const PixelPoint at = canvas.scene.truss.joints[n].at + by;
    if (area.Contains(at)) DrawNodeDot(canvas.surface, at);
  }
  for (const ClearArrow& arrow : canvas.scene.arrows) {
    if (!canvas.IsInView(BoxOfArrow(arrow))) continue;
    DrawArrow(canvas.surface, arrow.tail + by, arrow.tip + by,
              arrow.reaction ? ClearPalette::Reaction : ClearPalette::Ink);
  }
}

void DrawLabel(const Canvas& canvas, const ClearLabel& label) {
  PixelLabel text{label.box.centre + canvas.view.origin, label.box.along, label.text, label.colour,
                  canvas.scene.text.size};
  if (label.kind == LabelKind::MemberNumber) {
    --text.size;
    text.box = {label.halfWidth - 0.5, label.halfHeight - 0.5};
    text.frame = ClearPalette::Frame;
  }
  canvas.surface.PixelText(text);
}

void DrawLabels(const Canvas& canvas, const ClearFurniture& furniture) {
  for (const ClearLabel& label : canvas.scene.labels) {
    if (!label.IsPlaced() || !canvas.IsInView(label.box)) continue;
    if (!furniture.Hides(label.box.MovedBy(canvas.view.origin))) DrawLabel(canvas, label);
  }
}

SceneRequest RequestOf(const PixelView& view, const ClearSettings& settings) {
  SceneRequest request{settings, view.scaleX, view.scaleY, LongestArrow(view.width, view.height)};
  // What has no bearing on places must not make a new scene.
  request.settings.deflectionScale = 0;
  request.settings.deflectedShape = false;
  request.settings.legend = false;
  request.settings.layers.grid = false;
  request.settings.gridSpacingX = request.settings.gridSpacingY = 0;
  request.settings.gridDashed = false;
  return request;
}

void ReportFailureOf(const ClearScene& scene, const FailureReport& failures) {
  TryDrawing(
      [&] {
        if (scene.truss.failure) std::rethrow_exception(scene.truss.failure);
      },
      failures);
}

void TryDeflected(const Canvas& canvas, const FailureReport& failures) {
  try {
    DrawDeflected(canvas);
  } catch (const std::exception& failure) {
    ReportDrawingFailure("Drawing error: drawDSD function", failure, failures);
  }
}

} // namespace

PixelView ViewOf(const PixelSurface& surface, const ViewWindow& window) {
  PixelView view;
  view.width = surface.PixelWidth();
  view.height = surface.PixelHeight();
  view.scaleX = view.width / window.width;
  view.scaleY = view.height / window.height;
  view.origin = {-window.left * view.scaleX, -window.top * view.scaleY};
  return view;
}

void DrawLabelsOfMember(PixelSurface& surface, const PixelView& view, const ClearMemory& memory, int m) {
  const ClearScene& scene = memory.Last();
  const ClearSettings none;
  for (const ClearLabel& label : scene.labels) {
    if (!label.IsPlaced() || !BelongsToBar(label)) continue;
    const ClearBar& bar = scene.truss.bars[static_cast<std::size_t>(label.owner)];
    if (bar.number == m) DrawLabel({surface, view, none, scene}, label);
  }
}

ClearOutcome DrawClear(PixelSurface& surface, const PixelView& view, const ClearSettings& settings, ClearMemory& memory,
                       const FailureReport& failures) {
  ClearOutcome outcome;
  TryDrawing(
      [&] {
        const ClearScene& scene = memory.SceneFor(RequestOf(view, settings), surface);
        const Canvas canvas{surface, view, settings, scene};
        if (settings.layers.grid) DrawClearGrid(surface, view, settings);
        DrawBars(canvas);
        if (settings.deflectedShape) TryDeflected(canvas, failures);
        DrawSymbols(canvas);
        const ClearFurniture furniture = FurnitureOf(surface, view, settings, scene, memory.legendPlace);
        memory.legendPlace = furniture.legendPlace;
        DrawLabels(canvas, furniture);
        DrawFurniture(surface, furniture);
        outcome.labels = furniture.labels;
        outcome.notice = furniture.notice;
        ReportFailureOf(scene, failures);
      },
      failures);
  return outcome;
}

} // namespace strutwright
