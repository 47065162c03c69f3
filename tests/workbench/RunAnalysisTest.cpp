#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "WorkbenchFixture.h"
#include "modModelFile.h"
#include "modRunAnalysis.h"

#include <filesystem>
#include <string>

#include <new>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;

class RunAnalysisTest : public WorkbenchFixture {
 protected:
  RunAnalysisTest() {
    ThePlatform().files = &disk;
    ThePlatform().programFolder = folder.Root();
    ThePlatform().dataFolder = folder.Path("data");
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  std::string scratch = folder.Path("temp_truss.stw");
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

TEST_F(RunAnalysisTest, ListsARowForEachNodeAndMember) {
  SetModel(PrattTruss(4));
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  EXPECT_EQ(jResGr.RowCount(), 5);
  EXPECT_EQ(jResGr.Text(4, 0), "4");
  EXPECT_EQ(mResGr.RowCount(), MemberCount + 1);
}

TEST_F(RunAnalysisTest, LeavesGridsThatAreEmptyAfterTheyWereLaidOutAgain) {
  SetModel(Triangle());
  runAnalysis(ScratchCopy::None);

  initGrids();

  EXPECT_EQ(GrJoints.RowCount(), 21);
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "", "", "", "", ""));
  EXPECT_THAT(RowTexts(jResGr, 1), ElementsAre("", "", "", "", ""));
  EXPECT_EQ(jResGr.RowCount(), 2);
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

TEST_F(RunAnalysisTest, LeavesAScratchCopyOfTheModelItBeginsWith) {
  SetModel(Triangle());

  ASSERT_TRUE(runAnalysis());

  EXPECT_EQ(LoadModelFile(scratch).nodes, NodeTable);
  EXPECT_EQ(LoadModelFile(scratch).members(1, MemberFieldLength), 0.0F);
}

TEST_F(RunAnalysisTest, LeavesNoScratchCopyWhereNoneIsWanted) {
  SetModel(Triangle());

  ASSERT_TRUE(runAnalysis(ScratchCopy::None));

  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(RunAnalysisTest, StopsWhereTheScratchCopyCannotBeWritten) {
  SetModel(Triangle());
  std::filesystem::create_symlink("/dev/full", scratch);

  EXPECT_FALSE(runAnalysis());

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical,
                              "The scratch copy of the model can't be written or read back - Aborting analysis\n" +
                                  scratch + ": No space left on device")));
  EXPECT_THAT(host.asked, ElementsAre("RefreshStatusTexts", "EndAnalysis(true)"));
  EXPECT_TRUE(Displacements.empty());
  EXPECT_EQ(jResGr.RowCount(), 2);
}

TEST_F(RunAnalysisTest, StopsWhereTheScratchCopyCannotBeReadBack) {
  SetModel(Triangle());
  std::filesystem::create_symlink("/dev/null", scratch);

  EXPECT_FALSE(runAnalysis());

  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_TRUE(Displacements.empty());
}

TEST_F(RunAnalysisTest, SaysThatAModelIsTooLargeBeforeAnyScratchCopy) {
  GrJoints.SetRowCount(16385);
  for (int row = 1; row <= 16384; ++row) GrJoints.SetText(row, NodeX, "0");

  EXPECT_FALSE(runAnalysis());

  const auto shown = TakeMessages();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_THAT(shown[0].text, testing::StartsWith("The model has 16384 nodes"));
  EXPECT_EQ(folder.EntryCount(), 0);
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

TEST_F(RunAnalysisTest, LeavesTheAnalysisStateWhenSomethingUnforeseenFails) {
  SetModel(Triangle());
  mResGr.SetChangeNotice([](const GridChange&) { throw std::bad_alloc(); });

  EXPECT_THROW(runAnalysis(ScratchCopy::None), std::bad_alloc);

  EXPECT_EQ(host.asked.back(), "EndAnalysis(true)");
}

} // namespace
} // namespace strutwright
