#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace strutwright {

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
  std::string txtMaxFiles = "4";          ///< what the options dialog's field for MAX_FILES holds
};

inline RecentFiles TheRecentFiles;
inline auto& mnuRUF = TheRecentFiles.mnuRUF;
inline auto& MAX_FILES = TheRecentFiles.MAX_FILES;
inline auto& noRUF = TheRecentFiles.noRUF;

} // namespace strutwright
