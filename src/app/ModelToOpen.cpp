#include "ModelToOpen.h"

#include <cstddef>
#include <filesystem>
#include <system_error>

namespace strutwright {

namespace fs = std::filesystem;

namespace {

/// Without "." and "..", unless a link on the way makes that another file.
std::string FullPath(const fs::path& path) {
  std::error_code error;
  const fs::path full = fs::absolute(path, error);
  if (error) return path.string();
  const fs::path plain = full.lexically_normal();
  return (fs::equivalent(plain, full, error) ? plain : full).string();
}

} // namespace

std::string ModelToOpen(const std::vector<std::string>& arguments) {
  for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
    const std::string& file = arguments[i + 1];
    if (arguments[i] == "--open") return file.empty() ? "" : FullPath(file);
  }
  return "";
}

} // namespace strutwright
