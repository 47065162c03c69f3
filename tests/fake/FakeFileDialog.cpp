#include "FakeFileDialog.h"

#include <ostream>

#include <gtest/gtest.h>

namespace strutwright {

std::optional<std::string> FakeFileDialog::Ask(FileDialogKind kind, const FileQuestion& question) {
  shown.push_back({kind == FileDialogKind::Open ? "open" : "save", question.title, question.flags,
                   question.defaultExtension, question.initialFolder, question.filter, question.fileName});
  if (Script.empty()) {
    ADD_FAILURE() << "A file dialog that the test did not expect: " << testing::PrintToString(shown.back());
    return std::nullopt;
  }
  const std::optional<std::string> answer = Script.front();
  Script.pop_front();
  return answer;
}

void PrintTo(const ShownFileDialog& dialog, std::ostream* out) {
  *out << "[" << dialog.kind << "|" << dialog.title << "|" << dialog.flags << "|" << dialog.defaultExtension << "|"
       << dialog.initialFolder << "|" << dialog.filter << "|" << dialog.fileName << "]";
}

} // namespace strutwright
