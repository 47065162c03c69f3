#include "NextProgram.h"

#include "FileSystem.h"
#include "NativePlaces.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <unistd.h>

namespace strutwright {

void GoOnAs(const std::vector<std::string>& places, char* const* arguments) {
  const std::filesystem::path folder = ExecutableFolder();
  std::string program;
  for (const std::string& place : places) {
    program = (folder / place).lexically_normal().string();
    execv(program.c_str(), arguments);
    if (errno != ENOENT) break;
  }
  throw FileError(program + ": " + std::generic_category().message(errno));
}

} // namespace strutwright
