#include "FakeFileDialog.h"

#include <ostream>

#include <gtest/gtest.h>

namespace strutwright {

bool FakeFileDialog::Answer(const std::string& kind) {
  shown.push_back({kind, title, flags, defaultExtension, initialFolder, filter, fileName});
  if (Script.empty()) {
    ADD_FAILURE() << "A file dialog that the test did not expect: " << testing::PrintToString(shown.back());
    return false;
  }
  const std::optional<std::string> answer = Script.front();
  Script.pop_front();
  if (answer) fileName = *answer;
  return answer.has_value();
}

void PrintTo(const ShownFileDialog& dialog, std::ostream* out) {
  *out << "[" << dialog.kind << "|" << dialog.title << "|" << dialog.flags << "|" << dialog.defaultExtension << "|"
       << dialog.initialFolder << "|" << dialog.filter << "|" << dialog.fileName << "]";
}

} // namespace strutwright
