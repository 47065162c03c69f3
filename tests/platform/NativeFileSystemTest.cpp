#include "NativeFileSystem.h"
#include "AsUser.h"
#include "ScratchFolder.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t Everything = std::numeric_limits<std::size_t>::max();

class NativeFileSystemTest : public testing::Test {
 protected:
  std::string Made(const std::string& name, const std::string& bytes) {
    PutFile(folder.Path(name), bytes);
    return folder.Path(name);
  }

  ScratchFolder folder;
  NativeFileSystem disk;
};

TEST_F(NativeFileSystemTest, DistinguishesKinds) {
  EXPECT_EQ(disk.Kind(folder.Path("nothing")), FileKind::Missing);
  EXPECT_EQ(disk.Kind(Made("file", "x")), FileKind::File);
  EXPECT_EQ(disk.Kind(folder.Root()), FileKind::Folder);
  EXPECT_EQ(disk.Kind("/dev/null"), FileKind::Special);
}

TEST_F(NativeFileSystemTest, DoesNotTakeAFileForAFolder) {
  EXPECT_EQ(disk.Kind(Made("file", "x") + "/below"), FileKind::Missing);
}

TEST_F(NativeFileSystemTest, ReadsFromAnOffsetUpToALimit) {
  const std::string path = Made("file", "abcdefgh");
  EXPECT_EQ(disk.Read(path, 0, Everything), "abcdefgh");
  EXPECT_EQ(disk.Read(path, 2, 3), "cde");
  EXPECT_EQ(disk.Read(path, 6, 10), "gh");
  EXPECT_EQ(disk.Read(path, 20, 10), "");
}

TEST_F(NativeFileSystemTest, CutsAFileOffAndFillsItUp) {
  const std::string path = Made("file", "abcdefgh");
  disk.Resize(path, 3);
  EXPECT_EQ(FileBytes(path), "abc");
  disk.Resize(path, 5);
  EXPECT_EQ(FileBytes(path), std::string("abc\0\0", 5));
  EXPECT_THROW(disk.Resize(folder.Path("nothing"), 3), FileError);
}

TEST_F(NativeFileSystemTest, KnowsOtherNamesOfAFile) {
  const std::string path = Made("file", "x");
  EXPECT_FALSE(disk.HasOtherNames(path));
  fs::create_symlink(path, folder.Path("symbolic"));
  EXPECT_FALSE(disk.HasOtherNames(path));
  fs::create_hard_link(path, folder.Path("other"));
  EXPECT_TRUE(disk.HasOtherNames(path));
  EXPECT_THROW(disk.HasOtherNames(folder.Path("nothing")), FileError);
}

TEST_F(NativeFileSystemTest, ReadsLargeFilesWhole) {
  const std::string bytes(1000000, 'q');
  EXPECT_EQ(disk.Read(Made("large", bytes), 0, Everything), bytes);
}

TEST_F(NativeFileSystemTest, DescribesWhyAFileCannotBeRead) {
  try {
    disk.Read(folder.Path("nothing"), 0, 1);
    FAIL() << "nothing was thrown";
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "No such file or directory");
    EXPECT_EQ(error.code, std::errc::no_such_file_or_directory);
  }
  EXPECT_FALSE(fs::exists(folder.Path("nothing")));
}

TEST_F(NativeFileSystemTest, RefusesToReadAFolder) { EXPECT_THROW(disk.Read(folder.Root(), 0, 1), FileError); }

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

TEST_F(NativeFileSystemTest, CreatesFilesBesideWithoutTouchingOthers) {
  const std::string first = disk.CreateBeside(folder.Path("model.stw"));
  const std::string second = disk.CreateBeside(folder.Path("model.stw"));
  EXPECT_NE(first, second);
  EXPECT_EQ(fs::path(first).parent_path(), folder.Root());
  EXPECT_EQ(folder.EntryCount(), 2);
}

TEST_F(NativeFileSystemTest, CreatesBesideANameOfTheGreatestLength) {
  EXPECT_NO_THROW(disk.CreateBeside(folder.Path(std::string(255, 'n'))));
}

TEST_F(NativeFileSystemTest, WritesFromTheStartWithoutTruncating) {
  const std::string path = Made("file", "abcdefgh");
  disk.Write(path, "XY");
  EXPECT_EQ(FileBytes(path), "XYcdefgh");
}

TEST_F(NativeFileSystemTest, DoesNotCreateWhatItShouldWrite) {
  EXPECT_THROW(disk.Write(folder.Path("nothing"), "x"), FileError);
  EXPECT_FALSE(fs::exists(folder.Path("nothing")));
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

TEST_F(NativeFileSystemTest, ReplacesAFileInOneStep) {
  const std::string from = Made("from", "new");
  const std::string to = Made("to", "old");
  disk.Flush(from);
  disk.Replace(from, to);
  EXPECT_EQ(FileBytes(to), "new");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(NativeFileSystemTest, Removes) {
  const std::string path = Made("file", "x");
  disk.Remove(path);
  EXPECT_FALSE(fs::exists(path));
  EXPECT_THROW(disk.Remove(path), FileError);
}

TEST_F(NativeFileSystemTest, LocksAFileThatItCreatesWhereThereIsNone) {
  const auto lock = disk.Lock(folder.Path("fresh"));
  EXPECT_EQ(FileBytes(folder.Path("fresh")), "");
}

TEST_F(NativeFileSystemTest, LocksAFileWithoutChangingIt) {
  const std::string path = Made("file", "x");
  disk.Lock(path);
  EXPECT_EQ(FileBytes(path), "x");
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

TEST_F(NativeFileSystemTest, TriesALockWithoutWaiting) {
  const std::string path = Made("file", "x");
  auto lock = disk.TryLock(path);
  ASSERT_NE(lock, nullptr);
  EXPECT_FALSE(IsFree(path));
  EXPECT_EQ(disk.TryLock(path), nullptr);
  lock.reset();
  EXPECT_NE(disk.TryLock(path), nullptr);
  EXPECT_EQ(FileBytes(path), "x");
}

TEST_F(NativeFileSystemTest, CannotTryALockInAMissingFolder) {
  EXPECT_THROW(disk.TryLock(folder.Path("missing/file")), FileError);
}

TEST_F(NativeFileSystemTest, ReportsWhenAFileWasModified) {
  const std::string path = Made("file", "x");
  const std::int64_t now = disk.ModifiedAt(path);
  fs::last_write_time(path, fs::last_write_time(path) - std::chrono::milliseconds(1500));
  EXPECT_EQ(disk.ModifiedAt(path), now - 1'500'000'000);
  EXPECT_THROW(disk.ModifiedAt(folder.Path("nothing")), FileError);
}

TEST_F(NativeFileSystemTest, CannotLockInAMissingFolder) {
  EXPECT_THROW(disk.Lock(folder.Path("missing/file")), FileError);
}

TEST_F(NativeFileSystemTest, ReportsFoldersThatTakeFiles) {
  EXPECT_TRUE(disk.TakesFiles(folder.Root()));
  EXPECT_FALSE(disk.TakesFiles(folder.Path("missing")));
  EXPECT_FALSE(disk.TakesFiles(Made("file", "x")));
}

TEST_F(NativeFileSystemTest, ReportsFoldersThatTakeNoFilesOfThisUser) {
  fs::permissions(folder.Root(), fs::perms(0555));
  EXPECT_EQ(AsUnprivilegedUser([&] { return disk.TakesFiles(folder.Root()) ? 1 : 0; }), 0);
}

TEST_F(NativeFileSystemTest, CreatesAFolderWithThoseAboveIt) {
  disk.CreateFolder(folder.Path("a/b"));
  disk.CreateFolder(folder.Path("a/b"));
  EXPECT_EQ(disk.Kind(folder.Path("a/b")), FileKind::Folder);
}

TEST_F(NativeFileSystemTest, CannotCreateAFolderBelowAFile) {
  EXPECT_THROW(disk.CreateFolder(Made("file", "x") + "/a"), FileError);
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

} // namespace
} // namespace strutwright
