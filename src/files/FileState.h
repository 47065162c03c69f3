#pragma once

#include "FileSystem.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace strutwright {

/// The recovery file that belongs to this process as long as the lock beside it is held.
struct RecoveryFile {
  std::string path;
  std::unique_ptr<FileLock> lock;
  std::string content;   ///< the model that the file holds; empty as long as there is no file
  bool restored = false; ///< holds a model of an earlier run, which has been neither changed nor saved since
};

/// What the file commands remember.
struct FileState {
  std::string CurrentFileName; ///< full path of the file that Save writes to; empty when there is none
  std::map<std::string, std::string> SavedModels; ///< what each file that was opened or saved is known to hold
  std::optional<RecoveryFile> OwnRecovery;        ///< nothing until there is something to keep
};

inline FileState TheFiles;
inline auto& CurrentFileName = TheFiles.CurrentFileName;

} // namespace strutwright
