#pragma once

#include "CheckReport.h"
#include "Paper.h"
#include "modReportDrawing.h"
#include "modReportSheets.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

/// What a report needs besides the model in the tables and its results.
struct ReportParts {
  std::string name; ///< of the model, as a user calls it; UTF-8
  std::string date; ///< "2026-11-21"
  DrawingStyle style = DrawingStyle::Clear;
  std::vector<PaperPicture> pictures; ///< of DrawReport, or of each sheet of the clear drawing
  ReportFrame frame;                  ///< of the described drawing
  ReportSheets sheets;                ///< of the clear one
  CheckReport check;
  std::string checkFailure; ///< why there is no check; empty where there is one
};

/// A row of a table of explanations.
struct Explanation {
  std::string_view quantity;
  std::string_view meaning;
};

/// What a positive number means, and what is in which unit; the manual's page on signs says the same.
inline constexpr std::array<Explanation, 4> SignConventions{{
    {"x, loads in x, displacements in x, reactions in x", "to the right"},
    {"y, loads in y, displacements in y, reactions in y", "upwards"},
    {"Member force, stress, prestress", "tension (T); negative is compression (C)"},
    {"Change of length", "longer"},
}};
inline constexpr std::array<Explanation, 6> UnitsOfReport{{
    {"Coordinates", "m"},
    {"Loads, reactions, member forces, prestress", "kN"},
    {"E, modulus of elasticity", "kN/mm\u00B2 (1 kN/mm\u00B2 = 1 GPa)"},
    {"A, area", "mm\u00B2"},
    {"Displacements, changes of length", "mm"},
    {"Stress", "N/mm\u00B2 (1 N/mm\u00B2 = 1 MPa)"},
}};
inline constexpr std::string_view ReactionConvention =
    "A reaction is what the support does to the truss: +5 kN in y pushes it up.";

/// "Truss report: bridge.stw".
std::string ReportTitle(const std::string& name);

/// The report of the model in the tables, whose analysis is done, as HTML: its number texts are those of the results
/// grids and of the data grids.  The same model and parts give the same bytes.
std::string ReportHtml(const ReportParts& parts);

} // namespace strutwright
