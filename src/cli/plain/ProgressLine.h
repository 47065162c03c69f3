#pragma once

#include <chrono>
#include <cstddef>
#include <iosfwd>

namespace strutwright {

/// A line on a terminal that says how many of many files are done.  Whoever writes to the terminal clears it before.
class ProgressLine {
 public:
  /// Without a terminal nothing is ever written.
  ProgressLine(std::ostream& terminal, std::size_t total, bool isTerminal);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void Clear();

  /// Shows how many are done, a few times a second, and the last one always.
  void Show(std::size_t done);

 private:
  std::ostream& Terminal;
  std::size_t Total;
  bool IsTerminal;
  bool IsShown = false;
  std::chrono::steady_clock::time_point NextTime;
};

} // namespace strutwright
