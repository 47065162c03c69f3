#include "modRedraw.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "modDrawing.h"
#include "modModelRendering.h"
#include "modResultsRendering.h"
#include "modRubberBands.h"

namespace strutwright {

void RedrawDisplay(DrawingSurface* surface, bool zoomToExtents) {
  if (DisplaySurface == nullptr || surface == nullptr) return;
  KeepView = !zoomToExtents;
  TryDrawing([surface] { surface->Clear(); });
  if (surface == DisplaySurface) ForgetRubberBands();
  DrawModel(*surface);
  if (ShowDeflectedShape) DrawDeflectedShape(Displacements, *surface, DeflectionScale);
  if (ShowMemberForces) DrawMemberForces(*surface);
  if (ShowReactions) DrawReactions(*surface);
}

std::vector<std::string> RedrawQuietly(DrawingSurface* surface, bool zoomToExtents) {
  std::vector<std::string> failures;
  TheDisplay.DrawingFailures = &failures;
  try {
    RedrawDisplay(surface, zoomToExtents);
  } catch (...) {
    TheDisplay.DrawingFailures = nullptr; // the list ends here
    throw;
  }
  TheDisplay.DrawingFailures = nullptr;
  return failures;
}

} // namespace strutwright
