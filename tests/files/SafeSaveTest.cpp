#include "AsUser.h"
#include "EventsTest.h"
#include "FaultyFileSystem.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "modModelFile.h"
#include "modModelStore.h"
#include "modSafeSave.h"

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>

#include <sys/mount.h>
#include <sys/stat.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class SafeSaveTest : public EventsTest {
 protected:
  SafeSaveTest() {
    ThePlatform().files = &files;
    ResetModel();
  }

  std::string ExistingFile(const std::string& bytes) {
    PutFile(path, bytes);
    return path;
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  FaultyFileSystem files{disk};
  std::string path = folder.Path("model.stw");
};

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

TEST_F(SafeSaveTest, KeepsTheMode) {
  ExistingFile("old");
  fs::permissions(path, fs::perms(0640));
  SaveBytes(path, "new");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST_F(SafeSaveTest, GivesANewFileTheUsualMode) {
  const mode_t mask = umask(022);
  SaveBytes(path, "new");
  umask(mask);
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0644));
}

TEST_F(SafeSaveTest, FollowsSymbolicLinks) {
  fs::create_directory(folder.Path("elsewhere"));
  PutFile(folder.Path("elsewhere/real.stw"), "old and longer");
  fs::create_symlink("elsewhere/real.stw", path);

  SaveBytes(path, "new");

  EXPECT_TRUE(fs::is_symlink(path));
  EXPECT_EQ(FileBytes(folder.Path("elsewhere/real.stw")), "new and longer");
}

TEST_F(SafeSaveTest, CreatesTheTargetOfADanglingLink) {
  fs::create_symlink("real.stw", path);
  SaveBytes(path, "new");
  EXPECT_EQ(FileBytes(folder.Path("real.stw")), "new");
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
    files.before = [last](const std::string&, int number) {
      if (number == last) raise(SIGKILL);
    };
    InChildProcess([&] { SaveBytes(path, "the new one.."); });
    EXPECT_EQ(FileBytes(path), "the old model") << "killed before step " << last;
  }
}

TEST_F(SafeSaveTest, SavesAgainAfterAKill) {
  ExistingFile("the old model");
  files.before = [](const std::string& step, int) {
    if (step == "Replace") raise(SIGKILL);
  };
  InChildProcess([&] { SaveBytes(path, "the new one.."); });
  files.before = nullptr;

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

TEST_F(SafeSaveTest, WritesADeviceInPlace) {
  EXPECT_NO_THROW(SaveBytes("/dev/null", "new"));
  EXPECT_EQ(disk.Kind("/dev/null"), FileKind::Special);
}

TEST_F(SafeSaveTest, ReportsAFullDevice) {
  try {
    SaveBytes("/dev/full", "new");
    FAIL() << "nothing was thrown";
  } catch (const FileError& error) {
    EXPECT_STREQ(error.what(), "No space left on device");
  }
}

/// Tries to save as an ordinary user: 0 saved, 1 refused for want of permission, 2 anything else.
int SaveAsUser(const std::string& file) {
  return AsUnprivilegedUser([&file] {
    try {
      SaveBytes(file, "new");
      return 0;
    } catch (const FileError& error) {
      return error.code == std::errc::permission_denied ? 1 : 2;
    }
  });
}

TEST_F(SafeSaveTest, RefusesAReadOnlyFileThoughItsFolderCouldTakeANewOne) {
  ExistingFile("the old model");
  fs::permissions(path, fs::perms(0444));
  EXPECT_EQ(SaveAsUser(path), 1);
  EXPECT_EQ(FileBytes(path), "the old model");
}

TEST_F(SafeSaveTest, WritesInPlaceWhereTheFolderTakesNoSecondFile) {
  ExistingFile("the old model");
  fs::permissions(path, fs::perms(0666));
  fs::permissions(folder.Root(), fs::perms(0555));
  EXPECT_EQ(SaveAsUser(path), 0);
  EXPECT_EQ(FileBytes(path), "new old model");
}

TEST_F(SafeSaveTest, CannotCreateAFileInAFolderThatTakesNone) {
  fs::permissions(folder.Root(), fs::perms(0555));
  EXPECT_EQ(SaveAsUser(path), 1);
}

TEST_F(SafeSaveTest, LeavesTheOldFileWholeOnAFullDisk) {
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

TEST_F(SafeSaveTest, WritesAFileThatMayNotBeRead) {
  ExistingFile("the old model");
  fs::permissions(path, fs::perms(0222));
  EXPECT_EQ(SaveAsUser(path), 0);
  fs::permissions(path, fs::perms(0644));
  EXPECT_EQ(FileBytes(path), "new old model");
}

TEST_F(SafeSaveTest, NeverShowsOthersAPrivateModel) {
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

TEST_F(SafeSaveTest, RefusesAFolderAndNoNameForAWholeFile) {
  EXPECT_THROW(SaveWholeFile(folder.Path(""), "new"), FileError);
  EXPECT_THROW(SaveWholeFile("", "new"), FileError);
}

TEST_F(SafeSaveTest, WritesAPipeBehindALink) {
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
