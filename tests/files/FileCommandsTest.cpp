#include "AnalysisState.h"
#include "AsUser.h"
#include "EventsTest.h"
#include "FaultyFileSystem.h"
#include "FileState.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "RecentFiles.h"
#include "RecordingSurface.h"
#include "ScratchFolder.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <algorithm>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* StwFolder = "C:\\windows\\desktop\\STW";
constexpr const char* Models = "Strutwright files|*.stw|All files|*.*";
constexpr const char* Pictures = "Bitmap files|*.bmp|All files|*.*";

Message PleaseName() { return Box(MessageIcon::Information, "Please Name a File"); }

Message SaveError(const std::string& file, const std::string& reason) {
  return Box(MessageIcon::None, "Error while saving file " + file + "\n" + reason);
}

Message OpenError(const std::string& file) { return Box(MessageIcon::None, "Unkown error while opening file " + file); }

class FileCommandsTest : public EventsTest {
 protected:
  FileCommandsTest() {
    ThePlatform().files = &files;
    ThePlatform().programFolder = folder.Root();
    ResetModel();
    TheAnalysis = AnalysisState{};
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
    SetModel(Triangle());
  }

  auto TimesWritten() const { return std::count(files.steps.begin(), files.steps.end(), "Write"); }

  /// Saves a square, then opens the triangle again.
  void SaveSquare() {
    SetModel(Square());
    GridCapacity = 300;
    PutFile(path, WriteModel());
    GridCapacity = 20;
    SetModel(Triangle());
  }

  void FailWithAFullDevice() {
    files.before = [](const std::string& step, int) {
      if (step == "Write") throw FileError(std::make_error_code(std::errc::no_space_on_device));
    };
  }

  /// Marks results valid and gives member 1 a force.
  static void PretendAnalysis() {
    AnalysisDone = FlagTrue;
    MemberTable(1, MemberFieldForce) = 7.5F;
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  FaultyFileSystem files{disk};
  std::string path = folder.Path("bridge.stw");
};

using SaveTest = FileCommandsTest;

TEST_F(SaveTest, WritesToTheCurrentFileWithoutAsking) {
  CurrentFileName = path;
  saveModel(true);
  EXPECT_EQ(FileBytes(path), WriteModel());
  EXPECT_THAT(dialog.shown, IsEmpty());
}

TEST_F(SaveTest, WritesWhatTheGridsHold) {
  CurrentFileName = path;
  GrJoints.SetText(3, NodeForceY, "-20");
  saveModel(true);
  EXPECT_EQ(LoadModelFile(path).nodes(3, NodeForceY), -20.0F);
}

TEST_F(SaveTest, OfAModelThatWasNeverSavedIsSaveAs) {
  dialog.WillChoose(path);
  saveModel(true);
  ASSERT_EQ(dialog.shown.size(), 1U);
  EXPECT_EQ(dialog.shown[0].title, "Save As");
  EXPECT_EQ(FileBytes(path), WriteModel());
}

TEST_F(SaveTest, AsShowsTheDialogWithItsProperties) {
  CurrentFileName = "/elsewhere/old.stw";
  dialog.fileName = "/elsewhere/last.bmp";
  dialog.WillChoose(path);
  saveModel(false);
  EXPECT_THAT(dialog.shown,
              ElementsAre(ShownFileDialog{"save", "Save As", 2, "feb", StwFolder, Models, "/elsewhere/last.bmp"}));
}

TEST_F(SaveTest, AsTakesTheChosenNameAndShowsItsLastComponent) {
  CurrentFileName = "/elsewhere/old.stw";
  dialog.WillChoose(path);
  saveModel(false);
  EXPECT_EQ(CurrentFileName, path);
  EXPECT_EQ(TimesWritten(), 1);
  EXPECT_THAT(events, ElementsAre("CaptionChanged(bridge.stw)"));
}

TEST_F(SaveTest, AsThatIsCancelledChangesNothing) {
  CurrentFileName = "/elsewhere/old.stw";
  dialog.WillCancel();
  saveModel(false);
  EXPECT_EQ(CurrentFileName, "/elsewhere/old.stw");
  EXPECT_EQ(folder.EntryCount(), 0);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(SaveTest, AsWithoutANameAsksAgainAndThenWritesTwice) {
  dialog.WillChoose("");
  dialog.WillChoose(path);
  saveModel(false);
  EXPECT_THAT(TakeMessages(), ElementsAre(PleaseName()));
  EXPECT_EQ(TimesWritten(), 2);
  EXPECT_EQ(CurrentFileName, path);
  EXPECT_EQ(FileBytes(path), WriteModel());
}

TEST_F(SaveTest, AsAsksUntilThereIsAName) {
  dialog.WillChoose("");
  dialog.WillChoose("");
  dialog.WillChoose(path);
  saveModel(true);
  EXPECT_THAT(TakeMessages(), ElementsAre(PleaseName(), PleaseName()));
  EXPECT_EQ(TimesWritten(), 3);
}

TEST_F(SaveTest, AsFailsForWantOfANameWhenTheRetryIsCancelled) {
  CurrentFileName = "/elsewhere/old.stw";
  dialog.WillChoose("");
  dialog.WillCancel();
  saveModel(false);
  EXPECT_THAT(TakeMessages(), ElementsAre(PleaseName(), SaveError("", "No such file or directory")));
  EXPECT_EQ(CurrentFileName, "");
  EXPECT_EQ(TimesWritten(), 0);
}

TEST_F(SaveTest, ReportsAFullDevice) {
  CurrentFileName = path;
  FailWithAFullDevice();
  saveModel(true);
  EXPECT_THAT(TakeMessages(), ElementsAre(SaveError(path, "No space left on device")));
  EXPECT_EQ(CurrentFileName, path);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(SaveTest, ReportsAMissingFolder) {
  const std::string file = folder.Path("missing/bridge.stw");
  dialog.WillChoose(file);
  saveModel(false);
  EXPECT_THAT(TakeMessages(), ElementsAre(SaveError(file, "No such file or directory")));
}

TEST_F(SaveTest, ReportsAFileThatTheUserMayNotWrite) {
  PutFile(path, "old");
  fs::permissions(path, fs::perms(0444));
  CurrentFileName = path;
  EXPECT_EQ(AsUnprivilegedUser([&] {
              saveModel(true);
              return TakeMessages() == std::vector{SaveError(path, "Permission denied")} ? 0 : 1;
            }),
            0);
  EXPECT_EQ(FileBytes(path), "old");
}

TEST_F(SaveTest, ReportsWhateverElseFails) {
  CurrentFileName = path;
  files.before = [](const std::string&, int) { throw std::runtime_error("out of everything"); };
  saveModel(true);
  EXPECT_THAT(TakeMessages(), ElementsAre(SaveError(path, "out of everything")));
}

TEST_F(SaveTest, KeepsTheResultsButWritesZerosForThem) {
  CurrentFileName = path;
  PretendAnalysis();
  saveModel(true);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 7.5F);
  EXPECT_EQ(LoadModelFile(path).members(1, MemberFieldForce), 0.0F);
  EXPECT_THAT(events, ElementsAre("CaptionChanged(bridge.stw)"));
}

TEST_F(SaveTest, KeepsTheResultsWhenItFails) {
  CurrentFileName = path;
  FailWithAFullDevice();
  PretendAnalysis();
  saveModel(true);
  TakeMessages();
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 7.5F);
}

TEST_F(SaveTest, EndsAnAnalysisOfOtherGrids) {
  CurrentFileName = path;
  PretendAnalysis();
  GrJoints.SetText(3, NodeForceY, "-20");
  saveModel(true);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged", "CaptionChanged(bridge.stw)"));
}

TEST_F(SaveTest, FromTheMenuTakesTheGridsInEvenIfItIsCancelled) {
  GrJoints.SetText(3, NodeForceY, "-20");
  dialog.WillCancel();
  SaveFromMenu();
  EXPECT_EQ(NodeTable(3, NodeForceY), -20.0F);
}

TEST_F(SaveTest, FromTheMenuKeepsTheResults) {
  CurrentFileName = path;
  PretendAnalysis();
  SaveFromMenu();
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 7.5F);
  EXPECT_EQ(LoadModelFile(path).members(1, MemberFieldForce), 0.0F);
}

TEST_F(SaveTest, AsFromTheMenuTakesTheGridsInAndAsks) {
  CurrentFileName = path;
  GrJoints.SetText(3, NodeForceY, "-20");
  dialog.WillCancel();
  SaveAsFromMenu();
  EXPECT_EQ(NodeTable(3, NodeForceY), -20.0F);
  EXPECT_EQ(dialog.shown.size(), 1U);
}

using OpenTest = FileCommandsTest;

TEST_F(OpenTest, WithANameDoesNotAsk) {
  SaveSquare();
  EXPECT_TRUE(openModel(path));
  EXPECT_THAT(dialog.shown, IsEmpty());
  EXPECT_EQ(NodeCount, 4);
}

TEST_F(OpenTest, WithoutANameShowsTheDialogWithItsProperties) {
  SaveSquare();
  dialog.fileName = "/elsewhere/last.stw";
  dialog.WillChoose(path);
  EXPECT_TRUE(openModel(""));
  EXPECT_THAT(dialog.shown,
              ElementsAre(ShownFileDialog{"open", "Open", 4096, "feb", StwFolder, Models, "/elsewhere/last.stw"}));
  EXPECT_EQ(CurrentFileName, path);
  EXPECT_EQ(NodeCount, 4);
}

TEST_F(OpenTest, EndsTheAnalysisThenRefreshesTheWindowInItsOrder) {
  SaveSquare();
  openModel(path);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "RecentFilesChanged", "CaptionChanged(bridge.stw)", "FileOpened",
                                  "ModelReplaced"));
}

/// Looks at the model when the analysis ends and when the model has been replaced.
class WatchingListener : public ModelListener {
 public:
  void AnalysisEnded() override { nodesAtEnd = NodeCount; }
  void ModelReplaced() override { rowsAtReplacement = GrJoints.RowCount(); }
  int nodesAtEnd = 0;
  int rowsAtReplacement = 0;
};

TEST_F(OpenTest, EndsTheAnalysisOfTheOldModelAndDrawsTheNewOneFromTheGrids) {
  WatchingListener watching;
  ListenToModel(&watching);
  SaveSquare();
  openModel(path);
  EXPECT_EQ(watching.nodesAtEnd, 3);
  EXPECT_EQ(watching.rowsAtReplacement, 5);
}

#ifndef _WIN32 // where no name may hold a separator

TEST_F(OpenTest, ShowsTheLastComponentWithEitherSeparator) {
  SaveSquare();
  const std::string foreign = folder.Path("C:\\models\\bridge.stw");
  fs::rename(path, foreign);
  EXPECT_TRUE(openModel(foreign));
  EXPECT_THAT(events, testing::Contains("CaptionChanged(bridge.stw)"));
}

#endif

TEST_F(OpenTest, ThatIsCancelledChangesNothing) {
  CurrentFileName = path;
  dialog.WillCancel();
  EXPECT_FALSE(openModel(""));
  EXPECT_EQ(CurrentFileName, path);
  EXPECT_EQ(GridCapacity, 20);
  EXPECT_EQ(NodeCount, 3);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(OpenTest, FromTheMenuLeavesNoCapacityWhenItIsCancelled) {
  dialog.WillCancel();
  OpenFromMenu();
  EXPECT_EQ(GridCapacity, 0);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(OpenTest, FromTheMenuTakesTheCapacityOfTheFile) {
  SaveSquare();
  dialog.WillChoose(path);
  OpenFromMenu();
  EXPECT_EQ(GridCapacity, 300);
  EXPECT_EQ(NodeCount, 4);
}

TEST_F(OpenTest, OfAMissingFileNamesItAndForgetsTheCurrentName) {
  CurrentFileName = "/elsewhere/old.stw";
  EXPECT_FALSE(openModel(path));
  EXPECT_THAT(TakeMessages(), ElementsAre(OpenError(path)));
  EXPECT_EQ(CurrentFileName, "");
}

TEST_F(OpenTest, ThatFailsLeavesTheModelAndItsResults) {
  PretendAnalysis();
  dialog.WillChoose(path);
  EXPECT_FALSE(openModel(""));
  EXPECT_THAT(TakeMessages(), ElementsAre(OpenError(path)));
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 7.5F);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(OpenTest, OfNoNameFails) {
  CurrentFileName = "/elsewhere/old.stw";
  dialog.WillChoose("");
  EXPECT_FALSE(openModel(""));
  EXPECT_THAT(TakeMessages(), ElementsAre(OpenError("")));
  EXPECT_EQ(CurrentFileName, "");
}

TEST_F(OpenTest, ReportsWhateverElseFails) {
  files.before = [](const std::string&, int) { throw std::runtime_error("out of everything"); };
  std::string reason;
  EXPECT_FALSE(openModel(path, &reason));
  EXPECT_THAT(TakeMessages(), ElementsAre(OpenError(path)));
  EXPECT_EQ(reason, "out of everything");
}

using NewTest = FileCommandsTest;

TEST_F(NewTest, EmptiesTheModel) {
  newModel();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(MemberCount, 0);
  EXPECT_EQ(WriteModel().size(), 70U);
}

TEST_F(NewTest, StartsTheWindowAfresh) {
  newModel();
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelEmptied", "CaptionChanged(newTruss.stw)", "ModelReplaced"));
}

TEST_F(NewTest, KeepsTheCapacityUnlessItComesFromTheDisplaysMenu) {
  newModel();
  EXPECT_EQ(GridCapacity, 20);
  NewFromMenu();
  EXPECT_EQ(GridCapacity, 0);
  EXPECT_EQ(CurrentFileName, folder.Path("newTruss.stw"));
}

TEST_F(NewTest, LetsSaveWriteIntoTheProgramsFolderWithoutAsking) {
  newModel();
  EXPECT_FALSE(fs::exists(folder.Path("newTruss.stw")));
  SetModel(Square());
  SaveFromMenu();
  EXPECT_EQ(LoadModelFile(folder.Path("newTruss.stw")).nodeCount, 4);
}

TEST_F(NewTest, BeginsEvenWhereTheProgramHasNoPlaceForItsFiles) {
  ThePlatform().programFolder = folder.Path("missing");
  PutFile(path, "");
  ThePlatform().dataFolder = folder.Path("bridge.stw/strutwright");
  const std::string name = folder.Path("bridge.stw/strutwright/newTruss.stw");
  newModel();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(CurrentFileName, name);

  SaveFromMenu();
  const std::vector<Message> boxes = TakeMessages();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_THAT(boxes[0].text, StartsWith("Error while saving file " + name + "\n"));
}

/// A drawing that says where it was saved, or why it can't be.
class SavedDrawing : public RecordingSurface {
 public:
  explicit SavedDrawing(std::vector<std::string>& events) : Events(events) {}
  void SavePicture(const std::string& path) override {
    Events.push_back("SavePicture(" + path + ")");
    if (!failure.empty()) throw FileError(failure);
  }
  std::string failure; ///< reason why no picture can be saved; empty when one can

 private:
  std::vector<std::string>& Events;
};

class SavePictureTest : public FileCommandsTest {
 protected:
  SavedDrawing drawing{events};
  std::function<void(const std::string&)> save = [this](const std::string& to) { drawing.SavePicture(to); };
};

TEST_F(SavePictureTest, ShowsTheDialogWithItsProperties) {
  dialog.fileName = path;
  dialog.WillChoose("/pictures/truss.bmp");
  savePicture(save);
  EXPECT_THAT(dialog.shown,
              ElementsAre(ShownFileDialog{"save", "Save Truss Display As", 2, "feb", StwFolder, Pictures, path}));
}

TEST_F(SavePictureTest, SavesTheDrawingAndLeavesTheModelsName) {
  CurrentFileName = path;
  dialog.WillChoose("/pictures/truss.bmp");
  savePicture(save);
  EXPECT_THAT(events, ElementsAre("SavePicture(/pictures/truss.bmp)"));
  EXPECT_EQ(CurrentFileName, path);
}

TEST_F(SavePictureTest, ThatIsCancelledDoesNothing) {
  dialog.WillCancel();
  savePicture(save);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(SavePictureTest, WithoutANameAsksAgainAndThenSavesTwice) {
  dialog.WillChoose("");
  dialog.WillChoose("/pictures/truss.bmp");
  savePicture(save);
  EXPECT_THAT(TakeMessages(), ElementsAre(PleaseName()));
  EXPECT_THAT(events, ElementsAre("SavePicture(/pictures/truss.bmp)", "SavePicture(/pictures/truss.bmp)"));
}

TEST_F(SavePictureTest, FailsForWantOfANameWhenTheRetryIsCancelled) {
  drawing.failure = "No such file or directory";
  dialog.WillChoose("");
  dialog.WillCancel();
  savePicture(save);
  EXPECT_THAT(TakeMessages(), ElementsAre(PleaseName(), SaveError("", "No such file or directory")));
}

TEST_F(SavePictureTest, ReportsAFailure) {
  drawing.failure = "No space left on device";
  dialog.WillChoose("/full/truss.bmp");
  savePicture(save);
  EXPECT_THAT(TakeMessages(), ElementsAre(SaveError("/full/truss.bmp", "No space left on device")));
}

} // namespace
} // namespace strutwright
