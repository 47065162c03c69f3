#include "NativePlaces.h"
#include "Utf8Path.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(ExecutablePathTest, IsThisProgram) {
  EXPECT_EQ(PathOf(ExecutablePath()).stem(), "test_platform");
  EXPECT_TRUE(PathOf(ExecutablePath()).is_absolute());
}

TEST(ExecutableFolderTest, HoldsThisProgram) {
  EXPECT_EQ(PathOf(ExecutableFolder()), PathOf(ExecutablePath()).parent_path());
  EXPECT_TRUE(std::filesystem::exists(PathOf(ExecutablePath())));
}

} // namespace
} // namespace strutwright
