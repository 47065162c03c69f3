#include "OpenFile.h"

#include "WideText.h"
#include "WindowsErrors.h"

#include <algorithm>
#include <string_view>
#include <system_error>

namespace strutwright {

namespace {

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The most that one call writes.
constexpr std::size_t MostAtOnce = 1 << 24;

} // namespace

DWORD AttributesOf(const std::string& path) { return GetFileAttributesW(WidePath(path).c_str()); }

bool IsFolder(const std::string& path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

namespace {

/// Some disks do not mind whether a file is protected.
bool IsProtected(const std::string& path) {
  const DWORD attributes = AttributesOf(path);
  constexpr DWORD Looked = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY;
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & Looked) == FILE_ATTRIBUTE_READONLY;
}

} // namespace

OpenFile::OpenFile(const std::string& path, DWORD access, DWORD how, DWORD flags)
    : Handle(
          CreateFileW(WidePath(path).c_str(), access, ShareAll, nullptr, how, FILE_ATTRIBUTE_NORMAL | flags, nullptr)) {
  if (Handle != INVALID_HANDLE_VALUE) {
    if ((access & GENERIC_WRITE) == 0 || !IsProtected(path)) return;
    CloseHandle(Handle);
    throw WindowsError(ERROR_ACCESS_DENIED);
  }
  const DWORD error = GetLastError();
  // Windows refuses a folder as it refuses the file of somebody else.
  if (error == ERROR_ACCESS_DENIED && how != CREATE_NEW && IsFolder(path)) {
    throw FileError(std::make_error_code(std::errc::is_a_directory));
  }
  throw WindowsError(error);
}

void OpenFile::GoTo(std::size_t offset) const {
  LARGE_INTEGER place{};
  place.QuadPart = static_cast<LONGLONG>(offset);
  if (SetFilePointerEx(Handle, place, nullptr, FILE_BEGIN) == 0) ThrowWindowsError();
}

std::size_t OpenFile::ReadSome(char* buffer, std::size_t size) const {
  DWORD count = 0;
  // What is behind the end of a pipe counts as its end.
  if (ReadFile(Handle, buffer, static_cast<DWORD>(size), &count, nullptr) == 0 && GetLastError() != ERROR_BROKEN_PIPE &&
      GetLastError() != ERROR_HANDLE_EOF) {
    ThrowWindowsError();
  }
  return count;
}

void OpenFile::WriteAll(const std::string& bytes) const {
  std::string_view rest = bytes;
  while (!rest.empty()) {
    DWORD count = 0;
    const auto size = static_cast<DWORD>(std::min(rest.size(), MostAtOnce));
    if (WriteFile(Handle, rest.data(), size, &count, nullptr) == 0) ThrowWindowsError();
    rest.remove_prefix(count);
  }
}

BY_HANDLE_FILE_INFORMATION OpenFile::Information() const {
  BY_HANDLE_FILE_INFORMATION information{};
  if (GetFileInformationByHandle(Handle, &information) == 0) ThrowWindowsError();
  return information;
}

BY_HANDLE_FILE_INFORMATION InformationOf(const std::string& path) {
  return OpenFile(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS).Information();
}

} // namespace strutwright
