#pragma once

#include "PixelSurface.h"
#include "modClearDrawing.h"

#include <functional>

namespace strutwright {

/// Width of a text in a font of this height.
using TextMetrics = std::function<double(const std::string& text, int size)>;

/// How legible a drawing is: with every layer, framed, on a surface of a size in pixels.
struct LegibilityCount {
  int labels = 0;
  int members = 0;
  int forces = 0;         ///< that are shown
  int pairs = 0;          ///< of labels that overlap
  int onSymbols = 0;      ///< labels on a member that is not theirs, a node, a support or an arrow
  int leftOut = 0;        ///< of all that belongs to a node, a member or an arrow, as the corner counts it
  int nearerToOthers = 0; ///< forces with a member nearer than their own
};

/// Settings with every layer on.
ClearSettings EverythingShown();

/// Draws the model in the tables clear and counts.
LegibilityCount CountClear(double width, double height, const TextMetrics& metrics);

/// Draws it as described, framed in its way, and counts its labels and the pairs that overlap.
LegibilityCount CountDescribed(double width, double height, const TextMetrics& metrics);

} // namespace strutwright
