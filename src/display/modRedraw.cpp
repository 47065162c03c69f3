#include "modRedraw.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "modDrawing.h"
#include "modModelRendering.h"
#include "modResultsRendering.h"
#include "modRubberBands.h"
#include "modViewTransform.h"

namespace strutwright {

void Draw(DrawingSurface& surface, const TrussView& view) {
  TryDrawing([&surface] { surface.Clear(); }, view.failures);
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
          .frameExtents = !KeepView};
}

void RedrawDisplay(DrawingSurface* surface, bool zoomToExtents, const FailureReport& failures) {
  if (DisplaySurface == nullptr || surface == nullptr) return;
  KeepView = !zoomToExtents;
  if (zoomToExtents) ComputeModelExtents();
  if (surface == DisplaySurface) ForgetRubberBands();
  TrussView view = ViewOfDisplay();
  view.failures = failures;
  Draw(*surface, view);
}

} // namespace strutwright
