#include "NativeConsole.h"

#include "WideText.h"
#include "WorkerProcesses.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace strutwright {

namespace {

UINT CodePageBefore = 0;
DWORD ModeBefore = 0;

void PutCodePageBack() { SetConsoleOutputCP(CodePageBefore); }

void PutModeBack() { SetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), ModeBefore); }

/// Otherwise the console prints the sequence that erases a line of progress as letters.
void ObeySequences() {
  const HANDLE screen = GetStdHandle(STD_ERROR_HANDLE);
  if (GetConsoleMode(screen, &ModeBefore) == 0) return;
  if (SetConsoleMode(screen, ModeBefore | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0) std::atexit(PutModeBack);
}

/// The names that match a pattern in its last component, with what stands before that.
std::vector<std::string> Matches(const std::string& pattern) {
  const std::string folder = pattern.substr(0, pattern.find_last_of("\\/:") + 1);
  std::vector<std::string> names;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(WidePath(pattern).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) names.push_back(folder + Utf8Text(found.cFileName));
  } while (FindNextFileW(search, &found) != 0);
  FindClose(search);
  std::sort(names.begin(), names.end());
  return names;
}

bool IsPattern(const std::string& argument) {
  return !argument.starts_with('-') && argument.find_first_of("*?") != std::string::npos;
}

/// A program with windows gets no console of its own; where its starter has one and the output goes nowhere else, it
/// goes there.
void AttachToConsoleOfStarter() {
  if (GetStdHandle(STD_OUTPUT_HANDLE) != nullptr || AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
  for (std::FILE* const stream : {stdout, stderr}) {
    if (std::freopen("CONOUT$", "w", stream) == nullptr) return;
  }
}

} // namespace

void SetUpConsole() {
  AttachToConsoleOfStarter();
  constexpr int StandardStreams = 3;
  for (int file = 0; file < StandardStreams; ++file) {
    if (!IsTerminal(file)) _setmode(file, _O_BINARY);
  }
  ObeySequences();
  CodePageBefore = GetConsoleOutputCP();
  if (CodePageBefore == 0 || CodePageBefore == CP_UTF8) return; // no console, or nothing to do
  SetConsoleOutputCP(CP_UTF8);
  std::atexit(PutCodePageBack);
}

std::vector<std::string> ProgramArguments(int /*count*/, char* const* /*arguments*/) {
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> texts;
  for (int i = 1; i < count; ++i) {
    const std::string text = Utf8Text(arguments[i]);
    const std::vector<std::string> names = IsPattern(text) ? Matches(text) : std::vector<std::string>();
    if (names.empty()) texts.push_back(text);
    texts.insert(texts.end(), names.begin(), names.end());
  }
  LocalFree(arguments);
  return texts;
}

bool HasDisplay() { return true; }

} // namespace strutwright
