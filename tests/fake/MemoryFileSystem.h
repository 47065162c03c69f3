#pragma once

#include "FileSystem.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace strutwright {

/// Files in memory, by path: for tests that save thousands of times.  There are no links, and every folder is there.
class MemoryFileSystem : public FileSystem {
 public:
  std::map<std::string, std::string> files;

  FileKind Kind(const std::string& path) override { return files.contains(path) ? FileKind::File : FileKind::Missing; }
  std::string FollowLinks(const std::string& path) override { return path; }
  std::vector<std::string> Names(const std::string& /*folder*/) override { return {}; }
  std::string Read(const std::string& path, std::size_t offset, std::size_t limit) override {
    const std::string& bytes = Existing(path);
    return offset >= bytes.size() ? std::string() : bytes.substr(offset, limit);
  }
  void CheckWritable(const std::string& path) override { Existing(path); }
  std::string CreateBeside(const std::string& path) override { return files[path + ".tmp"], path + ".tmp"; }
  void Create(const std::string& path) override { files[path] = ""; }
  void Write(const std::string& path, const std::string& bytes) override {
    std::string& old = Existing(path);
    old.replace(0, std::min(old.size(), bytes.size()), bytes);
  }
  void Resize(const std::string& path, std::size_t size) override { Existing(path).resize(size); }
  bool HasOtherNames(const std::string& /*path*/) override { return false; }
  void CopyMode(const std::string& /*model*/, const std::string& /*path*/) override {}
  void Flush(const std::string& /*path*/) override {}
  void Replace(const std::string& from, const std::string& to) override {
    files[to] = Existing(from);
    files.erase(from);
  }
  void Remove(const std::string& path) override { files.erase(path); }
  std::unique_ptr<FileLock> Lock(const std::string& /*path*/) override { return std::make_unique<FileLock>(); }
  std::unique_ptr<FileLock> TryLock(const std::string& /*path*/) override { return std::make_unique<FileLock>(); }
  std::int64_t ModifiedAt(const std::string& /*path*/) override { return 0; }
  bool TakesFiles(const std::string& /*folder*/) override { return true; }
  void CreateFolder(const std::string& /*path*/) override {}
  void RemoveFolder(const std::string& path) override {
    std::erase_if(files, [&path](const auto& file) { return file.first.starts_with(path + "/"); });
  }

 private:
  std::string& Existing(const std::string& path) {
    const auto found = files.find(path);
    if (found == files.end()) throw FileError(std::make_error_code(std::errc::no_such_file_or_directory));
    return found->second;
  }
};

} // namespace strutwright
