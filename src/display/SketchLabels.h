#pragma once

#include "SketchPlacement.h"

namespace strutwright {

/// Gives the labels and texts of a sketch their places, everything else having its own.
void LabelSketch(PlacedSketch& placed, const PixelSurface& surface);

} // namespace strutwright
