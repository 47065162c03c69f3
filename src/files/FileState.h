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

/// Where a model belongs that was opened or begun.
struct ModelHome {
  std::string fileName; ///< file that Save writes to, as of when the model was left; empty when there is none
  std::string readFrom; ///< file that it was opened from, as long as no other model has been saved over that

  bool operator==(const ModelHome&) const = default;
};

/// The models of this run that undo and redo may bring back.
struct OpenedModels {
  int open = 0;                   ///< number of the model that is open; each Open and New gives another one
  int last = 0;                   ///< the highest number so far
  std::map<int, ModelHome> homes; ///< by number; that of the open one has its file name in CurrentFileName
};

/// What the file commands remember.
struct FileState {
  std::string CurrentFileName; ///< full path of the file that Save writes to; empty when there is none
  std::map<std::string, std::string> SavedModels; ///< what each file that was opened or saved is known to hold
  std::optional<RecoveryFile> OwnRecovery;        ///< nothing until there is something to keep
  OpenedModels Opened;
};

inline FileState TheFiles;
inline auto& CurrentFileName = TheFiles.CurrentFileName;

} // namespace strutwright
