#pragma once

#include "DrawingSurface.h"

#include <string>
#include <vector>

namespace strutwright {

/// The one way to draw: clears the surface, then draws the model and, as far as they are shown, the deflected shape,
/// the member forces and the reactions.  Nothing happens while DisplaySurface is unset.
/// zoomToExtents: frame the whole model; otherwise the view stays.
/// What followed the mouse on the surface is gone and comes back with its next move.
/// Failures have been reported by then, and nothing is thrown.
void RedrawDisplay(DrawingSurface* surface, bool zoomToExtents);

/// Draws likewise, but returns the texts of the failures instead of showing boxes: for a drawing that the user did
/// not ask for, of a model that is still being typed.
std::vector<std::string> RedrawQuietly(DrawingSurface* surface, bool zoomToExtents);

} // namespace strutwright
