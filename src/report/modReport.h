#pragma once

#include "Paper.h"
#include "TrussView.h"

#include <string>

namespace strutwright {

/// A report of a model at the moment it was made.
struct Report {
  PaperDocument document;
  std::string name;  ///< of the model, as a user calls it
  std::string path;  ///< of its file; empty where it has none
  std::string date;  ///< "2026-11-21"
  std::string model; ///< what was reported, as the bytes of a file without the first field
};

/// Whether there are results of the model in the tables.  A list of loads or properties that was applied since has
/// taken the member forces with it, although the analysis still counts as done.
bool HasResultsToReport();

/// The report of the model in the tables.  There must be results.  Throws FileError where the drawing can't be made.
/// name: what a user calls the model.  style: of its drawing.
Report MakeReport(const std::string& name, DrawingStyle style = DrawingStyle::Clear);

/// Whether the model in the grids is still the one that was reported.
bool IsUpToDate(const Report& report);

} // namespace strutwright
