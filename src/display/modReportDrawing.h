#pragma once

#include "DrawingSurface.h"

namespace strutwright {

/// Logical pixels from edge to edge of a report's page; a large drawing is shown smaller than it was made.
inline constexpr int ReportWidth = 640;

/// The largest of 1, 2 and 5 times a power of ten that is not above a value; 1 where there is none.
double RoundScale(double value);

/// How the drawing of a report is framed.  It depends on the model and its results alone, not on what the display
/// shows at the moment.
struct ReportFrame {
  int width = 0; ///< of the drawing, logical pixels
  int height = 0;
  ViewWindow window; ///< in units, see below
  float unit = 1;    ///< drawn units for a m: nodes and supports, which have a size in m, look alike in every truss
  float deflectionScale = 1; ///< mm drawn per mm: the largest displacement is well seen and stays in the frame
  float loadsScale = 1;      ///< kN per m of arrow, likewise for the largest load or reaction
  bool numbers = true;       ///< nodes and members are numbered, where members are drawn long enough to read them
  bool forces = true;        ///< member forces are drawn, likewise
};

/// The frame for the model in the tables and its results, which must be those of the last analysis.
ReportFrame FrameReport();

/// Draws the model with all its results, without the grid, on a surface of the frame's size.
/// The display keeps its scales, its modes, its layers and what it shows.  What can't be drawn is left out.
void DrawReport(DrawingSurface& surface, const ReportFrame& frame);

} // namespace strutwright
