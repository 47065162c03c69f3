#pragma once

#include "FaultyFileSystem.h"

#include <functional>
#include <string>

#ifdef _WIN32
#include "Utf8Path.h"

#include <cstdio>

#include <share.h>
#else
#include <csignal>
#include <filesystem>
#include <utility>

#include <sys/wait.h>
#include <unistd.h>
#endif

namespace strutwright {

#ifdef _WIN32

/// Runs `work` and gives what it returned.  A protected file is protected from everybody here.
inline int AsUnprivilegedUser(const std::function<int()>& work) { return work(); }

/// Runs `work`, of which nothing is taken back.  No process here begins as a copy of another, so it is this one: what
/// `work` holds, its locks above all, the caller lets go.
inline void InProcessThatIsKilled(const std::function<void()>& work) { work(); }

/// Runs `work` up to the step of the file system that `isLast` chooses, by its name and number: neither that step nor
/// any later one is done, as after a kill.
inline void KillBefore(FaultyFileSystem& files, const std::function<bool(const std::string&, int)>& isLast,
                       const std::function<void()>& work) {
  bool killed = false;
  files.before = [&killed, &isLast](const std::string& step, int number) {
    killed = killed || isLast(step, number);
    if (killed) throw FileError("killed");
  };
  try {
    work();
  } catch (const FileError&) { // nobody hears of it
  }
  files.before = nullptr;
}

/// A file that nobody else may read as long as this lives.
class UnreadableFile {
 public:
  explicit UnreadableFile(const std::string& path) : Held(_wfsopen(PathOf(path).c_str(), L"rb", _SH_DENYRW)) {}
  UnreadableFile(const UnreadableFile&) = delete;
  UnreadableFile& operator=(const UnreadableFile&) = delete;
  ~UnreadableFile() { std::fclose(Held); }

 private:
  std::FILE* Held;
};

#else

/// Runs `work` in a child process as a user without privileges and gives what it returned, 0..255; -1 when the child
/// was killed.  Permissions mean nothing to root, who may run the tests.
inline int AsUnprivilegedUser(const std::function<int()>& work) {
  constexpr uid_t Nobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setgid(Nobody) != 0 || setuid(Nobody) != 0)) _exit(250);
    _exit(work());
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Runs `work` in a child process and waits for its end, however it comes.
inline void InChildProcess(const std::function<void()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  waitpid(child, nullptr, 0);
}

/// Runs `work` in a process that is killed behind it.
inline void InProcessThatIsKilled(const std::function<void()>& work) {
  InChildProcess([&work] {
    work();
    raise(SIGKILL);
  });
}

/// Runs `work` in a process that is killed before the step of the file system that `isLast` chooses, by its name and
/// number.
inline void KillBefore(FaultyFileSystem& files, const std::function<bool(const std::string&, int)>& isLast,
                       const std::function<void()>& work) {
  files.before = [&isLast](const std::string& step, int number) {
    if (isLast(step, number)) raise(SIGKILL);
  };
  InChildProcess(work);
  files.before = nullptr;
}

/// A file that only root may read as long as this lives.
class UnreadableFile {
 public:
  explicit UnreadableFile(std::string path) : Path(std::move(path)) {
    std::filesystem::permissions(Path, std::filesystem::perms(0000));
  }
  UnreadableFile(const UnreadableFile&) = delete;
  UnreadableFile& operator=(const UnreadableFile&) = delete;
  ~UnreadableFile() { std::filesystem::permissions(Path, std::filesystem::perms(0644)); }

 private:
  std::string Path;
};

#endif

} // namespace strutwright
