#include "modExport.h"

#include "DisplayState.h"
#include "DocumentFiles.h"
#include "Platform.h"
#include "TikzSurface.h"
#include "modDxfWriting.h"
#include "modFileCommands.h"
#include "modKeepResults.h"
#include "modModelJson.h"
#include "modModelStore.h"
#include "modPlaces.h"
#include "modRedraw.h"
#include "modSafeSave.h"
#include "modTables.h"

#include <vector>

namespace strutwright {

namespace {

constexpr const char* ExportFilter =
    "DXF drawings|*.dxf|Comma-separated tables|*.csv|JSON|*.json|TikZ pictures for LaTeX|*.tex";

std::string AskExportName(const std::string& model) {
  const FileQuestion question{.title = "Export",
                              .flags = OverwritePrompt,
                              .defaultExtension = "dxf",
                              .initialFolder = "",
                              .filter = ExportFilter,
                              .fileName = NameWithEnding(model, "dxf")};
  return TheFileDialog().Ask(FileDialogKind::Save, question).value_or("");
}

bool IsNameOfExport(const std::string& path) {
  for (const char* ending : {".dxf", ".csv", ".json", ".tex"}) {
    if (HasEnding(path, ending)) return true;
  }
  return false;
}

std::string DisplayAsTikz() {
  TikzSurface tikz(*DisplaySurface);
  Draw(tikz, ViewOfDisplay());
  return tikz.Document();
}

std::string ExportedText(const std::string& path, const std::string& model, std::vector<std::string>& remarks) {
  if (HasEnding(path, ".dxf")) return ModelToDxf(AnalysisDone == FlagFalse ? 0 : DeflectionScale, remarks);
  if (HasEnding(path, ".csv")) return ModelToCsv();
  return HasEnding(path, ".json") ? ModelToJson(LastComponent(model)) : DisplayAsTikz();
}

} // namespace

void ExportModel(const std::string& model) {
  RebuildKeepingResults();
  const std::string path = AskExportName(model);
  if (path.empty()) return;
  if (!IsNameOfExport(path)) {
    return ShowMessage(MessageIcon::Exclamation,
                       "The ending of the name says what is written: choose .dxf, .csv, .json or .tex");
  }
  std::vector<std::string> remarks;
  try {
    SaveWholeFile(path, ExportedText(path, model, remarks));
  } catch (const FileError& failure) {
    return ReportSaveFailure(path, failure.what());
  }
  std::string lines;
  for (const std::string& remark : remarks) lines += "\n" + remark;
  if (!lines.empty()) ShowMessage(MessageIcon::Information, "The drawing does not hold the whole model:" + lines);
}

} // namespace strutwright
