#include "AsUser.h"
#include "DesktopFixture.h"
#include "FaultyFileSystem.h"

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
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class DesktopFileTypesTest : public DesktopTest {
 protected:
  /// Runs the program for the first time.
  void FirstRun() {
    DesktopFileTypes types(faulty, Places(), [this](const std::string& data) { renewed.push_back(data); });
    if (!types.IsInstalled("Strutwright.File", ".stw", program)) Associate(types);
  }

  /// What the index tools make of the package.
  void MakeIndex() const {
    fs::create_directories(Data("mime/application"));
    PutFile(Data("mime/application/x-strutwright.xml"), "");
  }

  /// Puts the program where a package puts it.
  void Install() {
    program = folder.Path("usr/bin/strutwright");
    PutProgram(program);
    fs::create_directories(folder.Path("usr/share/applications"));
    fs::create_directories(folder.Path("usr/share/mime/packages"));
    PutFile(folder.Path("usr/share/applications/strutwright.desktop"), "");
    PutFile(folder.Path("usr/share/mime/packages/strutwright.xml"), "");
  }

  FaultyFileSystem faulty{files};
  std::vector<std::string> renewed; ///< data folders whose indexes were renewed
};

TEST_F(DesktopFileTypesTest, DescribesTypeAndProgramInAFreshHome) {
  FirstRun();
  EXPECT_THAT(FileBytes(Data("mime/packages/strutwright.xml")), HasSubstr("<comment>Strutwright File</comment>"));
  EXPECT_THAT(FileBytes(Data("mime/packages/strutwright.xml")), HasSubstr("\"*.stw\""));
  EXPECT_THAT(FileBytes(Data("applications/strutwright.desktop")), HasSubstr("\nExec=" + program + " --open %f\n"));
  EXPECT_EQ(FileBytes(Data("icons/hicolor/scalable/apps/strutwright.svg")), "<svg/>");
  EXPECT_EQ(FileBytes(Data("icons/hicolor/scalable/mimetypes/application-x-strutwright.svg")), "<svg/>");
  EXPECT_EQ(FileBytes(Home(".config/mimeapps.list")),
            "[Default Applications]\napplication/x-strutwright=strutwright.desktop\n");
  EXPECT_THAT(renewed, ElementsAre(Home(".local/share")));
}

TEST_F(DesktopFileTypesTest, WritesNothingBeforeTheAnnouncement) {
  DesktopFileTypes types(files, Places(), StartIndexTools);
  types.SetDefault(".stw", "Strutwright.File");
  EXPECT_FALSE(fs::exists(Home("")));
}

TEST_F(DesktopFileTypesTest, WritesNothingWithoutAnExtension) {
  DesktopFileTypes types(files, Places(), StartIndexTools);
  types.SetDefault("Strutwright.File", "Strutwright File");
  types.SetDefault("", "Strutwright.File");
  types.Announce();
  EXPECT_FALSE(fs::exists(Home("")));
}

TEST_F(DesktopFileTypesTest, LeavesWhatIsRight) {
  FirstRun();
  MakeIndex();
  renewed.clear();
  faulty.steps.clear();
  FirstRun();
  EXPECT_THAT(faulty.steps, Not(Contains("CreateBeside")));
  EXPECT_THAT(renewed, IsEmpty());
}

TEST_F(DesktopFileTypesTest, LetsTheToolsTryAgainWhereTheyMadeNoIndex) {
  FirstRun();
  FirstRun();
  EXPECT_EQ(renewed.size(), 2U);
}

TEST_F(DesktopFileTypesTest, FollowsAProgramThatHasMoved) {
  FirstRun();
  MakeIndex();
  renewed.clear();
  program = folder.Path("elsewhere/strutwright");
  FirstRun();
  EXPECT_THAT(FileBytes(Data("applications/strutwright.desktop")), HasSubstr("\nExec=" + program + " --open %f\n"));
  EXPECT_EQ(renewed.size(), 1U);
}

TEST_F(DesktopFileTypesTest, DoesWithoutAnIcon) {
  fs::remove(icon);
  FirstRun();
  EXPECT_FALSE(fs::exists(Data("icons")));
  EXPECT_TRUE(fs::exists(Data("applications/strutwright.desktop")));
}

TEST_F(DesktopFileTypesTest, KeepsListAndModeAndLinkOfTheUsersDefaults) {
  fs::create_directories(Home(".config"));
  PutFile(Home("dotfile"), "[Default Applications]\ntext/plain=vim.desktop\n");
  fs::permissions(Home("dotfile"), fs::perms(0600));
  fs::create_symlink(Home("dotfile"), Home(".config/mimeapps.list"));
  FirstRun();
  EXPECT_EQ(FileBytes(Home("dotfile")), "[Default Applications]\napplication/x-strutwright=strutwright.desktop\n"
                                        "text/plain=vim.desktop\n");
  EXPECT_EQ(fs::status(Home("dotfile")).permissions(), fs::perms(0600));
  EXPECT_TRUE(fs::is_symlink(Home(".config/mimeapps.list")));
}

TEST_F(DesktopFileTypesTest, WaitsForTheDiskOnlyWhereThereIsSomethingToLose) {
  FirstRun();
  EXPECT_THAT(faulty.steps, Not(Contains("Flush")));
  PutFile(Home(".config/mimeapps.list"), "[Default Applications]\ntext/plain=vim.desktop\n");
  FirstRun();
  EXPECT_THAT(faulty.steps, Contains("Flush"));
}

TEST_F(DesktopFileTypesTest, LeavesTheApplicationThatTheUserChose) {
  fs::create_directories(Home(".config"));
  PutFile(Home(".config/mimeapps.list"), "[Default Applications]\napplication/x-strutwright=vim.desktop\n");
  FirstRun();
  EXPECT_EQ(FileBytes(Home(".config/mimeapps.list")),
            "[Default Applications]\napplication/x-strutwright=vim.desktop\n");
}

TEST_F(DesktopFileTypesTest, LeavesWhatAPackageHasRegistered) {
  Install();
  FirstRun();
  EXPECT_FALSE(fs::exists(Home("")));
  EXPECT_THAT(renewed, IsEmpty());
}

TEST_F(DesktopFileTypesTest, LeavesItAlsoToACopyBesideTheInstalledProgram) {
  Install();
  program = folder.Path("opt/truss/strutwright");
  FirstRun();
  EXPECT_FALSE(fs::exists(Home("")));
}

TEST_F(DesktopFileTypesTest, TakesHalfARegistrationForNone) {
  Install();
  fs::remove(folder.Path("usr/share/mime/packages/strutwright.xml"));
  FirstRun();
  EXPECT_TRUE(fs::exists(Data("applications/strutwright.desktop")));
}

TEST_F(DesktopFileTypesTest, LeavesWhatAnInstallationForThisUserHasBrought) {
  program = Home(".local/bin/strutwright");
  PutProgram(program);
  fs::create_directories(Data("applications"));
  fs::create_directories(Data("mime/packages"));
  PutFile(Data("applications/strutwright.desktop"), "installed");
  PutFile(Data("mime/packages/strutwright.xml"), "installed");
  FirstRun();
  EXPECT_EQ(FileBytes(Data("applications/strutwright.desktop")), "installed");
  EXPECT_EQ(FileBytes(Data("mime/packages/strutwright.xml")), "installed");
  EXPECT_FALSE(fs::exists(Home(".config")));
}

TEST_F(DesktopFileTypesTest, TurnsAnEntryOfAnotherCopyToTheInstalledProgram) {
  FirstRun();
  Install();
  FirstRun();
  EXPECT_THAT(FileBytes(Data("applications/strutwright.desktop")), HasSubstr("\nExec=" + program + " --open %f\n"));
}

TEST_F(DesktopFileTypesTest, LeavesEveryOldFileWholeAfterAFailureAtAnyStep) {
  FirstRun();
  program = folder.Path("elsewhere/strutwright");
  const int steps = static_cast<int>(faulty.steps.size());
  for (int failing = 1; failing <= steps; ++failing) {
    faulty.steps.clear();
    faulty.before = [failing](const std::string&, int number) {
      if (number == failing) throw FileError(std::make_error_code(std::errc::no_space_on_device));
    };
    FirstRun();
    EXPECT_THAT(FileBytes(Data("applications/strutwright.desktop")), HasSubstr("MimeType=")) << "step " << failing;
    EXPECT_THAT(FileBytes(Home(".config/mimeapps.list")), HasSubstr("=strutwright.desktop\n")) << "step " << failing;
  }
}

TEST_F(DesktopFileTypesTest, LeavesNoTemporaryFileAfterAFullDisk) {
  faulty.before = [](const std::string& step, int) {
    if (step == "Write") throw FileError(std::make_error_code(std::errc::no_space_on_device));
  };
  FirstRun();
  for (const auto& entry : fs::recursive_directory_iterator(Home(""))) EXPECT_TRUE(entry.is_directory()) << entry;
}

TEST_F(DesktopFileTypesTest, SaysNothingInAHomeThatTakesNoFiles) {
  fs::create_directory(Home(""));
  fs::permissions(Home(""), fs::perms(0555));
  const int failed = AsUnprivilegedUser([this] {
    FirstRun();
    return 0;
  });
  EXPECT_EQ(failed, 0);
  EXPECT_TRUE(fs::is_empty(Home("")));
}

TEST_F(DesktopFileTypesTest, NeverWritesOverAListThatItCanNotRead) {
  fs::create_directories(Home(".config/mimeapps.list"));
  FirstRun();
  EXPECT_TRUE(fs::is_directory(Home(".config/mimeapps.list")));
  EXPECT_TRUE(fs::exists(Data("applications/strutwright.desktop")));
}

} // namespace
} // namespace strutwright
