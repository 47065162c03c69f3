#include "EventsTest.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "modManual.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class ManualTest : public EventsTest {
 protected:
  ManualTest() {
    ThePlatform().files = &disk;
    InstallProgramIn("usr/bin");
  }

  void InstallProgramIn(const std::string& place) {
    ThePlatform().programFolder = folder.Path(place);
    fs::create_directories(folder.Path(place));
  }

  std::string PutPage(const std::string& place) const {
    const std::string path = folder.Path(place);
    fs::create_directories(fs::path(path).parent_path());
    PutFile(path, "<html></html>");
    return path;
  }

  ScratchFolder folder;
  NativeFileSystem disk;
};

TEST_F(ManualTest, FindsAnInstalledPage) {
  const std::string page = PutPage("usr/share/doc/strutwright/manual/signs.html");
  EXPECT_EQ(ManualPage("signs"), page);
  EXPECT_EQ(ManualPage("keys"), "");
}

TEST_F(ManualTest, FindsAPageInTheTreeThatTheProgramWasBuiltIn) {
  InstallProgramIn("build/dev/src/app");
  const std::string page = PutPage("build/dev/docs/manual/index.html");
  const std::string found = ManualPage("index");
  ASSERT_NE(found, "");
  EXPECT_TRUE(fs::equivalent(found, page));
}

TEST_F(ManualTest, FindsAPageBesideTheProgram) {
  const std::string page = PutPage("usr/bin/manual/signs.html");
  EXPECT_EQ(ManualPage("signs"), page);
}

TEST_F(ManualTest, PrefersTheInstalledPage) {
  InstallProgramIn("build/dev/src/app");
  PutPage("build/dev/docs/manual/index.html");
  const std::string installed = PutPage("build/dev/src/share/doc/strutwright/manual/index.html");
  EXPECT_EQ(ManualPage("index"), installed);
}

TEST_F(ManualTest, TakesNoFolderForAPage) {
  fs::create_directories(folder.Path("usr/share/doc/strutwright/manual/index.html"));
  EXPECT_EQ(ManualPage("index"), "");
}

TEST_F(ManualTest, OpensAPageWithoutAWord) {
  const std::string page = PutPage("usr/share/doc/strutwright/manual/keys.html");
  OpenManualPage("keys");
  EXPECT_THAT(shell.opened, ElementsAre(page));
}

TEST_F(ManualTest, SaysWhereAMissingPageWouldBe) {
  OpenManualPage("index");
  EXPECT_THAT(shell.opened, IsEmpty());
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information,
                                              "The manual is not installed with this copy of the program.\n"
                                              "It would be at " +
                                                  folder.Path("usr/share/doc/strutwright/manual/index.html") + ".")));
}

} // namespace
} // namespace strutwright
