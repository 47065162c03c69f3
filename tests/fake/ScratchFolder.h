#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace strutwright {

/// A folder of its own for one test, removed with what it holds.  Other users may enter it.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "strutwright-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no scratch folder could be made");
    Folder = name;
    std::filesystem::permissions(Folder, std::filesystem::perms(0777));
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code error;
    std::filesystem::permissions(Folder, std::filesystem::perms(0777), error);
    std::filesystem::remove_all(Folder, error);
  }

  std::string Path(const std::string& name) const { return (Folder / name).string(); }
  const std::filesystem::path& Root() const { return Folder; }

  /// Number of entries in the folder.
  auto EntryCount() const {
    return std::distance(std::filesystem::directory_iterator(Folder), std::filesystem::directory_iterator());
  }

 private:
  std::filesystem::path Folder;
};

inline std::string FileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void PutFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace strutwright
