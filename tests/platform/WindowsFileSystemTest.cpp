// Long paths, files in use, attributes and locks of Windows.

#include "DiskFixture.h"
#include "WideText.h"

#include <cstdint>
#include <functional>
#include <string>
#include <system_error>
#include <vector>

#include <windows.h>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

constexpr const char* InUse = "Another program holds the file open: close it there and try again";

/// A file that somebody else has open and shares as told.
class HeldFile {
 public:
  HeldFile(const std::string& path, DWORD share)
      : Handle(CreateFileW(WidePath(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(Handle, INVALID_HANDLE_VALUE);
  }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;
  ~HeldFile() { CloseHandle(Handle); }

 private:
  HANDLE Handle;
};

std::string FailureOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const FileError& error) {
    return error.what();
  }
  return "";
}

DWORD Attributes(const std::string& path) { return GetFileAttributesW(WidePath(path).c_str()); }

TEST_F(NativeFileSystemTest, TakesPathsOfAnyLength) {
  std::string deep = folder.Path("deep");
  for (int level = 0; level < 6; ++level) deep += "\\" + std::string(60, static_cast<char>('a' + level));
  disk.CreateFolder(deep);
  const std::string path = deep + "\\model.stw";

  disk.Create(path);
  disk.Write(path, "old");
  const std::string fresh = disk.CreateBeside(path);
  disk.Write(fresh, "new");
  disk.Replace(fresh, path);

  EXPECT_GT(path.size(), 260U);
  EXPECT_EQ(disk.Read(path, 0, Everything), "new");
  EXPECT_EQ(disk.Kind(deep), FileKind::Folder);
  EXPECT_EQ(disk.Names(deep), std::vector<std::string>{"model.stw"});
  EXPECT_TRUE(disk.TakesFiles(deep));
  disk.RemoveFolder(folder.Path("deep"));
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(NativeFileSystemTest, TakesBothSeparators) {
  disk.CreateFolder(folder.Path("a") + "/b\\c");
  disk.Create(folder.Path("a") + "\\b/c\\model.stw");
  EXPECT_EQ(disk.Kind(folder.Path("a/b/c/model.stw")), FileKind::File);
}

TEST_F(NativeFileSystemTest, TakesNulForSomethingSpecial) {
  EXPECT_EQ(disk.Kind("NUL"), FileKind::Special);
  EXPECT_NO_THROW(disk.Write("NUL", "x"));
  EXPECT_NO_THROW(disk.Flush("NUL"));
}

TEST_F(NativeFileSystemTest, FindsNothingUnderAnImpossibleName) {
  EXPECT_EQ(disk.Kind(folder.Path("a*b?")), FileKind::Missing);
  EXPECT_EQ(disk.Kind(""), FileKind::Missing);
  EXPECT_EQ(disk.Kind("Q:\\nothing"), FileKind::Missing);
  EXPECT_NE(FailureOf([&] { disk.Create(folder.Path("a*b?")); }), "");
}

TEST_F(NativeFileSystemTest, ReadsWhatAnotherProgramWrites) {
  const std::string path = Made("file", "x");
  const HeldFile held(path, FILE_SHARE_READ);
  EXPECT_EQ(disk.Read(path, 0, Everything), "x");
}

TEST_F(NativeFileSystemTest, SaysThatAnotherProgramHoldsTheFile) {
  const std::string path = Made("file", "x");
  const HeldFile held(path, 0);
  EXPECT_EQ(FailureOf([&] { disk.Read(path, 0, 1); }), InUse);
  EXPECT_EQ(FailureOf([&] { disk.CheckWritable(path); }), InUse);
  EXPECT_EQ(FailureOf([&] { disk.Write(path, "y"); }), InUse);
  EXPECT_EQ(FailureOf([&] { disk.Remove(path); }), InUse);
  EXPECT_EQ(disk.Kind(path), FileKind::File);
}

TEST_F(NativeFileSystemTest, ReplacesNoFileThatAnotherProgramKeeps) {
  const std::string path = Made("file", "old");
  const std::string fresh = Made("fresh", "new");
  {
    const HeldFile held(path, FILE_SHARE_READ);
    EXPECT_EQ(FailureOf([&] { disk.Replace(fresh, path); }), InUse);
  }
  EXPECT_EQ(FileBytes(path), "old");
  EXPECT_EQ(FileBytes(fresh), "new");
}

TEST_F(NativeFileSystemTest, RefusesToWriteAProtectedFile) {
  const std::string path = Made("file", "x");
  SetFileAttributesW(WidePath(path).c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(FailureOf([&] { disk.CheckWritable(path); }), "Permission denied");
  EXPECT_EQ(disk.Read(path, 0, Everything), "x");
  disk.Remove(path);
  EXPECT_EQ(disk.Kind(path), FileKind::Missing);
}

TEST_F(NativeFileSystemTest, CopiesWhetherAFileIsProtectedOrHidden) {
  const std::string model = Made("model", "x");
  const std::string fresh = Made("fresh", "y");
  SetFileAttributesW(WidePath(model).c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);

  disk.CopyMode(model, fresh);

  constexpr DWORD Both = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN;
  EXPECT_EQ(Attributes(fresh) & Both, Attributes(model) & Both);
  EXPECT_NE(Attributes(fresh) & FILE_ATTRIBUTE_READONLY, 0U);
  SetFileAttributesW(WidePath(model).c_str(), FILE_ATTRIBUTE_NORMAL);
  disk.CopyMode(model, fresh);
  EXPECT_EQ(Attributes(fresh) & Both, 0U);
  EXPECT_THROW(disk.CopyMode(folder.Path("nothing"), fresh), FileError);
}

/// Dates a file in ticks of 100 ns from 1601 on.
void Date(const std::string& path, std::uint64_t ticks) {
  const FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  const HANDLE file = CreateFileW(WidePath(path).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(SetFileTime(file, nullptr, nullptr, &time), 0);
  CloseHandle(file);
}

TEST_F(NativeFileSystemTest, ReportsWhenAFileWasModifiedToTheTick) {
  constexpr std::uint64_t Ticks = 133'000'000'000'000'000; // in June 2022
  const std::string path = Made("file", "x");
  Date(path, Ticks);
  const std::int64_t before = disk.ModifiedAt(path);
  EXPECT_EQ(before, 1'655'526'400'000'000'000);
  Date(path, Ticks + 1);
  EXPECT_EQ(disk.ModifiedAt(path), before + 100);
}

TEST_F(NativeFileSystemTest, SaysThatAFolderIsNoFile) {
  EXPECT_EQ(FailureOf([&] { disk.Read(folder.Path(""), 0, 1); }), "Is a directory");
}

TEST_F(NativeFileSystemTest, RenamesAFolder) {
  disk.CreateFolder(folder.Path("from/inside"));
  disk.Replace(folder.Path("from"), folder.Path("to"));
  EXPECT_EQ(disk.Kind(folder.Path("to/inside")), FileKind::Folder);
  EXPECT_EQ(disk.Kind(folder.Path("from")), FileKind::Missing);
}

TEST_F(NativeFileSystemTest, LetsALockedFileBeReadWrittenAndReplaced) {
  const std::string path = Made("file", "old");
  const auto lock = disk.Lock(path);
  EXPECT_EQ(disk.Read(path, 0, Everything), "old");
  EXPECT_NO_THROW(disk.Write(path, "new"));
  EXPECT_EQ(FileBytes(path), "new");
}

} // namespace
} // namespace strutwright
