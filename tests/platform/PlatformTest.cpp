#include "Platform.h"
#include "Ensure.h"
#include "FakePlatform.h"

#include <stdexcept>

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
  EXPECT_THROW(TheHost(), EnsureFailed);
  EXPECT_THROW(Files(), EnsureFailed);
  EXPECT_THROW(TheFileDialog(), EnsureFailed);
  EXPECT_THROW(TheClipboard(), EnsureFailed);
  EXPECT_THROW(TheShell(), EnsureFailed);
  EXPECT_THROW(ProgramFolder(), EnsureFailed);
  EXPECT_THROW(DataFolder(), EnsureFailed);
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
