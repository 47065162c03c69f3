#pragma once

#include "DrawingSurface.h"

#include <functional>

namespace strutwright {

using Drawing = std::function<void(DrawingSurface&)>;

/// What `draw` draws on a surface of this size, in logical pixels, as calls that are kept: drawn again on any surface,
/// also on another thread, without the model.  The drawing surface of the program's paper measures the texts.
Drawing Recorded(int width, int height, const Drawing& draw);

} // namespace strutwright
