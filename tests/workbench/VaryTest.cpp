#include "LongWork.h"
#include "WorkbenchFixture.h"
#include "modAnalysis.h"
#include "modMember.h"
#include "modVary.h"

#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {
namespace {

/// Two rafters, members 2 and 3, over a tie, 6 m wide and 4 m high, with 10 kN down at the top.
ModelData RaftersUnderLoad() { return {{{0, 0, 0, 0, 3}, {6, 0, 0, 0, 1}, {3, 4, 0, -10}}, {{1, 2}, {1, 3}, {2, 3}}}; }

class VaryTest : public WorkbenchFixture {
 protected:
  VaryTest() { SetModel(RaftersUnderLoad()); }

  CellEdits edits;
};

TEST_F(VaryTest, NamesWhatIsVariedWithItsUnit) {
  EXPECT_EQ(VariedName({VariedKind::Span, ""}), "Span (m)");
  EXPECT_EQ(VariedName({VariedKind::Height, ""}), "Height (m)");
  EXPECT_EQ(VariedName({VariedKind::NodeX, "2"}), "x of node 2 (m)");
  EXPECT_EQ(VariedName({VariedKind::NodeY, "2"}), "y of node 2 (m)");
  EXPECT_EQ(VariedName({VariedKind::LoadX, "3"}), "Load in x at node 3 (kN)");
  EXPECT_EQ(VariedName({VariedKind::LoadY, "3"}), "Load in y at node 3 (kN)");
  EXPECT_EQ(VariedName({VariedKind::MemberE, "1-3"}), "E of members 1-3 (kN/mm2)");
  EXPECT_EQ(VariedName({VariedKind::MemberA, "1"}), "A of members 1 (mm2)");
}

TEST_F(VaryTest, NamesResultsWithTheirUnits) {
  EXPECT_EQ(ResultName({ResultKind::MemberForce, 3}), "Force of member 3 (kN)");
  EXPECT_EQ(ResultName({ResultKind::DisplacementX, 2}), "Displacement of node 2 in x (mm)");
  EXPECT_EQ(ResultName({ResultKind::DisplacementY, 2}), "Displacement of node 2 in y (mm)");
  EXPECT_EQ(ResultName({ResultKind::ReactionX, 1}), "Reaction of node 1 in x (kN)");
  EXPECT_EQ(ResultName({ResultKind::ReactionY, 1}), "Reaction of node 1 in y (kN)");
}

TEST_F(VaryTest, KnowsTheValueAsItIs) {
  EXPECT_EQ(ValueOf({VariedKind::Span, ""}), 6);
  EXPECT_EQ(ValueOf({VariedKind::Height, ""}), 4);
  EXPECT_EQ(ValueOf({VariedKind::NodeX, "3"}), 3);
  EXPECT_EQ(ValueOf({VariedKind::LoadY, "3"}), -10);
  EXPECT_EQ(ValueOf({VariedKind::MemberA, "2-3"}), 1000);
}

TEST_F(VaryTest, StretchesFromTheLeftAndFromBelow) {
  PutValue({VariedKind::Span, ""}, 12, edits);
  PutValue({VariedKind::Height, ""}, 1, edits);
  EXPECT_EQ(ColumnTexts(GrJoints, 1).at(1) + " " + ColumnTexts(GrJoints, 1).at(2), "12 6");
  EXPECT_EQ(ColumnTexts(GrJoints, 2).at(0) + " " + ColumnTexts(GrJoints, 2).at(2), "0 1");
}

TEST_F(VaryTest, GivesEveryMemberOfAListItsValue) {
  PutValue({VariedKind::MemberA, " 1 , 3-3"}, 750, edits);
  EXPECT_EQ(GrMembers.Text(1, 4), "750");
  EXPECT_EQ(GrMembers.Text(2, 4), "1000");
  EXPECT_EQ(GrMembers.Text(3, 4), "750");
}

TEST_F(VaryTest, RefusesWhatIsNotThere) {
  EXPECT_EQ(VariedFault({VariedKind::NodeX, "3"}), "");
  EXPECT_EQ(VariedFault({VariedKind::NodeX, "4"}), "There is no such node: choose one from 1 to 3");
  EXPECT_EQ(VariedFault({VariedKind::LoadY, ""}), "There is no such node: choose one from 1 to 3");
  const std::string list = "The list names no members, or some that do not exist: write numbers up to 3, such as 1-3,7";
  for (const char* text : {"", "4", "0", "3-1", "1,", "1,,2", "a", "1-", "-1", "2-4"}) {
    EXPECT_EQ(VariedFault({VariedKind::MemberE, text}), list) << text;
  }
  EXPECT_EQ(VariedFault({VariedKind::MemberE, "1-3,2"}), "");
}

TEST_F(VaryTest, RefusesATrussWithoutSpanHeightOrParts) {
  SetTables({{{0, 0}, {0, 3}}, {}});
  EXPECT_EQ(VariedFault({VariedKind::Span, ""}), "The truss has no span to vary: enter nodes beside each other");
  EXPECT_EQ(VariedFault({VariedKind::Height, ""}), "");
  EXPECT_EQ(VariedFault({VariedKind::MemberA, "1"}), "The model has no members: enter a truss first");
  SetTables({{{0, 2}, {5, 2}}, {}});
  EXPECT_EQ(VariedFault({VariedKind::Height, ""}), "The truss has no height to vary: enter nodes above each other");
  SetTables({});
  EXPECT_EQ(VariedFault({VariedKind::NodeY, "1"}), "The model has no nodes: enter a truss first");
}

TEST_F(VaryTest, RefusesResultsThatAreNotThere) {
  EXPECT_EQ(ResultFault({ResultKind::MemberForce, 3}), "");
  EXPECT_EQ(ResultFault({ResultKind::MemberForce, 0}), "There is no such member: choose one from 1 to 3");
  EXPECT_EQ(ResultFault({ResultKind::DisplacementY, 4}), "There is no such node: choose one from 1 to 3");
  EXPECT_EQ(ResultFault({ResultKind::ReactionX, 1}), "");
  EXPECT_EQ(ResultFault({ResultKind::ReactionY, 2}), "");
  EXPECT_EQ(ResultFault({ResultKind::ReactionX, 2}),
            "No support holds node 2 in this direction: choose a node and a direction that one holds");
}

// Each rafter takes half of the load: F = -5 L / h, L from a half span of 3 m and the height.
TEST_F(VaryTest, PlotsTheForceOverTheHeight) {
  const std::vector<VaryPoint> plot = PlotOf({VariedKind::Height, ""}, {ResultKind::MemberForce, 2}, 1, 4, 4);
  ASSERT_EQ(plot.size(), 4U);
  for (int k = 0; k < 4; ++k) {
    const double height = k + 1;
    EXPECT_EQ(plot.at(static_cast<std::size_t>(k)).value, height);
    EXPECT_NEAR(plot.at(static_cast<std::size_t>(k)).result.value(), -5 * std::hypot(3, height) / height, 1e-5);
  }
}

TEST_F(VaryTest, PlotsDisplacementsAndReactions) {
  const auto plot = [](ResultKind kind, int number) {
    return PlotOf({VariedKind::LoadY, "3"}, {kind, number}, -20, 0, 3);
  };
  EXPECT_NEAR(plot(ResultKind::ReactionY, 1)[0].result.value(), 10, 1e-5);
  EXPECT_NEAR(plot(ResultKind::ReactionX, 1)[0].result.value(), 0, 1e-5);
  // The tie bears 3.75 kN of 10: 3.75 6 / (200 1000) of a metre, so 0.1125 mm, twice that for 20.
  EXPECT_NEAR(plot(ResultKind::DisplacementX, 2)[0].result.value(), 0.225, 1e-6);
  EXPECT_LT(plot(ResultKind::DisplacementY, 3)[1].result.value(), 0);
  EXPECT_EQ(plot(ResultKind::DisplacementY, 3)[2].result.value(), 0);
}

TEST_F(VaryTest, HasAGapWhereTheTrussIsAMechanism) {
  const std::vector<VaryPoint> plot =
      PlotOf({VariedKind::NodeY, "3"}, {ResultKind::MemberForce, 2}, 0, 4, 2); // level at first
  EXPECT_EQ(plot[0], (VaryPoint{0, std::nullopt}));
  EXPECT_TRUE(plot[1].result.has_value());
}

TEST_F(VaryTest, LeavesModelAndResultsAsTheyWere) {
  AnalyseTruss();
  AnalysisDone = FlagTrue;
  const float force = MemberForce(2);
  const FieldTable nodes = NodeTable;

  PlotOf({VariedKind::Span, ""}, {ResultKind::MemberForce, 2}, 1, 20, 5);

  EXPECT_EQ(NodeTable, nodes);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(MemberForce(2), force);
  EXPECT_EQ(ResultNow({ResultKind::MemberForce, 2}).value(), force);
}

TEST_F(VaryTest, HasNoResultWithoutAnAnalysis) {
  EXPECT_EQ(ResultNow({ResultKind::MemberForce, 2}), std::nullopt);
  AnalysisDone = FlagTrue;
  EXPECT_EQ(ResultNow({ResultKind::MemberForce, 9}), std::nullopt);
}

TEST_F(VaryTest, WritesThePlotForASpreadsheet) {
  EXPECT_EQ(PlotCsv({VariedKind::Height, ""}, {ResultKind::MemberForce, 2}, {{1.5, -7.25}, {2, std::nullopt}}),
            "\"Height (m)\",\"Force of member 2 (kN)\"\r\n1.5,-7.25\r\n2,\r\n");
}

} // namespace
} // namespace strutwright
