#include "FileState.h"
#include "GridFixture.h"
#include "modEditSnapshot.h"
#include "modModelEditing.h"

#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EditSnapshotTest : public GridFixture {
 protected:
  EditSnapshotTest() {
    TheFiles = FileState{};
    SetModel(Triangle());
    CurrentFileName = "/home/me/triangle.stw";
    GridCapacity = 30;
  }
  ~EditSnapshotTest() override { TheFiles = FileState{}; }
};

TEST_F(EditSnapshotTest, ChangesNothingWhenItIsTaken) {
  AnalysisDone = FlagTrue;
  MemberTable(1, MemberFieldForce) = 5;
  const auto before = AllTexts(GrJoints);
  TakeSnapshot();
  EXPECT_EQ(AllTexts(GrJoints), before);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 5.0F);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(EditSnapshotTest, BringsBackAModelThatWasReplaced) {
  const auto joints = AllTexts(GrJoints);
  const auto members = AllTexts(GrMembers);
  const EditSnapshot snapshot = TakeSnapshot();
  SetModel(PrattTruss(12));

  RestoreSnapshot(snapshot);

  EXPECT_EQ(AllTexts(GrJoints), joints);
  EXPECT_EQ(AllTexts(GrMembers), members);
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(NodeTable(3, NodeForceY), -10.0F);
  EXPECT_EQ(MemberCount, 3);
}

TEST_F(EditSnapshotTest, BringsBackRowsThatWereDeleted) {
  const auto joints = AllTexts(GrJoints);
  const auto members = AllTexts(GrMembers);
  const EditSnapshot snapshot = TakeSnapshot();
  DeleteNode(1, false);

  RestoreSnapshot(snapshot);

  EXPECT_EQ(AllTexts(GrJoints), joints);
  EXPECT_EQ(AllTexts(GrMembers), members);
  EXPECT_EQ(MemberTable(3, MemberNodeI), 3.0F);
}

TEST_F(EditSnapshotTest, BringsBackTextsAsTheyStood) {
  WriteRow(GrJoints, 2, {"", " 1.50 ", "abc", " "});
  GrJoints.SetText(2, 0, "label");
  GrJoints.SetText(0, 1, "heading");
  const EditSnapshot snapshot = TakeSnapshot();
  initGrids();

  RestoreSnapshot(snapshot);

  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("label", "", " 1.50 ", "abc", " ", "1"));
  EXPECT_EQ(GrJoints.Text(0, 1), "heading");
}

TEST_F(EditSnapshotTest, BringsBackFileNameAndCapacityWithTheModel) {
  const EditSnapshot snapshot = TakeSnapshot();
  CurrentFileName = "/home/me/other.stw";
  GridCapacity = 0;
  RestoreSnapshot(snapshot);
  EXPECT_EQ(CurrentFileName, "/home/me/triangle.stw");
  EXPECT_EQ(GridCapacity, 30);
}

TEST_F(EditSnapshotTest, BringsBackGridsWithoutDataRows) {
  GridCapacity = 0;
  initGrids();
  const EditSnapshot snapshot = TakeSnapshot();
  SetModel(Triangle());
  RestoreSnapshot(snapshot);
  EXPECT_EQ(GrJoints.RowCount(), 1);
  EXPECT_EQ(GrMembers.RowCount(), 1);
  EXPECT_EQ(NodeCount, 0);
}

TEST_F(EditSnapshotTest, EndsTheAnalysisAndDrawsTheModelOnce) {
  const EditSnapshot snapshot = TakeSnapshot();
  RestoreSnapshot(snapshot);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
}

TEST_F(EditSnapshotTest, ShowsTheViewNoMoreThanHasChanged) {
  const EditSnapshot snapshot = TakeSnapshot();
  GrJoints.SetText(2, 3, "77");
  std::vector<std::pair<int, int>> changed;
  GrJoints.SetChangeNotice([&changed](const GridChange& change) {
    if (change.kind == GridChange::Kind::Cell) changed.emplace_back(change.row, change.column);
    EXPECT_NE(change.kind, GridChange::Kind::Layout);
  });

  RestoreSnapshot(snapshot);

  GrJoints.SetChangeNotice({});
  EXPECT_THAT(changed, ElementsAre(std::pair(2, 3)));
}

TEST_F(EditSnapshotTest, KeepsTheCurrentCell) {
  GrJoints.SetCurrentCell(2, 4);
  const EditSnapshot snapshot = TakeSnapshot();
  GrJoints.SetText(1, 1, "9");
  RestoreSnapshot(snapshot);
  EXPECT_EQ(std::pair(GrJoints.CurrentRow(), GrJoints.CurrentColumn()), std::pair(2, 4));
}

TEST_F(EditSnapshotTest, IsEqualToOneOfTheSameState) {
  const EditSnapshot snapshot = TakeSnapshot();
  EXPECT_EQ(TakeSnapshot(), snapshot);
  initGrids();
  RestoreSnapshot(snapshot);
  EXPECT_EQ(TakeSnapshot(), snapshot);
}

/// One change that makes another state.
struct Change {
  const char* name;
  void (*make)();
};

class SnapshotChangeTest : public EditSnapshotTest, public testing::WithParamInterface<Change> {};

TEST_P(SnapshotChangeTest, MakesAnotherSnapshot) {
  const EditSnapshot snapshot = TakeSnapshot();
  GetParam().make();
  EXPECT_FALSE(TakeSnapshot() == snapshot);
}

INSTANTIATE_TEST_SUITE_P(Changes, SnapshotChangeTest,
                         testing::Values(Change{"joint", [] { GrJoints.SetText(2, 1, "4.5"); }},
                                         Change{"member", [] { GrMembers.SetText(3, 5, "1"); }},
                                         Change{"label", [] { GrMembers.SetText(3, 0, "x"); }},
                                         Change{"rows", [] { GrJoints.SetRowCount(5); }},
                                         Change{"capacity", [] { GridCapacity = 31; }},
                                         Change{"file", [] { CurrentFileName.clear(); }}),
                         [](const auto& each) { return each.param.name; });

} // namespace
} // namespace strutwright
