#include "NativePlaces.h"

#include "FileSystem.h"

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <pwd.h>
#include <unistd.h>

namespace strutwright {

namespace fs = std::filesystem;

namespace {

fs::path FolderFromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? fs::path() : fs::path(value);
}

/// Whoever runs the program without a login has a home all the same; who has none keeps nothing.
fs::path HomeFolder() {
  fs::path home = FolderFromEnvironment("HOME");
  if (home.is_absolute()) return home;
  const passwd* user = getpwuid(getuid());
  return user == nullptr ? "/" : user->pw_dir;
}

/// A folder of the user: the variable's, or the one in the home folder where that is not set or no absolute path.
fs::path UserFolder(const char* variable, const fs::path& inHome) {
  fs::path folder = FolderFromEnvironment(variable);
  return folder.is_absolute() ? folder : HomeFolder() / inHome;
}

std::vector<std::string> InstalledDataFolders() {
  const char* value = std::getenv("XDG_DATA_DIRS");
  std::stringstream list(value == nullptr || *value == '\0' ? "/usr/local/share:/usr/share" : value);
  std::vector<std::string> folders;
  for (std::string folder; std::getline(list, folder, ':');) {
    if (folder.starts_with('/')) folders.push_back(folder);
  }
  return folders;
}

} // namespace

std::string ExecutablePath() {
  std::error_code error;
  const fs::path executable = fs::read_symlink("/proc/self/exe", error);
  if (error) throw FileError(error);
  return executable.string();
}

std::string ExecutableFolder() { return fs::path(ExecutablePath()).parent_path().string(); }

std::string IconPath(const std::string& programFolder) {
  for (const char* each : {"../share/icons/hicolor/scalable/apps/strutwright.svg",
                           "../../../../src/windows/parts/icons/strutwright.svg"}) {
    const fs::path icon = (fs::path(programFolder) / each).lexically_normal();
    std::error_code error;
    if (fs::exists(icon, error)) return icon.string();
  }
  return (fs::path(programFolder) / "Strutwright.ico").string();
}

std::string UserDataFolder() { return (UserFolder("XDG_DATA_HOME", ".local/share") / "strutwright").string(); }

DesktopPlaces UserDesktopPlaces() {
  return {UserFolder("XDG_DATA_HOME", ".local/share").string(), UserFolder("XDG_CONFIG_HOME", ".config").string(),
          InstalledDataFolders()};
}

} // namespace strutwright
