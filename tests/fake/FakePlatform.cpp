#include "FakePlatform.h"

#include <ostream>
#include <utility>

namespace strutwright {

void FakeHost::EndAnalysis(bool redraw) { asked.emplace_back(redraw ? "EndAnalysis(true)" : "EndAnalysis(false)"); }

void FakeHost::Redraw(bool zoomToExtents) { asked.emplace_back(zoomToExtents ? "Redraw(true)" : "Redraw(false)"); }

void FakeHost::SavePicture(const std::string& path) {
  asked.push_back("SavePicture(" + path + ")");
  if (!pictureFailure.empty()) throw FileError(pictureFailure);
}

PlatformTest::PlatformTest() {
  ThePlatform().messages = &messages;
  ThePlatform().host = &host;
  ThePlatform().dialog = &dialog;
}

PlatformTest::~PlatformTest() { ThePlatform() = {}; }

void PlatformTest::TearDown() {
  for (const Message& message : messages.shown) {
    ADD_FAILURE() << "A box that the test did not expect: " << testing::PrintToString(message);
  }
  EXPECT_EQ(dialog.UnusedAnswers(), 0U) << "answers that the file dialog was not asked for";
}

std::vector<Message> PlatformTest::TakeMessages() { return std::exchange(messages.shown, {}); }

Message Box(MessageIcon icon, const std::string& text) { return {icon, ProgramTitle, text}; }

void PrintTo(const Message& message, std::ostream* out) {
  *out << "[" << IconName(message.icon) << "|" << message.title << "|" << message.text << "]";
}

} // namespace strutwright
