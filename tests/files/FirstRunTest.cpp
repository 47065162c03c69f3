#include "FakePlatform.h"
#include "modFirstRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using FirstRunTest = PlatformTest;

TEST_F(FirstRunTest, WelcomesTheUser) {
  firstRun();
  EXPECT_THAT(TakeMessages(),
              testing::ElementsAre(Box(MessageIcon::Information, "Welcome to Strutwright.\n"
                                                                 "Consult the help file for information\n"
                                                                 "on getting the most from the program\n"
                                                                 "\n"
                                                                 "https://strutwright.example")));
}

} // namespace
} // namespace strutwright
