#include "modManual.h"

#include "PathSpelling.h"
#include "Platform.h"

#include <array>
#include <cstddef>

namespace strutwright {

namespace {

/// Beside the program, as on Windows.
constexpr const char* FolderBeside = "/manual/";

constexpr const char* InstalledFolder = "/share/doc/strutwright/manual/";

/// From the folder that holds the program's: where programs are built, and where the manual is.
constexpr const char* BuiltFolder = "/../docs/manual/";

/// The folder that holds the program's folder, without a separator at its end.
std::string FolderAbove() {
  const std::string& folder = ProgramFolder();
  const std::size_t end = folder.find_last_of("\\/");
  return end == std::string::npos ? std::string() : folder.substr(0, end);
}

std::string InstalledPage(const std::string& name) {
  return NativePath(FolderAbove() + InstalledFolder + name + ".html");
}

} // namespace

std::string ManualPage(const std::string& name) {
  for (const std::string& path :
       std::array{InstalledPage(name), NativePath(ProgramFolder() + FolderBeside + name + ".html"),
                  NativePath(FolderAbove() + BuiltFolder + name + ".html")}) {
    if (Files().Kind(path) == FileKind::File) return path;
  }
  return {};
}

void OpenManualPage(const std::string& name) {
  const std::string path = ManualPage(name);
  if (!path.empty()) return TheShell().Open(path);
  ShowMessage(MessageIcon::Information, "The manual is not installed with this copy of the program.\nIt would be at " +
                                            InstalledPage(name) + ".");
}

} // namespace strutwright
