#pragma once

#include <string>

namespace strutwright {

/// What the file commands do to the window, for whoever shows it.  Nobody has to listen.
class FileListener {
 public:
  virtual ~FileListener() = default;

  /// The model has come from a file, and is about to be shown as if the program had started with it.
  virtual void FileOpened() {}

  /// What the user calls the model.
  virtual void CaptionChanged(const std::string& /*caption*/) {}

  /// The list of recent files is another one.
  virtual void RecentFilesChanged() {}
};

/// The one who listens; nullptr: nobody.  Must live until it is replaced.
void ListenToFiles(FileListener* listener);

/// Where events are reported.
FileListener& FileEvents();

} // namespace strutwright
