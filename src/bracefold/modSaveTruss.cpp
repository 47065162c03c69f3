#include "modSaveTruss.h"

#include "Platform.h"
#include "modFileCommands.h"
#include "modModelFile.h"

namespace strutwright {

std::string SaveTrussAs() {
  FileDialog& dialog = TheFileDialog();
  dialog.title = "Save As";
  dialog.flags = OverwritePrompt;
  dialog.defaultExtension = "stw";
  dialog.filter = "Strutwright files|*.stw|All files|*.*";
  if (!dialog.ShowSave()) return "";
  try {
    SaveModelFile(dialog.fileName);
  } catch (const FileError& error) {
    ReportSaveFailure(dialog.fileName, error.what());
    return "";
  }
  return dialog.fileName;
}

} // namespace strutwright
