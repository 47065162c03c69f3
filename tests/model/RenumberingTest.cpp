#include "LargeModels.h"
#include "ModelStoreFixture.h"
#include "modRenumbering.h"

#include <cstdint>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RenumberingTest : public ModelStoreTest {
 protected:
  static std::vector<std::string> Column(const Grid& grid, int column) {
    std::vector<std::string> texts;
    for (int row = 1; row < grid.RowCount(); ++row) texts.push_back(grid.Text(row, column));
    return texts;
  }

  /// The members by the places of their ends, which no numbering changes.
  static std::vector<std::tuple<float, float, float, float>> Ends() {
    std::vector<std::tuple<float, float, float, float>> ends;
    for (int m = 1; m <= MemberCount; ++m) {
      const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
      const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
      ends.emplace_back(NodeTable(i, NodeX), NodeTable(i, NodeY), NodeTable(j, NodeX), NodeTable(j, NodeY));
    }
    return ends;
  }
};

TEST_F(RenumberingTest, SortsByXAndThenByYAndTheMembersFollow) {
  SetModel({{{2, 1, 0, -7, 2}, {0, 0}, {2, 0}}, {{1, 2}, {3, 1}}});

  RenumberNodesAlongSpan();

  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "0", "0", "0", "0", "0"));
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "2", "0", "0", "0", "0"));
  EXPECT_THAT(RowTexts(GrJoints, 3), ElementsAre("3", "2", "1", "0", "-7", "2"));
  EXPECT_THAT(RowTexts(GrMembers, 1), ElementsAre("1", "3", "1", "200", "1000", "0"));
  EXPECT_THAT(RowTexts(GrMembers, 2), ElementsAre("2", "2", "3", "200", "1000", "0"));
}

TEST_F(RenumberingTest, KeepsNodesOfEqualPlaceInTheirOrder) {
  SetModel({{{3, 0}, {1, 1, 5}, {1, 1, 6}, {1, 1, 7}}, {}});

  RenumberNodesAlongSpan();

  EXPECT_THAT(Column(GrJoints, NodeForceX), ElementsAre("5", "6", "7", "0"));
}

TEST_F(RenumberingTest, LeavesWhatNamesNoNode) {
  SetModel({{{2, 0}, {1, 0}}, {{1, 2}, {0, 1}, {3, 2}, {-1, 1}}});
  AddRow(GrMembers, {"x", ""});

  RenumberNodesAlongSpan();

  EXPECT_THAT(Column(GrMembers, MemberNodeI), ElementsAre("2", "0", "3", "-1", "x"));
  EXPECT_THAT(Column(GrMembers, MemberNodeJ), ElementsAre("1", "2", "1", "2", ""));
}

TEST_F(RenumberingTest, LeavesTheRowsBehindTheNodes) {
  SetModel({{{2, 0}, {1, 0}}, {}});
  AddRow(GrJoints, {"", "note"});

  RenumberNodesAlongSpan();

  EXPECT_THAT(Column(GrJoints, NodeX), ElementsAre("1", "2", ""));
  EXPECT_EQ(GrJoints.Text(3, NodeY), "note");
}

TEST_F(RenumberingTest, EndsLikeEveryChangeOfTheModel) {
  SetModel({{{2, 0}, {1, 0}}, {{1, 2}}});

  RenumberNodesAlongSpan();

  EXPECT_THAT(events, ElementsAre("NodesRenumbered", "AnalysisEnded", "ModelChanged"));
  EXPECT_EQ(NodeTable(1, NodeX), 1);
  EXPECT_EQ(MemberTable(1, MemberNodeI), 2);
}

TEST_F(RenumberingTest, ReportsWhereThereIsNothingToDo) {
  for (const ModelData& model : {ModelData{}, WarrenGirder(9)}) {
    SetModel(model);

    RenumberNodesAlongSpan();

    EXPECT_THAT(TakeMessages(),
                ElementsAre(Box(MessageIcon::Information, "The nodes are numbered along the span already")));
    EXPECT_THAT(events, IsEmpty());
  }
}

TEST_F(RenumberingTest, LeavesEveryMemberWhereItIs) {
  for (std::uint32_t seed = 1; seed <= 30; ++seed) {
    std::mt19937 random(seed);
    const int nodes = 3 + Below(60, random);
    SetModel(Renumbered(WarrenGirder(nodes), RandomOrder(nodes, random)));
    const auto ends = Ends();

    RenumberNodesAlongSpan();
    TakeMessages();

    EXPECT_EQ(Ends(), ends) << "seed " << seed;
    for (int n = 2; n <= NodeCount; ++n) EXPECT_LT(NodeTable(n - 1, NodeX), NodeTable(n, NodeX)) << "seed " << seed;
  }
}

TEST_F(RenumberingTest, WouldHelpWhereNumbersAreManyTimesAsFarApartAsTheyNeedBe) {
  SetTables(Renumbered(WarrenGirder(140), ChordsOrder(140))); // members join numbers up to 70 apart
  EXPECT_TRUE(RenumberingWouldHelp());
  SetTables(WarrenGirder(140));
  EXPECT_FALSE(RenumberingWouldHelp());
}

TEST_F(RenumberingTest, WouldNotHelpASmallTrussOrOneThatIsAsWideAsItsNumbering) {
  SetTables(Renumbered(WarrenGirder(120), ChordsOrder(120))); // 60 apart
  EXPECT_FALSE(RenumberingWouldHelp());
  ModelData wheel{{{100, 0}}, {}};
  for (int n = 2; n <= 300; ++n) {
    wheel.nodes.push_back({static_cast<float>(n % 200), static_cast<float>(n)});
    wheel.members.push_back({1, static_cast<float>(n)});
  }
  SetTables(wheel);
  EXPECT_FALSE(RenumberingWouldHelp());
}

TEST_F(RenumberingTest, JudgesOnlyMembersBetweenNodes) {
  SetTables({{{0, 0}, {1, 0}}, {{1, 2000}, {-500, 2}, {0, 1}}});
  EXPECT_FALSE(RenumberingWouldHelp());
}

} // namespace
} // namespace strutwright
