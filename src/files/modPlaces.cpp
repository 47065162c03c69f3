#include "modPlaces.h"

#include "Platform.h"
#include "Utf8Path.h"

namespace strutwright {

std::string LastComponent(const std::string& path) { return path.substr(path.find_last_of("\\/") + 1); }

namespace {

bool IsWindows(char separator) { return separator == '\\'; }

} // namespace

std::string CompanionProgram(const std::string& folder, char separator) {
  return folder + separator + (IsWindows(separator) ? "Bracefold.exe" : "bracefold");
}

std::string MainProgram(const std::string& folder, char separator) {
  return folder + separator + (IsWindows(separator) ? "Strutwright.exe" : "strutwright");
}

namespace {

/// Where it can't be created, writing the file will say why.
void CreateDataFolder() {
  try {
    Files().CreateFolder(DataFolder());
  } catch (const FileError&) {
  }
}

} // namespace

std::string OwnFile(const std::string& name) {
  const bool installed = !Files().TakesFiles(ProgramFolder());
  if (installed) CreateDataFolder();
  return Utf8Of(PathOf(installed ? DataFolder() : ProgramFolder()) / PathOf(name));
}

} // namespace strutwright
