#pragma once

namespace strutwright {

/// While it lives, Ctrl-C and a request to end do not end the program at once, so that what is unfinished can be put in
/// order.  One at a time.
class Interrupts {
 public:
  Interrupts();
  ~Interrupts();
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;

  /// The number of the signal that came last since the beginning; 0 where none has.
  int Caught() const;
};

} // namespace strutwright
