#pragma once

#include <string>

namespace strutwright {

/// The desktop's way to open things.
class Shell {
 public:
  virtual ~Shell() = default;

  /// Opens what lies at a path: starts a program, shows a document.  What is missing is not told.
  virtual void Open(const std::string& path) = 0;
};

} // namespace strutwright
