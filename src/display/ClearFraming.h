#pragma once

#include "ClearSettings.h"
#include "DrawingSurface.h"

#include <optional>

namespace strutwright {

/// The window that shows the whole truss with its symbols, arrows and labels as large as the surface allows, with room
/// at the border for values, legend and notice.  Nothing where there is no node.
std::optional<ViewWindow> ClearFrame(const PixelSurface& surface, const ClearSettings& settings);

/// The forces scale in kN a metre with which the longest arrow is about a sixth of the truss, rounded to 1, 2 or 5
/// times a power of ten, within what the scale can be; nothing without a load or a shown reaction.
std::optional<float> FittingLoadsScale(bool withReactions);

} // namespace strutwright
