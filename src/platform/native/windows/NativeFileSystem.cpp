#include "NativeFileSystem.h"

#include "OpenFile.h"
#include "WideText.h"
#include "WindowsErrors.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <system_error>

#include <windows.h>

namespace strutwright {

namespace {

/// Nothing there, or no name that anything could have.
bool MeansMissing(DWORD error) {
  const std::error_code code = WindowsError(error).code;
  return code == std::errc::no_such_file_or_directory || code == std::errc::not_a_directory ||
         error == ERROR_INVALID_NAME;
}

FileKind KindBy(DWORD attributes) {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::Folder : FileKind::File;
}

FileKind KindBehindLink(const std::string& path) {
  try {
    return KindBy(InformationOf(path).dwFileAttributes);
  } catch (const FileError& error) {
    if (error.code == std::errc::no_such_file_or_directory) return FileKind::Missing;
    throw;
  }
}

/// Whether a path is a symbolic link, or a folder that stands for another.
bool IsLink(const std::string& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(WidePath(path).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK || found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

/// The access rights of a file, which make a new one in its place no more open than it was.  Some disks know none.
void CopyRights(const std::wstring& model, const std::wstring& path) {
  DWORD size = 0;
  GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::string rights(size, '\0');
  if (GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size) == 0) return;
  SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights.data());
}

/// Puts a file or a folder in another's place; otherwise the reason is the last error.  ReplaceFileW lets a file keep
/// when it was made, its rights and its streams; it opens the new one for itself alone, so that it may fail where the
/// other does not.
bool IsMoved(const std::wstring& fresh, const std::wstring& old, bool areFiles) {
  if (areFiles &&
      ReplaceFileW(old.c_str(), fresh.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0) {
    return true;
  }
  const DWORD error = GetLastError();
  if (MoveFileExW(fresh.c_str(), old.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) return true;
  if (areFiles && error == ERROR_SHARING_VIOLATION) SetLastError(error); // says more than that access is denied
  return false;
}

} // namespace

FileKind NativeFileSystem::Kind(const std::string& path) {
  if (path.empty()) return FileKind::Missing;
  if (WidePath(path).starts_with(L"\\\\.\\")) return FileKind::Special;
  const DWORD attributes = AttributesOf(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const DWORD error = GetLastError();
    if (MeansMissing(error)) return FileKind::Missing;
    if (error == ERROR_SHARING_VIOLATION) return FileKind::File; // of the system's own
    throw WindowsError(error);
  }
  return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 ? KindBehindLink(path) : KindBy(attributes);
}

std::string NativeFileSystem::FollowLinks(const std::string& path) {
  if (!IsLink(path) || KindBehindLink(path) == FileKind::Missing) return path;
  const OpenFile target(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  std::wstring name(std::numeric_limits<SHORT>::max(), L'\0'); // no path is longer
  const DWORD length =
      GetFinalPathNameByHandleW(target.Handle, name.data(), static_cast<DWORD>(name.size()), FILE_NAME_NORMALIZED);
  if (length == 0) ThrowWindowsError();
  name.resize(length);
  return PlainPath(name);
}

std::string NativeFileSystem::Read(const std::string& path, std::size_t offset, std::size_t limit) {
  constexpr std::size_t Portion = 1 << 16;
  const OpenFile file(path, GENERIC_READ, OPEN_EXISTING);
  if (offset > 0) file.GoTo(offset);
  std::string bytes;
  while (bytes.size() < limit) {
    const std::size_t had = bytes.size();
    bytes.resize(had + std::min(Portion, limit - had));
    const std::size_t got = file.ReadSome(bytes.data() + had, bytes.size() - had);
    bytes.resize(had + got);
    if (got == 0) break;
  }
  return bytes;
}

void NativeFileSystem::CheckWritable(const std::string& path) {
  const OpenFile file(path, GENERIC_WRITE, OPEN_EXISTING);
}

void NativeFileSystem::Create(const std::string& path) { const OpenFile file(path, GENERIC_WRITE, CREATE_NEW); }

void NativeFileSystem::Write(const std::string& path, const std::string& bytes) {
  OpenFile(path, GENERIC_WRITE, OPEN_EXISTING).WriteAll(bytes);
}

void NativeFileSystem::Resize(const std::string& path, std::size_t size) {
  const OpenFile file(path, GENERIC_WRITE, OPEN_EXISTING);
  file.GoTo(size);
  if (SetEndOfFile(file.Handle) == 0) ThrowWindowsError();
}

bool NativeFileSystem::HasOtherNames(const std::string& path) { return InformationOf(path).nNumberOfLinks > 1; }

void NativeFileSystem::CopyMode(const std::string& model, const std::string& path) {
  constexpr DWORD Kept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  const DWORD attributes = AttributesOf(model);
  if (attributes == INVALID_FILE_ATTRIBUTES) ThrowWindowsError();
  const std::wstring copy = WidePath(path);
  CopyRights(WidePath(model), copy);
  const DWORD wanted = (attributes & Kept) == 0 ? FILE_ATTRIBUTE_NORMAL : attributes & Kept;
  if (SetFileAttributesW(copy.c_str(), wanted) == 0) ThrowWindowsError();
}

void NativeFileSystem::Flush(const std::string& path) {
  const OpenFile file(path, GENERIC_WRITE, OPEN_EXISTING);
  // Pipes and devices cannot all be flushed; what cannot holds nothing back either.
  if (FlushFileBuffers(file.Handle) == 0 && GetFileType(file.Handle) == FILE_TYPE_DISK) ThrowWindowsError();
}

void NativeFileSystem::Replace(const std::string& from, const std::string& to) {
  const std::wstring fresh = WidePath(from);
  const std::wstring old = WidePath(to);
  if (fresh.empty() || old.empty()) throw WindowsError(ERROR_PATH_NOT_FOUND);
  const bool areFiles = Kind(to) == FileKind::File && Kind(from) == FileKind::File;
  // Scanners and indexers open for moments what has just been written: they get somewhat more than a second.
  constexpr DWORD LongestWait = 640;
  for (DWORD wait = 10; !IsMoved(fresh, old, areFiles); wait *= 2) {
    const DWORD error = GetLastError();
    const bool mayPass = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
    if (!mayPass || wait > LongestWait) throw WindowsError(error);
    Sleep(wait);
  }
}

std::int64_t NativeFileSystem::ModifiedAt(const std::string& path) {
  constexpr std::int64_t NanosecondsInTick = 100;
  constexpr std::int64_t TicksBefore1970 = 116'444'736'000'000'000; // from 1601 on, which nanoseconds would not reach
  const FILETIME time = InformationOf(path).ftLastWriteTime;
  const std::int64_t ticks = (static_cast<std::int64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
  return (ticks - TicksBefore1970) * NanosecondsInTick;
}

} // namespace strutwright
