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

} // namespace

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
