#pragma once

#include <string>

namespace strutwright {

/// The folder in which the executable of this process lies, symbolic links followed.  Throws FileError.
std::string ExecutableFolder();

/// The folder for files that the program keeps for the user: "strutwright" in $XDG_DATA_HOME, or in ~/.local/share
/// where that is not set or no absolute path.  It need not exist.  Throws FileError when the user has no home.
std::string UserDataFolder();

} // namespace strutwright
