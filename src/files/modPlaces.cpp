#include "modPlaces.h"

#include "Platform.h"

#include <filesystem>

namespace strutwright {

std::string LastComponent(const std::string& path) { return path.substr(path.find_last_of("\\/") + 1); }

std::string OwnFile(const std::string& name) {
  const bool installed = !Files().TakesFiles(ProgramFolder());
  if (installed) Files().CreateFolder(DataFolder());
  return (std::filesystem::path(installed ? DataFolder() : ProgramFolder()) / name).string();
}

} // namespace strutwright
