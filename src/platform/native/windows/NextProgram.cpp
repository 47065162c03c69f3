#include "NextProgram.h"

#include "FileSystem.h"
#include "NativePlaces.h"
#include "Utf8Path.h"
#include "WideText.h"
#include "WindowsErrors.h"

#include <cstdlib>
#include <initializer_list>

#include <windows.h>

namespace strutwright {

namespace {

/// Ctrl-C is for the other program, whose status this one waits for.
BOOL WINAPI LeaveItToTheOther(DWORD /*event*/) { return TRUE; }

STARTUPINFOW WithOurStreams() {
  for (const DWORD stream : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    SetHandleInformation(GetStdHandle(stream), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  }
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  return start;
}

/// Whether the program was started.
bool Start(const std::string& program, PROCESS_INFORMATION& process) {
  std::wstring commandLine = GetCommandLineW();
  STARTUPINFOW start = WithOurStreams();
  return CreateProcessW(WidePath(program).c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &start, &process) != 0;
}

/// The other program ends with this one, however that ends.
void TieToThisProcess(HANDLE other) {
  const HANDLE job = CreateJobObjectW(nullptr, nullptr); // open as long as this process is
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  AssignProcessToJobObject(job, other);
}

[[noreturn]] void EndWith(const PROCESS_INFORMATION& process) {
  TieToThisProcess(process.hProcess);
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = EXIT_FAILURE;
  GetExitCodeProcess(process.hProcess, &status);
  std::exit(static_cast<int>(status));
}

} // namespace

void GoOnAs(const std::vector<std::string>& places, char* const* /*arguments*/) {
  const std::filesystem::path folder = PathOf(ExecutableFolder());
  std::string program;
  DWORD error = ERROR_FILE_NOT_FOUND;
  SetConsoleCtrlHandler(LeaveItToTheOther, TRUE);
  for (const std::string& place : places) {
    program = PlainPath(WidePath(Utf8Of(folder / PathOf(place + ".exe"))));
    PROCESS_INFORMATION process{};
    if (Start(program, process)) EndWith(process);
    error = GetLastError();
    if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) break;
  }
  SetConsoleCtrlHandler(LeaveItToTheOther, FALSE);
  throw FileError(program + ": " + WindowsError(error).what());
}

} // namespace strutwright
