// Links, owners and modes, devices and locks of a POSIX system.

#include "AsUser.h"
#include "DiskFixture.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

TEST_F(NativeFileSystemTest, TakesADeviceForSomethingSpecial) { EXPECT_EQ(disk.Kind("/dev/null"), FileKind::Special); }

TEST_F(NativeFileSystemTest, TakesNoSymbolicLinkForAnotherName) {
  const std::string path = Made("file", "x");
  fs::create_symlink(path, folder.Path("symbolic"));
  EXPECT_FALSE(disk.HasOtherNames(path));
}

TEST_F(NativeFileSystemTest, FollowsChainsOfLinks) {
  const std::string path = Made("file", "x");
  fs::create_symlink("file", folder.Path("one"));
  fs::create_symlink(folder.Path("one"), folder.Path("two"));
  EXPECT_EQ(disk.FollowLinks(folder.Path("two")), path);
  EXPECT_EQ(disk.FollowLinks(path), path);
}

TEST_F(NativeFileSystemTest, FollowsALinkToNothing) {
  fs::create_symlink("missing", folder.Path("link"));
  EXPECT_EQ(disk.FollowLinks(folder.Path("link")), folder.Path("missing"));
}

TEST_F(NativeFileSystemTest, GivesUpOnACircleOfLinks) {
  fs::create_symlink("b", folder.Path("a"));
  fs::create_symlink("a", folder.Path("b"));
  EXPECT_THROW(disk.FollowLinks(folder.Path("a")), FileError);
}

TEST_F(NativeFileSystemTest, ReportsAFullDevice) {
  try {
    disk.Write("/dev/full", "x");
    FAIL() << "nothing was thrown";
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "No space left on device");
  }
}

struct stat StatusOf(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status;
}

TEST_F(NativeFileSystemTest, CopiesTheMode) {
  const std::string model = Made("model", "x");
  fs::permissions(model, fs::perms(0640));
  const std::string fresh = Made("fresh", "y");
  disk.CopyMode(model, fresh);
  EXPECT_EQ(StatusOf(fresh).st_mode & 07777U, 0640U);
}

TEST_F(NativeFileSystemTest, CopiesOwnerGroupAndEveryBitWhereThatIsAllowed) {
  if (geteuid() != 0) GTEST_SKIP() << "only root may give a file away";
  const std::string model = Made("model", "x");
  ASSERT_EQ(chown(model.c_str(), 12345, 54321), 0);
  ASSERT_EQ(chmod(model.c_str(), 06755), 0);
  const std::string fresh = Made("fresh", "y");
  disk.CopyMode(model, fresh);
  EXPECT_EQ(StatusOf(fresh).st_uid, 12345U);
  EXPECT_EQ(StatusOf(fresh).st_gid, 54321U);
  EXPECT_EQ(StatusOf(fresh).st_mode & 07777U, 06755U);
}

TEST_F(NativeFileSystemTest, GivesAnotherGroupNoMoreThanEverybodyHas) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make a file of another group";
  const std::string model = Made("model", "x");
  ASSERT_EQ(chown(model.c_str(), 0, 54321), 0);
  ASSERT_EQ(chmod(model.c_str(), 06664), 0);
  const std::string fresh = folder.Path("fresh");
  EXPECT_EQ(AsUnprivilegedUser([&] {
              PutFile(fresh, "y");
              NativeFileSystem().CopyMode(model, fresh);
              return 0;
            }),
            0);
  EXPECT_EQ(StatusOf(fresh).st_mode & 07777U, 0644U);
}

/// Whether another descriptor could lock the file now.
bool IsFree(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const bool isFree = flock(file, LOCK_EX | LOCK_NB) == 0;
  close(file);
  return isFree;
}

TEST_F(NativeFileSystemTest, HoldsALockAsLongAsItLives) {
  const std::string path = Made("file", "x");
  auto lock = disk.Lock(path);
  EXPECT_FALSE(IsFree(path));
  lock.reset();
  EXPECT_TRUE(IsFree(path));
}

TEST_F(NativeFileSystemTest, ReportsFoldersThatTakeNoFilesOfThisUser) {
  fs::permissions(folder.Root(), fs::perms(0555));
  EXPECT_EQ(AsUnprivilegedUser([&] { return disk.TakesFiles(folder.Root()) ? 1 : 0; }), 0);
}

TEST_F(NativeFileSystemTest, KnowsWhatAUserMayNotWrite) {
  const std::string path = Made("file", "x");
  fs::permissions(path, fs::perms(0444));
  EXPECT_EQ(AsUnprivilegedUser([&] {
              try {
                NativeFileSystem().CheckWritable(path);
                return 1;
              } catch (const FileError& error) {
                return error.code == std::errc::permission_denied ? 0 : 2;
              }
            }),
            0);
}

TEST_F(NativeFileSystemTest, ReportsWhenAFileWasModified) {
  const std::string path = Made("file", "x");
  const std::int64_t now = disk.ModifiedAt(path);
  fs::last_write_time(path, fs::last_write_time(path) - std::chrono::milliseconds(1500));
  EXPECT_EQ(disk.ModifiedAt(path), now - 1'500'000'000);
}

} // namespace
} // namespace strutwright
