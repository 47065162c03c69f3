#include "modRedraw.h"

#include "AnalysisState.h"
#include "ClearFraming.h"
#include "DisplayState.h"
#include "modDrawing.h"
#include "modModelRendering.h"
#include "modResultsRendering.h"
#include "modRubberBands.h"
#include "modViewTransform.h"

namespace strutwright {

namespace {

void DrawInClearStyle(DrawingSurface& surface, const TrussView& view) {
  ClearMemory once;
  const ClearSettings settings = SettingsOf(view);
  TryDrawing(
      [&] {
        if (!view.frameExtents) return;
        if (const auto window = ClearFrame(surface, settings)) surface.SetWindow(*window);
      },
      view.failures);
  DrawClear(surface, ViewOf(surface, surface.Window()), settings, view.memory != nullptr ? *view.memory : once,
            view.failures);
}

} // namespace

ClearSettings SettingsOf(const TrussView& view) {
  return {.layers = view.layers,
          .reactions = view.reactions,
          .memberForces = view.memberForces,
          .deflectedShape = view.deflectedShape,
          .deflectionScale = view.deflectionScale,
          .loadsScale = view.loadsScale,
          .widthByForce = view.widthByForce,
          .legend = view.legend,
          .onPaper = view.onPaper,
          .gridSpacingX = view.grid.spacingX,
          .gridSpacingY = view.grid.spacingY,
          .gridDashed = view.grid.style == LineStyle::Dashed};
}

void Draw(DrawingSurface& surface, const TrussView& view) {
  TryDrawing([&surface] { surface.Clear(); }, view.failures);
  if (view.style == DrawingStyle::Clear) return DrawInClearStyle(surface, view);
  DrawModel(surface, view);
  if (view.deflectedShape) DrawDeflectedShape(Displacements, surface, view);
  if (view.memberForces) DrawMemberForces(surface, view);
  if (view.reactions) DrawReactions(surface, view);
}

GridLines GridOfDisplay() {
  return {.spacingX = GridSpacingX,
          .spacingY = GridSpacingY,
          .style = GridLineStyle == 0 ? LineStyle::Solid : LineStyle::Dashed};
}

TrussView ViewOfDisplay() {
  return {.layers = TheDisplay.Layers,
          .reactions = ShowReactions,
          .memberForces = ShowMemberForces,
          .deflectedShape = ShowDeflectedShape,
          .deflectionScale = DeflectionScale,
          .loadsScale = LoadsScale,
          .grid = GridOfDisplay(),
          .extents = TheDisplay.Extents,
          .frameExtents = !KeepView,
          .style = TheDisplay.Style,
          .widthByForce = TheDisplay.WidthByForce,
          .legend = TheDisplay.ShowLegend};
}

void RedrawDisplay(DrawingSurface* surface, bool zoomToExtents, const FailureReport& failures) {
  if (DisplaySurface == nullptr || surface == nullptr) return;
  KeepView = !zoomToExtents;
  if (zoomToExtents) ComputeModelExtents();
  if (surface == DisplaySurface) ForgetRubberBands();
  TrussView view = ViewOfDisplay();
  view.failures = failures;
  if (surface == DisplaySurface) view.memory = &TheDisplay.Memory;
  Draw(*surface, view);
}

} // namespace strutwright
