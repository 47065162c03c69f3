#pragma once

#include "Utf8Path.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

namespace strutwright {

/// Whether paths are written as on Windows.
inline constexpr bool HasBackslashPaths = std::filesystem::path::preferred_separator == '\\';

/// A path with the separators of this system.
inline std::string NativePath(const std::string& text) { return Utf8Of(PathOf(text).make_preferred()); }

/// Whether two texts differ in no more than the case of letters of ASCII.
inline bool DifferInCaseOnly(const std::string& one, const std::string& other) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [lower](char a, char b) { return lower(a) == lower(b); });
}

/// Whether two names in their folders may belong to one file.  This keeps the disk from being asked in vain: a server
/// that does not answer takes many seconds.
inline bool MayNameOneFile(const std::string& one, const std::string& other) {
  // A short name, as in BRIDGE~1.STW, and letters beyond ASCII have other spellings.
  const auto isPlain = [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '~'; };
  const bool arePlain =
      std::all_of(one.begin(), one.end(), isPlain) && std::all_of(other.begin(), other.end(), isPlain);
  return !arePlain || DifferInCaseOnly(one, other);
}

/// Whether two paths name one file, which need not exist.  Where paths are written as on Windows, several spellings
/// lead to one file; elsewhere the letters of the paths tell.
inline bool NameOneFile(const std::string& one, const std::string& other) {
  if (!HasBackslashPaths || one == other) return one == other;
  if (one.empty() || other.empty()) return false;
  if (DifferInCaseOnly(NativePath(one), NativePath(other))) return true;
  if (!MayNameOneFile(Utf8Of(PathOf(one).filename()), Utf8Of(PathOf(other).filename()))) return false;
  std::error_code error;
  const bool areOne = std::filesystem::equivalent(PathOf(one), PathOf(other), error);
  return !error && areOne;
}

} // namespace strutwright
