#include "ModelStoreFixture.h"
#include "modModelEditing.h"

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

/// The texts of the data rows, row labels included.
std::vector<Texts> DataRows(const Grid& grid) {
  std::vector<Texts> rows;
  for (int row = 1; row < grid.RowCount(); ++row) {
    Texts& texts = rows.emplace_back();
    for (int column = 0; column < grid.ColumnCount(); ++column) texts.push_back(grid.Text(row, column));
  }
  return rows;
}

class EditingTest : public ModelStoreTest {
 protected:
  /// Has the tables know nodes at these places, whatever the grids hold.
  static void SetNodesAt(const std::vector<std::pair<float, float>>& places) {
    NodeCount = static_cast<std::int16_t>(places.size());
    NodeTable.Recreate(NodeCount);
    int n = 0;
    for (const auto& [x, y] : places) {
      NodeTable(++n, NodeX) = x;
      NodeTable(n, NodeY) = y;
    }
  }

  static void AddJoint(const Texts& texts) { AddLabelledRow(GrJoints, texts); }
  static void AddMemberRow(const Texts& texts) { AddLabelledRow(GrMembers, texts); }

  static void AddLabelledRow(Grid& grid, const Texts& texts) {
    AddRow(grid, texts);
    grid.SetText(grid.RowCount() - 1, 0, std::to_string(grid.RowCount() - 1));
  }

  void ExpectOnly(MessageIcon icon, const std::string& text) {
    EXPECT_THAT(TakeMessages(), ElementsAre(Box(icon, text)));
  }
};

using DeleteNodeTest = EditingTest;

/// Three nodes at x = 1, 2, 3, joined each with each.
void SetThreeNodes() { SetModel({{{1, 0}, {2, 0}, {3, 0}}, {{1, 2}, {2, 3}, {1, 3}}}); }

TEST_F(DeleteNodeTest, TakesItsMembersAndRenumbersTheOthers) {
  SetThreeNodes();

  DeleteNode(2, false);

  EXPECT_THAT(DataRows(GrJoints),
              ElementsAre(Texts{"1", "1", "0", "0", "0", "0"}, Texts{"2", "3", "0", "0", "0", "0"}));
  EXPECT_THAT(DataRows(GrMembers), ElementsAre(Texts{"1", "1", "2", "200", "1000", "0"}));
}

TEST_F(DeleteNodeTest, JudgesEveryMemberByTheNumbersFromBefore) {
  SetModel({{{1, 0}, {2, 0}, {3, 0}, {4, 0}}, {{3, 4}, {2, 3}, {1, 2}, {4, 3}}});
  DeleteNode(2, false);
  // Members 1 and 4, which now join nodes 2 and 3, never met the node that was number 2.
  EXPECT_THAT(DataRows(GrMembers),
              ElementsAre(Texts{"1", "2", "3", "200", "1000", "0"}, Texts{"2", "3", "2", "200", "1000", "0"}));
}

TEST_F(DeleteNodeTest, LeavesSmallerNumbersAlone) {
  SetThreeNodes();
  DeleteNode(3, false);
  EXPECT_THAT(DataRows(GrMembers), ElementsAre(Texts{"1", "1", "2", "200", "1000", "0"}));
}

TEST_F(DeleteNodeTest, LeavesMembersAloneThatDoNotMeetIt) {
  SetModel({{{1, 0}, {2, 0}, {3, 0}}, {{1, 2}}});
  DeleteNode(3, false);
  EXPECT_THAT(DataRows(GrMembers), ElementsAre(Texts{"1", "1", "2", "200", "1000", "0"}));
  EXPECT_THAT(TakeMessages(), IsEmpty());
}

TEST_F(DeleteNodeTest, ComparesNodeNumbersAsTheFloatsThatTheyAre) {
  SetModel({{{1, 0}, {2, 0}, {3, 0}}, {{2.25F, 3}}});
  DeleteNode(2, false);
  EXPECT_THAT(DataRows(GrMembers), ElementsAre(Texts{"1", "1.25", "2", "200", "1000", "0"}));
}

TEST_F(DeleteNodeTest, AsksFirst) {
  SetThreeNodes();
  messages.WillAnswer(true);

  DeleteNode(2, true);

  ExpectOnly(MessageIcon::Question, "Are you sure you want to delete node 2 and all connecting members?");
  EXPECT_EQ(NodeCount, 2);
}

TEST_F(DeleteNodeTest, ChangesNothingWhenTheUserDeclines) {
  SetThreeNodes();
  MemberTable(1, MemberFieldForce) = 5;
  const auto before = std::pair(DataRows(GrJoints), DataRows(GrMembers));
  messages.WillAnswer(false);

  DeleteNode(2, true);

  TakeMessages();
  EXPECT_EQ(std::pair(DataRows(GrJoints), DataRows(GrMembers)), before);
  EXPECT_EQ(MemberTable(1, MemberFieldForce), 5.0F);
  EXPECT_THAT(events, ElementsAre("PickDropped"));
}

TEST_F(DeleteNodeTest, EndsTheAnalysisRebuildsAndRedraws) {
  SetThreeNodes();
  DeleteNode(2, false);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
  EXPECT_EQ(NodeCount, 2);
  EXPECT_EQ(NodeTable(2, NodeX), 3.0F);
  EXPECT_EQ(MemberCount, 1);
  EXPECT_EQ(MemberTable(1, MemberNodeJ), 2.0F);
}

TEST_F(DeleteNodeTest, CountsRowsThatThePictureHasNotYet) {
  SetThreeNodes();
  AddJoint({"4", "0", "0", "0", "0"}); // pasted: the tables do not know it
  AddMemberRow({"4", "2", "200", "1000", "0"});
  AddMemberRow({"4", "3", "200", "1000", "0"});

  DeleteNode(2, false);

  EXPECT_EQ(GrJoints.RowCount(), 4);
  EXPECT_THAT(DataRows(GrMembers),
              ElementsAre(Texts{"1", "1", "2", "200", "1000", "0"}, Texts{"2", "3", "2", "200", "1000", "0"}));
}

TEST_F(DeleteNodeTest, SkipsMemberRowsWithoutAStart) {
  SetModel({{{1, 0}, {2, 0}, {3, 0}}, {{1, 2}, {2, 3}, {1, 3}}});
  GrMembers.SetText(1, MemberNodeI, "");
  AddMemberRow({"2", "3", "200", "1000", "0"});
  DeleteNode(1, false);
  EXPECT_EQ(RowTexts(GrMembers, 1), (Texts{"1", "", "2", "200", "1000", "0"}));
  EXPECT_EQ(RowTexts(GrMembers, 2), (Texts{"2", "1", "2", "200", "1000", "0"}));
}

TEST_F(DeleteNodeTest, KeepsTheEmptyRowsOfTheGrid) {
  SetThreeNodes();
  GrJoints.SetRowCount(21);
  DeleteNode(2, false);
  EXPECT_EQ(GrJoints.RowCount(), 20);
}

TEST_F(DeleteNodeTest, LeavesOneEmptyRowWhereItWasTheLast) {
  SetModel({{{7, 8}}, {}});
  DeleteNode(1, false);
  EXPECT_THAT(DataRows(GrJoints), ElementsAre(Texts{"1", "", "", "", "", ""}));
  EXPECT_EQ(NodeCount, 0);
}

TEST_F(DeleteNodeTest, RefusesARowThatIsNotThere) {
  SetThreeNodes();
  const auto before = DataRows(GrJoints);
  for (const int n : {-1, 0, 4}) EXPECT_THROW(DeleteNode(n, true), GridRangeError) << n;
  EXPECT_EQ(DataRows(GrJoints), before);
  EXPECT_EQ(GrJoints.Text(0, 1), "x(m)");
  EXPECT_THAT(events, IsEmpty());
}

using DeleteMemberTest = EditingTest;

TEST_F(DeleteMemberTest, MovesTheOthersUp) {
  SetThreeNodes();

  DeleteMember(2, false);

  EXPECT_THAT(DataRows(GrMembers),
              ElementsAre(Texts{"1", "1", "2", "200", "1000", "0"}, Texts{"2", "1", "3", "200", "1000", "0"}));
  EXPECT_EQ(GrJoints.RowCount(), 4);
  EXPECT_EQ(MemberCount, 2);
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
}

TEST_F(DeleteMemberTest, AsksFirst) {
  SetThreeNodes();
  messages.WillAnswer(true);

  DeleteMember(3, true);

  ExpectOnly(MessageIcon::Question, "Are you sure you want to delete member 3?");
  EXPECT_EQ(MemberCount, 2);
}

TEST_F(DeleteMemberTest, ChangesNothingWhenTheUserDeclines) {
  SetThreeNodes();
  const auto before = DataRows(GrMembers);
  messages.WillAnswer(false);

  DeleteMember(3, true);

  TakeMessages();
  EXPECT_EQ(DataRows(GrMembers), before);
  EXPECT_THAT(events, ElementsAre("PickDropped"));
}

TEST_F(DeleteMemberTest, RefusesARowThatIsNotThere) {
  SetThreeNodes();
  for (const int m : {0, 4}) EXPECT_THROW(DeleteMember(m, true), GridRangeError) << m;
  EXPECT_EQ(GrMembers.Text(0, 1), "Node i");
}

using CompressGridTest = EditingTest;

TEST_F(CompressGridTest, ClosesTheGapsAndRenumbers) {
  AddJoint({" ", " ", " ", " ", " "});
  AddJoint({"1", "2", "3", "4", "5"});
  AddJoint({" ", " ", " ", " ", " "});
  AddJoint({"6", "7", "8", "9", "x"});

  EXPECT_TRUE(CompressGrid(GrJoints));

  EXPECT_THAT(DataRows(GrJoints),
              ElementsAre(Texts{"1", "1", "2", "3", "4", "5"}, Texts{"2", "6", "7", "8", "9", "x"}));
}

TEST_F(CompressGridTest, TakesRowsByASingleBlankInColumnOneOnly) {
  AddJoint({"", " ", " ", " ", " "});
  AddJoint({"  ", " ", " ", " ", " "});
  AddJoint({"0", " ", " ", " ", " "});
  AddJoint({" ", "5", "", "", ""});
  EXPECT_TRUE(CompressGrid(GrJoints));
  EXPECT_EQ(GrJoints.RowCount(), 4);
  EXPECT_EQ(GrJoints.Text(3, 1), "0");
}

TEST_F(CompressGridTest, OnlySaysSoWhereNothingIsBlanked) {
  SetThreeNodes();
  const auto before = DataRows(GrMembers);

  EXPECT_FALSE(CompressGrid(GrMembers));

  ExpectOnly(MessageIcon::Information, "No zero rows found");
  EXPECT_EQ(DataRows(GrMembers), before);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(CompressGridTest, SaysSoOfAGridWithoutDataRows) {
  EXPECT_FALSE(CompressGrid(GrJoints));
  ExpectOnly(MessageIcon::Information, "No zero rows found");
  EXPECT_EQ(GrJoints.RowCount(), 1);
}

TEST_F(CompressGridTest, LeavesAnEmptyRowInAGridThatItEmpties) {
  for (int row = 0; row < 3; ++row) AddMemberRow({" ", " ", " ", " ", " "});
  GrMembers.SetCurrentCell(3, 4);

  EXPECT_TRUE(CompressGrid(GrMembers));

  EXPECT_THAT(DataRows(GrMembers), ElementsAre(Texts{"1", "", "", "", "", ""}));
  EXPECT_EQ(std::pair(GrMembers.CurrentRow(), GrMembers.CurrentColumn()), std::pair(1, 0));
}

using CompressZeroRowsTest = EditingTest;

TEST_F(CompressZeroRowsTest, TakesRowsOfEmptyBlankAndZeroCells) {
  AddMemberRow({"1", "2", "200", "1000", "0"});
  AddMemberRow({"", " ", "0", "-0.0", "0e5"});
  AddMemberRow({" ", " ", " ", " ", " "});
  AddMemberRow({"0", "0", "0", "0", "0"});
  AddMemberRow({"2", "3", "200", "1000", "0"});

  EXPECT_TRUE(CompressZeroRows(GrMembers));

  EXPECT_THAT(DataRows(GrMembers),
              ElementsAre(Texts{"1", "1", "2", "200", "1000", "0"}, Texts{"2", "2", "3", "200", "1000", "0"}));
}

TEST_F(CompressZeroRowsTest, KeepsRowsWithAnythingElse) {
  AddMemberRow({"0", "0", "0", "0", "0.001"});
  AddMemberRow({"", "", "", "", "x"});
  AddMemberRow({"1", "", "", "", ""});
  EXPECT_FALSE(CompressZeroRows(GrMembers));
  ExpectOnly(MessageIcon::Information, "No zero rows found");
  EXPECT_EQ(GrMembers.RowCount(), 4);
}

TEST_F(CompressZeroRowsTest, KeepsTheNodeAtTheOrigin) {
  AddJoint({"", "", "", "", ""});
  AddJoint({"0", "0", "0", "0", "0"});
  AddJoint({"4", "0", "0", "0", "0"});
  SetNodesAt({{9, 9}, {0, 0}, {4, 0}});

  EXPECT_TRUE(CompressZeroRows(GrJoints));

  EXPECT_THAT(DataRows(GrJoints),
              ElementsAre(Texts{"1", "0", "0", "0", "0", "0"}, Texts{"2", "4", "0", "0", "0", "0"}));
}

TEST_F(CompressZeroRowsTest, KeepsNoRowAtTheOriginWithoutANumericX) {
  AddJoint({"", "0", "0", "0", "0"});
  AddJoint({"4", "0", "0", "0", "0"});
  SetNodesAt({{0, 0}, {4, 0}});
  EXPECT_TRUE(CompressZeroRows(GrJoints));
  EXPECT_EQ(GrJoints.RowCount(), 2);
}

TEST_F(CompressZeroRowsTest, OnlySaysSoWhereTheNodeAtTheOriginIsTheOnlyZeroRow) {
  AddJoint({"0", "0", "0", "0", "0"});
  SetNodesAt({{0, 0}});
  EXPECT_FALSE(CompressZeroRows(GrJoints));
  ExpectOnly(MessageIcon::Information, "No zero rows found");
  EXPECT_EQ(GrJoints.RowCount(), 2);
}

TEST_F(CompressZeroRowsTest, LooksForNoNodeAmongTheMembers) {
  AddMemberRow({"0", "0", "0", "0", "0"});
  AddMemberRow({"1", "2", "200", "1000", "0"});
  SetNodesAt({{0, 0}});
  EXPECT_TRUE(CompressZeroRows(GrMembers));
  EXPECT_EQ(GrMembers.RowCount(), 2);
}

TEST_F(CompressZeroRowsTest, MakesTheMembersFollowTheNodes) {
  AddJoint({"", "", "", "", ""});
  AddJoint({"2", "0", "0", "0", "0"});
  AddJoint({"0", "0", "0", "0", "0"});
  AddJoint({"4", "0", "0", "0", "0"});
  AddMemberRow({"2", "4", "200", "1000", "0"});
  AddMemberRow({"4", "3", "200", "1000", "0"});
  AddMemberRow({"5", "2", "200", "1000", "0"});
  AddMemberRow({"", "x", "200", "1000", "0"});

  EXPECT_TRUE(CompressZeroRows(GrJoints));

  EXPECT_THAT(DataRows(GrMembers),
              ElementsAre(Texts{"1", "1", "2", "200", "1000", "0"}, Texts{"2", "2", "0", "200", "1000", "0"},
                          Texts{"3", "5", "1", "200", "1000", "0"}, Texts{"4", "", "x", "200", "1000", "0"}));
}

TEST_F(CompressZeroRowsTest, LeavesTheNodeNumbersAloneWhenMembersGo) {
  AddJoint({"1", "0", "0", "0", "0"});
  AddJoint({"2", "0", "0", "0", "0"});
  AddMemberRow({"", "", "", "", ""});
  AddMemberRow({"1", "2", "200", "1000", "0"});
  EXPECT_TRUE(CompressZeroRows(GrMembers));
  EXPECT_THAT(DataRows(GrMembers), ElementsAre(Texts{"1", "1", "2", "200", "1000", "0"}));
}

TEST_F(CompressZeroRowsTest, LabelsTheSingleRowOfAnEmptiedGrid) {
  AddJoint({"", "", "", "", ""});
  AddJoint({"", "", "", "", ""});
  AddMemberRow({"1", "2", "200", "1000", "0"});
  EXPECT_TRUE(CompressZeroRows(GrJoints));
  EXPECT_THAT(DataRows(GrJoints), ElementsAre(Texts{"1", "", "", "", "", ""}));
  EXPECT_EQ(std::pair(GrJoints.CurrentRow(), GrJoints.CurrentColumn()), std::pair(1, 0));
  EXPECT_THAT(DataRows(GrMembers), ElementsAre(Texts{"1", "0", "0", "200", "1000", "0"}));
}

using AfterModelEditTest = EditingTest;

TEST_F(AfterModelEditTest, EndsTheAnalysisThenRebuildsThenRedraws) {
  AddJoint({"5", "6", "0", "0", "0"});
  AfterModelEdit();
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
  EXPECT_EQ(NodeTable(1, NodeY), 6.0F);
}

/// A typed character, whether a minus is allowed, and whether the key passes.
using KeyCase = std::tuple<char32_t, bool, bool>;

class FilterNumericKeyTest : public testing::TestWithParam<KeyCase> {};

TEST_P(FilterNumericKeyTest, LetsPassWhatNumbersAreWrittenWith) {
  const auto [typed, allowMinus, passes] = GetParam();
  char32_t key = typed;
  FilterNumericKey(key, allowMinus);
  EXPECT_EQ(key, passes ? typed : U'\0');
}

INSTANTIATE_TEST_SUITE_P(Keys, FilterNumericKeyTest,
                         testing::Values(KeyCase{U'0', false, true}, KeyCase{U'9', false, true},
                                         KeyCase{U'.', false, true}, KeyCase{U'-', false, false},
                                         KeyCase{U'-', true, true}, KeyCase{U'5', true, true},
                                         KeyCase{U'.', true, true}, KeyCase{8, false, true}, KeyCase{8, true, true},
                                         KeyCase{U'+', true, false}, KeyCase{U'e', true, false},
                                         KeyCase{U',', true, false}, KeyCase{U' ', true, false},
                                         KeyCase{13, true, false}, KeyCase{0, true, false}, KeyCase{U'/', false, false},
                                         KeyCase{U':', false, false}, KeyCase{U'\u0665', true, false}));

/// The names of the boxes that take a minus, or of those that do not.
Texts BoxNames(bool allowMinus) {
  Texts names;
  for (const NumericBox& box : NumericBoxes) {
    if (box.allowMinus == allowMinus) names.emplace_back(box.name);
  }
  return names;
}

TEST(NumericBoxesTest, TakeAMinusWhereANumberMayBeNegative) {
  EXPECT_THAT(BoxNames(true), ElementsAre("xnlTxt", "ynlTxt", "nLineX1Txt", "nLineY1Txt", "nLineX2Txt", "nLineY2Txt"));
  EXPECT_THAT(BoxNames(false),
              ElementsAre("eTxt", "aTxt", "nLineNoTxt", "xSpaceTxt", "ySpaceTxt", "snapRtxt", "snapSNtxt"));
}

} // namespace
} // namespace strutwright
