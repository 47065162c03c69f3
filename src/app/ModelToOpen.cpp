#include "ModelToOpen.h"

#include "Utf8Path.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace strutwright {

namespace fs = std::filesystem;

namespace {

/// Without "." and "..", unless a link on the way makes that another file.
std::string FullPath(const fs::path& path) {
  std::error_code error;
  const fs::path full = fs::absolute(path, error);
  if (error) return Utf8Of(path);
  const fs::path plain = full.lexically_normal();
  return Utf8Of(fs::equivalent(plain, full, error) ? plain : full);
}

} // namespace

std::string ModelToOpen(int count, const char* const* arguments) {
  for (int i = 1; i + 1 < count; ++i) {
    const std::string_view file = arguments[i + 1];
    if (std::string_view(arguments[i]) == "--open") return file.empty() ? "" : FullPath(PathOf(std::string(file)));
  }
  return "";
}

} // namespace strutwright
