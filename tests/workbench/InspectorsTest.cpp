#include "AnalysisState.h"
#include "EditingState.h"
#include "EventsTest.h"
#include "ModelBuilder.h"
#include "WorkbenchState.h"
#include "modGrids.h"
#include "modInspectors.h"
#include "modModelStore.h"
#include "modRunAnalysis.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Column(const Grid& grid, int column) {
  std::vector<std::string> texts;
  for (int row = 0; row < grid.RowCount(); ++row) texts.push_back(grid.Text(row, column));
  return texts;
}

std::vector<std::string> Values(const Grid& grid) {
  std::vector<std::string> texts = Column(grid, 1);
  texts.erase(texts.begin());
  return texts;
}

class InspectorTest : public EventsTest {
 protected:
  InspectorTest() {
    ResetModel();
    TheAnalysis = AnalysisState{};
    TheEditing = EditingState{};
    TheWorkbench = WorkbenchState{};
    initGrids();
  }
};

class MemberDetailsTest : public InspectorTest {
 protected:
  MemberDetailsTest() { LayOutMemberDetails(details); }

  MemberDetails details;
};

TEST_F(MemberDetailsTest, HasItsLabelsAndUnits) {
  EXPECT_THAT(Column(details.grProperties, 0),
              ElementsAre("", "Mbr No.", "Node i", "Node j", "Cos", "Sin", "E", "A", "L", "PS"));
  EXPECT_THAT(Column(details.grProperties, 1), ElementsAre("Value", "", "", "", "", "", "", "", "", ""));
  EXPECT_THAT(Column(details.grProperties, 2), ElementsAre("Units", "", "", "", "", "", "kN/mm2", "mm2", "m", "kN"));
  EXPECT_THAT(Column(details.grResults, 0), ElementsAre("", "Force", "T or C", "Stretch", "Stress"));
  EXPECT_THAT(Column(details.grResults, 1), ElementsAre("Value", "", "", "", ""));
  EXPECT_THAT(Column(details.grResults, 2), ElementsAre("Units", "kN", "", "mm", "N/mm2"));
}

TEST_F(MemberDetailsTest, LabelsTheMatrixByFreedoms) {
  EXPECT_THAT(Column(details.grStiffnessMatrix, 0), ElementsAre("", "DOF i x", "DOF i y", "DOF j x", "DOF j y"));
  EXPECT_EQ(details.grStiffnessMatrix.ColumnCount(), 5);
  EXPECT_EQ(details.grStiffnessMatrix.Text(0, 1), "DOF i x");
  EXPECT_EQ(details.grStiffnessMatrix.Text(0, 4), "DOF j y");
}

TEST_F(MemberDetailsTest, ShowsAHorizontalMember) {
  SetModel({{{0, 0}, {4, 0}}, {{1, 2, 200, 1234.5F, -2.5F}}});

  ShowMemberDetails(details, 1);

  EXPECT_THAT(Values(details.grProperties), ElementsAre("1", "1", "2", "1.0", "0.0", "200", "1234.5", "4.0", "-2.5"));
}

TEST_F(MemberDetailsTest, ShowsDirectionsAndLengthInThreePlaces) {
  SetModel({{{0, 0}, {1, 0}, {2, 3}}, {{1, 2}, {3, 1}}});

  ShowMemberDetails(details, 2);

  // L = sqrt(13), c = -2 / L, s = -3 / L
  EXPECT_THAT(Values(details.grProperties),
              ElementsAre("2", "3", "1", "-0.555", "-0.832", "200", "1000", "3.606", "0"));
}

TEST_F(MemberDetailsTest, ShowsTheMatrixBeforeAnyAnalysis) {
  SetModel({{{0, 0}, {3, 4}}, {{1, 2, 200, 1000}}});

  ShowMemberDetails(details, 1);

  // EA/L = 40; cc = 0.36, cs = 0.48, ss = 0.64
  EXPECT_THAT(Column(details.grStiffnessMatrix, 1), ElementsAre("DOF i x", "14.4", "19.2", "-14.4", "-19.2"));
  EXPECT_THAT(Column(details.grStiffnessMatrix, 2), ElementsAre("DOF i y", "19.2", "25.6", "-19.2", "-25.6"));
  EXPECT_THAT(Column(details.grStiffnessMatrix, 3), ElementsAre("DOF j x", "-14.4", "-19.2", "14.4", "19.2"));
  EXPECT_THAT(Column(details.grStiffnessMatrix, 4), ElementsAre("DOF j y", "-19.2", "-25.6", "19.2", "25.6"));
  EXPECT_THAT(Values(details.grResults), Each(""));
}

TEST_F(MemberDetailsTest, ShowsResultsOfACurrentAnalysis) {
  SetModel({{{0, 0, 0, 0, 3}, {4, 0, 100, 0, 1}}, {{1, 2, 200, 810}}});
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));

  ShowMemberDetails(details, 1);

  // dL = F L / (E A) = 100 * 4000 / (200 * 810), stress = 1000 * 100 / 810
  EXPECT_THAT(Values(details.grResults), ElementsAre("100.0", "T", "2.469", "123.457"));
}

TEST_F(MemberDetailsTest, LeavesTheResultsOfTheAnalysisAsTheyAre) {
  SetModel(Triangle());
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  const FieldTable before = MemberTable;

  ShowMemberDetails(details, 3);

  EXPECT_EQ(MemberTable, before);
}

TEST_F(MemberDetailsTest, SaysWhatIsWrongWithAMember) {
  SetModel({{{0, 0}, {4, 0}}, {{1, 2, -200, 1000}}});

  ShowMemberDetails(details, 1);

  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Critical, "Error: member index 1 E-value\nMember ignored")));
  EXPECT_EQ(details.grStiffnessMatrix.Text(1, 1), "0.0");
}

class NodeDetailsTest : public InspectorTest {
 protected:
  NodeDetailsTest() { LayOutNodeDetails(details); }

  /// Node 1 with loads of (5, 5).
  void GivenALoadedNode() {
    SetModel({{{1, 2, 5, 5}, {3, 4}}, {}});
    ShowNodeDetails(details, 1);
    events.clear();
  }

  static std::string ForceX() { return GrJoints.Text(1, NodeForceX); }
  static std::string ForceY() { return GrJoints.Text(1, NodeForceY); }

  NodeDetails details;
};

TEST_F(NodeDetailsTest, HasItsLabelsAndUnits) {
  EXPECT_THAT(Column(details.grProperties, 0), ElementsAre("", "Node No.", "x", "y", "Fx", "Fy", "Sup. X", "Sup. Y"));
  EXPECT_THAT(Column(details.grProperties, 1), ElementsAre("Value", "", "", "", "", "", "", ""));
  EXPECT_THAT(Column(details.grProperties, 2), ElementsAre("Units", "", "m", "m", "kN", "kN", "", ""));
  EXPECT_THAT(Column(details.grResults, 0), ElementsAre("", "x def.", "y def."));
  EXPECT_THAT(Column(details.grResults, 1), ElementsAre("Value", "", ""));
  EXPECT_THAT(Column(details.grResults, 2), ElementsAre("Units", "mm", "mm"));
}

TEST_F(NodeDetailsTest, ShowsTheStoredNumbersAndTheSupportTwice) {
  SetModel({{{0, 0}, {1.25F, -3, 0.1F, 1234567, 2}}, {}});

  ShowNodeDetails(details, 2);

  EXPECT_THAT(Values(details.grProperties), ElementsAre("2", "1.25", "-3", "0.1", "1234567", "2", "2"));
  EXPECT_THAT(Values(details.grResults), Each(""));
}

TEST_F(NodeDetailsTest, ShowsDeflectionsOfACurrentAnalysis) {
  SetModel({{{0, 0, 0, 0, 3}, {4, 0, 100, 0, 1}}, {{1, 2, 200, 810}}});
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));

  ShowNodeDetails(details, 2);

  EXPECT_THAT(Values(details.grResults), ElementsAre("2.47", "0.0"));
  AnalysisDone = FlagFalse;
  ShowNodeDetails(details, 1);
  EXPECT_THAT(Values(details.grResults), ElementsAre("", "")) << "what it said was about another node";
}

TEST_F(NodeDetailsTest, AppliesALoadByItsAngle) {
  GivenALoadedNode();

  ApplyNodeLoad(details, 1, "10", "90", LoadMode::Overwrite);

  EXPECT_EQ(ForceX(), "-4.371139E-07") << "pi is kept in 32 bits, so that x is not exactly zero";
  EXPECT_EQ(ForceY(), "10");
  EXPECT_FLOAT_EQ(NodeTable(1, NodeForceX), -4.371139e-7F);
}

TEST_F(NodeDetailsTest, AddsToTheLoadThatIsThere) {
  GivenALoadedNode();

  ApplyNodeLoad(details, 1, "10", "180", LoadMode::Add);

  EXPECT_EQ(ForceX(), "-5");
  EXPECT_EQ(ForceY(), "4.999999");
}

TEST_F(NodeDetailsTest, CountsAnglesCounterClockwiseFromX) {
  GivenALoadedNode();

  ApplyNodeLoad(details, 1, "2", "0", LoadMode::Overwrite);
  EXPECT_EQ(ForceX(), "2");
  EXPECT_EQ(ForceY(), "0");

  ApplyNodeLoad(details, 1, "10", "-30", LoadMode::Overwrite);
  EXPECT_EQ(ForceX(), "8.660254");
  EXPECT_EQ(ForceY(), "-5");
}

TEST_F(NodeDetailsTest, TakesACellThatIsNotNumericForZero) {
  GivenALoadedNode();
  GrJoints.SetText(1, NodeForceX, "");

  ApplyNodeLoad(details, 1, "2", "0", LoadMode::Add);

  EXPECT_EQ(ForceX(), "2");
  EXPECT_EQ(ForceY(), "5");
}

TEST_F(NodeDetailsTest, EndsTheAnalysisAndShowsTheNewLoad) {
  GivenALoadedNode();

  ApplyNodeLoad(details, 1, "3", "0", LoadMode::Overwrite);

  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
  EXPECT_THAT(Values(details.grProperties), ElementsAre("1", "1", "2", "3", "0", "0", "0"));
}

TEST_F(NodeDetailsTest, LeavesNoDeflectionsOfTheOldLoad) {
  SetModel({{{0, 0, 0, 0, 3}, {4, 0, 100, 0, 1}}, {{1, 2, 200, 800}}});
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  ShowNodeDetails(details, 2);

  ApplyNodeLoad(details, 2, "3", "0", LoadMode::Overwrite);

  EXPECT_THAT(Values(details.grResults), Each(""));
}

TEST_F(NodeDetailsTest, LeavesTheCurrentCellWhereItWas) {
  GivenALoadedNode();
  GrJoints.SetCurrentCell(2, 4);

  ApplyNodeLoad(details, 1, "3", "0", LoadMode::Overwrite);

  EXPECT_EQ(GrJoints.CurrentRow(), 2);
  EXPECT_EQ(GrJoints.CurrentColumn(), 4);
}

TEST_F(NodeDetailsTest, ReportsBothTextsThatAreNotNumeric) {
  GivenALoadedNode();

  ApplyNodeLoad(details, 1, "abc", "x", LoadMode::Overwrite);

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Force is not numeric: abc\nNo force will be applied."),
                          Box(MessageIcon::Critical, "Angle is not numeric: x\nNo force will be applied.")));
  EXPECT_EQ(ForceX(), "5");
  EXPECT_EQ(ForceY(), "5");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(NodeDetailsTest, AppliesNothingWithoutAnAngle) {
  GivenALoadedNode();

  ApplyNodeLoad(details, 1, "10", "", LoadMode::Overwrite);

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Angle is not numeric: \nNo force will be applied.")));
  EXPECT_EQ(ForceX(), "5");
}

TEST_F(NodeDetailsTest, AppliesNothingWithoutAForce) {
  GivenALoadedNode();

  ApplyNodeLoad(details, 1, "1e39", "0", LoadMode::Overwrite);

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Force is not numeric: 1e39\nNo force will be applied.")));
  EXPECT_EQ(ForceX(), "5");
}

TEST_F(NodeDetailsTest, AppliesNoLoadThatIsTooLarge) {
  GivenALoadedNode();
  GrJoints.SetText(1, NodeForceX, "3e38");

  ApplyNodeLoad(details, 1, "3e38", "0", LoadMode::Add);

  EXPECT_THAT(
      TakeMessages(),
      ElementsAre(Box(MessageIcon::Critical, "Overflow: the load at node 1 is too large.\nNo force will be applied.")));
  EXPECT_EQ(ForceX(), "3e38");
  EXPECT_THAT(events, IsEmpty());
}

} // namespace
} // namespace strutwright
