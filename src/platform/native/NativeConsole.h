#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// Makes the standard streams of a program without windows what its texts are: UTF-8 on a console, which gets its own
/// code page back when the program ends, and exactly the bytes that are written in a file or a pipe.
/// To be called first in main().  Where the system has it so anyway, nothing is done.
void SetUpConsole();

/// The program's arguments in UTF-8, without its own name.  Where the shell leaves patterns like "*.stw" to the
/// programs, the names that match stand in the place of the last component of one, in order; a pattern that nothing
/// matches stays as it is.  count, arguments: as main() has them.
std::vector<std::string> ProgramArguments(int count, char* const* arguments);

/// Whether there seems to be a screen for windows.
bool HasDisplay();

} // namespace strutwright
