#include "AnalysisState.h"
#include "EventsTest.h"
#include "FileState.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "RecentFiles.h"
#include "ScratchFolder.h"
#include "modExamples.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modModelStore.h"
#include "modRecentFiles.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// A run after a first one, with two models on disk: a triangle and a square.
class OpenRecentFileTest : public EventsTest {
 protected:
  OpenRecentFileTest() {
    ThePlatform().files = &disk;
    ThePlatform().programFolder = folder.Root();
    TheAnalysis = AnalysisState{};
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
    ResetModel();
    SetModel(Square());
    PutFile(square, WriteModel());
    SetModel(Triangle());
    PutFile(triangle, WriteModel());
    startUpList();
    TakeMessages();
  }
  ~OpenRecentFileTest() override {
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
  }

  static std::vector<std::string> Shown() {
    std::vector<std::string> paths;
    for (const RecentFileEntry& entry : mnuRUF) {
      if (entry.visible) paths.push_back(entry.tag);
    }
    return paths;
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  std::string triangle = folder.Path("triangle.stw");
  std::string square = folder.Path("square.stw");
};

TEST_F(OpenRecentFileTest, TakesTheNameOfAnExampleToo) {
  fs::create_directory(folder.Path("examples"));
  fs::copy(triangle, folder.Path("examples/a.stw"));
  OpenExample(Examples().front().path);
  ASSERT_THAT(Shown(), ElementsAre(folder.Path("examples/a.stw")));
  ASSERT_EQ(CurrentFileName, "");

  OpenRecentFile(1);

  EXPECT_EQ(CurrentFileName, folder.Path("examples/a.stw"));
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(OpenRecentFileTest, ListsEveryFileThatWasOpened) {
  openModel(triangle);
  dialog.WillChoose(square);
  OpenFromMenu();
  EXPECT_THAT(Shown(), ElementsAre(square, triangle));
  EXPECT_EQ(settings.texts["Recent Files/1"], square);
}

TEST_F(OpenRecentFileTest, ListsAnExampleToo) {
  OpenExample(square);
  EXPECT_THAT(Shown(), ElementsAre(square));
}

TEST_F(OpenRecentFileTest, ListsNoFileThatCouldNotBeOpened) {
  openModel(folder.Path("missing.stw"));
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(OpenRecentFileTest, ListsNoFileThatIsTheProgramsOwn) {
  EXPECT_TRUE(OpenUnlisted(square));
  EXPECT_EQ(NodeCount, 4);
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(OpenRecentFileTest, ListsNothingThatIsOnlySaved) {
  dialog.WillChoose(folder.Path("other.stw"));
  SaveAsFromMenu();
  SaveFromMenu();
  NewFromMenu();
  SaveFromMenu();
  EXPECT_TRUE(fs::exists(folder.Path("other.stw")));
  EXPECT_TRUE(fs::exists(folder.Path("newTruss.stw")));
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_FALSE(settings.texts.contains("Recent Files/1"));
}

TEST_F(OpenRecentFileTest, OpensTheChosenEntryAndMovesItToTheTopOfTheMenu) {
  openModel(triangle);
  openModel(square);
  GridCapacity = 20;
  OpenRecentFile(2);
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(CurrentFileName, triangle);
  EXPECT_THAT(Shown(), ElementsAre(triangle, square));
  EXPECT_EQ(settings.texts["Recent Files/1"], square) << "the store keeps its order";
  EXPECT_THAT(dialog.shown, IsEmpty());
}

TEST_F(OpenRecentFileTest, FailsOnAFileThatHasGoneAndShowsItLikeAnyOther) {
  openModel(triangle);
  openModel(square);
  fs::remove(triangle);
  OpenRecentFile(2);
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::None, "Unkown error while opening file " + triangle)));
  EXPECT_EQ(CurrentFileName, "");
  EXPECT_EQ(NodeCount, 4);
  EXPECT_THAT(Shown(), ElementsAre(triangle, square));
}

TEST_F(OpenRecentFileTest, LeavesTheCapacityToTheFile) {
  openModel(triangle);
  fs::remove(triangle);
  GridCapacity = 33;
  OpenRecentFile(1);
  TakeMessages();
  EXPECT_EQ(GridCapacity, 33);
}

} // namespace
} // namespace strutwright
