#pragma once

#include "Utf8Path.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>

namespace strutwright {

/// A folder of its own for one test, removed with what it holds.  Other users may enter it.
class ScratchFolder {
 public:
  ScratchFolder() {
    do {
      Folder = std::filesystem::temp_directory_path() / ("strutwright-test-" + std::to_string(std::random_device()()));
    } while (!std::filesystem::create_directory(Folder));
    std::filesystem::permissions(Folder, std::filesystem::perms(0777));
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code error;
    std::filesystem::permissions(Folder, std::filesystem::perms(0777), error);
    Unprotect();
    std::filesystem::remove_all(Folder, error);
  }

  /// A path in the folder, with the separators of this system.
  std::string Path(const std::string& name) const { return Utf8Of((Folder / PathOf(name)).make_preferred()); }
  std::string Root() const { return Utf8Of(Folder); }

  /// Number of entries in the folder.
  auto EntryCount() const {
    return std::distance(std::filesystem::directory_iterator(Folder), std::filesystem::directory_iterator());
  }

 private:
  /// Windows removes no file that is read-only.
  void Unprotect() const {
    if (std::filesystem::path::preferred_separator == '/') return;
    std::error_code error;
    for (const auto& each : std::filesystem::recursive_directory_iterator(Folder, error)) {
      std::filesystem::permissions(each.path(), std::filesystem::perms(0777), error);
    }
  }

  std::filesystem::path Folder;
};

inline std::string FileBytes(const std::string& path) {
  std::ifstream file(PathOf(path), std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void PutFile(const std::string& path, const std::string& bytes) {
  std::ofstream(PathOf(path), std::ios::binary) << bytes;
}

} // namespace strutwright
