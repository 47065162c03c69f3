#pragma once

#include "FileSystem.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// The recovery file that belongs to this process as long as the lock beside it is held.
struct RecoveryFile {
  std::string path;
  std::unique_ptr<FileLock> lock;
  std::string content;   ///< the model that the file holds; empty as long as there is no file
  bool restored = false; ///< holds a model of an earlier run, which has been neither changed nor saved since
};

/// An entry of the recent files in the File menus.
struct RecentFileEntry {
  std::string caption; ///< "&1   C:\\models\\bridge.stw": its index behind the mark of its key, then the path in short
  std::string tag;     ///< full path
  bool visible = false;

  bool operator==(const RecentFileEntry&) const = default;
};

/// The recent files as the File menus show them.
struct RecentFiles {
  std::vector<RecentFileEntry> mnuRUF{1}; ///< entry i at index i - 1; entry 1 always exists
  bool mnuBar3 = false;                   ///< whether the separator above the list is visible
  bool mnuBar4 = false;                   ///< the same for the one below
  std::int16_t MAX_FILES = 3;             ///< most entries that the list may have, 1..20
  std::int16_t noRUF = 0;                 ///< entries that are shown
};

/// The options dialog: what its fields hold.  The texts here are those of its design, which a program starts with.
struct OptionsState {
  std::string xSpaceTxt = "1";  ///< m
  std::string ySpaceTxt = "1";  ///< m
  std::string snapRtxt = "0.1"; ///< m
  std::string snapSNtxt = "1";
  std::string maxTxt = "20";
  std::string txtMaxFiles = "4";
  int optGridline = 1;          ///< the chosen one: 0 solid, 1 dashed
  bool capacityChanged = false; ///< the last change of maxTxt was one of the capacity
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
  RecentFiles Recent;
  OptionsState Options;
};

inline FileState TheFiles;
inline auto& CurrentFileName = TheFiles.CurrentFileName;
inline auto& mnuRUF = TheFiles.Recent.mnuRUF;
inline auto& MAX_FILES = TheFiles.Recent.MAX_FILES;
inline auto& noRUF = TheFiles.Recent.noRUF;
inline auto& TheOptions = TheFiles.Options;

} // namespace strutwright
