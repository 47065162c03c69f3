#pragma once

#include "modTrussFamilies.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace strutwright {

/// Exit statuses of bracefold.
enum BracefoldStatus : int {
  BracefoldOk = 0,
  BracefoldNoWindow = 1, ///< the window can't be shown
  BracefoldUsage = 2,    ///< wrong usage, an unwritable file, or no display named for the window
};

/// Opens the window on a truss and returns the exit status when the user has closed it.
using TrussWindow = std::function<int(const TrussFamily& family, const TrussTexts& texts)>;

/// The whole program: writes the truss that the arguments (without the program's name) describe into the file that
/// they name, or opens the window on it where they name none.
/// A description that is no truss is reported in a line on `err` that names the option, and then nothing happens.
/// Returns the exit status.
int RunBracefold(const std::vector<std::string>& arguments, const TrussWindow& window, std::ostream& out,
                 std::ostream& err);

} // namespace strutwright
