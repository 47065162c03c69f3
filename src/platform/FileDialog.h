#pragma once

#include <string>

namespace strutwright {

/// Flags of a file dialog.
enum FileDialogFlag : int {
  OverwritePrompt = 2,
  FileMustExist = 4096,
};

/// The desktop's dialog for files.  One object serves every command; its properties keep the values of its last use.
class FileDialog {
 public:
  virtual ~FileDialog() = default;

  /// Show the dialog with the properties below.  False when the user cancelled; fileName is then as it was.
  virtual bool ShowOpen() = 0;
  virtual bool ShowSave() = 0;

  std::string title;
  int flags = 0;
  std::string defaultExtension; ///< without point; added on saving only
  std::string initialFolder;
  std::string filter;   ///< "Name|pattern|Name|pattern"
  std::string fileName; ///< full path, UTF-8
};

} // namespace strutwright
