#pragma once

#include <string>
#include <string_view>

namespace strutwright {

/// UTF-8 as Windows writes it.  What is no UTF-8 becomes U+FFFD.
std::wstring WideText(std::string_view text);

/// Windows' text in UTF-8.
std::string Utf8Text(std::wstring_view wide);

/// A path as the system's calls take it: full, with "\" between its components, and in the form without a limit where
/// it is too long for the usual one.  An empty path stays empty.  Throws FileError.
std::wstring WidePath(const std::string& path);

/// A path in the usual form, "C:\folder" or "\\server\share\folder", from the one without a limit.
std::string PlainPath(std::wstring_view path);

} // namespace strutwright
