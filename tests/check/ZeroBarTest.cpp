#include "CheckFixture.h"
#include "modZeroBars.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class ZeroBarTest : public CheckFixture {
 protected:
  static std::vector<std::string> ZeroBars(const ModelData& model) {
    const CheckedTruss truss = TrussOf(model);
    std::vector<std::string> texts;
    for (const ZeroBar& bar : FindZeroBars(truss, Refine(truss))) {
      texts.push_back(std::to_string(bar.member) + ": " + bar.reason);
    }
    return texts;
  }
};

/// A square with a diagonal, without loads.
ModelData BracedSquare() {
  ModelData model = Square();
  model.members.push_back({1, 3});
  model.nodes[2].forceX = 0;
  return model;
}

TEST_F(ZeroBarTest, AreBothOfAJointOfTwoWithoutLoad) {
  ModelData model = BracedSquare();
  model.nodes[2].forceX = 5;
  EXPECT_THAT(ZeroBars(model), ElementsAre("1: All other forces at node 2 act along one line",
                                           "3: Node 4 has no load and only two members, not in line",
                                           "4: Node 4 has no load and only two members, not in line"));
}

TEST_F(ZeroBarTest, AreTheThirdAtAJointWithTwoInLine) {
  const ModelData model{{{0, 0, 0, 0, 3}, {2, 0}, {4, 0, 0, 0, 1}, {2, 3, 0, -10}},
                        {{1, 2}, {2, 3}, {2, 4}, {1, 4}, {3, 4}}};
  EXPECT_THAT(ZeroBars(model), ElementsAre("3: Node 2 has no load, and its other two members are in line"));
}

TEST_F(ZeroBarTest, AreFoundFarOutWhereCoordinatesAreRounded) {
  ModelData model{{{0, 0, 0, 0, 3}, {2, 0}, {4, 0, 0, 0, 1}, {2, 3, 0, -10}}, {{1, 2}, {2, 3}, {2, 4}, {1, 4}, {3, 4}}};
  for (NodeData& node : model.nodes) {
    node.x += 700;
    node.y += 0.1F * node.x;
  }
  EXPECT_THAT(ZeroBars(model), ElementsAre("3: Node 2 has no load, and its other two members are in line"));
}

TEST_F(ZeroBarTest, AreThoseOfAPrattTruss) {
  // The middle vertical holds only the upper chord, the last lower chord only its roller; the first would pull at the
  // pin, which nothing else pushes sideways.
  EXPECT_THAT(ZeroBars(PrattTruss(10)),
              ElementsAre("2: Its force is below a ten-millionth of the largest, though no rule of joints shows why",
                          "9: Node 6 has no load, and its other two members are in line",
                          "14: All other forces at node 9 act along one line"));
}

TEST_F(ZeroBarTest, AreFoundOneAfterAnother) {
  // Node 4 has two in line and a third; without that, node 5 has only one left.
  const ModelData model{{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {2, 3, 0, -10}, {1, 1.5F}, {0, 3}},
                        {{1, 2}, {1, 4}, {4, 3}, {2, 3}, {4, 5}, {3, 5}}};
  EXPECT_THAT(ZeroBars(model), ElementsAre("5: Node 4 has no load, and its other two members are in line",
                                           "6: Node 5 has no load and no other member besides members without force"));
}

TEST_F(ZeroBarTest, AreAloneAtARollerThatTheyDoNotPushAcross) {
  const ModelData model{{{0, 0, 0, 0, 3}, {0, 3, 4, 0, 2}, {4, 0, 0, 0, 1}}, {{1, 2}, {1, 3}}};
  EXPECT_THAT(ZeroBars(model), ElementsAre("1: All other forces at node 2 act along one line",
                                           "2: All other forces at node 3 act along one line"));
}

TEST_F(ZeroBarTest, AreWhatNoLoadReaches) {
  ModelData model{{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 3}, {2, 3, 5, -10}, {2, -3}, {1, -5}},
                  {{1, 3}, {2, 3}, {1, 2}, {1, 4}, {2, 4}, {1, 5}, {4, 5}, {2, 5}}};
  EXPECT_THAT(ZeroBars(model), ElementsAre("3: No load or prestress reaches it", "4: No load or prestress reaches it",
                                           "5: No load or prestress reaches it", "6: No load or prestress reaches it",
                                           "7: No load or prestress reaches it", "8: No load or prestress reaches it"));
  model.members[7].PS = 3;
  EXPECT_THAT(ZeroBars(model), ElementsAre("3: No load or prestress reaches it"));
}

TEST_F(ZeroBarTest, ShowByTheSolutionAloneWhereNoRuleDoes) {
  // Three bars at a joint, the load along the middle one but held back: symmetry frees the tie.
  const ModelData model{{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 3}, {1, 3, 5, 0}, {3, 3, 5, 0}},
                        {{1, 3}, {2, 4}, {3, 4}, {1, 4}, {2, 3}}};
  EXPECT_THAT(ZeroBars(model),
              ElementsAre("3: Its force is below a ten-millionth of the largest, though no rule of joints shows why"));
}

TEST_F(ZeroBarTest, AreNotThoseThatALoadPulls) {
  ModelData model = BracedSquare();
  model.nodes[3].forceX = 5;
  model.nodes[3].forceY = -1;
  EXPECT_THAT(ZeroBars(model), ElementsAre("1: All other forces at node 2 act along one line"));
}

TEST_F(ZeroBarTest, SeeAlongWhichLineALoadActs) {
  ModelData model = BracedSquare();
  model.nodes[3].forceY = -1; // down on member 4 alone
  EXPECT_THAT(ZeroBars(model),
              ElementsAre("1: All other forces at node 2 act along one line",
                          "2: Node 3 has no load and only two members, not in line besides members without force",
                          "3: All other forces at node 4 act along one line",
                          "5: Node 3 has no load and only two members, not in line besides members without force"));
}

TEST_F(ZeroBarTest, LeaveOutWhatCanNotBear) {
  ModelData model = Triangle();
  model.members.push_back({1, 2, 0, 1000});
  // Member 1 goes because node 2 is on a roller; member 4 has nothing to do with it.
  EXPECT_THAT(ZeroBars(model),
              ElementsAre("1: All other forces at node 2 act along one line besides members without force"));
}

TEST_F(ZeroBarTest, TakeNoPrestressOfAMemberThatCanHoldNone) {
  ModelData model = BracedSquare();
  model.nodes[2].forceX = 5;
  const std::vector<std::string> without = ZeroBars(model);
  model.members.push_back({4, 2, 0, 1000, 3});
  EXPECT_EQ(ZeroBars(model).size(), without.size());
  EXPECT_THAT(without, Not(IsEmpty()));
}

TEST_F(ZeroBarTest, AreNotSeenInAFlatChainBecauseOfAMemberFarAway) {
  const ModelData flat{{{0, 0, 0, 0, 3},
                        {2, 0.00008F, 0, 0, 0},
                        {4, 0, 0, 0, 1},
                        {2, 3, 0, -1000, 0},
                        {1000, 0, 0, 0, 3},
                        {1000.1F, 0, 0, 0, 3}},
                       {{1, 2}, {2, 3}, {2, 4}, {1, 4}, {3, 4}, {5, 6}}};
  EXPECT_THAT(ZeroBars(flat), ElementsAre("6: No load or prestress reaches it"));
}

} // namespace
} // namespace strutwright
