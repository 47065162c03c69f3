#include "modReport.h"

#include "AnalysisState.h"
#include "Ensure.h"
#include "FileState.h"
#include "Platform.h"
#include "modCheckAnswer.h"
#include "modMember.h"
#include "modModelFile.h"
#include "modModelStore.h"
#include "modReportText.h"

#include <exception>

namespace strutwright {

namespace {

/// Without the capacity of the grids, which is room for a model and no part of it.
std::string EnteredModel() { return ModelInGrids().substr(sizeof(GridCapacity)); }

bool BelongsInEquations(int m) {
  return MemberTable(m, MemberE) >= 0 && MemberTable(m, MemberA) >= 0 && MemberLength(m) > 0;
}

void DrawSheets(ReportParts& parts) {
  parts.sheets = LayOutSheets();
  ClearMemory memory;
  for (std::size_t index = 0; index < parts.sheets.sheets.size(); ++index) {
    const auto draw = [&](DrawingSurface& surface) { DrawSheet(surface, parts.sheets, index, memory); };
    parts.pictures.push_back(ThePaper().Picture(parts.sheets.width, parts.sheets.height, draw));
  }
}

void DrawDescribed(ReportParts& parts) {
  parts.frame = FrameReport();
  const auto draw = [&parts](DrawingSurface& surface) { DrawReport(surface, parts.frame); };
  parts.pictures.push_back(ThePaper().Picture(parts.frame.width, parts.frame.height, draw));
}

} // namespace

/// The analysis keeps the length of every member that has a place in the equations.
bool HasResultsToReport() {
  if (AnalysisDone == FlagFalse) return false;
  bool expected = false;
  for (int m = 1; m <= MemberCount; ++m) {
    if (MemberTable(m, MemberFieldLength) != 0) return true;
    expected = expected || BelongsInEquations(m);
  }
  return !expected;
}

Report MakeReport(const std::string& name, DrawingStyle style) {
  Ensure(HasResultsToReport(), "a report is made of results");
  ReportParts parts;
  parts.name = name;
  parts.date = ThePlatform().today();
  parts.style = style;
  if (style == DrawingStyle::Clear) {
    DrawSheets(parts);
  } else {
    DrawDescribed(parts);
  }
  try {
    parts.check = CheckAnswer(LastOutcome());
  } catch (const std::exception& failure) {
    parts.checkFailure = failure.what(); // the results are there all the same
  }
  const bool landscape = style == DrawingStyle::Clear && parts.sheets.landscape;
  return {{ReportTitle(parts.name), ReportHtml(parts), landscape, parts.pictures},
          name,
          CurrentFileName,
          parts.date,
          EnteredModel()};
}

bool IsUpToDate(const Report& report) { return EnteredModel() == report.model; }

} // namespace strutwright
