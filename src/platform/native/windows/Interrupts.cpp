#include "Interrupts.h"

#include <atomic>
#include <csignal>

#include <windows.h>

namespace strutwright {

namespace {

std::atomic<int> LastSignal = 0;

/// Called in a thread of its own.
BOOL WINAPI Keep(DWORD event) {
  LastSignal = event == CTRL_C_EVENT ? SIGINT : SIGTERM;
  // When this returns, a closed console ends the program at once; so it leaves the program the seconds that there are.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
  return TRUE;
}

} // namespace

Interrupts::Interrupts() {
  LastSignal = 0;
  SetConsoleCtrlHandler(Keep, TRUE);
}

Interrupts::~Interrupts() { SetConsoleCtrlHandler(Keep, FALSE); }

int Interrupts::Caught() const { return LastSignal; }

} // namespace strutwright
