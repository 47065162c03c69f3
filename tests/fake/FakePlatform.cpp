#include "FakePlatform.h"

#include "RecordingSurface.h"

#include <cmath>
#include <mutex>
#include <ostream>
#include <utility>

namespace strutwright {

bool FakeMessageBoxes::Ask(const Message& question) {
  shown.push_back(question);
  if (Script.empty()) {
    ADD_FAILURE() << "a question that the test did not expect: " << testing::PrintToString(question);
    return false;
  }
  const bool answer = Script.front();
  Script.pop_front();
  return answer;
}

bool FakeStatusBar::ShowProgress(const std::string& text, double fraction) {
  Events.push_back("ShowProgress(" + text + ", " + std::to_string(std::lround(100 * fraction)) + " %)");
  if (reportsUntilCancel < 0) return true;
  return reportsUntilCancel-- > 0;
}

PaperPicture FakePaper::Picture(int width, int height, const std::function<void(DrawingSurface&)>& draw) {
  static std::mutex mutex; // pictures may be made by several threads
  const std::lock_guard lock(mutex);
  RecordingSurface surface;
  surface.width = static_cast<float>(width);
  surface.height = static_cast<float>(height);
  draw(surface);
  drawn = surface.ink;
  return {"PNG " + std::to_string(width) + "x" + std::to_string(height)};
}

bool FakePaper::Print(const PaperDocument& document) {
  if (!printFailure.empty()) throw FileError(printFailure);
  printed.push_back(document.title);
  return true;
}

PlatformTest::PlatformTest() {
  ThePlatform().messages = &messages;
  ThePlatform().hints = &statusBar;
  ThePlatform().progress = &statusBar;
  ThePlatform().dialog = &dialog;
  ThePlatform().clipboard = &clipboard;
  ThePlatform().shell = &shell;
  ThePlatform().settings = &settings;
  ThePlatform().fileTypes = &fileTypes;
  ThePlatform().paper = &paper;
  ThePlatform().printers = &paper;
  ThePlatform().today = [] { return std::string("2026-11-21"); };
  ThePlatform().executable = "/opt/truss/strutwright";
  ThePlatform().icon = "/opt/truss/strutwright.svg";
}

PlatformTest::~PlatformTest() { ThePlatform() = {}; }

void PlatformTest::TearDown() {
  for (const Message& message : messages.shown) {
    ADD_FAILURE() << "A box that the test did not expect: " << testing::PrintToString(message);
  }
  EXPECT_EQ(dialog.UnusedAnswers(), 0U) << "answers that the file dialog was not asked for";
  EXPECT_EQ(messages.UnusedAnswers(), 0U) << "answers to questions that were not asked";
}

std::vector<Message> PlatformTest::TakeMessages() { return std::exchange(messages.shown, {}); }

Message Box(MessageIcon icon, const std::string& text) { return {icon, ProgramTitle, text}; }

void PrintTo(const Message& message, std::ostream* out) {
  *out << "[" << IconName(message.icon) << "|" << message.title << "|" << message.text << "]";
}

} // namespace strutwright
