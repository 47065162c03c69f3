#pragma once

#include <string>

namespace strutwright {

/// What the file commands remember.
struct FileState {
  std::string CurrentFileName; ///< full path of the file that Save writes to; empty when there is none
};

inline FileState TheFiles;
inline auto& CurrentFileName = TheFiles.CurrentFileName;

} // namespace strutwright
