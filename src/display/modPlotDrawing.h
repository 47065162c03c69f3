#pragma once

#include "PixelSurface.h"

#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// A point of a curve; without a y the curve has a gap there.
struct CurvePoint {
  double x = 0;
  std::optional<double> y;
};

/// A curve with its axes.
struct Plot {
  std::string nameX;
  std::string nameY;
  std::vector<CurvePoint> points; ///< x ascending
  std::optional<CurvePoint> mark; ///< where things stand now
};

/// Draws it over the whole surface, which has been cleared: axes with round values, names, the curve, the mark with its
/// value.  The range of y holds 0 where that is near.
void DrawPlot(PixelSurface& surface, const Plot& plot);

/// How the mark's value reads: with the five digits that an analysis is good for at most.
std::string PlotReading(double value);

} // namespace strutwright
