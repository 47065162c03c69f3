#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace strutwright {

/// A file could not be read or written.  what() is the system's description of the reason.
class FileError : public std::runtime_error {
 public:
  explicit FileError(std::error_code reason) : std::runtime_error(reason.message()), code(reason) {}
  explicit FileError(const std::string& description) : std::runtime_error(description) {}

  /// The system's code; zero where the reason is not the system's.
  std::error_code code;
};

/// What a path names, symbolic links followed.  Special: a device, a pipe.
enum class FileKind { Missing, File, Folder, Special };

/// Keeps other processes from a file until it is destroyed.
class FileLock {
 public:
  FileLock() = default;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  virtual ~FileLock() = default;
};

/// The single steps of reading and of safely saving a file.  Paths are UTF-8.  Every step throws FileError.
/// Each is one thing that can fail, or the last one before a kill; SaveBytes puts them in order.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// What stands at the path now.
  virtual FileKind Kind(const std::string& path) = 0;

  /// The path behind all symbolic links, which need not exist; the path itself where it is no link.
  virtual std::string FollowLinks(const std::string& path) = 0;

  /// The names of what lies in a folder, in no particular order; none where there is no such folder.
  virtual std::vector<std::string> Names(const std::string& folder) = 0;

  /// Up to `limit` bytes from `offset` on, fewer where the file ends before.  Never creates a file.
  virtual std::string Read(const std::string& path, std::size_t offset, std::size_t limit) = 0;

  /// Throws unless the existing file may be written.
  virtual void CheckWritable(const std::string& path) = 0;

  /// Creates an empty file in the folder of `path`, under a name that no other file has; returns its path.
  virtual std::string CreateBeside(const std::string& path) = 0;

  /// Creates an empty file; throws where something has the name.
  virtual void Create(const std::string& path) = 0;

  /// Writes `bytes` from the start of the existing file, which is not truncated.
  virtual void Write(const std::string& path, const std::string& bytes) = 0;

  /// Cuts the existing file off behind its first `size` bytes, or fills it with zeros up to there.
  virtual void Resize(const std::string& path, std::size_t size) = 0;

  /// Whether the existing file has more than one name (hard links): replacing it would part them.
  virtual bool HasOtherNames(const std::string& path) = 0;

  /// Gives `path` the mode and, where that is allowed, the owner of `model`.
  virtual void CopyMode(const std::string& model, const std::string& path) = 0;

  /// Returns when the file's bytes have reached the disk.
  virtual void Flush(const std::string& path) = 0;

  /// Puts `from` in the place of `to` in one step.
  virtual void Replace(const std::string& from, const std::string& to) = 0;

  /// Removes a file.
  virtual void Remove(const std::string& path) = 0;

  /// Opens the file, or creates it empty, and waits until no other process holds its lock.
  /// The lock belongs to the file, not to its name: who replaces the file leaves the lock behind.
  virtual std::unique_ptr<FileLock> Lock(const std::string& path) = 0;

  /// The same without waiting; nullptr where another process, or another lock of this one, holds the lock.
  virtual std::unique_ptr<FileLock> TryLock(const std::string& path) = 0;

  /// When the file's bytes were last changed: a number that only grows with time.
  virtual std::int64_t ModifiedAt(const std::string& path) = 0;

  /// Whether files may be created in the folder; false where it does not exist.
  virtual bool TakesFiles(const std::string& folder) = 0;

  /// Creates a folder and those above it, as far as they do not exist.
  virtual void CreateFolder(const std::string& path) = 0;

  /// Removes a folder with all that it holds; links in it go, what they lead to stays.
  virtual void RemoveFolder(const std::string& path) = 0;
};

} // namespace strutwright
