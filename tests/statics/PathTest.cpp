#include "StaticsFixture.h"
#include "modPath.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Nodes = std::vector<int>;

class PathTest : public StaticsFixture {
 protected:
  PathTest() { SetTables(BridgeOfFourBays()); }

  static Nodes Read(const std::string& text) {
    const PathReading reading = ReadPath(text);
    EXPECT_EQ(reading.fault, "") << text;
    return reading.nodes;
  }

  static std::string FaultOfPath(const std::string& text) {
    const PathReading reading = ReadPath(text);
    EXPECT_THAT(reading.nodes, IsEmpty()) << text;
    return reading.fault;
  }
};

TEST_F(PathTest, KeepsItsOrder) {
  EXPECT_THAT(Read("1-5"), ElementsAre(1, 2, 3, 4, 5));
  EXPECT_THAT(Read("5-1"), ElementsAre(5, 4, 3, 2, 1));
  EXPECT_THAT(Read("1,6-8,5"), ElementsAre(1, 6, 7, 8, 5));
  EXPECT_THAT(Read("5,8-6,1"), ElementsAre(5, 8, 7, 6, 1));
}

TEST_F(PathTest, MayBeASingleNode) {
  EXPECT_THAT(Read("4"), ElementsAre(4));
  EXPECT_THAT(Read("4-4"), ElementsAre(4));
}

TEST_F(PathTest, CountsBlanksForNothing) { EXPECT_THAT(Read(" 1 - 3 , 4,\t5 "), ElementsAre(1, 2, 3, 4, 5)); }

TEST_F(PathTest, JoinsNoNumbersThatABlankParts) {
  EXPECT_EQ(FaultOfPath("1 2"), "\"1 2\" is no part of a path: write node numbers and ranges, such as 1-10 or 1,3,5");
  EXPECT_EQ(FaultOfPath("1,2 3-4"),
            "\"2 3-4\" is no part of a path: write node numbers and ranges, such as 1-10 or 1,3,5");
}

TEST_F(PathTest, NamesNodesThatExist) {
  const std::string unknown = ", but the nodes are numbered 1 to 8: name nodes that exist";
  EXPECT_EQ(FaultOfPath("1-9"), "The path names node 9" + unknown);
  EXPECT_EQ(FaultOfPath("0-3"), "The path names node 0" + unknown);
  EXPECT_EQ(FaultOfPath("1,99999999999999999999"), "The path names node 99999999999999999999" + unknown);
}

TEST_F(PathTest, NamesEachNodeOnce) {
  EXPECT_EQ(FaultOfPath("1-3,3-5"), "The path names node 3 twice: name each node once");
  EXPECT_EQ(FaultOfPath("1,2,1"), "The path names node 1 twice: name each node once");
  std::string again = "1-8";
  for (int k = 0; k < 1000; ++k) again += ",1-8";
  EXPECT_EQ(FaultOfPath(again), "The path names node 1 twice: name each node once");
}

TEST_F(PathTest, GoesOneWay) {
  const std::string cure = ": name the nodes of a path from one end to the other";
  EXPECT_EQ(FaultOfPath("1,3,2"), "From node 3 to node 2 x does not go on rising" + cure);
  EXPECT_EQ(FaultOfPath("5,3,4"), "From node 3 to node 4 x does not go on falling" + cure);
  EXPECT_EQ(FaultOfPath("1,2,6"), "From node 2 to node 6 x does not go on rising" + cure);
  EXPECT_EQ(FaultOfPath("2,6"), "From node 2 to node 6 x does not change" + cure);
}

TEST_F(PathTest, IsMadeOfNumbersAndRanges) {
  for (const std::string part : {"x", "1-2-3", "-1", "1-", "1.5", "+1", "1e0", "1;2"}) {
    EXPECT_EQ(FaultOfPath(part),
              "\"" + part + "\" is no part of a path: write node numbers and ranges, such as 1-10 or 1,3,5");
  }
  for (const char* text : {"1,,2", ",1", "1,", ","}) {
    EXPECT_EQ(FaultOfPath(text), "\"\" is no part of a path: write node numbers and ranges, such as 1-10 or 1,3,5");
  }
  for (const char* text : {"", "  "}) {
    EXPECT_EQ(FaultOfPath(text), "The path has no nodes: write node numbers and ranges, such as 1-10 or 1,3,5");
  }
}

TEST_F(PathTest, NeedsAModel) {
  SetTables({});
  EXPECT_EQ(FaultOfPath("1"), "The model has no nodes to take a path over: enter a truss first");
}

TEST_F(PathTest, IsWrittenAsShortAsItCanBe) {
  EXPECT_EQ(PathText({1, 2, 3, 4, 5}), "1-5");
  EXPECT_EQ(PathText({5, 4, 3}), "5-3");
  EXPECT_EQ(PathText({1, 3, 4, 6, 7, 8}), "1,3,4,6-8");
  EXPECT_EQ(PathText({1, 2, 3, 2}), "1-3,2");
  EXPECT_EQ(PathText({4, 5}), "4,5");
  EXPECT_EQ(PathText({9}), "9");
  EXPECT_EQ(PathText({}), "");
}

TEST_F(PathTest, IsProposedAlongTheLevelChord) { EXPECT_THAT(ProposePath(), ElementsAre(1, 2, 3, 4, 5)); }

TEST_F(PathTest, IsProposedAlongTheLoads) {
  ModelData model = BridgeOfFourBays();
  model.nodes[5].forceY = -10;
  SetTables(model);
  EXPECT_THAT(ProposePath(), ElementsAre(1, 6, 7, 8, 5));
}

// Two level chords: the lower one has the supports.
TEST_F(PathTest, IsProposedAlongTheSupports) {
  ModelData model{{{0, 0}, {4, 0}, {8, 0}, {0, 3, 0, 0, 3}, {4, 3}, {8, 3, 0, 0, 1}},
                  {{1, 2}, {2, 3}, {4, 5}, {5, 6}, {1, 4}, {2, 5}, {3, 6}, {4, 2}, {2, 6}}};
  SetTables(model);
  EXPECT_THAT(ProposePath(), ElementsAre(4, 5, 6));
  std::swap(model.nodes[0].support, model.nodes[3].support);
  std::swap(model.nodes[2].support, model.nodes[5].support);
  SetTables(model);
  EXPECT_THAT(ProposePath(), ElementsAre(1, 2, 3));
}

// The lower chain goes down 1 m on 2 m, the upper one up 2 m on 10 m.
TEST_F(PathTest, IsProposedAlongTheChainThatIsMoreLevelForItsLength) {
  SetTables({{{0, 0}, {2, -1}, {0, 1}, {5, 2}, {10, 3}}, {{1, 2}, {3, 4}, {4, 5}, {1, 3}}});
  EXPECT_THAT(ProposePath(), ElementsAre(3, 4, 5));
}

TEST_F(PathTest, IsProposedWhateverTheMembersAreLike) {
  ModelData model = BridgeOfFourBays();
  for (MemberData& member : model.members) std::swap(member.i, member.j);
  model.members.push_back({0, 3});
  model.members.push_back({2, 99});
  model.members.push_back({3, 3});
  SetTables(model);
  EXPECT_THAT(ProposePath(), ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(PathTest, IsNotProposedWhereNothingLeadsAlong) {
  SetTables({});
  EXPECT_THAT(ProposePath(), IsEmpty());
  SetTables({{{0, 0}, {0, 3}}, {{1, 2}}});
  EXPECT_THAT(ProposePath(), IsEmpty());
}

TEST_F(PathTest, IsProposedAsItCanBeRead) {
  for (const ModelData& model : {BridgeOfFourBays(), PrattTruss(40), Triangle(), Square()}) {
    SetTables(model);
    EXPECT_EQ(Read(PathText(ProposePath())), ProposePath());
  }
}

} // namespace
} // namespace strutwright
