#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <string>

namespace strutwright {

/// The user has cancelled a long piece of work.  No failure: whoever stops it shows no box.
class WorkCancelled : public std::exception {
 public:
  const char* what() const noexcept override { return "The work was cancelled"; }
};

/// A piece of work that may last: once it has lasted a second, the program shows how far it is and lets the user
/// cancel. From its construction to its destruction.
class LongWork {
 public:
  /// text: what is done, for the status bar.
  explicit LongWork(std::string text);
  /// text: gives it once it is shown.
  explicit LongWork(std::function<std::string()> text);
  ~LongWork();
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;

  /// Reports how much is done, 0..1.  Quick, so that it may be called often.  Throws WorkCancelled.
  void Done(double fraction);

 private:
  std::function<std::string()> MakeText;
  std::string Text; ///< once it is shown
  std::chrono::steady_clock::time_point NextReport;
  bool Shown = false;
};

} // namespace strutwright
