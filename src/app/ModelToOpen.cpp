#include "ModelToOpen.h"

#include "PathSpelling.h"
#include "Utf8Path.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

namespace strutwright {

namespace fs = std::filesystem;

namespace {

/// Without "." and "..", unless a link on the way makes that another file.
std::string FullPath(const fs::path& path) {
  if (IsSharePath(Utf8Of(path))) return NativePath(Utf8Of(path));
  std::error_code error;
  const fs::path full = fs::absolute(path, error);
  if (error) return Utf8Of(path);
  const fs::path plain = full.lexically_normal();
  return Utf8Of(fs::equivalent(plain, full, error) ? plain : full);
}

} // namespace

std::string ModelToOpen(const std::vector<std::string>& arguments) {
  for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
    const std::string& file = arguments[i + 1];
    if (arguments[i] == "--open") return file.empty() ? "" : FullPath(PathOf(file));
  }
  return "";
}

} // namespace strutwright
