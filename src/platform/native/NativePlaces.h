#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// The full path of this process's executable, symbolic links followed.  Throws FileError.
std::string ExecutablePath();

/// The icon of the program in a folder: the one that was installed with it, the one of the tree that it was built in,
/// or else "Strutwright.ico" in that folder, which need not exist.
/// On Windows: "Strutwright.ico" in that folder or, where that is not there, "strutwright.exe", which holds it too.
std::string IconPath(const std::string& programFolder);

/// The folder in which the executable of this process lies, symbolic links followed.  Throws FileError.
std::string ExecutableFolder();

/// The folder for files that the program keeps for the user: "strutwright" in $XDG_DATA_HOME, or in ~/.local/share
/// where that is not set or no absolute path.  It need not exist.  Who has no home has it in the root folder.
/// On Windows: "strutwright" in %APPDATA%.
std::string UserDataFolder();

/// Where a free desktop looks for what it knows: for this user, and installed for everybody.
struct DesktopPlaces {
  std::string dataHome;                 ///< $XDG_DATA_HOME, else ~/.local/share
  std::string configHome;               ///< $XDG_CONFIG_HOME, else ~/.config
  std::vector<std::string> dataFolders; ///< $XDG_DATA_DIRS, else /usr/local/share and /usr/share
};

/// The places of this process's user.  Relative paths in the environment count as not set.  Not on Windows.
DesktopPlaces UserDesktopPlaces();

} // namespace strutwright
