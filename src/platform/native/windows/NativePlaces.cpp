#include "NativePlaces.h"

#include "WideText.h"
#include "WindowsErrors.h"

#include <string>

#include <windows.h>

#include <shlobj.h>

namespace strutwright {

namespace {

std::string InFolder(const std::string& folder, const char* name) {
  return folder + (folder.ends_with('\\') ? "" : "\\") + name;
}

bool IsThere(const std::string& path) { return GetFileAttributesW(WidePath(path).c_str()) != INVALID_FILE_ATTRIBUTES; }

} // namespace

std::string ExecutablePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) ThrowWindowsError();
    if (length < path.size()) return PlainPath(std::wstring_view(path).substr(0, length));
    path.resize(2 * path.size());
  }
}

std::string ExecutableFolder() {
  const std::string path = ExecutablePath();
  return path.substr(0, path.find_last_of('\\'));
}

std::string IconPath(const std::string& programFolder) {
  const std::string icon = InFolder(programFolder, "Strutwright.ico");
  const std::string program = InFolder(programFolder, "strutwright.exe");
  return !IsThere(icon) && IsThere(program) ? program : icon;
}

std::string UserDataFolder() {
  wchar_t* folder = nullptr;
  const HRESULT result = SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_CREATE, nullptr, &folder);
  const std::string path = SUCCEEDED(result) ? Utf8Text(folder) : ExecutableFolder();
  CoTaskMemFree(folder);
  return InFolder(path, "strutwright");
}

} // namespace strutwright
