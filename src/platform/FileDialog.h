#pragma once

#include <optional>
#include <string>

namespace strutwright {

/// Flags of a file dialog.
enum FileDialogFlag : int {
  OverwritePrompt = 2,
  FileMustExist = 4096,
};

enum class FileDialogKind { Open, Save };

/// What a dialog for files asks.
struct FileQuestion {
  std::string title;
  int flags = 0;
  std::string defaultExtension; ///< without point; added on saving only
  std::string initialFolder;
  std::string filter;   ///< "Name|pattern|Name|pattern"
  std::string fileName; ///< full path, UTF-8
};

/// The desktop's dialog for files.  One object serves every command; its properties, which are those of a question,
/// keep the values of its last use.
class FileDialog : public FileQuestion {
 public:
  virtual ~FileDialog() = default;

  /// Shows a dialog that has nothing to do with the properties.  The chosen full path; nothing when the user cancelled.
  virtual std::optional<std::string> Ask(FileDialogKind kind, const FileQuestion& question) = 0;

  /// Show the dialog with its properties.  False when the user cancelled; fileName is then as it was.
  bool ShowOpen() { return Take(Ask(FileDialogKind::Open, *this)); }
  bool ShowSave() { return Take(Ask(FileDialogKind::Save, *this)); }

 private:
  bool Take(const std::optional<std::string>& chosen) {
    if (chosen) fileName = *chosen;
    return chosen.has_value();
  }
};

} // namespace strutwright
