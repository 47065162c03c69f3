#pragma once

#include "ClearSettings.h"
#include "DrawingSurface.h"

#include <optional>

namespace strutwright {

/// The window that shows the whole truss with its symbols, arrows and labels as large as the surface allows, with room
/// at the border for values, legend and notice.  Nothing where there is no node.
std::optional<ViewWindow> ClearFrame(const PixelSurface& surface, const ClearSettings& settings);

/// The forces scale in kN a metre with which the longest arrow is a sixth of the truss; nothing without a load or a
/// shown reaction.
std::optional<float> ScaleOfFittedArrows(bool withReactions);

/// The same for a picture that frames the truss as these settings ask: where the longest arrow would be cut on it, the
/// scale with which it just is not.
std::optional<float> ScaleOfArrowsOn(const PixelSurface& surface, ClearSettings settings);

/// The first within what the display's scale can be.
std::optional<float> FittingLoadsScale(bool withReactions);

} // namespace strutwright
