#include "NativeConsole.h"

namespace strutwright {

void SetUpConsole() {}

std::vector<std::string> ProgramArguments(int count, char* const* arguments) {
  return {arguments + 1, arguments + count};
}

} // namespace strutwright
