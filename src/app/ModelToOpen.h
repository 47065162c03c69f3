#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// The model file that the program's arguments ask for with "--open FILE", as a full path; empty when there is none.
/// Every other argument is ignored, also a file's path by itself.  "--open" without a file opens nothing: a desktop
/// writes that when it starts the program by its icon.
/// arguments: without the program's own name.
std::string ModelToOpen(const std::vector<std::string>& arguments);

} // namespace strutwright
