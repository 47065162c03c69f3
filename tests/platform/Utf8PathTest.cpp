#include "Utf8Path.h"
#include "PathSpelling.h"
#include "ScratchFolder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(Utf8PathTest, KeepsNamesOfEveryLanguage) {
  const std::string name = "Brücke 桥 🏗.stw";
  EXPECT_EQ(Utf8Of(PathOf(name)), name);
  EXPECT_EQ(PathOf(name).native().size(), std::filesystem::path(u8"Brücke 桥 🏗.stw").native().size());
  EXPECT_EQ(Utf8Of(PathOf("folder/" + name).filename()), name);
}

TEST(Utf8PathTest, TidiesAPath) {
  const std::string separator(1, static_cast<char>(std::filesystem::path::preferred_separator));
  EXPECT_EQ(TidyPath("a/./b/../c.stw"), "a" + separator + "c.stw");
  EXPECT_EQ(TidyPath(""), "");
}

TEST(Utf8PathTest, KnowsTheSystemsSeparators) {
  EXPECT_TRUE(IsPathSeparator('/'));
  EXPECT_EQ(IsPathSeparator('\\'), std::filesystem::path::preferred_separator == '\\');
  EXPECT_FALSE(IsPathSeparator(':'));
}

class PathSpellingTest : public testing::Test {
 protected:
  ScratchFolder folder;
};

TEST_F(PathSpellingTest, HasTheSeparatorsOfTheSystem) {
  EXPECT_EQ(NativePath("a/b"), HasBackslashPaths ? "a\\b" : "a/b");
  EXPECT_EQ(NativePath("a\\b"), "a\\b");
  EXPECT_EQ(NativePath(""), "");
}

TEST_F(PathSpellingTest, TellsAFileByItsLettersOrWhereWindowsDoesSoByTheFile) {
  const std::string path = folder.Path("Bridge.stw");
  PutFile(path, "");
  PutFile(folder.Path("other.stw"), "");
  std::filesystem::create_directory(folder.Path("lesson"));
  EXPECT_TRUE(NameOneFile(path, path));
  EXPECT_FALSE(NameOneFile(path, folder.Path("other.stw")));
  EXPECT_FALSE(NameOneFile(path, ""));
  for (const char* spelling : {"bridge.STW", "lesson/../Bridge.stw", "./Bridge.stw"}) {
    EXPECT_EQ(NameOneFile(path, folder.Root() + "/" + spelling), HasBackslashPaths) << spelling;
  }
}

TEST_F(PathSpellingTest, TellsAMissingFileByItsName) {
  EXPECT_EQ(NameOneFile(folder.Path("Bridge.stw"), folder.Path("BRIDGE.stw")), HasBackslashPaths);
  EXPECT_EQ(NameOneFile("/models/a[1].stw", "/models/a[1].stw"), true);
  EXPECT_FALSE(NameOneFile(folder.Path("a[.stw"), folder.Path("a{.stw")));
  EXPECT_FALSE(NameOneFile(folder.Path("a.stw"), folder.Path("a.stw2")));
}

} // namespace
} // namespace strutwright
