#include "EventsTest.h"
#include "modFirstRun.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using FirstRunTest = EventsTest;

/// A desktop on which no box can be shown.
class RefusingBoxes : public MessageBoxes {
 public:
  void Show(const Message&) override { throw std::runtime_error("no box"); }
  bool Ask(const Message&) override { throw std::runtime_error("no box"); }
};

TEST_F(FirstRunTest, WelcomesTheUser) {
  firstRun();
  EXPECT_THAT(TakeMessages(),
              testing::ElementsAre(Box(MessageIcon::Information, "Welcome to Strutwright.\n"
                                                                 "Consult the help file for information\n"
                                                                 "on getting the most from the program\n"
                                                                 "\n"
                                                                 "https://strutwright.example")));
}

TEST_F(FirstRunTest, AssociatesModelFilesBeforeTheWelcome) {
  ThePlatform().executable = "C:\\Apps\\truss.exe";
  ThePlatform().icon = "C:\\Apps\\Strutwright.ico";
  RefusingBoxes refusing;
  ThePlatform().messages = &refusing;
  EXPECT_THROW(firstRun(), std::runtime_error);
  EXPECT_THAT(fileTypes.written,
              testing::ElementsAre("Strutwright.File = Strutwright File", ".stw = Strutwright.File",
                                   "Strutwright.File\\shell\\open\\command = C:\\Apps\\truss.exe %1",
                                   "Strutwright.File\\DefaultIcon = C:\\Apps\\Strutwright.ico", "Announce"));
}

TEST_F(FirstRunTest, WelcomesWhereNoFileTypeIsRegistered) {
  ThePlatform().fileTypes = nullptr;
  firstRun();
  EXPECT_EQ(TakeMessages().size(), 1U);
}

TEST_F(FirstRunTest, OnlyWelcomesWhereAnInstallerHasRegisteredTheFileType) {
  fileTypes.installed = true;
  firstRun();
  EXPECT_EQ(fileTypes.asked, "Strutwright.File .stw /opt/truss/strutwright");
  EXPECT_THAT(fileTypes.written, testing::IsEmpty());
  EXPECT_EQ(TakeMessages().size(), 1U);
}

TEST_F(FirstRunTest, RepeatsBothAsOftenAsItIsCalled) {
  firstRun();
  firstRun();
  EXPECT_EQ(fileTypes.written.size(), 10U);
  EXPECT_EQ(TakeMessages().size(), 2U);
}

} // namespace
} // namespace strutwright
