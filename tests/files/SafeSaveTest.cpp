#include "ModelBuilder.h"
#include "SafeSaveFixture.h"
#include "Utf8Path.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <filesystem>
#include <string>
#include <system_error>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

using SafeSaveTest = SafeSaveFixture;

TEST_F(SafeSaveTest, CreatesAMissingFile) {
  SaveBytes(path, "model");
  EXPECT_EQ(FileBytes(path), "model");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(SafeSaveTest, KeepsWhatAnOlderFileHeldBeyondTheNewEnd) {
  SaveBytes(ExistingFile("0123456789"), "abc");
  EXPECT_EQ(FileBytes(path), "abc3456789");
}

TEST_F(SafeSaveTest, MakesAShorterFileLonger) {
  SaveBytes(ExistingFile("0"), "abc");
  EXPECT_EQ(FileBytes(path), "abc");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(SafeSaveTest, OfASmallerModelLeavesTheLengthAndReopensAsTheSmallerModel) {
  SetTables(PrattTruss(10));
  SaveModelFile(path);
  const auto length = fs::file_size(path);
  SetTables({{{0, 0}, {1, 0}, {1, 1}}, {{1, 2}, {2, 3}}});

  SaveModelFile(path);

  EXPECT_EQ(fs::file_size(path), length);
  EXPECT_EQ(LoadModelFile(path).memberCount, 2);
}

TEST_F(SafeSaveTest, FlushesTheNewContentBeforeItTakesTheOldPlace) {
  SaveBytes(ExistingFile("old"), "new");
  EXPECT_THAT(files.steps, ElementsAre("Kind", "FollowLinks", "Kind", "CheckWritable", "Read", "HasOtherNames",
                                       "CreateBeside", "CopyMode", "Write", "Flush", "Replace"));
}

TEST_F(SafeSaveTest, LeavesTheOldFileWholeAfterAFailureAtAnyStep) {
  SaveBytes(ExistingFile("the old model"), "the new one..");
  const int steps = static_cast<int>(files.steps.size());
  for (int failing = 1; failing <= steps; ++failing) {
    ExistingFile("the old model");
    files.steps.clear();
    files.before = [failing](const std::string&, int number) {
      if (number == failing) throw FileError(std::make_error_code(std::errc::no_space_on_device));
    };
    EXPECT_THROW(SaveBytes(path, "new"), FileError) << "step " << failing;
    EXPECT_EQ(FileBytes(path), "the old model") << "step " << failing;
    EXPECT_EQ(folder.EntryCount(), 1) << "step " << failing;
  }
}

TEST_F(SafeSaveTest, LeavesTheOldOrTheNewFileWholeAfterAKillBeforeAnyStep) {
  SaveBytes(ExistingFile("the old model"), "the new one..");
  const int steps = static_cast<int>(files.steps.size());
  for (int last = 1; last <= steps; ++last) {
    ExistingFile("the old model");
    files.steps.clear();
    KillBefore(
        files, [last](const std::string&, int number) { return number == last; },
        [this] { SaveBytes(path, "the new one.."); });
    EXPECT_EQ(FileBytes(path), "the old model") << "killed before step " << last;
  }
}

TEST_F(SafeSaveTest, SavesAgainAfterAKill) {
  ExistingFile("the old model");
  KillBefore(
      files, [](const std::string& step, int) { return step == "Replace"; },
      [this] { SaveBytes(path, "the new one.."); });

  SaveBytes(path, "the new one..");

  EXPECT_EQ(FileBytes(path), "the new one..");
}

TEST_F(SafeSaveTest, RefusesAFolder) { EXPECT_THROW(SaveBytes(folder.Root(), "new"), FileError); }

TEST_F(SafeSaveTest, RefusesAnEmptyPathBeforeItTouchesAnyFolder) {
  EXPECT_THROW(SaveBytes("", "new"), FileError);
  EXPECT_TRUE(files.steps.empty());
}

TEST_F(SafeSaveTest, RefusesAMissingFolder) {
  EXPECT_THROW(SaveBytes(folder.Path("missing/model.stw"), "new"), FileError);
}

TEST_F(SafeSaveTest, RefusesAReadOnlyFileThoughItsFolderCouldTakeANewOne) {
  ExistingFile("the old model");
  fs::permissions(path, fs::perms(0444));
  EXPECT_EQ(SaveAsUser(path), 1);
  EXPECT_EQ(FileBytes(path), "the old model");
}

TEST_F(SafeSaveTest, WritesInPlaceWhereTheFolderLetsNoFileBeReplaced) {
  for (const std::errc reason : {std::errc::operation_not_permitted, std::errc::permission_denied,
                                 std::errc::device_or_resource_busy, std::errc::cross_device_link}) {
    ExistingFile("the old model");
    files.before = [reason](const std::string& step, int) {
      if (step == "Replace") throw FileError(std::make_error_code(reason));
    };
    SaveBytes(path, "new");
    EXPECT_EQ(FileBytes(path), "new old model");
    EXPECT_EQ(folder.EntryCount(), 1);
  }
}

TEST_F(SafeSaveTest, WritesInPlaceOnAReadOnlyFolderWithAWritableFile) {
  ExistingFile("the old model");
  files.before = [](const std::string& step, int) {
    if (step == "CreateBeside") throw FileError(std::make_error_code(std::errc::read_only_file_system));
  };
  SaveBytes(path, "new");
  EXPECT_EQ(FileBytes(path), "new old model");
}

TEST_F(SafeSaveTest, LeavesNothingOfTheOldFileWhereItIsToBeReplaced) {
  SaveWholeFile(ExistingFile("0123456789"), "abc");
  EXPECT_EQ(FileBytes(path), "abc");
  EXPECT_THAT(files.steps, ElementsAre("Kind", "FollowLinks", "Kind", "CheckWritable", "HasOtherNames", "CreateBeside",
                                       "CopyMode", "Write", "Flush", "Replace"));
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(SafeSaveTest, CreatesAWholeFileThatIsMissing) {
  SaveWholeFile(path, "abc");
  EXPECT_EQ(FileBytes(path), "abc");
}

TEST_F(SafeSaveTest, KeepsTheOldFileWhereItCannotBeReplaced) {
  for (const char* failing : {"CheckWritable", "CreateBeside", "CopyMode", "Write", "Flush", "Replace"}) {
    ExistingFile("old");
    files.before = [failing](const std::string& step, int) {
      if (step == failing) throw FileError(std::make_error_code(std::errc::permission_denied));
    };
    EXPECT_THROW(SaveWholeFile(path, "new content"), FileError) << failing;
    EXPECT_EQ(FileBytes(path), "old") << failing;
    EXPECT_EQ(folder.EntryCount(), 1) << failing;
  }
}

// Windows may take the old file away and then fail to put the new one there.
TEST_F(SafeSaveTest, KeepsTheNewFileWhereTheOldOneIsGone) {
  ExistingFile("old");
  files.before = [this](const std::string& step, int) {
    if (step != "Replace") return;
    std::filesystem::remove(PathOf(path));
    throw FileError(std::make_error_code(std::errc::io_error));
  };
  std::string reason;
  try {
    SaveWholeFile(path, "new");
  } catch (const FileError& error) {
    reason = error.what();
  }
  const std::string before = std::make_error_code(std::errc::io_error).message() + "\nThe whole content is in ";
  ASSERT_TRUE(reason.starts_with(before)) << reason;
  EXPECT_EQ(FileBytes(reason.substr(before.size())), "new");
}

TEST_F(SafeSaveTest, RefusesAFolderAndNoNameForAWholeFile) {
  EXPECT_THROW(SaveWholeFile(folder.Path(""), "new"), FileError);
  EXPECT_THROW(SaveWholeFile("", "new"), FileError);
}

} // namespace
} // namespace strutwright
