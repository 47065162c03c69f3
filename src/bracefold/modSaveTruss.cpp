#include "modSaveTruss.h"

#include "Platform.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modPlaces.h"

#include <filesystem>

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

void OpenInStrutwright(const std::string& path) {
  const auto separator = static_cast<char>(std::filesystem::path::preferred_separator);
  const std::string program = MainProgram(ProgramFolder(), separator);
  if (TheShell().Start(program, {"--open", path})) return;
  ShowMessage(MessageIcon::Information, "Strutwright can't be started. It would be at\n" + program);
}

} // namespace strutwright
