#pragma once

#include <string>

namespace strutwright {

/// The place where a program says something that needs no answer.
class Hints {
 public:
  virtual ~Hints() = default;

  /// Shows a text that goes by itself.
  virtual void ShowHint(const std::string& text) = 0;
};

} // namespace strutwright
