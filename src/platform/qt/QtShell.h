#pragma once

#include "Shell.h"

namespace strutwright {

/// Starts executables as programs of their own; hands everything else to the desktop.
class QtShell : public Shell {
 public:
  void Open(const std::string& path) override;
};

} // namespace strutwright
