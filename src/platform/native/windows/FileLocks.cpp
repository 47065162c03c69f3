#include "NativeFileSystem.h"
#include "OpenFile.h"
#include "WindowsErrors.h"

#include <limits>
#include <memory>
#include <string>

#include <windows.h>

namespace strutwright {

namespace {

/// Holds the lock of a file as long as it is open.
class WindowsFileLock : public FileLock {
 public:
  explicit WindowsFileLock(const std::string& path) : File(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS) {}

  /// how: 0 waits; LOCKFILE_FAIL_IMMEDIATELY does not, and gives false where the lock is held.
  bool Take(DWORD how) {
    // Windows keeps everybody from what is locked: the byte lies where no file has any, so that all may go on reading.
    OVERLAPPED farBehindTheEnd{};
    farBehindTheEnd.Offset = std::numeric_limits<DWORD>::max() - 1;
    farBehindTheEnd.OffsetHigh = std::numeric_limits<LONG>::max();
    if (LockFileEx(File.Handle, LOCKFILE_EXCLUSIVE_LOCK | how, 0, 1, 0, &farBehindTheEnd) != 0) return true;
    const DWORD error = GetLastError();
    if (error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING) return false;
    throw WindowsError(error);
  }

 private:
  OpenFile File;
};

} // namespace

std::unique_ptr<FileLock> NativeFileSystem::Lock(const std::string& path) {
  auto lock = std::make_unique<WindowsFileLock>(path);
  lock->Take(0);
  return lock;
}

std::unique_ptr<FileLock> NativeFileSystem::TryLock(const std::string& path) {
  auto lock = std::make_unique<WindowsFileLock>(path);
  if (!lock->Take(LOCKFILE_FAIL_IMMEDIATELY)) return nullptr;
  return lock;
}

} // namespace strutwright
