#include "WorkerProcesses.h"

#include <exception>

#include <windows.h>

#include <io.h>

namespace strutwright {

int ProcessNumber() { return static_cast<int>(GetCurrentProcessId()); }

bool IsTerminal(int file) {
  // The C library takes every device for a terminal, the one that swallows everything too.
  DWORD mode = 0;
  return GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(file)), &mode) != 0;
}

void ShareWork(const SharedWork& shared, int /*processes*/) {
  for (std::size_t piece = 0; piece < shared.count; ++piece) {
    std::optional<std::string> answer;
    try {
      answer = shared.work(piece);
    } catch (const std::exception&) { // loses its piece
    }
    shared.done(piece, answer);
  }
}

} // namespace strutwright
