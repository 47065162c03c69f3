// Saving on Windows: files that are protected, in use, hidden, deep down or named in any language.

#include "NativeFileSystem.h"
#include "Platform.h"
#include "ScratchFolder.h"
#include "Utf8Path.h"
#include "modSafeSave.h"

#include <string>

#include <windows.h>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

class WindowsSaveTest : public testing::Test {
 protected:
  WindowsSaveTest() { ThePlatform() = {.files = &disk}; }
  ~WindowsSaveTest() override { ThePlatform() = {}; }

  static std::string FailureOf(const std::string& target, void (*save)(const std::string&, const std::string&)) {
    try {
      save(target, "new");
    } catch (const FileError& error) {
      return error.what();
    }
    return "";
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  std::string path = folder.Path("Brücke 桥.stw");
  std::wstring wide = PathOf(path).wstring();
};

TEST_F(WindowsSaveTest, PutsTheNewFileInThePlaceOfTheOld) {
  PutFile(path, "old and longer");
  SaveBytes(path, "new");
  EXPECT_EQ(FileBytes(path), "new and longer");
  SaveWholeFile(path, "whole");
  EXPECT_EQ(FileBytes(path), "whole");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(WindowsSaveTest, RefusesAProtectedFileAndLeavesItAlone) {
  PutFile(path, "old");
  SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(FailureOf(path, SaveBytes), "Permission denied");
  EXPECT_EQ(FileBytes(path), "old");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(WindowsSaveTest, LosesNothingWhereAnotherProgramHoldsTheFile) {
  PutFile(path, "old");
  const HANDLE held = CreateFileW(wide.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_EQ(FailureOf(path, SaveBytes), "Another program holds the file open: close it there and try again");
  EXPECT_EQ(FailureOf(path, SaveWholeFile), "Another program holds the file open: close it there and try again");
  CloseHandle(held);
  EXPECT_EQ(FileBytes(path), "old");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(WindowsSaveTest, GoesIntoAFileThatAnotherProgramLetsNobodyReplace) {
  PutFile(path, "old and longer");
  constexpr DWORD NoDelete = FILE_SHARE_READ | FILE_SHARE_WRITE;
  const HANDLE held = CreateFileW(wide.c_str(), GENERIC_READ, NoDelete, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_EQ(FailureOf(path, SaveBytes), "");
  EXPECT_EQ(FileBytes(path), "new and longer");
  EXPECT_EQ(FailureOf(path, SaveWholeFile), "Another program holds the file open: close it there and try again");
  CloseHandle(held);
  EXPECT_EQ(FileBytes(path), "new and longer");
  for (const std::string& name : disk.Names(folder.Root())) {
    EXPECT_FALSE(name.starts_with(".strutwright-")) << name; // Wine leaves a file of its own where it can't replace one
  }
}

TEST_F(WindowsSaveTest, KeepsAllNamesOfAFile) {
  PutFile(path, "old");
  ASSERT_NE(CreateHardLinkW(PathOf(folder.Path("other.stw")).c_str(), wide.c_str(), nullptr), 0);
  SaveWholeFile(path, "whole");
  EXPECT_EQ(FileBytes(folder.Path("other.stw")), "whole");
  EXPECT_TRUE(disk.HasOtherNames(path));
  EXPECT_EQ(folder.EntryCount(), 2);
}

} // namespace
} // namespace strutwright
