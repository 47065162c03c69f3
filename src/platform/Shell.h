#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// The desktop's way to open things.
class Shell {
 public:
  virtual ~Shell() = default;

  /// Opens what lies at a path: starts a program, shows a document.  Does nothing if the path does not exist.
  virtual void Open(const std::string& path) = 0;

  /// Starts a program with arguments and does not wait for it.  False where it can't be started.
  virtual bool Start(const std::string& program, const std::vector<std::string>& arguments) = 0;
};

} // namespace strutwright
