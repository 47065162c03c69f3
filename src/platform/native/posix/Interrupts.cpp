#include "Interrupts.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstddef>

namespace strutwright {

namespace {

constexpr std::array<int, 3> Signals{SIGINT, SIGTERM, SIGHUP};

std::atomic<int> LastSignal = 0;
std::array<struct sigaction, Signals.size()> Before;

void Keep(int signal) { LastSignal = signal; }

} // namespace

Interrupts::Interrupts() {
  LastSignal = 0;
  struct sigaction action {};
  action.sa_handler = Keep;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < Signals.size(); ++i) {
    ::sigaction(Signals[i], nullptr, &Before[i]);
    // What was told to go on whatever comes goes on.
    if (Before[i].sa_handler != SIG_IGN) ::sigaction(Signals[i], &action, nullptr);
  }
}

Interrupts::~Interrupts() {
  for (std::size_t i = 0; i < Signals.size(); ++i) ::sigaction(Signals[i], &Before[i], nullptr);
}

int Interrupts::Caught() const { return LastSignal; }

} // namespace strutwright
