#pragma once

#include <functional>

#include <sys/wait.h>
#include <unistd.h>

namespace strutwright {

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

} // namespace strutwright
