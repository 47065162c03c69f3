#include "AnalysisState.h"
#include "AsUser.h"
#include "FakePlatform.h"
#include "FileState.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "modFileCommands.h"
#include "modModelFile.h"
#include "modModelStore.h"
#include "modRecovery.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

struct RowCounts {
  int nodes;
  int members;
};

/// Models of as many rows as the grids may have, and of the counts on both sides of what an analysis takes.
class EveryRowCountTest : public PlatformTest, public testing::WithParamInterface<RowCounts> {
 protected:
  EveryRowCountTest() {
    ThePlatform().files = &disk;
    ThePlatform().programFolder = folder.Root();
    ThePlatform().dataFolder = folder.Path("data");
    StartRun();
  }
  ~EveryRowCountTest() override {
    StartRun();
    TheModel = ModelState{};
  }

  /// Starts a run of the program with an empty model.
  static void StartRun() {
    TheFiles = FileState{};
    TheAnalysis = AnalysisState{};
    ResetModel();
    SetModel({});
  }

  /// Puts rows into the grids, as a paste does; each holds numbers of its own.
  static void EnterRows() {
    GrJoints.SetRowCount(GetParam().nodes + 1);
    for (int row = 1; row <= GetParam().nodes; ++row) {
      GrJoints.SetText(row, NodeX, std::to_string(row));
      GrJoints.SetText(row, NodeForceY, std::to_string(-row));
    }
    GrMembers.SetRowCount(GetParam().members + 1);
    for (int row = 1; row <= GetParam().members; ++row) {
      GrMembers.SetText(row, MemberNodeI, std::to_string(row));
      GrMembers.SetText(row, MemberPS, std::to_string(2 * row));
    }
  }

  static void ExpectRows() {
    ASSERT_EQ(NodeCount, GetParam().nodes);
    ASSERT_EQ(MemberCount, GetParam().members);
    ASSERT_EQ(GrJoints.RowCount(), GetParam().nodes + 1);
    ASSERT_EQ(GrMembers.RowCount(), GetParam().members + 1);
    for (int row = 1; row <= GetParam().nodes; ++row) {
      ASSERT_EQ(GrJoints.Text(row, NodeX), std::to_string(row));
      ASSERT_EQ(NodeTable(row, NodeForceY), static_cast<float>(-row));
    }
    for (int row = 1; row <= GetParam().members; ++row) {
      ASSERT_EQ(GrMembers.Text(row, MemberNodeI), std::to_string(row));
      ASSERT_EQ(MemberTable(row, MemberPS), static_cast<float>(2 * row));
    }
  }

  ScratchFolder folder;
  NativeFileSystem disk;
};

TEST_P(EveryRowCountTest, OpensAsItWasSaved) {
  EnterRows();
  dialog.WillChoose(folder.Path("model.stw"));
  SaveAsFromMenu();
  StartRun();
  dialog.WillChoose(folder.Path("model.stw"));

  OpenFromMenu();

  ExpectRows();
  EXPECT_EQ(CurrentFileName, folder.Path("model.stw"));
}

TEST_P(EveryRowCountTest, IsRestoredAfterAKill) {
  if (GetParam().nodes == 0 && GetParam().members == 0) GTEST_SKIP() << "nothing was entered";
  InProcessThatIsKilled([] {
    EnterRows();
    KeepRecovery();
  });
  StartRun();
  ASSERT_TRUE(HasUnsavedModel());

  RestoreUnsavedModel();

  ExpectRows();
  EXPECT_EQ(CurrentFileName, "");
}

TEST_P(EveryRowCountTest, ComesBackFromTheScratchCopy) {
  EnterRows();
  RebuildModelFromGrids();
  writeScratchCopy();
  EXPECT_EQ(NodeCount, GetParam().nodes);
  EXPECT_EQ(MemberCount, GetParam().members);
  EXPECT_EQ(NodeTable.Count(), GetParam().nodes);
}

INSTANTIATE_TEST_SUITE_P(Rows, EveryRowCountTest,
                         testing::Values(RowCounts{0, 0}, RowCounts{1, 1}, RowCounts{16383, 16383},
                                         RowCounts{16384, 16384}, RowCounts{32767, 0}, RowCounts{0, 32767},
                                         RowCounts{32767, 32767}),
                         [](const auto& counts) {
                           return std::to_string(counts.param.nodes) + "Nodes" + std::to_string(counts.param.members) +
                                  "Members";
                         });

} // namespace
} // namespace strutwright
