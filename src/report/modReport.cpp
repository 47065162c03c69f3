#include "modReport.h"

#include "AnalysisState.h"
#include "Ensure.h"
#include "FileState.h"
#include "Platform.h"
#include "modCheckAnswer.h"
#include "modModelStore.h"
#include "modReportText.h"
#include "modSavedModels.h"

namespace strutwright {

namespace {

/// Without the capacity of the grids, which is room for a model and no part of it.
std::string EnteredModel() { return ModelInGrids().substr(sizeof(GridCapacity)); }

} // namespace

bool HasResultsToReport() {
  if (AnalysisDone == FlagFalse) return false;
  for (int m = 1; m <= MemberCount; ++m) {
    if (MemberTable(m, MemberFieldLength) != 0) return true;
  }
  return false;
}

Report MakeReport(const std::string& name) {
  Ensure(HasResultsToReport(), "a report is made of results");
  ReportParts parts;
  parts.name = name;
  parts.date = ThePlatform().today();
  parts.frame = FrameReport();
  parts.picture = ThePaper().Picture(parts.frame.width, parts.frame.height,
                                     [&parts](DrawingSurface& surface) { DrawReport(surface, parts.frame); });
  parts.check = CheckAnswer(LastOutcome());
  return {{ReportTitle(parts.name), ReportHtml(parts)}, name, CurrentFileName, parts.date, EnteredModel()};
}

bool IsUpToDate(const Report& report) { return EnteredModel() == report.model; }

} // namespace strutwright
