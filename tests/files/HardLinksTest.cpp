#include "AsUser.h"
#include "FakePlatform.h"
#include "FaultyFileSystem.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "modSafeSave.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;

const std::string OldModel = "the old model, a long one";

/// A file with two names, in two folders.
class HardLinksTest : public PlatformTest {
 protected:
  HardLinksTest() {
    ThePlatform().files = &files;
    fs::create_directory(folder.Path("lesson"));
    fs::create_directory(folder.Path("homework"));
    PutFile(path, OldModel);
    fs::create_hard_link(path, other);
  }

  void ExpectBoth(const std::string& content) {
    EXPECT_EQ(FileBytes(path), content);
    EXPECT_EQ(FileBytes(other), content);
    EXPECT_TRUE(disk.HasOtherNames(path));
  }

  /// The contents of all files in the folder of the saved one.
  std::vector<std::string> Contents() const {
    std::vector<std::string> contents;
    for (const auto& entry : fs::directory_iterator(folder.Path("lesson")))
      contents.push_back(FileBytes(Utf8Of(entry.path())));
    return contents;
  }

  void FailAt(int failing) {
    files.before = [failing](const std::string&, int number) {
      if (number == failing) throw FileError(std::make_error_code(std::errc::no_space_on_device));
    };
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  FaultyFileSystem files{disk};
  std::string path = folder.Path("lesson/model.stw");
  std::string other = folder.Path("homework/model.stw");
};

TEST_F(HardLinksTest, KeepBothNamesOfOneFile) {
  SaveBytes(path, "new");
  ExpectBoth("new old model, a long one");
  EXPECT_EQ(Contents().size(), 1U);
}

TEST_F(HardLinksTest, HoldNothingOfTheOldFileWhereItIsToBeReplaced) {
  SaveWholeFile(path, "new");
  ExpectBoth("new");
  EXPECT_EQ(Contents().size(), 1U);
}

TEST_F(HardLinksTest, AreCopiedOverOnlyWhenTheNewContentLiesOnTheDisk) {
  SaveBytes(path, "new");
  EXPECT_THAT(files.steps,
              ElementsAre("Kind", "FollowLinks", "Kind", "CheckWritable", "Read", "HasOtherNames", "Read",
                          "CreateBeside", "CopyMode", "Write", "Flush", "Write", "Resize", "Flush", "Remove"));
}

TEST_F(HardLinksTest, HoldTheOldModelAfterAFailureAtAnyStep) {
  SaveBytes(path, "a new model that is longer than the old one");
  const int steps = static_cast<int>(files.steps.size());
  for (int failing = 1; failing < steps; ++failing) {
    SaveWholeFile(path, OldModel);
    files.steps.clear();
    FailAt(failing);
    EXPECT_THROW(SaveBytes(path, "a new model that is longer than the old one"), FileError) << "step " << failing;
    files.before = nullptr;
    ExpectBoth(OldModel);
    EXPECT_EQ(Contents().size(), 1U) << "step " << failing;
  }
}

TEST_F(HardLinksTest, AreSavedThoughTheFileBesideThemCanNotBeRemoved) {
  files.before = [](const std::string& step, int) {
    if (step == "Remove") throw FileError(std::make_error_code(std::errc::permission_denied));
  };
  SaveBytes(path, "new");
  ExpectBoth("new old model, a long one");
}

TEST_F(HardLinksTest, LeaveTheNewModelBesideThemWhereTheOldOneCanNotBePutBack) {
  int writes = 0;
  files.before = [&writes](const std::string& step, int) {
    if (step == "Write" && ++writes > 1) throw FileError(std::make_error_code(std::errc::io_error));
  };
  std::string reason;
  try {
    SaveWholeFile(path, "new");
  } catch (const FileError& error) {
    reason = error.what();
  }
  const std::string said = "Input/output error\nThe whole content is in ";
  ASSERT_EQ(reason.substr(0, said.size()), said);
  EXPECT_EQ(FileBytes(reason.substr(said.size())), "new");
}

TEST_F(HardLinksTest, LoseNothingToAKillBeforeAnyStep) {
  const std::string fresh = "a new model that is longer than the old one";
  SaveBytes(path, fresh);
  const int steps = static_cast<int>(files.steps.size());
  for (int last = 1; last <= steps; ++last) {
    SaveWholeFile(path, OldModel);
    files.steps.clear();
    KillBefore(
        files, [last](const std::string&, int number) { return number == last; }, [&] { SaveBytes(path, fresh); });
    EXPECT_TRUE(disk.HasOtherNames(path)) << "killed before step " << last;
    if (FileBytes(path) == OldModel) continue;
    EXPECT_THAT(Contents(), Contains(fresh)) << "killed before step " << last;
  }
}

TEST_F(HardLinksTest, AreWrittenInPlaceWhereTheFolderTakesNoSecondFile) {
  files.before = [](const std::string& step, int) {
    if (step == "CreateBeside") throw FileError(std::make_error_code(std::errc::read_only_file_system));
  };
  SaveBytes(path, "new");
  ExpectBoth("new old model, a long one");
}

} // namespace
} // namespace strutwright
