#pragma once

#include <string>

namespace strutwright {

/// Where the program shows what needs no answer.
class Hints {
 public:
  virtual ~Hints() = default;

  /// Shows a text, which disappears by itself.
  virtual void ShowHint(const std::string& text) = 0;
};

} // namespace strutwright
