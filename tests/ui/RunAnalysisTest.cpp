#include "AnalysisState.h"
#include "FakePlatform.h"
#include "ModelBuilder.h"
#include "UiState.h"
#include "modGrids.h"
#include "modModelStore.h"
#include "modRunAnalysis.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

class RunAnalysisTest : public PlatformTest {
 protected:
  RunAnalysisTest() {
    ResetModel();
    TheAnalysis = AnalysisState{};
    TheUi = UiState{};
    initGrids();
  }
};

TEST_F(RunAnalysisTest, TakesTheModelFromTheGrids) {
  SetModel(Triangle());
  GrJoints.SetText(3, NodeForceY, "-20");

  ASSERT_TRUE(runAnalysis());

  EXPECT_EQ(NodeTable(3, NodeForceY), -20.0F);
}

TEST_F(RunAnalysisTest, EntersTheStateAnalysisDoneAndShowsIt) {
  SetModel(Triangle());

  ASSERT_TRUE(runAnalysis());

  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_THAT(host.asked, ElementsAre("RefreshStatusTexts"));
}

TEST_F(RunAnalysisTest, ListsTheResults) {
  SetModel(Triangle());

  ASSERT_TRUE(runAnalysis());

  EXPECT_EQ(jResGr.RowCount(), 4);
  EXPECT_EQ(mResGr.RowCount(), 4);
}

TEST_F(RunAnalysisTest, LeavesTheAnalysisStateWhenTheStructureIsUnstable) {
  SetModel(Square());

  EXPECT_FALSE(runAnalysis());

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check 2")));
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_THAT(host.asked, ElementsAre("RefreshStatusTexts", "RefreshStatusTexts", "EndAnalysis(true)"));
}

TEST_F(RunAnalysisTest, ShowsAnEmptyModelOneMessageOnly) {
  EXPECT_FALSE(runAnalysis());

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check 0")));
  EXPECT_EQ(AnalysisDone, FlagFalse);
}

TEST_F(RunAnalysisTest, KeepsTheListedResultsOfTheLastSuccessWhenItFails) {
  SetModel(Triangle());
  runAnalysis();
  const std::string listed = jResGr.Text(3, 1);
  SetModel(Square());

  EXPECT_FALSE(runAnalysis());

  TakeMessages();
  EXPECT_EQ(jResGr.RowCount(), 4);
  EXPECT_EQ(jResGr.Text(3, 1), listed);
}

} // namespace
} // namespace strutwright
