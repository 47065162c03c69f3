#include "WorkbenchFixture.h"
#include "modLive.h"
#include "modMember.h"
#include "modRunAnalysis.h"

#include <bit>
#include <cstdint>
#include <string>

namespace strutwright {
namespace {

class LiveTest : public WorkbenchFixture {
 protected:
  LiveTest() {
    TheLive.mostTime = 1e9; // however slow the machine is
    SetModel(Triangle());
  }

  std::string force() const { return mResGr.Text(3, 1); }
};

TEST_F(LiveTest, IsOffAtFirst) {
  EXPECT_FALSE(IsLive());
  EXPECT_STREQ(LiveText(), "");
}

TEST_F(LiveTest, HasTheResultsOfRunAnalysisWithoutASignOfIt) {
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  const auto bits = std::bit_cast<std::uint32_t>(MemberForce(3));
  const std::string shown = force();
  EndAnalysis();
  SwitchLive(true);

  AnalyseLive();

  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(std::bit_cast<std::uint32_t>(MemberForce(3)), bits);
  EXPECT_EQ(force(), shown);
  EXPECT_STREQ(LiveText(), "Live");
}

TEST_F(LiveTest, KnowsWhenTheGridsAskForSomethingElse) {
  SwitchLive(true);
  EXPECT_FALSE(LiveIsUpToDate());
  AnalyseLive();
  EXPECT_TRUE(LiveIsUpToDate());
  GrJoints.SetText(3, 4, "-20");
  EXPECT_FALSE(LiveIsUpToDate());
}

TEST_F(LiveTest, SaysNothingOfAMechanism) {
  SwitchLive(true);
  SetModel(Square());
  AnalyseLive();
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_TRUE(LiveIsUpToDate());
  ExpectBoxes({});
}

TEST_F(LiveTest, PausesWhereItTakesTooLong) {
  SwitchLive(true);
  TheLive.mostTime = -1;
  AnalyseLive();
  EXPECT_EQ(AnalysisDone, FlagTrue) << "what it found is shown";
  EXPECT_FALSE(IsLive());
  EXPECT_STREQ(LiveText(), "Live paused");
}

TEST_F(LiveTest, GoesOnWithAnotherModelAndWhereItIsAskedTo) {
  SwitchLive(true);
  TheLive.mostTime = -1;
  AnalyseLive();
  ResumeLive();
  EXPECT_TRUE(IsLive());
  EXPECT_FALSE(LiveIsUpToDate());
  AnalyseLive();
  SwitchLive(true);
  EXPECT_TRUE(IsLive());
  SwitchLive(false);
  EXPECT_STREQ(LiveText(), "");
}

} // namespace
} // namespace strutwright
