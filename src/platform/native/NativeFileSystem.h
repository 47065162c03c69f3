#pragma once

#include "FileSystem.h"

namespace strutwright {

/// The file system of the machine, through the calls of the operating system.
/// On Windows, what the program reads, every other program may go on reading, writing, renaming and removing; a file
/// that another program keeps to itself is reported as such.  A symbolic link there that leads to nothing stands for
/// itself.
class NativeFileSystem : public FileSystem {
 public:
  FileKind Kind(const std::string& path) override;
  std::string FollowLinks(const std::string& path) override;
  std::vector<std::string> Names(const std::string& folder) override;
  std::string Read(const std::string& path, std::size_t offset, std::size_t limit) override;
  void CheckWritable(const std::string& path) override;
  std::string CreateBeside(const std::string& path) override;
  void Create(const std::string& path) override;
  void Write(const std::string& path, const std::string& bytes) override;
  void Resize(const std::string& path, std::size_t size) override;
  bool HasOtherNames(const std::string& path) override;
  void CopyMode(const std::string& model, const std::string& path) override;
  void Flush(const std::string& path) override;
  void Replace(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;
  std::unique_ptr<FileLock> Lock(const std::string& path) override;
  std::unique_ptr<FileLock> TryLock(const std::string& path) override;
  std::int64_t ModifiedAt(const std::string& path) override;
  bool TakesFiles(const std::string& folder) override;
  void CreateFolder(const std::string& path) override;
  void RemoveFolder(const std::string& path) override;
};

} // namespace strutwright
