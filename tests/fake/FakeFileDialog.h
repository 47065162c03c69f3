#pragma once

#include "FileDialog.h"

#include <cstddef>
#include <deque>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// The properties of a file dialog as it was shown.
struct ShownFileDialog {
  std::string kind; ///< "open" or "save"
  std::string title;
  int flags = 0;
  std::string defaultExtension;
  std::string initialFolder;
  std::string filter;
  std::string fileName;

  bool operator==(const ShownFileDialog&) const = default;
};

/// Answers from a script.  A showing that nobody scripted fails the test and counts as cancelled.
class FakeFileDialog : public FileDialog {
 public:
  std::optional<std::string> Ask(FileDialogKind kind, const FileQuestion& question) override;

  /// Adds what the user will do to the script: choose a file or leave the name empty, or cancel.
  void WillChoose(const std::string& name) { Script.emplace_back(name); }
  void WillCancel() { Script.emplace_back(std::nullopt); }

  std::size_t UnusedAnswers() const { return Script.size(); }

  /// Every showing, in order.
  std::vector<ShownFileDialog> shown;

 private:
  std::deque<std::optional<std::string>> Script;
};

/// For readable failures.
void PrintTo(const ShownFileDialog& dialog, std::ostream* out);

} // namespace strutwright
