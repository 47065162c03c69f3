#include "RecoveryFixture.h"
#include "modExamples.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modSavedModels.h"

#include <filesystem>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

using RecoveryTest = RecoveryFixture;

TEST_F(RecoveryTest, KeepsAModelThatWasNeverSaved) {
  SetModel(Triangle());
  KeepRecovery();
  EXPECT_EQ(FileBytes(DataFile("unsaved-1.stw")), ModelInGrids());
}

TEST_F(RecoveryTest, TouchesNothingBeforeThereIsSomethingToKeep) {
  KeepRecovery();
  EXPECT_FALSE(HasUnsavedModel());
  EXPECT_FALSE(fs::exists(folder.Path("data")));
}

TEST_F(RecoveryTest, KeepsWhatTheGridsHoldAndLeavesTheTables) {
  SetModel(Triangle());
  AnalysisDone = FlagTrue;
  MemberTable(1, MemberFieldForce) = 7.5F;
  const float* const place = &NodeTable(1, NodeX);
  GrJoints.SetText(2, 1, "44"); // as a paste does while results are current
  KeepRecovery();
  EXPECT_EQ(LoadModelFile(DataFile("unsaved-1.stw")).nodes(2, NodeX), 44.0F);
  EXPECT_EQ(NodeTable(2, NodeX), 4.0F);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 7.5F);
  EXPECT_EQ(&NodeTable(1, NodeX), place);
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(RecoveryTest, KeepsTheModelAsItIsAfterTheLastChange) {
  SetModel(PrattTruss(10));
  KeepRecovery();
  SetModel(Triangle());
  KeepRecovery();
  EXPECT_EQ(LoadModelFile(DataFile("unsaved-1.stw")).nodeCount, 3);
  EXPECT_FALSE(IsKept(2));
}

TEST_F(RecoveryTest, WritesNothingWhereNothingHasChanged) {
  SetModel(Triangle());
  KeepRecovery();
  files.steps.clear();
  KeepRecovery();
  EXPECT_TRUE(files.steps.empty());
}

TEST_F(RecoveryTest, RemovesTheFileAfterASave) {
  SetModel(Triangle());
  KeepRecovery();
  SaveAs("bridge.stw");
  KeepRecovery();
  EXPECT_FALSE(IsKept(1));
  StartRun();
  EXPECT_FALSE(HasUnsavedModel());
}

TEST_F(RecoveryTest, KeepsAModelWhoseSaveFailed) {
  SetModel(Triangle());
  SaveAs("missing/bridge.stw");
  EXPECT_EQ(TakeMessages().size(), 1U);
  KeepRecovery();
  EXPECT_TRUE(IsKept(1));
}

TEST_F(RecoveryTest, KeepsAChangeOfASavedModelUntilItIsTakenBack) {
  SetModel(Triangle());
  SaveAs("bridge.stw");
  GrJoints.SetText(2, 1, "44");
  KeepRecovery();
  EXPECT_TRUE(IsKept(1));
  GrJoints.SetText(2, 1, "4");
  KeepRecovery();
  EXPECT_FALSE(IsKept(1));
}

TEST_F(RecoveryTest, DoesNotTakeResultsForAChange) {
  SetModel(Triangle());
  SaveAs("bridge.stw");
  AnalysisDone = FlagTrue;
  MemberTable(1, MemberFieldForce) = 7.5F;
  KeepRecovery();
  EXPECT_FALSE(IsKept(1));
}

TEST_F(RecoveryTest, DoesNotTakeTheCapacityForAChange) {
  SetModel(Triangle());
  SaveAs("bridge.stw");
  GridCapacity = 0; // as an Open does that is cancelled
  KeepRecovery();
  EXPECT_FALSE(IsKept(1));
}

TEST_F(RecoveryTest, DoesNotTakeDigitsThatNoCellShowsForAChange) {
  SetTables({{{0.123456789F, 0}}, {}});
  NodeTable(0, 3) = 5;
  PutFile(folder.Path("fine.stw"), WriteModel());
  openModel(folder.Path("fine.stw"));
  KeepRecovery();
  EXPECT_FALSE(IsKept(1));
}

TEST_F(RecoveryTest, KeepsAnOpenedModelThatWasEmptied) {
  SetModel(Triangle());
  SaveAs("bridge.stw");
  SetModel({});
  KeepRecovery();
  EXPECT_TRUE(IsKept(1));
}

TEST_F(RecoveryTest, KeepsNothingOfANewModel) {
  SetModel(Triangle());
  KeepRecovery();
  newModel();
  SetModel({}); // the stand-in of the window leaves the grids
  KeepRecovery();
  EXPECT_FALSE(IsKept(1));
  SetModel(Square());
  KeepRecovery();
  EXPECT_TRUE(IsKept(1));
}

TEST_F(RecoveryTest, KeepsNothingOfAnExampleAsItCame) {
  SetTables(Triangle());
  fs::create_directory(folder.Path("examples"));
  PutFile(folder.Path("examples/triangle.stw"), WriteModel());
  OpenExample(folder.Path("examples/triangle.stw"));
  KeepRecovery();
  EXPECT_FALSE(IsKept(1));
}

TEST_F(RecoveryTest, ComparesAModelWithItsOwnFileOnly) {
  SetModel(Triangle());
  SaveAs("bridge.stw");
  SetModel(Square());
  SaveAs("roof.stw");
  CurrentFileName = folder.Path("bridge.stw"); // as an undo does
  KeepRecovery();
  EXPECT_TRUE(IsKept(1));
}

TEST_F(RecoveryTest, OffersWhatARunLeftAndBringsItBack) {
  SetModel(Triangle());
  GridCapacity = 33;
  KeepRecovery();
  StartRun();
  EXPECT_TRUE(HasUnsavedModel());
  CurrentFileName = "other.stw";
  RestoreUnsavedModel();
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(GridCapacity, 33);
  EXPECT_EQ(GrJoints.Text(3, 4), "-10");
  EXPECT_EQ(CurrentFileName, "");
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "CaptionChanged(unsaved-1.stw)", "FileOpened", "ModelReplaced",
                                  "CaptionChanged(Restored model)"));
}

TEST_F(RecoveryTest, AsksForANameWhenARestoredModelIsSaved) {
  LeaveUnsaved(Triangle());
  RestoreUnsavedModel();
  dialog.WillChoose(folder.Path("bridge.stw"));
  SaveFromMenu();
  EXPECT_EQ(LoadModelFile(folder.Path("bridge.stw")).nodeCount, 3);
  KeepRecovery();
  EXPECT_FALSE(IsKept(1));
}

TEST_F(RecoveryTest, TakesARestoredModelForUnsaved) {
  LeaveUnsaved(Triangle());
  RestoreUnsavedModel();
  KeepRecovery();
  EXPECT_TRUE(IsKept(1));
  StartRun();
  EXPECT_TRUE(HasUnsavedModel());
}

TEST_F(RecoveryTest, LeavesTheFileWhenARestoredModelIsGivenUpUntouched) {
  LeaveUnsaved(Triangle());
  RestoreUnsavedModel();
  SetModel({}); // as an undo does
  KeepRecovery();
  EXPECT_TRUE(HasUnsavedModel());
  RestoreUnsavedModel();
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(RecoveryTest, RemovesTheFileOfARestoredModelThatWasChangedAndSavedAtOnce) {
  LeaveUnsaved(Triangle());
  RestoreUnsavedModel();
  GrJoints.SetText(2, 1, "44");
  SaveAs("bridge.stw");
  KeepRecovery();
  EXPECT_FALSE(IsKept(1));
}

TEST_F(RecoveryTest, NeverOffersTheOwnFile) {
  SetModel(Triangle());
  KeepRecovery();
  EXPECT_FALSE(HasUnsavedModel());
  RestoreUnsavedModel();
  EXPECT_THAT(events, ElementsAre("ShowHint(There is no unsaved model to restore)"));
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(RecoveryTest, KeepsTheModelsOfTwoRunningCopiesApart) {
  SetModel(Triangle());
  KeepRecovery();
  FileState first = std::exchange(TheFiles, FileState{});
  SetModel(Square());
  KeepRecovery();
  EXPECT_FALSE(HasUnsavedModel());
  EXPECT_EQ(LoadModelFile(DataFile("unsaved-1.stw")).nodeCount, 3);
  EXPECT_EQ(LoadModelFile(DataFile("unsaved-2.stw")).nodeCount, 4);
  SaveAs("roof.stw");
  KeepRecovery();
  EXPECT_TRUE(IsKept(1));
  EXPECT_FALSE(IsKept(2));
}

TEST_F(RecoveryTest, GivesWhatWasLeftToOneOfTwoCopies) {
  LeaveUnsaved(Triangle());
  RestoreUnsavedModel();
  const FileState first = std::exchange(TheFiles, FileState{});
  SetModel({});
  EXPECT_FALSE(HasUnsavedModel());
  RestoreUnsavedModel();
  EXPECT_EQ(GrJoints.RowCount(), 1);
}

TEST_F(RecoveryTest, NeverWritesOverWhatAnEarlierRunLeft) {
  LeaveUnsaved(Triangle());
  SetModel(Square());
  KeepRecovery();
  EXPECT_EQ(LoadModelFile(DataFile("unsaved-1.stw")).nodeCount, 3);
  EXPECT_EQ(LoadModelFile(DataFile("unsaved-2.stw")).nodeCount, 4);
}

TEST_F(RecoveryTest, UsesANumberAgain) {
  SetModel(Triangle());
  KeepRecovery();
  SaveAs("bridge.stw");
  KeepRecovery();
  LeaveUnsaved(Square());
  EXPECT_TRUE(IsKept(1));
}

TEST_F(RecoveryTest, OffersWhatWasWrittenLastWhateverItsNumber) {
  LeaveUnsaved(Triangle());
  LeaveUnsaved(Square());
  Age(2, 60);
  RestoreUnsavedModel();
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(RecoveryTest, OffersTheOneBeforeNext) {
  LeaveUnsaved(Triangle());
  LeaveUnsaved(Square());
  Age(1, 60);
  RestoreUnsavedModel();
  EXPECT_EQ(NodeCount, 4);
  SaveAs("roof.stw");
  KeepRecovery();
  EXPECT_TRUE(HasUnsavedModel());
  RestoreUnsavedModel();
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(RecoveryTest, KeepsWhatWasOpenAndUnsavedWhenAnotherIsRestored) {
  LeaveUnsaved(Triangle());
  SetModel(Square());
  RestoreUnsavedModel();
  EXPECT_EQ(NodeCount, 3);
  RestoreUnsavedModel();
  EXPECT_EQ(NodeCount, 4);
}

TEST_F(RecoveryTest, PutsADamagedFileAsideAndLeavesTheModel) {
  LeaveUnsaved(Triangle());
  PutFile(DataFile("unsaved-1.stw"), "no");
  PutFile(DataFile("damaged-1.stw"), "an older one");
  SetModel(Square());
  CurrentFileName = "roof.stw";
  RestoreUnsavedModel();
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::None, "Unkown error while opening file " + DataFile("unsaved-1.stw"))));
  EXPECT_EQ(NodeCount, 4);
  EXPECT_EQ(CurrentFileName, "roof.stw");
  EXPECT_EQ(FileBytes(DataFile("damaged-2.stw")), "no");
  EXPECT_FALSE(HasUnsavedModel());
}

TEST_F(RecoveryTest, OpensWhatIsThereOfAFileThatIsTooShort) {
  LeaveUnsaved(Triangle());
  fs::resize_file(DataFile("unsaved-1.stw"), 6 + 4 * 6);
  RestoreUnsavedModel();
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(RecoveryTest, TakesNoOtherFileForARecoveryFile) {
  for (const char* name : {"unsaved-.stw", "unsaved-0.stw", "unsaved--1.stw", "unsaved-1x.stw", "unsaved-1.stw.old",
                           "an-unsaved-1.stw", "unsaved-99999999999.stw", "unsaved-"}) {
    fs::create_directories(DataFile(""));
    PutFile(DataFile(name), "");
  }
  fs::create_directory(DataFile("unsaved-7.stw"));
  EXPECT_FALSE(HasUnsavedModel());
}

TEST_F(RecoveryTest, SaysNothingWithoutADataFolder) {
  SetModel(Triangle());
  PutFile(folder.Path("file"), "");
  for (const std::string& place : {std::string(), folder.Path("file/strutwright")}) {
    ThePlatform().dataFolder = place;
    KeepRecovery();
    EXPECT_FALSE(HasUnsavedModel()) << place;
  }
  EXPECT_FALSE(fs::exists("/unsaved-1.stw"));
}

TEST_F(RecoveryTest, LeavesTheFileBeforeWholeAfterAFailureAtAnyStepAndGoesOn) {
  SetModel(PrattTruss(10));
  KeepRecovery();
  files.steps.clear();
  SetModel(Triangle());
  KeepRecovery();
  const int steps = static_cast<int>(files.steps.size());
  const std::string before = FileBytes(DataFile("unsaved-1.stw"));
  SetModel(Square());
  for (int failing = 1; failing <= steps; ++failing) {
    files.steps.clear();
    files.before = [failing](const std::string&, int number) {
      if (number == failing) throw FileError(std::make_error_code(std::errc::no_space_on_device));
    };
    KeepRecovery();
    EXPECT_EQ(FileBytes(DataFile("unsaved-1.stw")), before) << "step " << failing;
  }
  files.before = nullptr;
  KeepRecovery();
  EXPECT_EQ(LoadModelFile(DataFile("unsaved-1.stw")).nodeCount, 4);
}

TEST_F(RecoveryTest, TakesNoFileWhoseLockCanNotBeHad) {
  LeaveUnsaved(Triangle());
  files.before = [](const std::string& step, int) {
    if (step == "TryLock") throw FileError(std::make_error_code(std::errc::no_lock_available));
  };
  EXPECT_FALSE(HasUnsavedModel());
  SetModel(Square());
  KeepRecovery();
  files.before = nullptr;
  EXPECT_EQ(LoadModelFile(DataFile("unsaved-1.stw")).nodeCount, 3);
  EXPECT_FALSE(IsKept(2));
}

} // namespace
} // namespace strutwright
