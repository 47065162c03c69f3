#include "AsUser.h"
#include "ScratchCopyFixture.h"
#include "modModelFile.h"

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

using ScratchCopyTest = ScratchCopyFixture;

TEST_F(ScratchCopyTest, IsLeftInTheProgramsFolder) {
  writeScratchCopy();
  EXPECT_EQ(FileBytes(path), WriteModel());
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(ScratchCopyTest, IsReadBackIntoTheModel) {
  GridCapacity = 33;
  const FieldTable nodes = NodeTable;
  const FieldTable members = MemberTable;
  writeScratchCopy();
  EXPECT_EQ(GridCapacity, 33);
  EXPECT_EQ(NodeTable, nodes);
  EXPECT_EQ(MemberTable, members);
}

TEST_F(ScratchCopyTest, IsWrittenAndReadUnderOneLock) {
  writeScratchCopy();
  EXPECT_THAT(files.steps, ElementsAre("TakesFiles", "Lock", "Write", "Read"));
}

TEST_F(ScratchCopyTest, OfASmallModelGoesOverThatOfALargeOne) {
  writeScratchCopy();
  SetModel({});
  writeScratchCopy();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(LoadModelFile(path).nodeCount, 0);
}

TEST_F(ScratchCopyTest, HoldsTheLargestModelThatCanBeAnalysed) {
  NodeCount = 16383;
  NodeTable.Recreate(NodeCount);
  NodeTable(16383, NodeX) = 5;
  writeScratchCopy();
  EXPECT_EQ(NodeTable(16383, NodeX), 5.0F);
}

TEST_F(ScratchCopyTest, AsksAndTellsNobody) {
  writeScratchCopy();
  EXPECT_TRUE(events.empty());
  EXPECT_TRUE(dialog.shown.empty());
}

TEST_F(ScratchCopyTest, ThatComesBackIncompleteFailsAndLeavesTheModel) {
  files.before = [this](const std::string& step, int) {
    if (step == "Read") fs::resize_file(path, 100);
  };
  EXPECT_EQ(Failure(), path + ": The file is shorter than what was written");
  EXPECT_EQ(NodeTable(3, NodeForceY), -10.0F);
}

TEST_F(ScratchCopyTest, ThatTheUserMayNotWriteFails) {
  PutFile(path, "");
  fs::permissions(path, fs::perms(0444));
  EXPECT_EQ(AsUnprivilegedUser([&] { return Failure() == path + ": Permission denied" ? 0 : 1; }), 0);
}

TEST_F(ScratchCopyTest, WithoutAnyFolderFails) {
  ThePlatform().programFolder = folder.Path("missing");
  PutFile(folder.Path("file"), "");
  ThePlatform().dataFolder = folder.Path("file/strutwright");
  EXPECT_THROW(writeScratchCopy(), FileError);
}

} // namespace
} // namespace strutwright
