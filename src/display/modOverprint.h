#pragma once

#include "TrussView.h"

namespace strutwright {

/// Whether the described drawing of a view prints one number on another on this surface, whatever style the view has.
/// Nothing is drawn on the surface; it gives its window, its size and the
/// widths of texts.
bool PrintsOverItself(const DrawingSurface& surface, const TrussView& view);

} // namespace strutwright
