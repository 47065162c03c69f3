#include "ProgressLine.h"

#include <ostream>

namespace strutwright {

namespace {

constexpr std::chrono::milliseconds Pause{100};
constexpr const char* EraseLine = "\r\033[K";

} // namespace

ProgressLine::ProgressLine(std::ostream& terminal, std::size_t total, bool isTerminal)
    : Terminal(terminal), Total(total), IsTerminal(isTerminal && total > 1) {}

ProgressLine::~ProgressLine() { Clear(); }

void ProgressLine::Clear() {
  if (!IsShown) return;
  Terminal << EraseLine << std::flush;
  IsShown = false;
}

void ProgressLine::Show(std::size_t done) {
  const auto now = std::chrono::steady_clock::now();
  if (!IsTerminal || (now < NextTime && done < Total)) return;
  NextTime = now + Pause;
  Terminal << EraseLine << done << " of " << Total << " models analysed" << std::flush;
  IsShown = true;
}

} // namespace strutwright
