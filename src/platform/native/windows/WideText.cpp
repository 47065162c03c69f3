#include "WideText.h"

#include "WindowsErrors.h"

#include <cstddef>

#include <windows.h>

namespace strutwright {

namespace {

constexpr std::wstring_view Unlimited = L"\\\\?\\";
constexpr std::wstring_view UnlimitedShare = L"\\\\?\\UNC\\";

/// A folder must leave room for a name of eight characters and an extension.
constexpr std::size_t LongestUsual = MAX_PATH - 13;

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0) ThrowWindowsError();
    const bool fits = length < full.size();
    full.resize(length);
    if (fits) return full;
  }
}

} // namespace

std::wstring WideText(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0'); // never needs more characters than bytes
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

std::string Utf8Text(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  std::string text(3 * wide.size(), '\0'); // one of four bytes is two wide characters
  const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(), 3 * size, nullptr, nullptr);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::wstring WidePath(const std::string& path) {
  const std::wstring wide = WideText(path);
  if (wide.empty() || wide.starts_with(Unlimited)) return wide;
  std::wstring full = FullPath(wide);
  if (full.size() <= LongestUsual || full.starts_with(L"\\\\.\\") || full.starts_with(Unlimited)) return full;
  if (full.starts_with(L"\\\\")) return std::wstring(UnlimitedShare) + full.substr(2);
  return std::wstring(Unlimited) + full;
}

std::string PlainPath(std::wstring_view path) {
  if (path.starts_with(UnlimitedShare)) return "\\\\" + Utf8Text(path.substr(UnlimitedShare.size()));
  if (path.starts_with(Unlimited)) path.remove_prefix(Unlimited.size());
  return Utf8Text(path);
}

} // namespace strutwright
