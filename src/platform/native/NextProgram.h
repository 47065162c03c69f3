#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// Goes on as another program, in this process and with its arguments, and does not come back.
/// On Windows, where a process can't do that, the other program has the same streams and console, and this one waits
/// and ends with its status; places go without ".exe". places: where it may be, from the folder of this process's
/// executable; the first that is there is taken. arguments: as main() has them, its null included. Throws FileError
/// where none is there or it can't be started.
[[noreturn]] void GoOnAs(const std::vector<std::string>& places, char* const* arguments);

} // namespace strutwright
