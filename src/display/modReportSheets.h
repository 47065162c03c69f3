#pragma once

#include "modClearDrawing.h"
#include "modReportDrawing.h"

#include <cstddef>
#include <vector>

namespace strutwright {

/// Logical pixels from edge to edge of a report's page that lies on its side.
inline constexpr int LandscapeWidth = 940;

/// A part of the truss that is drawn by itself.
struct ReportSheet {
  ViewWindow window; ///< in m
  double from = 0;   ///< m along the truss, in x or upwards
  double to = 0;
};

/// The clear drawing of a report: it fills the width of a page, which lies on its side for a long truss.  What would be
/// too small to read on one page is drawn in parts of one scale, each of which repeats the end of the one before.
struct ReportSheets {
  bool landscape = false;
  bool upwards = false; ///< the parts follow each other upwards, not in x
  int width = 0;        ///< of each, logical pixels
  int height = 0;
  float deflectionScale = 1;       ///< mm drawn per mm
  double largestForce = 0;         ///< kN, about that of the longest arrow, and never less
  std::vector<ReportSheet> sheets; ///< one or more
};

/// The sheets for the model in the tables and its results, which must be those of the last analysis.
ReportSheets LayOutSheets();

/// Draws a sheet, with all results and without the grid, on a surface of the sheets' size.  What can't be drawn is left
/// out, and what the display shows stays.
/// memory: the same for all sheets, so that a label stands in the same place of each that shows it.
void DrawSheet(DrawingSurface& surface, const ReportSheets& sheets, std::size_t index, ClearMemory& memory);

} // namespace strutwright
