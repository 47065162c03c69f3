#pragma once

#include "ExitStatus.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace strutwright {

/// The whole program: carries out what the arguments (without the program's name) ask for.
/// What "-" names is read from `in`.  Results go to `out`, messages a line each to `err`.  Returns the exit status.
int RunCommandLine(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out, std::ostream& err);

} // namespace strutwright
