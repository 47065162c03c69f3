// Saving on a POSIX system: modes, owners, symbolic links, devices, pipes and small disks.

#include "SafeSaveFixture.h"

#include <cstdio>
#include <filesystem>
#include <string>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

using PosixSaveTest = SafeSaveFixture;

TEST_F(PosixSaveTest, FollowsASymbolicLinkToAFileWithTwoNames) {
  fs::create_hard_link(ExistingFile("old and longer"), folder.Path("other.stw"));
  fs::create_symlink(path, folder.Path("link.stw"));
  SaveBytes(folder.Path("link.stw"), "new");
  EXPECT_EQ(FileBytes(path), "new and longer");
  EXPECT_EQ(FileBytes(folder.Path("other.stw")), "new and longer");
  EXPECT_EQ(fs::hard_link_count(path), 2U);
  EXPECT_TRUE(fs::is_symlink(folder.Path("link.stw")));
}

TEST_F(PosixSaveTest, KeepsTheMode) {
  ExistingFile("old");
  fs::permissions(path, fs::perms(0640));
  SaveBytes(path, "new");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST_F(PosixSaveTest, GivesANewFileTheUsualMode) {
  const mode_t mask = umask(022);
  SaveBytes(path, "new");
  umask(mask);
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0644));
}

TEST_F(PosixSaveTest, FollowsSymbolicLinks) {
  fs::create_directory(folder.Path("elsewhere"));
  PutFile(folder.Path("elsewhere/real.stw"), "old and longer");
  fs::create_symlink("elsewhere/real.stw", path);

  SaveBytes(path, "new");

  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(FileBytes(folder.Path("elsewhere/real.stw")), "new and longer");
}

TEST_F(PosixSaveTest, CreatesTheTargetOfADanglingLink) {
  fs::create_symlink("real.stw", path);
  SaveBytes(path, "new");
  EXPECT_EQ(FileBytes(folder.Path("real.stw")), "new");
}

TEST_F(PosixSaveTest, WritesADeviceInPlace) {
  EXPECT_NO_THROW(SaveBytes("/dev/null", "new"));
  EXPECT_EQ(disk.Kind("/dev/null"), FileKind::Special);
}

TEST_F(PosixSaveTest, ReportsAFullDevice) {
  try {
    SaveBytes("/dev/full", "new");
    FAIL() << "nothing was thrown";
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "No space left on device");
  }
}

TEST_F(PosixSaveTest, WritesInPlaceWhereTheFolderTakesNoSecondFile) {
  ExistingFile("the old model");
  fs::permissions(path, fs::perms(0666));
  fs::permissions(folder.Root(), fs::perms(0555));
  EXPECT_EQ(SaveAsUser(path), 0);
  EXPECT_EQ(FileBytes(path), "new old model");
}

TEST_F(PosixSaveTest, CannotCreateAFileInAFolderThatTakesNone) {
  fs::permissions(folder.Root(), fs::perms(0555));
  EXPECT_EQ(SaveAsUser(path), 1);
}

TEST_F(PosixSaveTest, LeavesTheOldFileWholeOnAFullDisk) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can mount a small disk";
  const std::string disk64k = folder.Path("disk");
  fs::create_directory(disk64k);
  if (mount("tmpfs", disk64k.c_str(), "tmpfs", 0, "size=64k") != 0) GTEST_SKIP() << "no disk can be mounted here";
  const std::string file = disk64k + "/model.stw";
  const std::string old(40000, 'o');
  PutFile(file, old);

  EXPECT_THROW(SaveBytes(file, std::string(50000, 'n')), FileError);

  const std::string kept = FileBytes(file);
  umount(disk64k.c_str());
  EXPECT_EQ(kept, old);
}

TEST_F(PosixSaveTest, WritesAFileThatMayNotBeRead) {
  ExistingFile("the old model");
  fs::permissions(path, fs::perms(0222));
  EXPECT_EQ(SaveAsUser(path), 0);
  fs::permissions(path, fs::perms(0644));
  EXPECT_EQ(FileBytes(path), "new old model");
}

TEST_F(PosixSaveTest, NeverShowsOthersAPrivateModel) {
  ExistingFile("old");
  fs::permissions(path, fs::perms(0600));
  files.before = [this](const std::string& step, int) {
    if (step != "Write") return;
    for (const auto& entry : fs::directory_iterator(folder.Root())) {
      EXPECT_EQ(entry.status().permissions(), fs::perms(0600)) << entry;
    }
  };
  SaveBytes(path, "new");
  EXPECT_EQ(FileBytes(path), "new");
}

TEST_F(PosixSaveTest, WritesAPipeBehindALink) {
  const std::string printed = folder.Path("printed");
  InChildProcess([&] {
    std::FILE* pipe = popen(("cat > " + printed).c_str(), "w"); // NOLINT: a fixed command
    SaveBytes("/proc/self/fd/" + std::to_string(fileno(pipe)), "model");
    pclose(pipe);
  });
  EXPECT_EQ(FileBytes(printed), "model");
}

} // namespace
} // namespace strutwright
