#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace strutwright {

/// Work that is shared by processes, because its state is process-wide.
struct SharedWork {
  std::size_t count = 0; ///< pieces, numbered from 0
  /// Does a piece and gives what came of it; called in a process of its own, a copy of this one.
  std::function<std::string(std::size_t)> work;
  /// Takes what came of each piece, in their order; nothing where the process ended before it was done.
  std::function<void(std::size_t, const std::optional<std::string>&)> done;
};

/// Does the work in so many processes at once, 1 or more.  A process that ends early loses its piece only: another one
/// takes its place.  Throws std::system_error where no process can be started.
/// Windows makes no copies of a process: there this one does one piece after the other itself, whatever is asked for,
/// and an exception loses its piece only.
void ShareWork(const SharedWork& shared, int processes);

/// What the system knows this process by.
int ProcessNumber();

/// The file number of standard error.
inline constexpr int ErrorOutput = 2;

/// Whether an open file is a terminal.
bool IsTerminal(int file);

} // namespace strutwright
