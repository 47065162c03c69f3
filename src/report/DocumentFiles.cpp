#include "DocumentFiles.h"

#include "Platform.h"
#include "modFileCommands.h"
#include "modSafeSave.h"

#include <algorithm>

namespace strutwright {

bool HasEnding(std::string name, std::string_view ending) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return name.size() > ending.size() && name.ends_with(ending);
}

std::string NameWithEnding(const std::string& model, const std::string& extension) {
  const std::size_t name = model.find_last_of("\\/") + 1;
  const std::size_t point = model.find_last_of('.');
  const bool hasEnding = point != std::string::npos && point > name;
  return model.substr(0, hasEnding ? point : std::string::npos) + "." + extension;
}

std::string AskDocumentName(const std::string& model, const std::string& title, const std::string& extension,
                            const std::string& filter) {
  const FileQuestion question{.title = title,
                              .flags = OverwritePrompt,
                              .defaultExtension = extension,
                              .initialFolder = "",
                              .filter = filter,
                              .fileName = NameWithEnding(model, extension)};
  return TheFileDialog().Ask(FileDialogKind::Save, question).value_or("");
}

void SaveDocument(const std::string& path, const std::function<std::string()>& bytes) {
  if (path.empty()) return;
  try {
    SaveWholeFile(path, bytes());
  } catch (const FileError& failure) {
    ReportSaveFailure(path, failure.what());
  }
}

} // namespace strutwright
