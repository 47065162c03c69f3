#pragma once

#include <string>

namespace strutwright {

/// The place where a program shows how far a long piece of work is.
class Progress {
 public:
  virtual ~Progress() = default;

  /// Shows how much is done, 0..1, with a way to cancel it; false once the user has cancelled.
  virtual bool ShowProgress(const std::string& text, double fraction) = 0;
  virtual void EndProgress() = 0;
};

} // namespace strutwright
