#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace strutwright {

#ifdef _WIN32

/// What swallows everything.
constexpr const char* Nowhere = "NUL";

inline int ExitStatusOf(int status) { return status; }
inline std::FILE* OpenPipe(const std::string& command) { return _popen(command.c_str(), "rb"); }
inline int ClosePipe(std::FILE* pipe) { return _pclose(pipe); }

#else

constexpr const char* Nowhere = "/dev/null";

inline int ExitStatusOf(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : -1; }
inline std::FILE* OpenPipe(const std::string& command) { return popen(command.c_str(), "r"); }
inline int ClosePipe(std::FILE* pipe) { return pclose(pipe); }

#endif

/// The exit status of a command of the system's shell; -1 where it was killed.
inline int StatusOfCommand(const std::string& command) {
  return ExitStatusOf(std::system(command.c_str())); // NOLINT: fixed commands
}

/// The same with what the command prints in both of its outputs.
inline std::pair<int, std::string> OutcomeOfCommand(const std::string& command) {
  std::FILE* const pipe = OpenPipe(command + " 2>&1");
  std::string printed;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) printed += static_cast<char>(c);
  return {ExitStatusOf(ClosePipe(pipe)), printed};
}

} // namespace strutwright
