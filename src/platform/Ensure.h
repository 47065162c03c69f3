#pragma once

#include <stdexcept>

namespace strutwright {

/// A bug in this program: a condition that its own code must keep did not hold.
class EnsureFailed : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// Checks what the program itself must keep, in every build.
/// sentence: what should have held, in words that a bug report can quote.
/// Throws EnsureFailed; the guard around every event handler shows it and the program goes on.
inline void Ensure(bool condition, const char* sentence) {
  if (!condition) throw EnsureFailed(sentence);
}

} // namespace strutwright
