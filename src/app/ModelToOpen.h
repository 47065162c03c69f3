#pragma once

#include <string>

namespace strutwright {

/// The model file that the program's arguments ask for with "--open FILE", as a full path; empty when there is none.
/// Every other argument is ignored, also a file's path by itself.  "--open" without a file opens nothing: a desktop
/// writes that when it starts the program by its icon.
/// arguments: the program's own name first.
std::string ModelToOpen(int count, const char* const* arguments);

} // namespace strutwright
