// The pages that the build makes of the manual's chapters.

#include "TreeFiles.h"

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

const fs::path Pages = fs::path(BINARY_DIR) / "docs/manual";

std::vector<std::string> NamesOfChapters() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_DIR) / "docs/manual")) {
    if (entry.path().extension() == ".md") names.push_back(entry.path().stem().string());
  }
  return names;
}

/// What a page links or shows.
std::vector<std::string> PageTargets(const std::string& page) {
  static const std::regex target(R"re((?:href|src)="([^"#]+)[^"]*")re");
  return Matches(page, target);
}

TEST(PageTest, IsMadeOfEveryChapter) {
  for (const std::string& name : NamesOfChapters()) {
    const std::string page = TextOf(Pages / (name + ".html"));
    EXPECT_THAT(page, StartsWith("<!DOCTYPE html>")) << name;
    EXPECT_TRUE(std::regex_search(page, std::regex("<title>[A-Z][^<]+</title>"))) << name;
  }
}

TEST(PageTest, LeadsToPagesAndPictures) {
  int found = 0;
  for (const std::string& name : NamesOfChapters()) {
    for (const std::string& target : PageTargets(TextOf(Pages / (name + ".html")))) {
      if (target.starts_with("../")) continue; // lies beside the manual where the program is installed
      ++found;
      EXPECT_TRUE(fs::exists(Pages / target)) << name << " leads to " << target;
    }
  }
  EXPECT_GT(found, 70);
}

TEST(PageTest, HasTables) { EXPECT_THAT(TextOf(Pages / "keys.html"), HasSubstr("<td>Ctrl+Shift+S</td>")); }

} // namespace
} // namespace strutwright
