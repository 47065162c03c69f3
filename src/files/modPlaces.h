#pragma once

#include <string>

namespace strutwright {

/// What a user calls a file: the last component of its path, after the last "\" or "/".
std::string LastComponent(const std::string& path);

/// The paths of the program that makes trusses, and of Strutwright itself, which lie in one folder.
/// separator: the platform's, which shows whether the programs have the names that Windows gives them.
std::string CompanionProgram(const std::string& folder, char separator);
std::string MainProgram(const std::string& folder, char separator);

/// The path of a file that the program keeps for itself: in the program's folder or, where that takes no files, in
/// the user's data folder, which is then created if need be and possible.
std::string OwnFile(const std::string& name);

} // namespace strutwright
