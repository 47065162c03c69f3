#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace strutwright {

/// Base names of the models with exact answers, sorted.
inline std::vector<std::string> ReferenceNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(REFERENCE_DIR)) {
    if (entry.path().extension() == ".stw") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

} // namespace strutwright
