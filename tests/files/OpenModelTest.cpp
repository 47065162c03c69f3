#include "AsUser.h"
#include "EventsTest.h"
#include "FileState.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "RecentFiles.h"
#include "ScratchFolder.h"
#include "modColumns.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modModelStore.h"

#include <bit>
#include <limits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class OpenModelTest : public EventsTest {
 protected:
  OpenModelTest() {
    ThePlatform().files = &disk;
    ResetModel();
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
    CurrentFileName = "/before.stw";
  }

  /// Saves a triangle with this capacity and leaves a square open in its place.
  std::string SavedTriangle(std::int16_t capacity = 20) {
    SetModel(Triangle());
    GridCapacity = capacity;
    PutFile(path, WriteModel());
    GridCapacity = 100;
    SetModel(Square());
    return path;
  }

  void ExpectRefused(const std::string& file) {
    SetModel(Square());
    const FieldTable nodes = NodeTable;
    const std::string cell = GrJoints.Text(3, 1);
    GridCapacity = 0;

    EXPECT_FALSE(openModel(file));

    EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::None, "Unkown error while opening file " + file)));
    EXPECT_EQ(NodeTable, nodes);
    EXPECT_EQ(NodeCount, 4);
    EXPECT_EQ(GrJoints.Text(3, 1), cell);
    EXPECT_EQ(GridCapacity, 0);
    EXPECT_EQ(CurrentFileName, "");
  }

  ScratchFolder folder;
  NativeFileSystem disk;
  std::string path = folder.Path("model.stw");
};

TEST_F(OpenModelTest, MakesTheFilesModelTheOpenOne) {
  ASSERT_TRUE(openModel(SavedTriangle()));
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(NodeTable(3, NodeForceY), -10.0F);
  EXPECT_EQ(GrJoints.RowCount(), 4);
  EXPECT_EQ(GrJoints.Text(3, NodeForceY), "-10");
  EXPECT_EQ(CurrentFileName, path);
}

TEST_F(OpenModelTest, TakesTheCapacityFromTheFile) {
  ASSERT_TRUE(openModel(SavedTriangle(300)));
  EXPECT_EQ(GridCapacity, 300);
}

TEST_F(OpenModelTest, ReadsOnlyTheModelOfALargerFile) {
  SavedTriangle();
  PutFile(path, FileBytes(path) + std::string(5000, 'z'));
  ASSERT_TRUE(openModel(path));
  EXPECT_EQ(MemberCount, 3);
}

TEST_F(OpenModelTest, ReportsHowMuchOfAShortFileWasThere) {
  SavedTriangle();
  PutFile(path, FileBytes(path).substr(0, 6 + 4 * 10 + 3));
  ASSERT_TRUE(openModel(path));
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information,
                                              "The file " + path +
                                                  " is damaged.\n"
                                                  "Only 10 of its 64 values are there; the others are read as zero.")));
  EXPECT_EQ(NodeCount, 3);
}

TEST_F(OpenModelTest, CountsValuesThatAreNotFiniteInTheSameBox) {
  SavedTriangle();
  std::string bytes = FileBytes(path).substr(0, 6 + 4 * 10);
  const auto infinity = std::bit_cast<std::uint32_t>(std::numeric_limits<float>::infinity());
  for (std::size_t i = 0; i < 4; ++i) bytes[30 + i] = static_cast<char>((infinity >> (8 * i)) & 0xFFU);
  PutFile(path, bytes);
  ASSERT_TRUE(openModel(path));
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information,
                                              "The file " + path +
                                                  " is damaged.\n"
                                                  "Only 10 of its 64 values are there; the others are read as zero.\n"
                                                  "Not finite numbers and read as zero: 1 of its 64 values.")));
  EXPECT_EQ(GrJoints.Text(2, 1), "0");
}

TEST_F(OpenModelTest, RefusesWhatHoldsNoCounts) {
  for (std::size_t length = 0; length < 6; ++length) {
    PutFile(path, std::string(length, '\1'));
    ExpectRefused(path);
  }
}

TEST_F(OpenModelTest, RefusesNegativeCounts) {
  PutFile(path, std::string("\x14\0\xFF\xFF\x03\0", 6) + std::string(500, '\0'));
  ExpectRefused(path);
  PutFile(path, std::string("\x14\0\x03\0\xFF\xFF", 6) + std::string(500, '\0'));
  ExpectRefused(path);
}

TEST_F(OpenModelTest, RefusesAMissingFileAndDoesNotCreateIt) {
  ExpectRefused(folder.Path("missing.stw"));
  EXPECT_FALSE(fs::exists(folder.Path("missing.stw")));
}

TEST_F(OpenModelTest, RefusesAFolder) { ExpectRefused(folder.Root()); }

TEST_F(OpenModelTest, ShowsThatGarbageIsDamaged) {
  SetModel(Square());
  PutFile(path, "This is no model, but a letter to a friend.\n");
  // "Th", "is" and " i" are its three counts.
  EXPECT_TRUE(openModel(path));
  EXPECT_EQ(NodeCount, 29545);
  EXPECT_THAT(
      TakeMessages(),
      ElementsAre(Box(MessageIcon::Information,
                      "The file " + path +
                          " is damaged.\nOnly 9 of its 446406 values are there; the others are read as zero.")));
}

TEST_F(OpenModelTest, OpensTheLargestModelWhole) {
  std::string bytes("\x14\0\xFF\x7F\xFF\x7F", 6);
  bytes.resize(6 + std::size_t{24} * 32768 + std::size_t{40} * 32768);
  PutFile(path, bytes);
  WriteHeadings(GrJoints, JointColumns);
  WriteHeadings(GrMembers, MemberColumns);
  EXPECT_TRUE(openModel(path)); // and no box says that values are missing
  EXPECT_EQ(NodeCount, 32767);
  EXPECT_EQ(MemberCount, 32767);
}

TEST_F(OpenModelTest, GivesTheReasonToWhoAsks) {
  std::string reason;
  EXPECT_FALSE(openModel(folder.Path("missing.stw"), &reason));
  TakeMessages();
  EXPECT_EQ(reason, "No such file or directory");
}

TEST_F(OpenModelTest, RefusesAFileThatTheUserMayNotRead) {
  SavedTriangle();
  const UnreadableFile unreadable(path);
  EXPECT_EQ(AsUnprivilegedUser([&] { return openModel(path) ? 1 : static_cast<int>(TakeMessages().size()) - 1; }), 0);
}

} // namespace
} // namespace strutwright
