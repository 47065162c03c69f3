#pragma once

#include <filesystem>
#include <string>

namespace strutwright {

/// A UTF-8 path as the standard library takes it on every system; from a plain text it would read another encoding on
/// some.
inline std::filesystem::path PathOf(const std::string& text) { return {std::u8string(text.begin(), text.end())}; }

/// A path in UTF-8.
inline std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

/// Whether a path begins as that of a share on a network, "\\\\server\\share"; the standard library may take it for one
/// of the current drive.
inline bool IsSharePath(const std::string& text) {
  const auto parts = [](char c) { return c == '\\' || c == '/'; };
  return std::filesystem::path::preferred_separator == '\\' && text.size() > 1 && parts(text[0]) && parts(text[1]);
}

/// A path without "." and "..", as far as its text shows; a share on a network, "\\server\share", stays one.
inline std::string TidyPath(const std::string& text) {
  const std::string tidy = Utf8Of(PathOf(text).lexically_normal());
  return IsSharePath(text) && !tidy.starts_with("\\\\") ? "\\" + tidy : tidy;
}

/// Whether a character parts the components of a path on this system.
inline bool IsPathSeparator(char character) {
  constexpr bool BackslashParts = std::filesystem::path::preferred_separator == '\\';
  return character == '/' || (BackslashParts && character == '\\');
}

} // namespace strutwright
