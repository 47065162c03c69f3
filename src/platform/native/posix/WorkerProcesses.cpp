#include "WorkerProcesses.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <exception>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace strutwright {

namespace {

constexpr int ExitOfAFailure = 1;

/// Writes all bytes; false where the reader has gone.
bool WriteAll(int file, const char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t written = ::write(file, bytes, size);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes += written;
    size -= static_cast<std::size_t>(written);
  }
  return true;
}

/// Reads so many bytes; false where the writer ends before.
bool ReadAll(int file, char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t got = ::read(file, bytes, size);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    bytes += got;
    size -= static_cast<std::size_t>(got);
  }
  return true;
}

/// A process that does every so-manyth piece from one on, and the pipe through which its answers come.
class Worker {
 public:
  Worker(const SharedWork& shared, std::size_t first, std::size_t step) : Shared(shared), Step(step) { Start(first); }
  ~Worker() { Stop(); }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// The answer to a piece.  Where the process has ended, a new one goes on behind the piece.
  std::optional<std::string> AnswerTo(std::size_t piece) {
    std::uint64_t size = 0;
    std::string answer;
    if (ReadAll(Pipe, reinterpret_cast<char*>(&size), sizeof size)) {
      answer.resize(size);
      if (ReadAll(Pipe, answer.data(), answer.size())) return answer;
    }
    Stop();
    if (piece + Step < Shared.count) Start(piece + Step);
    return std::nullopt;
  }

 private:
  void Start(std::size_t first) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) throw std::system_error(errno, std::generic_category());
    Process = ::fork();
    if (Process < 0) {
      const int reason = errno;
      for (const int end : ends) ::close(end);
      throw std::system_error(reason, std::generic_category());
    }
    if (Process == 0) {
      ::close(ends[0]);
      Work(first, ends[1]);
    }
    ::close(ends[1]);
    Pipe = ends[0];
  }

  /// In the new process; nothing of the old one is ended in order here.
  [[noreturn]] void Work(std::size_t first, int pipe) {
    std::signal(SIGPIPE, SIG_IGN);
    try {
      for (std::size_t piece = first; piece < Shared.count; piece += Step) {
        const std::string answer = Shared.work(piece);
        const std::uint64_t size = answer.size();
        if (!WriteAll(pipe, reinterpret_cast<const char*>(&size), sizeof size)) break;
        if (!WriteAll(pipe, answer.data(), answer.size())) break;
      }
    } catch (const std::exception&) {
      ::_exit(ExitOfAFailure);
    }
    ::_exit(0);
  }

  void Stop() {
    if (Pipe >= 0) ::close(std::exchange(Pipe, -1));
    if (Process > 0) ::waitpid(std::exchange(Process, -1), nullptr, 0);
  }

  const SharedWork& Shared;
  std::size_t Step;
  pid_t Process = -1;
  int Pipe = -1;
};

} // namespace

int ProcessNumber() { return ::getpid(); }

bool IsTerminal(int file) { return ::isatty(file) == 1; }

void ShareWork(const SharedWork& shared, int processes) {
  const std::size_t step = std::min(shared.count, static_cast<std::size_t>(std::max(processes, 1)));
  std::vector<std::unique_ptr<Worker>> workers;
  for (std::size_t first = 0; first < step; ++first) {
    workers.push_back(std::make_unique<Worker>(shared, first, step));
  }
  for (std::size_t piece = 0; piece < shared.count; ++piece) shared.done(piece, workers[piece % step]->AnswerTo(piece));
}

} // namespace strutwright
