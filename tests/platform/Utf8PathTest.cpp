#include "Utf8Path.h"

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

} // namespace
} // namespace strutwright
