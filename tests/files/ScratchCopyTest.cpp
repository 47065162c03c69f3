#include "AsUser.h"
#include "EventsTest.h"
#include "FaultyFileSystem.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <chrono>
#include <string>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class ScratchCopyTest : public EventsTest {
 protected:
  ScratchCopyTest() {
    ThePlatform().files = &files;
    ThePlatform().programFolder = folder.Root();
    ThePlatform().dataFolder = folder.Path("data/strutwright");
    ResetModel();
    SetModel(Triangle());
  }

  /// What the scratch copy fails with; empty when it does not.
  static std::string Failure() {
    try {
      writeScratchCopy();
      return {};
    } catch (const FileError& error) {
      return error.what();
    }
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  FaultyFileSystem files{disk};
  std::string path = folder.Path("temp_truss.stw");
};

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

TEST_F(ScratchCopyTest, GoesToTheDataFolderWhereTheProgramsFolderTakesNoFile) {
  fs::create_directory(folder.Path("program"));
  fs::permissions(folder.Path("program"), fs::perms(0555));
  ThePlatform().programFolder = folder.Path("program");
  EXPECT_EQ(AsUnprivilegedUser([] { return Failure().empty() ? 0 : 1; }), 0);
  EXPECT_EQ(FileBytes(folder.Path("data/strutwright/temp_truss.stw")), WriteModel());
  EXPECT_TRUE(fs::is_empty(folder.Path("program")));
}

TEST_F(ScratchCopyTest, OnAFullDeviceFailsAndLeavesTheModel) {
  fs::create_symlink("/dev/full", path);
  EXPECT_EQ(Failure(), path + ": No space left on device");
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(ScratchCopyTest, ThatCannotBeReadBackFailsAndLeavesTheModel) {
  fs::create_symlink("/dev/null", path);
  EXPECT_EQ(Failure(), path + ": The file is too short for a model");
  EXPECT_EQ(NodeTable(3, NodeForceY), -10.0F);
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
  ThePlatform().dataFolder = "/dev/null/strutwright";
  EXPECT_THROW(writeScratchCopy(), FileError);
}

/// Starts a process that writes scratch copies of a truss of so many nodes; it gives 0 when it only ever read its own.
pid_t StartWriter(int nodes) {
  const pid_t child = fork();
  if (child != 0) return child;
  for (int copy = 0; copy < 100; ++copy) {
    SetTables(PrattTruss(nodes));
    const std::string own = WriteModel();
    writeScratchCopy();
    if (WriteModel() != own) _exit(1);
  }
  _exit(0);
}

int ResultOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(ScratchCopyTest, IsNeverThatOfAnotherRunningCopyOfTheProgram) {
  files.before = [](const std::string& step, int) {
    if (step == "Read") std::this_thread::sleep_for(std::chrono::milliseconds(1)); // time to come in between
  };
  const pid_t small = StartWriter(10);
  const pid_t large = StartWriter(200);
  EXPECT_EQ(ResultOf(small), 0);
  EXPECT_EQ(ResultOf(large), 0);
}

} // namespace
} // namespace strutwright
