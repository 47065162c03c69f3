#include "FaultyFileSystem.h"
#include "GridFixture.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
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

class RunAnalysisTest : public GridFixture {
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
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged"));
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
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged", "AnalysisStateChanged", "AnalysisEnded", "ModelChanged"));
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
  FaultyFileSystem full{disk};
  full.before = [](const std::string& step, int) {
    if (step == "Write") throw FileError(std::make_error_code(std::errc::no_space_on_device));
  };
  ThePlatform().files = &full;

  EXPECT_FALSE(runAnalysis());

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical,
                              "The scratch copy of the model can't be written or read back - Aborting analysis\n" +
                                  scratch + ": No space left on device")));
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged", "AnalysisEnded", "ModelChanged"));
  EXPECT_TRUE(Displacements.empty());
  EXPECT_EQ(jResGr.RowCount(), 2);
}

TEST_F(RunAnalysisTest, StopsWhereTheScratchCopyCannotBeReadBack) {
  SetModel(Triangle());
  FaultyFileSystem forgetful{disk};
  forgetful.before = [this](const std::string& step, int) {
    if (step == "Read") std::filesystem::resize_file(scratch, 0);
  };
  ThePlatform().files = &forgetful;

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

  EXPECT_EQ(events.back(), "ModelChanged");
}

class FailureReportTest : public RunAnalysisTest {
 protected:
  FailureReportTest() { AnalysisDone = FlagTrue; }
};

TEST_F(FailureReportTest, NamesTheCodeInDecimal) {
  ReportAnalysisFailure(12);
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check 12")));
}

TEST_F(FailureReportTest, BearsTheProgramsTitle) {
  ReportAnalysisFailure(2);
  EXPECT_EQ(TakeMessages().at(0).title, "Strutwright");
}

TEST_F(FailureReportTest, KeepsTheCode) {
  ReportAnalysisFailure(2);
  EXPECT_EQ(FailedCheck, 2);
  TakeMessages();
}

TEST_F(FailureReportTest, LeavesTheAnalysisStateAndRefreshesTheDisplay) {
  ReportAnalysisFailure(2);
  EXPECT_EQ(AnalysisDone, 0);
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged"));
  TakeMessages();
}

/// Notes the flag at the moment a box is shown.
class FlagAtBox : public MessageBoxes {
 public:
  bool Ask(const Message& /*question*/) override { return false; }
  void Show(const Message&) override { flag = AnalysisDone; }

  std::int16_t flag = 99;
};

TEST_F(FailureReportTest, ShowsItsBoxBeforeItLeavesTheAnalysisState) {
  FlagAtBox box;
  ThePlatform().messages = &box;
  ReportAnalysisFailure(2);
  EXPECT_EQ(box.flag, FlagTrue);
}

/// Notes the flag at the moment the status texts are refreshed.
class FlagAtRefresh : public ModelListener {
 public:
  void AnalysisStateChanged() override { flag = AnalysisDone; }

  std::int16_t flag = 99;
};

TEST_F(FailureReportTest, RefreshesTheDisplayOnceTheStateIsLeft) {
  FlagAtRefresh refreshed;
  ListenToModel(&refreshed);
  ReportAnalysisFailure(2);
  EXPECT_EQ(refreshed.flag, 0);
  TakeMessages();
}

/// What stops an analysis, and what does not.
class AnalysisBoxesTest : public RunAnalysisTest {
 protected:
  std::vector<Message> Analyse(const ModelData& model) {
    SetModel(model);
    done = runAnalysis(ScratchCopy::None);
    return TakeMessages();
  }

  static ModelData TriangleWith(const MemberData& member) {
    ModelData model = Triangle();
    model.members.push_back(member);
    return model;
  }

  bool done = false;
};

TEST_F(AnalysisBoxesTest, ShowCodeZeroForAnEmptyModelAndNothingElse) {
  EXPECT_THAT(Analyse({}),
              ElementsAre(Box(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check 0")));
  EXPECT_FALSE(done);
  EXPECT_EQ(FailedCheck, 0);
}

TEST_F(AnalysisBoxesTest, NameANodeThatDoesNotExistTogetherWithItsMember) {
  EXPECT_THAT(Analyse(TriangleWith({1, 4})),
              ElementsAre(Box(MessageIcon::Critical,
                              "Member 4 names node 4, which does not exist: the nodes are numbered 1 to 3.\n"
                              "Correct the member's node numbers and run the analysis again.")));
  EXPECT_FALSE(done);
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_EQ(FailedCheck, std::nullopt);
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged", "AnalysisStateChanged", "AnalysisEnded", "ModelChanged"));
}

TEST_F(AnalysisBoxesTest, RefuseMoreNodesThanTheFreedomsAllow) {
  GridCapacity = 16384;
  EXPECT_THAT(Analyse({std::vector<NodeData>(16384), {}}),
              ElementsAre(Box(MessageIcon::Critical, "The model has 16384 nodes, but at most 16383 can be analysed.\n"
                                                     "Remove nodes and run the analysis again.")));
  EXPECT_FALSE(done);
  EXPECT_EQ(FailedCheck, std::nullopt);
}

TEST_F(AnalysisBoxesTest, ShowMembersAtFaultInTheirOrderAndThenTheirElongations) {
  EXPECT_THAT(Analyse(TriangleWith({0, 3, -200, -1})),
              ElementsAre(Box(MessageIcon::Critical, "Error: member index 4 E-value\nMember ignored"),
                          Box(MessageIcon::Critical, "Error: member index 4 A-value\nMember ignored"),
                          Box(MessageIcon::Critical, "Error: member index 4 node numbers\nMember ignored"),
                          Box(MessageIcon::Information, "Ignoring member 4 as E and A are not valid")));
  EXPECT_TRUE(done);
}

TEST_F(AnalysisBoxesTest, ShowMembersAtFaultBeforeTheFailure) {
  ModelData model = Square();
  model.members.push_back({1, 1});
  EXPECT_THAT(Analyse(model),
              ElementsAre(Box(MessageIcon::Critical, "Error: member index 5 has no length\nMember ignored"),
                          Box(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check 2")));
}

TEST_F(AnalysisBoxesTest, ShowWhichOfEAndAreaKeepsAMemberFromStretching) {
  ModelData model = TriangleWith({1, 2, 0, 1000});
  model.members.push_back({1, 2, 200, 0});
  EXPECT_THAT(Analyse(model), ElementsAre(Box(MessageIcon::Information, "Ignoring member 4 as E is not valid"),
                                          Box(MessageIcon::Information, "Ignoring member 5 as area is not valid")));
}

TEST_F(AnalysisBoxesTest, ForgetAFailureWithTheNextAnalysis) {
  Analyse(Square());
  ASSERT_EQ(FailedCheck, 2);
  Analyse(Triangle());
  EXPECT_EQ(FailedCheck, std::nullopt);
}

} // namespace
} // namespace strutwright
