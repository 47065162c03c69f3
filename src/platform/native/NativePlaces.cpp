#include "NativePlaces.h"

#include "FileSystem.h"

#include <cstdlib>
#include <filesystem>

#include <pwd.h>
#include <unistd.h>

namespace strutwright {

namespace fs = std::filesystem;

namespace {

fs::path FolderFromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? fs::path() : fs::path(value);
}

/// Whoever runs the program without a login has a home all the same.
fs::path HomeFolder() {
  fs::path home = FolderFromEnvironment("HOME");
  if (home.is_absolute()) return home;
  const passwd* user = getpwuid(getuid());
  if (user == nullptr) throw FileError("The user has no home folder");
  return user->pw_dir;
}

} // namespace

std::string ExecutableFolder() {
  std::error_code error;
  const fs::path executable = fs::read_symlink("/proc/self/exe", error);
  if (error) throw FileError(error);
  return executable.parent_path().string();
}

std::string UserDataFolder() {
  const fs::path data = FolderFromEnvironment("XDG_DATA_HOME");
  return ((data.is_absolute() ? data : HomeFolder() / ".local" / "share") / "strutwright").string();
}

} // namespace strutwright
