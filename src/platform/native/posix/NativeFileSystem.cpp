#include "NativeFileSystem.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string_view>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace strutwright {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void ThrowSystemError() { throw FileError(std::error_code(errno, std::generic_category())); }

/// An open file descriptor that closes itself.
class Descriptor {
 public:
  Descriptor(const std::string& path, int flags) : Number(open(path.c_str(), flags | O_CLOEXEC, 0666)) {
    if (Number < 0) ThrowSystemError();
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(Number); }

  const int Number;
};

/// Reads once; gives the number of bytes, 0 at the end.
std::size_t ReadSome(const Descriptor& file, char* buffer, std::size_t size) {
  ssize_t count = 0;
  do {
    count = read(file.Number, buffer, size);
  } while (count < 0 && errno == EINTR);
  if (count < 0) ThrowSystemError();
  return static_cast<std::size_t>(count);
}

enum class OwnerKept { Both, GroupOnly, Neither };

/// Only root may give a file away; for everybody else the saver becomes the owner, which is no failure.
OwnerKept CopyOwner(const struct stat& model, const std::string& path) {
  if (chown(path.c_str(), model.st_uid, model.st_gid) == 0) return OwnerKept::Both;
  constexpr auto SameOwner = static_cast<uid_t>(-1);
  return chown(path.c_str(), SameOwner, model.st_gid) == 0 ? OwnerKept::GroupOnly : OwnerKept::Neither;
}

/// The mode that gives nobody more than the old file did: another owner is lent no identity, and another group gets
/// what everybody has.
mode_t ModeUnder(OwnerKept kept, mode_t mode) {
  if (kept == OwnerKept::Both) return mode & 07777;
  if (kept == OwnerKept::GroupOnly) return mode & 0777;
  return (mode & 0707) | ((mode & 0007) << 3);
}

/// Holds the lock of a file as long as its descriptor is open.
class NativeFileLock : public FileLock {
 public:
  explicit NativeFileLock(const std::string& path) : File(path, O_RDWR | O_CREAT) {}

  /// how: LOCK_EX waits; with LOCK_NB it does not, and gives false where the lock is held.
  bool Take(int how) {
    while (flock(File.Number, how) != 0) {
      if (errno == EWOULDBLOCK) return false;
      if (errno != EINTR) ThrowSystemError();
    }
    return true;
  }

 private:
  Descriptor File;
};

fs::path FolderOf(const std::string& path) {
  const fs::path folder = fs::path(path).parent_path();
  return folder.empty() ? fs::path(".") : folder;
}

} // namespace

FileKind NativeFileSystem::Kind(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  switch (status.type()) {
  case fs::file_type::not_found: return FileKind::Missing;
  case fs::file_type::none: throw FileError(error);
  case fs::file_type::regular: return FileKind::File;
  case fs::file_type::directory: return FileKind::Folder;
  default: return FileKind::Special;
  }
}

std::string NativeFileSystem::FollowLinks(const std::string& path) {
  constexpr int MaxLinks = 40;
  fs::path target = path;
  std::error_code error;
  for (int link = 0; fs::is_symlink(target, error); ++link) {
    if (link == MaxLinks) throw FileError(std::make_error_code(std::errc::too_many_symbolic_link_levels));
    const fs::path next = fs::read_symlink(target, error);
    if (error) throw FileError(error);
    target = next.is_absolute() ? next : target.parent_path() / next;
  }
  return target.string();
}

std::vector<std::string> NativeFileSystem::Names(const std::string& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (auto entry = fs::directory_iterator(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  return names;
}

std::string NativeFileSystem::Read(const std::string& path, std::size_t offset, std::size_t limit) {
  constexpr std::size_t Portion = 1 << 16;
  const Descriptor file(path, O_RDONLY);
  if (offset > 0 && lseek(file.Number, static_cast<off_t>(offset), SEEK_SET) < 0) ThrowSystemError();
  std::string bytes;
  while (bytes.size() < limit) {
    const std::size_t had = bytes.size();
    bytes.resize(had + std::min(Portion, limit - had));
    const std::size_t got = ReadSome(file, bytes.data() + had, bytes.size() - had);
    bytes.resize(had + got);
    if (got == 0) break;
  }
  return bytes;
}

void NativeFileSystem::CheckWritable(const std::string& path) { const Descriptor file(path, O_WRONLY); }

void NativeFileSystem::Create(const std::string& path) { const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL); }

void NativeFileSystem::Write(const std::string& path, const std::string& bytes) {
  const Descriptor file(path, O_WRONLY);
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const ssize_t count = write(file.Number, rest.data(), rest.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) ThrowSystemError();
    rest.remove_prefix(static_cast<std::size_t>(count));
  }
}

void NativeFileSystem::Resize(const std::string& path, std::size_t size) {
  if (truncate(path.c_str(), static_cast<off_t>(size)) != 0) ThrowSystemError();
}

bool NativeFileSystem::HasOtherNames(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) ThrowSystemError();
  return status.st_nlink > 1;
}

void NativeFileSystem::CopyMode(const std::string& model, const std::string& path) {
  struct stat status = {};
  if (stat(model.c_str(), &status) != 0) ThrowSystemError();
  // The mode comes second, because a change of owner clears bits of it.
  const mode_t mode = ModeUnder(CopyOwner(status, path), status.st_mode);
  struct stat now = {};
  if (stat(path.c_str(), &now) != 0) ThrowSystemError();
  // Some file systems know one mode only and refuse every change, even one to what is so already.
  if ((now.st_mode & 07777) != mode && chmod(path.c_str(), mode) != 0) ThrowSystemError();
}

void NativeFileSystem::Flush(const std::string& path) {
  const Descriptor file(path, O_WRONLY);
  // Pipes and some devices cannot be flushed and hold nothing back either.
  if (fsync(file.Number) != 0 && errno != EINVAL && errno != EROFS) ThrowSystemError();
}

void NativeFileSystem::Replace(const std::string& from, const std::string& to) {
  if (rename(from.c_str(), to.c_str()) != 0) ThrowSystemError();
  // The new name is in force now whatever happens next; flushing the folder only makes it last a power cut.
  const int folder = open(FolderOf(to).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return;
  fsync(folder);
  close(folder);
}

void NativeFileSystem::Remove(const std::string& path) {
  if (unlink(path.c_str()) != 0) ThrowSystemError();
}

std::unique_ptr<FileLock> NativeFileSystem::Lock(const std::string& path) {
  auto lock = std::make_unique<NativeFileLock>(path);
  lock->Take(LOCK_EX);
  return lock;
}

std::unique_ptr<FileLock> NativeFileSystem::TryLock(const std::string& path) {
  auto lock = std::make_unique<NativeFileLock>(path);
  if (!lock->Take(LOCK_EX | LOCK_NB)) return nullptr;
  return lock;
}

std::int64_t NativeFileSystem::ModifiedAt(const std::string& path) {
  constexpr std::int64_t Second = 1'000'000'000;
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) ThrowSystemError();
  return Second * status.st_mtim.tv_sec + status.st_mtim.tv_nsec;
}

bool NativeFileSystem::TakesFiles(const std::string& folder) {
  return Kind(folder) == FileKind::Folder && access(folder.c_str(), W_OK | X_OK) == 0;
}

void NativeFileSystem::CreateFolder(const std::string& path) {
  std::error_code error;
  fs::create_directories(path, error);
  if (error) throw FileError(error);
}

void NativeFileSystem::RemoveFolder(const std::string& path) {
  std::error_code error;
  fs::remove_all(path, error);
  if (error) throw FileError(error);
}

} // namespace strutwright
