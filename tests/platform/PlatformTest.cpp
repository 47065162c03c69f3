#include "Platform.h"
#include "Ensure.h"
#include "FakePlatform.h"

#include <array>
#include <ctime>
#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(EnsureTest, GivesTheSentenceOfTheBug) {
  EXPECT_NO_THROW(Ensure(true, "all is well"));
  try {
    Ensure(false, "a count is never negative");
    FAIL() << "nothing was thrown";
  } catch (const EnsureFailed& bug) {
    EXPECT_STREQ(bug.what(), "a count is never negative");
  }
}

TEST(PlatformWithoutPartsTest, IsABugToUse) {
  EXPECT_THROW(Messages(), EnsureFailed);
  EXPECT_THROW(TheClipboard(), EnsureFailed);
  EXPECT_THROW(Files(), EnsureFailed);
  EXPECT_THROW(TheFileDialog(), EnsureFailed);
  EXPECT_THROW(TheShell(), EnsureFailed);
  EXPECT_THROW(ThePaper(), EnsureFailed);
  EXPECT_THROW(ThePrinters(), EnsureFailed);
  EXPECT_THROW(ProgramFolder(), EnsureFailed);
  EXPECT_THROW(DataFolder(), EnsureFailed);
}

/// The calendar's date in UTC and, half a day off at the most, in every other place.
std::vector<std::string> DatesAroundNow() {
  std::vector<std::string> dates;
  for (const int hours : {-14, 0, 14}) {
    const std::time_t then = std::time(nullptr) + hours * 3600;
    std::array<char, 16> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d", std::gmtime(&then));
    dates.emplace_back(text.data());
  }
  return dates;
}

TEST(LocalDateTest, IsTodayAsScriptsWriteIt) {
  EXPECT_THAT(DatesAroundNow(), testing::Contains(LocalDate()));
  EXPECT_EQ(Platform{}.today, &LocalDate);
}

TEST(MessageIconTest, HasANameForScripts) {
  EXPECT_EQ(IconName(MessageIcon::None), "none");
  EXPECT_EQ(IconName(MessageIcon::Information), "information");
  EXPECT_EQ(IconName(MessageIcon::Question), "question");
  EXPECT_EQ(IconName(MessageIcon::Exclamation), "exclamation");
  EXPECT_EQ(IconName(MessageIcon::Critical), "critical");
}

using ShowMessageTest = PlatformTest;

TEST_F(ShowMessageTest, PutsTheProgramsNameIntoTheTitle) {
  ShowMessage(MessageIcon::Information, "Please Name a File");
  const auto shown = TakeMessages();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown[0].title, "Strutwright");
  EXPECT_EQ(shown[0].text, "Please Name a File");
  EXPECT_EQ(shown[0].icon, MessageIcon::Information);
}

/// Notes whether a box counts as open while it is shown, and may fail to show it.
class WatchfulBoxes : public MessageBoxes {
 public:
  void Show(const Message& message) override {
    wasOpen = MessageIsOpen();
    if (message.text == "fail") throw std::runtime_error("no desktop");
  }

  bool Ask(const Message& question) override {
    Show(question);
    return true;
  }

  bool wasOpen = false;
};

TEST_F(ShowMessageTest, CountsAsOpenUntilItReturns) {
  WatchfulBoxes boxes;
  ThePlatform().messages = &boxes;
  EXPECT_FALSE(MessageIsOpen());
  ShowMessage(MessageIcon::Information, "text");
  EXPECT_TRUE(boxes.wasOpen);
  EXPECT_FALSE(MessageIsOpen());
  EXPECT_THROW(ShowMessage(MessageIcon::Information, "fail"), std::runtime_error);
  EXPECT_FALSE(MessageIsOpen());
}

TEST_F(ShowMessageTest, CountsAQuestionAsOpenToo) {
  WatchfulBoxes boxes;
  ThePlatform().messages = &boxes;
  EXPECT_TRUE(AskQuestion("text"));
  EXPECT_TRUE(boxes.wasOpen);
  EXPECT_FALSE(MessageIsOpen());
}

TEST_F(ShowMessageTest, AsksUnderTheProgramsNameWithTheQuestionIcon) {
  messages.WillAnswer(false);
  EXPECT_FALSE(AskQuestion("Proceed?"));
  EXPECT_THAT(TakeMessages(), testing::ElementsAre(Box(MessageIcon::Question, "Proceed?")));
}

} // namespace
} // namespace strutwright
