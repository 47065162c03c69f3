#pragma once

#include <string>

namespace strutwright {

/// The options dialog: what its fields hold, but for the length of the list of recent files.  The texts here are those
/// of its design, which a program starts with.
struct OptionsState {
  std::string xSpaceTxt = "1";  ///< m
  std::string ySpaceTxt = "1";  ///< m
  std::string snapRtxt = "0.1"; ///< m
  std::string snapSNtxt = "1";
  std::string maxTxt = "20";
  int optGridline = 1;          ///< the chosen one: 0 solid, 1 dashed
  bool capacityChanged = false; ///< the last change of maxTxt was one of the capacity
};

} // namespace strutwright
