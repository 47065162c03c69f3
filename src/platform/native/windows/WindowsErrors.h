#pragma once

#include "FileSystem.h"

namespace strutwright {

/// What a code of GetLastError() means, as a FileError with the text and the code that the other systems give for the
/// same reason; Windows' own text where they have no such reason.  A file that another program keeps to itself counts
/// as a busy device, and the text says what to do.
FileError WindowsError(unsigned long code);

/// Throws what the last failed call of this thread means.
[[noreturn]] void ThrowWindowsError();

} // namespace strutwright
