// What a kill leaves at any moment, and a folder that its user may not write.

#include "AsUser.h"
#include "RecoveryFixture.h"
#include "RunSeed.h"
#include "modModelFile.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <string>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

using PosixRecoveryTest = RecoveryFixture;

TEST_F(PosixRecoveryTest, SaysNothingWhereTheDataFolderCanNotBeWritten) {
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

TEST_F(PosixRecoveryTest, BringsBackTheLastKeptStateAfterAKillAtAnyMoment) {
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
