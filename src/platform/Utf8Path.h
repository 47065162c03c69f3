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

} // namespace strutwright
