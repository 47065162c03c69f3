#include "NativeFileSystem.h"
#include "OpenFile.h"
#include "WideText.h"
#include "WindowsErrors.h"

#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <windows.h>

namespace strutwright {

namespace {

/// Calls `visit` with everything in a folder; nothing where there is no such folder.  Gives whether there is one.
bool VisitFolder(const std::string& folder, const std::function<void(const WIN32_FIND_DATAW&)>& visit) {
  if (folder.empty()) return false;
  WIN32_FIND_DATAW found{};
  const std::wstring wide = WidePath(folder);
  // A path beyond the usual length may have no empty component.
  const HANDLE search = FindFirstFileW((wide + (wide.ends_with(L'\\') ? L"*" : L"\\*")).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  do {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L"..") visit(found);
  } while (FindNextFileW(search, &found) != 0);
  FindClose(search);
  return true;
}

/// The folder above, "" where there is none.
std::string FolderAbove(const std::string& path) {
  const std::size_t end = path.find_last_of("\\/");
  return end == std::string::npos ? std::string() : path.substr(0, end);
}

bool MakeFolder(const std::string& path) { return CreateDirectoryW(WidePath(path).c_str(), nullptr) != 0; }

/// Removes something that is read-only too.
void RemoveEven(const std::string& path, BOOL (*remove)(const wchar_t*)) {
  const std::wstring wide = WidePath(path);
  if (remove(wide.c_str()) != 0) return;
  const FileError error = WindowsError(GetLastError());
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  const bool isReadOnly = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (!isReadOnly || error.code != std::errc::permission_denied) throw error;
  // No attribute at all would mean that none is to change.
  const DWORD others = attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
  SetFileAttributesW(wide.c_str(), others == 0 ? FILE_ATTRIBUTE_NORMAL : others);
  if (remove(wide.c_str()) == 0) {
    SetFileAttributesW(wide.c_str(), attributes);
    throw error;
  }
}

BOOL RemoveOneFile(const wchar_t* path) { return DeleteFileW(path); }
BOOL RemoveEmptyFolder(const wchar_t* path) { return RemoveDirectoryW(path); }

} // namespace

std::vector<std::string> NativeFileSystem::Names(const std::string& folder) {
  std::vector<std::string> names;
  VisitFolder(folder, [&](const WIN32_FIND_DATAW& found) { names.push_back(Utf8Text(found.cFileName)); });
  return names;
}

bool NativeFileSystem::TakesFiles(const std::string& folder) {
  if (Kind(folder) != FileKind::Folder) return false;
  try {
    const OpenFile asked(folder, FILE_ADD_FILE, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

void NativeFileSystem::CreateFolder(const std::string& path) {
  if (MakeFolder(path)) return;
  DWORD error = GetLastError();
  const std::string above = FolderAbove(path);
  if (error == ERROR_PATH_NOT_FOUND && !above.empty() && !IsFolder(above)) {
    CreateFolder(above);
    if (MakeFolder(path)) return;
    error = GetLastError();
  }
  if (!IsFolder(path)) throw WindowsError(error);
}

void NativeFileSystem::Remove(const std::string& path) { RemoveEven(path, RemoveOneFile); }

void NativeFileSystem::RemoveFolder(const std::string& path) {
  const DWORD attributes = AttributesOf(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) return;
  // What a link leads to stays.
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
    for (const std::string& name : Names(path)) {
      const std::string entry = path + "\\" + name;
      if (IsFolder(entry)) {
        RemoveFolder(entry);
      } else {
        Remove(entry);
      }
    }
  }
  RemoveEven(path, (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? RemoveEmptyFolder : RemoveOneFile);
}

} // namespace strutwright
