#include "FakePlatform.h"
#include "FileState.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "modExamples.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A program with examples b, a and c beside it.
class ExampleListTest : public PlatformTest {
 protected:
  ExampleListTest() {
    ThePlatform().files = &disk;
    ThePlatform().programFolder = folder.Root();
    std::filesystem::create_directory(folder.Path("examples"));
    for (const char* name : {"b.stw", "a.stw", "c.stw", "a.csv", "README.md"}) PutFile(InExamples(name), "");
  }

  std::string InExamples(const std::string& name) const { return folder.Path("examples/" + name); }

  static std::vector<std::string> Titles() {
    std::vector<std::string> titles;
    for (const Example& each : Examples()) titles.push_back(each.title);
    return titles;
  }

  ScratchFolder folder;
  NativeFileSystem disk;
};

TEST_F(ExampleListTest, IsAlphabeticalAndBearsFileNamesWithoutAnIndex) {
  EXPECT_THAT(Titles(), ElementsAre("a.stw", "b.stw", "c.stw"));
  EXPECT_EQ(Examples()[0].path, InExamples("a.stw"));
  EXPECT_EQ(Examples()[0].tip, "");
}

TEST_F(ExampleListTest, IsInTheOrderOfTheIndexAndBearsItsTitles) {
  PutFile(InExamples("index.txt"), "c | Third, 9 m | Shows c\na|First|Shows a\nb | Second | Shows b\n");

  EXPECT_THAT(Titles(), ElementsAre("Third, 9 m", "First", "Second"));
  EXPECT_EQ(Examples()[0].path, InExamples("c.stw"));
  EXPECT_EQ(Examples()[0].tip, "Shows c");
}

TEST_F(ExampleListTest, EndsWithWhatTheIndexDoesNotName) {
  PutFile(InExamples("index.txt"), "b | Second | Shows b\n");
  EXPECT_THAT(Titles(), ElementsAre("Second", "a.stw", "c.stw"));
}

TEST_F(ExampleListTest, LeavesOutLinesOfMissingModelsAndOfAnotherForm) {
  PutFile(InExamples("index.txt"),
          "d | Missing | Shows d\n\na | No tip\na | | no title\nb | Second | Shows b\r\nb | Twice | Shows b\n");
  EXPECT_THAT(Titles(), ElementsAre("Second", "a.stw", "c.stw"));
  EXPECT_EQ(Examples()[0].tip, "Shows b");
}

TEST_F(ExampleListTest, IsEmptyWithoutModels) {
  std::filesystem::remove_all(folder.Path("examples"));
  std::filesystem::create_directory(folder.Path("examples"));
  PutFile(InExamples("index.txt"), "a | First | Shows a\n");
  EXPECT_THAT(Titles(), IsEmpty());
}

} // namespace
} // namespace strutwright
