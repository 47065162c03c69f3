#include "NativeFileSystem.h"
#include "Utf8Path.h"
#include "WorkerProcesses.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace strutwright {

std::string NativeFileSystem::CreateBeside(const std::string& path) {
  std::filesystem::path folder = PathOf(path).parent_path();
  if (folder.empty()) folder = ".";
  for (int attempt = 0;; ++attempt) {
    // The name is short whatever the target's name is, so that it never exceeds what the folder allows.
    const std::string name = ".strutwright-" + std::to_string(ProcessNumber()) + "-" + std::to_string(attempt) + ".tmp";
    std::string candidate = Utf8Of(folder / name);
    try {
      Create(candidate);
      return candidate;
    } catch (const FileError& error) {
      if (error.code != std::errc::file_exists) throw;
    }
  }
}

} // namespace strutwright
