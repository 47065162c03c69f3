#include "NativeConsole.h"

#include <cstdlib>

namespace strutwright {

namespace {

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

} // namespace

void SetUpConsole() {}

std::vector<std::string> ProgramArguments(int count, char* const* arguments) {
  return {arguments + 1, arguments + count};
}

bool HasDisplay() { return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("QT_QPA_PLATFORM"); }

} // namespace strutwright
