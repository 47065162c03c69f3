// What the file system does alike on every system.

#include "DiskFixture.h"
#include "Utf8Path.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

TEST_F(NativeFileSystemTest, DistinguishesKinds) {
  EXPECT_EQ(disk.Kind(folder.Path("nothing")), FileKind::Missing);
  EXPECT_EQ(disk.Kind(Made("file", "x")), FileKind::File);
  EXPECT_EQ(disk.Kind(folder.Root()), FileKind::Folder);
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

TEST_F(NativeFileSystemTest, TriesALockWithoutWaiting) {
  const std::string path = Made("file", "x");
  auto lock = disk.TryLock(path);
  ASSERT_NE(lock, nullptr);
  EXPECT_EQ(disk.TryLock(path), nullptr);
  lock.reset();
  EXPECT_NE(disk.TryLock(path), nullptr);
  EXPECT_EQ(FileBytes(path), "x");
}

TEST_F(NativeFileSystemTest, CannotTryALockInAMissingFolder) {
  EXPECT_THROW(disk.TryLock(folder.Path("missing/file")), FileError);
}

TEST_F(NativeFileSystemTest, ReportsNoTimeOfAMissingFile) {
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

TEST_F(NativeFileSystemTest, CreatesAFolderWithThoseAboveIt) {
  disk.CreateFolder(folder.Path("a/b"));
  disk.CreateFolder(folder.Path("a/b"));
  EXPECT_EQ(disk.Kind(folder.Path("a/b")), FileKind::Folder);
}

TEST_F(NativeFileSystemTest, CannotCreateAFolderBelowAFile) {
  EXPECT_THROW(disk.CreateFolder(Made("file", "x") + "/a"), FileError);
}

TEST_F(NativeFileSystemTest, TakesNamesOfEveryLanguage) {
  const std::string folderName = folder.Path("Brücken 桥");
  disk.CreateFolder(folderName);
  const std::string path = folderName + "/Fachwerk äöü 🏗.stw";

  disk.Create(path);
  disk.Write(path, "model");

  EXPECT_EQ(disk.Read(path, 0, Everything), "model");
  EXPECT_EQ(disk.Names(folderName), std::vector<std::string>{"Fachwerk äöü 🏗.stw"});
  EXPECT_EQ(disk.Kind(path), FileKind::File);
  EXPECT_EQ(PathOf(disk.CreateBeside(path)).parent_path(), PathOf(folderName));
  disk.RemoveFolder(folderName);
  EXPECT_EQ(disk.Kind(folderName), FileKind::Missing);
}

TEST_F(NativeFileSystemTest, NamesNothingInAMissingFolder) {
  EXPECT_TRUE(disk.Names(folder.Path("missing")).empty());
  EXPECT_TRUE(disk.Names("").empty());
}

TEST_F(NativeFileSystemTest, RemovesAFolderWithAllThatItHolds) {
  disk.CreateFolder(folder.Path("a/b"));
  Made("a/b/file", "x");
  fs::permissions(PathOf(Made("a/protected", "x")), fs::perms(0444));

  disk.RemoveFolder(folder.Path("a"));

  EXPECT_EQ(folder.EntryCount(), 0);
  EXPECT_NO_THROW(disk.RemoveFolder(folder.Path("a")));
}

} // namespace
} // namespace strutwright
