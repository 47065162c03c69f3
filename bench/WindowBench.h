#pragma once

#include "MessageBoxes.h"

#include <fstream>
#include <stdexcept>

#include <unistd.h>

namespace strutwright {

/// Shows nothing: a benchmark's models are sound.
class SilentBoxes : public MessageBoxes {
 public:
  void Show(const Message& message) override { throw std::runtime_error(message.text); }
  bool Ask(const Message& question) override { throw std::runtime_error(question.text); }
};

/// What of this process is in memory, in MB.
inline double ResidentMegabytes() {
  std::ifstream status("/proc/self/statm");
  double pages = 0;
  status >> pages >> pages;
  return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

} // namespace strutwright
