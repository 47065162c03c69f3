#pragma once

#include "Shell.h"

namespace strutwright {

/// Starts executables as programs of their own; hands everything else to the desktop.
class QtShell : public Shell {
 public:
  void Open(const std::string& path) override;
  bool Start(const std::string& program, const std::vector<std::string>& arguments) override;
};

} // namespace strutwright
