#include "AnalysisState.h"
#include "AsUser.h"
#include "EventsTest.h"
#include "FaultyFileSystem.h"
#include "FileState.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "RecentFiles.h"
#include "RunSeed.h"
#include "ScratchFolder.h"
#include "modExamples.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modModelStore.h"
#include "modRecovery.h"
#include "modSavedModels.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <string>
#include <thread>
#include <utility>

#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

/// Runs of the program in one process: what a run holds, its lock above all, lies in TheFiles.
class RecoveryTest : public EventsTest {
 protected:
  RecoveryTest() {
    ThePlatform().files = &files;
    ThePlatform().programFolder = folder.Root();
    ThePlatform().dataFolder = folder.Path("data/strutwright");
    StartRun();
  }
  ~RecoveryTest() override {
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
  }

  /// Ends the run before, however it stood, and starts another one with an empty model.
  static void StartRun() {
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
    TheAnalysis = AnalysisState{};
    ResetModel();
    SetModel({});
  }

  std::string DataFile(const std::string& name) const { return folder.Path("data/strutwright/" + name); }
  bool IsKept(int number) const { return fs::exists(DataFile("unsaved-" + std::to_string(number) + ".stw")); }

  /// A run that ended with this model unsaved.
  static void LeaveUnsaved(const ModelData& model) {
    StartRun();
    SetModel(model);
    KeepRecovery();
    StartRun();
  }

  /// Makes a recovery file so many seconds older than it is.
  void Age(int number, int seconds) const {
    const std::string path = DataFile("unsaved-" + std::to_string(number) + ".stw");
    fs::last_write_time(path, fs::last_write_time(path) - std::chrono::seconds(seconds));
  }

  void SaveAs(const std::string& name) {
    dialog.WillChoose(folder.Path(name));
    SaveAsFromMenu();
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  FaultyFileSystem files{disk};
};

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

TEST_F(RecoveryTest, SaysNothingWhereTheDataFolderCanNotBeWritten) {
  fs::create_directories(DataFile(""));
  fs::permissions(DataFile(""), fs::perms(0555));
  SetModel(Triangle());
  const int shown = AsUnprivilegedUser([this] {
    KeepRecovery();
    return static_cast<int>(messages.shown.size()) + (HasUnsavedModel() ? 10 : 0);
  });
  EXPECT_EQ(shown, 0);
  EXPECT_TRUE(fs::is_empty(DataFile("")));
}

TEST_F(RecoveryTest, SaysNothingWithoutADataFolder) {
  SetModel(Triangle());
  for (const char* place : {"", "/dev/null/strutwright"}) {
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

/// Types one node after the other, keeps each state and then writes its number into the pipe, until it is killed.
[[noreturn]] void TypeUntilKilled(int numbers) {
  for (int nodes = 4;; nodes += 2) {
    SetModel(PrattTruss(nodes));
    KeepRecovery();
    if (write(numbers, &nodes, sizeof nodes) != sizeof nodes) _exit(1);
  }
}

/// Kills a typing child after so many microseconds; gives the last number that it wrote, 2 when there was none.
int KillTypist(int microseconds) {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) TypeUntilKilled(ends[1]);
  close(ends[1]);
  std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  int last = 2;
  for (int nodes = 0; read(ends[0], &nodes, sizeof nodes) == sizeof nodes;) last = nodes;
  close(ends[0]);
  return last;
}

TEST_F(RecoveryTest, BringsBackTheLastKeptStateAfterAKillAtAnyMoment) {
  const unsigned seed = RunSeed();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  for (int kill = 1; kill <= 50; ++kill) {
    StartRun();
    fs::remove_all(folder.Path("data"));
    const int kept = KillTypist(static_cast<int>(random() % 30000));
    const bool any = HasUnsavedModel();
    EXPECT_TRUE(any || kept == 2) << "kill " << kill;
    RestoreUnsavedModel();
    if (!any) continue;
    EXPECT_TRUE(NodeCount == kept || NodeCount == kept + 2) << "kill " << kill << ": " << NodeCount << " of " << kept;
    const std::string restored = WriteModel();
    SetModel(PrattTruss(NodeCount));
    EXPECT_EQ(restored, WriteModel()) << "kill " << kill;
  }
}

} // namespace
} // namespace strutwright
