#include "LongWork.h"

#include "FakePlatform.h"

#include <chrono>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

std::chrono::steady_clock::time_point theTime;

class LongWorkTest : public PlatformTest {
 protected:
  LongWorkTest() {
    theTime = {};
    ThePlatform().now = [] { return theTime; };
  }
};

TEST_F(LongWorkTest, KeepsQuietForASecond) {
  {
    LongWork work("Solving");
    theTime += 999ms;
    work.Done(0.5);
  }
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(LongWorkTest, ThenShowsHowFarItIsTenTimesASecondUntilItEnds) {
  {
    LongWork work("Solving");
    theTime += 1s;
    work.Done(0.25);
    theTime += 99ms;
    work.Done(0.26);
    theTime += 1ms;
    work.Done(0.27);
  }
  EXPECT_THAT(events, ElementsAre("ShowProgress(Solving, 25 %)", "ShowProgress(Solving, 27 %)", "EndProgress"));
}

TEST_F(LongWorkTest, StopsWhenTheUserCancels) {
  statusBar.reportsUntilCancel = 0;
  {
    LongWork work("Solving");
    theTime += 1s;
    EXPECT_THROW(work.Done(0.25), WorkCancelled);
  }
  EXPECT_THAT(events, ElementsAre("ShowProgress(Solving, 25 %)", "EndProgress"));
}

} // namespace
} // namespace strutwright
