#include "NativePlaces.h"
#include "ScratchFolder.h"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(UserDataFolderTest, IsInTheFolderForSettingsOfPrograms) {
  const char* const settings = std::getenv("APPDATA");
  ASSERT_NE(settings, nullptr);
  EXPECT_EQ(UserDataFolder(), std::string(settings) + "\\strutwright");
}

TEST(IconPathTest, IsTheIconBesideTheProgram) {
  const ScratchFolder folder;
  PutFile(folder.Path("strutwright.exe"), "");
  PutFile(folder.Path("Strutwright.ico"), "");
  EXPECT_EQ(IconPath(folder.Path("")), folder.Path("Strutwright.ico"));
}

TEST(IconPathTest, IsThatInTheProgramOtherwise) {
  const ScratchFolder folder;
  PutFile(folder.Path("strutwright.exe"), "");
  EXPECT_EQ(IconPath(folder.Root()), folder.Path("strutwright.exe"));
}

TEST(IconPathTest, IsTheUsualOneWhereNeitherIsThere) { EXPECT_EQ(IconPath("C:\\Apps"), "C:\\Apps\\Strutwright.ico"); }

} // namespace
} // namespace strutwright
