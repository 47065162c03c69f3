#pragma once

#include "ClearSettings.h"
#include "TrussView.h"

namespace strutwright {

/// Draws the truss on a cleared surface: the model and, as far as the view shows them, the deflected shape, the member
/// forces and the reactions.  The model and what the display shows stay as they are.
/// Failures have been reported by then, and nothing is thrown.
void Draw(DrawingSurface& surface, const TrussView& view);

/// What a view asks of the clear drawing, which knows no unit: its symbols have a size in pixels.
ClearSettings SettingsOf(const TrussView& view);

/// The view of the truss display as it is set; the extents are those last framed.
TrussView ViewOfDisplay();

/// The drawing grid of the display.
GridLines GridOfDisplay();

/// Draws what the display shows.  Nothing happens while DisplaySurface is unset.
/// zoomToExtents: frame the whole model; otherwise the view stays.
/// What followed the mouse on the surface is gone and comes back with its next move.
/// failures: for a drawing that the user did not ask for, of a model that is still being typed, something else than
/// boxes.
void RedrawDisplay(DrawingSurface* surface, bool zoomToExtents, const FailureReport& failures = ShowDrawingFailure);

} // namespace strutwright
