#include "EventsTest.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "modPlaces.h"

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(LastComponentTest, StandsAfterTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(LastComponent("C:\\models\\bridge.stw"), "bridge.stw");
  EXPECT_EQ(LastComponent("/home/ada/bridge.stw"), "bridge.stw");
  EXPECT_EQ(LastComponent("C:\\models/roofs\\bridge.stw"), "bridge.stw");
  EXPECT_EQ(LastComponent("C:\\models\\roofs/bridge.stw"), "bridge.stw");
}

TEST(LastComponentTest, MayBeAllOrNothing) {
  EXPECT_EQ(LastComponent("bridge.stw"), "bridge.stw");
  EXPECT_EQ(LastComponent("/home/ada/"), "");
  EXPECT_EQ(LastComponent(""), "");
}

class OwnFileTest : public EventsTest {
 protected:
  OwnFileTest() {
    ThePlatform().files = &disk;
    ThePlatform().dataFolder = folder.Path("share/strutwright");
  }

  ScratchFolder folder;
  NativeFileSystem disk;
};

TEST_F(OwnFileTest, LiesInTheProgramsFolder) {
  ThePlatform().programFolder = folder.Root();
  EXPECT_EQ(OwnFile("newTruss.stw"), folder.Path("newTruss.stw"));
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(OwnFileTest, HasANameEvenWhereNoFolderTakesIt) {
  PutFile(folder.Path("file"), "");
  ThePlatform().programFolder = folder.Path("file/bin");
  ThePlatform().dataFolder = folder.Path("file/share");
  EXPECT_EQ(OwnFile("newTruss.stw"), folder.Path("file/share/newTruss.stw"));
}

TEST_F(OwnFileTest, LiesInTheDataFolderWhereTheProgramsTakesNone) {
  ThePlatform().programFolder = folder.Path("missing");
  EXPECT_EQ(OwnFile("newTruss.stw"), folder.Path("share/strutwright/newTruss.stw"));
  EXPECT_TRUE(std::filesystem::is_directory(folder.Path("share/strutwright")));
}

TEST(CompanionProgramTest, HasTheNameThatWindowsGivesItThere) {
  EXPECT_EQ(CompanionProgram("C:\\Apps", '\\'), "C:\\Apps\\Bracefold.exe");
}

TEST(CompanionProgramTest, HasItsPlainNameElsewhere) {
  EXPECT_EQ(CompanionProgram("/opt/truss", '/'), "/opt/truss/bracefold");
}

TEST(MainProgramTest, LiesInTheSameFolder) {
  EXPECT_EQ(MainProgram("/opt/truss", '/'), "/opt/truss/strutwright");
  EXPECT_EQ(MainProgram("C:\\Apps", '\\'), "C:\\Apps\\Strutwright.exe");
}

} // namespace
} // namespace strutwright
