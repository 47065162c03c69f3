#include "WindowsFileTypeRegistry.h"

#include <string>

#include <windows.h>

#include <shlobj.h>

namespace strutwright {

namespace {

/// UTF-8 as Windows writes it.
std::wstring WideText(const std::string& text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

/// The default value of a key; empty where there is none.
std::wstring DefaultOf(const std::string& key) {
  constexpr DWORD MaxBytes = 2048;
  std::wstring value(MaxBytes / sizeof(wchar_t), L'\0');
  DWORD bytes = MaxBytes;
  if (RegGetValueW(HKEY_CLASSES_ROOT, WideText(key).c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value.data(), &bytes) !=
      ERROR_SUCCESS) {
    return {};
  }
  value.resize(bytes / sizeof(wchar_t) - 1); // without the zero at its end
  return value;
}

} // namespace

bool WindowsFileTypeRegistry::IsInstalled(const std::string& typeClass, const std::string& extension,
                                          const std::string& /*program*/) {
  return DefaultOf(extension) == WideText(typeClass) &&
         DefaultOf(typeClass + "\\shell\\open\\command").find(L" --open ") != std::wstring::npos;
}

void WindowsFileTypeRegistry::SetDefault(const std::string& key, const std::string& value) {
  HKEY opened = nullptr;
  if (RegCreateKeyExW(HKEY_CLASSES_ROOT, WideText(key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_SET_VALUE,
                      nullptr, &opened, nullptr) != ERROR_SUCCESS) {
    return;
  }
  const std::wstring text = WideText(value);
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  RegSetValueExW(opened, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes);
  RegCloseKey(opened);
}

void WindowsFileTypeRegistry::Announce() { SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr); }

} // namespace strutwright
