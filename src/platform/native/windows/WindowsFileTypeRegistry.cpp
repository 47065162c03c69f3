#include "WindowsFileTypeRegistry.h"

#include "WideText.h"

#include <string>

#include <windows.h>

#include <shlobj.h>

namespace strutwright {

namespace {

/// Above the keys that are this user's.
constexpr const char* OwnClasses = "Software\\Classes\\";

/// The default value of a key below a root; empty where there is none.
std::wstring DefaultBelow(HKEY root, const std::string& key) {
  constexpr DWORD MaxBytes = 2048;
  std::wstring value(MaxBytes / sizeof(wchar_t), L'\0');
  DWORD bytes = MaxBytes;
  if (RegGetValueW(root, WideText(key).c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value.data(), &bytes) !=
      ERROR_SUCCESS) {
    return {};
  }
  value.resize(bytes / sizeof(wchar_t) - 1); // without the zero at its end
  return value;
}

/// This user's value comes before that for everybody, as in Windows' own view of both.
std::wstring DefaultOf(const std::string& key) {
  const std::wstring own = DefaultBelow(HKEY_CURRENT_USER, OwnClasses + key);
  return own.empty() ? DefaultBelow(HKEY_CLASSES_ROOT, key) : own;
}

} // namespace

bool WindowsFileTypeRegistry::IsInstalled(const std::string& typeClass, const std::string& extension,
                                          const std::string& /*program*/) {
  return DefaultOf(extension) == WideText(typeClass) &&
         DefaultOf(typeClass + "\\shell\\open\\command").find(L" --open ") != std::wstring::npos;
}

void WindowsFileTypeRegistry::SetDefault(const std::string& key, const std::string& value) {
  HKEY opened = nullptr;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, WideText(OwnClasses + key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_SET_VALUE, nullptr, &opened, nullptr) != ERROR_SUCCESS) {
    return;
  }
  const std::wstring text = WideText(value);
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  RegSetValueExW(opened, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes);
  RegCloseKey(opened);
}

void WindowsFileTypeRegistry::Announce() { SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr); }

} // namespace strutwright
