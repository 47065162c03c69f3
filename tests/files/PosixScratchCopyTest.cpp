// The scratch copy on devices, in a folder that its user may not write, and between several processes.

#include "AsUser.h"
#include "ScratchCopyFixture.h"
#include "modModelFile.h"

#include <chrono>
#include <filesystem>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

using PosixScratchCopyTest = ScratchCopyFixture;

TEST_F(PosixScratchCopyTest, GoesToTheDataFolderWhereTheProgramsFolderTakesNoFile) {
  fs::create_directory(folder.Path("program"));
  fs::permissions(folder.Path("program"), fs::perms(0555));
  ThePlatform().programFolder = folder.Path("program");
  EXPECT_EQ(AsUnprivilegedUser([] { return Failure().empty() ? 0 : 1; }), 0);
  EXPECT_EQ(FileBytes(folder.Path("data/strutwright/temp_truss.stw")), WriteModel());
  EXPECT_TRUE(fs::is_empty(folder.Path("program")));
}

TEST_F(PosixScratchCopyTest, OnAFullDeviceFailsAndLeavesTheModel) {
  fs::create_symlink("/dev/full", path);
  EXPECT_EQ(Failure(), path + ": No space left on device");
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(PosixScratchCopyTest, ThatCannotBeReadBackFailsAndLeavesTheModel) {
  fs::create_symlink("/dev/null", path);
  EXPECT_EQ(Failure(), path + ": The file is too short for a model");
  EXPECT_EQ(NodeTable(3, NodeForceY), -10.0F);
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

TEST_F(PosixScratchCopyTest, IsNeverThatOfAnotherRunningCopyOfTheProgram) {
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
