#pragma once

#include <string>

namespace strutwright {

/// What a user calls a file: the last component of its path, after the last "\" or "/".
std::string LastComponent(const std::string& path);

/// The path of a file that the program keeps for itself: in the program's folder or, where that takes no files, in
/// the user's data folder, which is then created if need be and possible.
std::string OwnFile(const std::string& name);

} // namespace strutwright
