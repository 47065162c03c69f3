#include "HandFamilies.h"
#include "HandFixture.h"
#include "LargeModels.h"
#include "TextbookTrusses.h"
#include "modZeroMembers.h"

#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ZeroMembersTest : public HandFixture {
 protected:
  static std::vector<ZeroMember> Zeros(const ModelData& model) { return FindZeroMembers(HandTrussOf(model)); }

  static std::vector<int> MembersOf(const std::vector<ZeroMember>& zeros) {
    std::vector<int> members;
    for (const ZeroMember& zero : zeros) members.push_back(zero.member);
    return members;
  }
};

/// A triangle with a corner hung on it at which nothing acts.
ModelData WithIdleCorner() {
  ModelData model = Triangle();
  model.nodes.push_back({7, 2});
  model.members.push_back({2, 4});
  model.members.push_back({3, 4});
  return model;
}

TEST_F(ZeroMembersTest, AreBothOfTwoThatAreNotInLine) {
  const std::vector<ZeroMember> zeros = Zeros(WithIdleCorner());
  // With them gone, nothing but the reaction acts along the line of member 2 at node 2.
  EXPECT_THAT(MembersOf(zeros), ElementsAre(4, 5, 1));
  EXPECT_EQ(zeros[0].rule, ZeroRule::TwoMembers);
  EXPECT_EQ(zeros[0].node, 4);
  EXPECT_EQ(zeros[0].text, "At node 4 only members 4 and 5 can bear anything, and they are not in line");
  EXPECT_EQ(zeros[2].rule, ZeroRule::AcrossLine);
  EXPECT_EQ(zeros[2].text, "At node 2 member 2 and the reaction in y act along one line, and member 1 goes across it");
}

TEST_F(ZeroMembersTest, AreThoseAcrossALoad) {
  ModelData model = WithIdleCorner();
  // The load lies along member 5, from node 3 (4, 3) to node 4 (7, 2).
  model.nodes[3].forceX = 6;
  model.nodes[3].forceY = -2;
  const std::vector<ZeroMember> zeros = Zeros(model);
  ASSERT_FALSE(zeros.empty());
  EXPECT_EQ(zeros[0].member, 4);
  EXPECT_EQ(zeros[0].text, "At node 4 member 5 and the load act along one line, and member 4 goes across it");
}

TEST_F(ZeroMembersTest, AreNoneWhereALoadPullsAslant) {
  ModelData model = WithIdleCorner();
  model.nodes[3].forceY = -2;
  EXPECT_THAT(Zeros(model), IsEmpty());
}

TEST_F(ZeroMembersTest, AreALoneMemberToo) {
  // A node on one member only: the truss is a mechanism, but this much a joint shows.
  ModelData model = Triangle();
  model.nodes.push_back({7, 2});
  model.members.push_back({2, 4});
  const std::vector<ZeroMember> zeros = Zeros(model);
  ASSERT_FALSE(zeros.empty());
  EXPECT_EQ(zeros.front().rule, ZeroRule::OnlyMember);
  EXPECT_EQ(zeros.front().text, "At node 4 only member 4 can bear anything, and nothing pulls at it");
}

TEST_F(ZeroMembersTest, TakeAReactionForNoneWhereNothingAsksForIt) {
  // Loads go down and only node 1 holds in x: its reaction is upright, as is member 2.
  const ModelData frame{{{0, 0, 0, 0, 3}, {0, 3}, {4, 0, 0, 0, 1}, {4, 3, 0, -10}},
                        {{1, 3}, {1, 2}, {2, 4}, {3, 4}, {2, 3}}};
  const std::vector<ZeroMember> zeros = Zeros(frame);
  ASSERT_FALSE(zeros.empty());
  EXPECT_EQ(zeros[0].member, 1);
  EXPECT_EQ(zeros[0].text,
            "At node 1 member 2 and the reaction in y act along one line, and member 1 goes across it; the "
            "reaction in x is 0, since no load has a part in x and no other support holds in it");
  ModelData pushed = frame;
  pushed.nodes[3].forceX = 1;
  for (const ZeroMember& zero : Zeros(pushed)) EXPECT_NE(zero.node, 1);
}

TEST_F(ZeroMembersTest, SayWhyAReactionAlongYIsNone) {
  // Pushed to the right only, held upright at node 3 alone: nothing is left there but two members.
  const ModelData cantilever{{{0, 0, 0, 0, 2}, {0, 2, 0, 0, 2}, {2, 0, 0, 0, 1}, {1, 1, 5, 0}},
                             {{1, 2}, {1, 4}, {2, 4}, {1, 3}, {3, 4}}};
  const std::vector<ZeroMember> zeros = Zeros(cantilever);
  ASSERT_EQ(zeros.size(), 2U);
  EXPECT_EQ(zeros[0].rule, ZeroRule::TwoMembers);
  EXPECT_EQ(zeros[0].text,
            "At node 3 only members 4 and 5 can bear anything, and they are not in line; the reaction in y "
            "is 0, since no load has a part in y and no other support holds in it");
}

TEST_F(ZeroMembersTest, SeeALineThroughTheRoundingOfCoordinates) {
  // A rafter of slope 0.3 from (0.1, 0.03) to (0.7, 0.21) and on to (1.3, 0.39), and a strut below its middle.
  const ModelData rafter{{{0.1F, 0.03F, 0, 0, 3}, {0.7F, 0.21F}, {1.3F, 0.39F, 0, -1}, {1, 0, 0, 0, 1}},
                         {{1, 2}, {2, 3}, {2, 4}, {3, 4}, {1, 4}}};
  EXPECT_EQ(Zeros(rafter).at(0).member, 3);
}

TEST_F(ZeroMembersTest, AreListedApartWhereOnlyTheNumbersShowThem) {
  // Equal loads at both inner nodes of three panels: no shear in the middle one, which only a section shows.
  ModelData model = ThreePanels().model;
  model.nodes[1].forceY = model.nodes[2].forceY = -1200;
  model.nodes[5].forceX = 0;
  const HandTruss truss = HandTrussOf(model);
  const std::vector<ZeroMember> zeros = FindZeroMembers(truss);
  EXPECT_THAT(zeros, IsEmpty());
  EXPECT_THAT(ZeroByNumbers(truss, SolveByHand(truss).forces, zeros), ElementsAre(8));
}

/// Whether a member bears nothing whatever the size of the loads: none of their parts alone moves it.
std::set<int> ZeroForEveryLoad(const ModelData& model) {
  std::set<int> zero;
  for (std::size_t m = 1; m <= model.members.size(); ++m) zero.insert(static_cast<int>(m));
  for (std::size_t n = 0; n < model.nodes.size(); ++n) {
    if (model.nodes[n].forceX == 0 && model.nodes[n].forceY == 0) continue;
    ModelData one = model;
    for (NodeData& node : one.nodes) node.forceX = node.forceY = 0;
    one.nodes[n].forceX = model.nodes[n].forceX;
    one.nodes[n].forceY = model.nodes[n].forceY;
    SetTables(one);
    const RefinedSolution solution = Refine(ReadTruss());
    double largest = 0;
    for (const double force : solution.forces) largest = std::max(largest, std::abs(force));
    std::erase_if(zero, [&](int member) {
      return std::abs(solution.forces[static_cast<std::size_t>(member)]) > 1e-9 * std::max(largest, 1e-3);
    });
  }
  return zero;
}

/// Leaves the load of one node in four, upright.
ModelData FewerLoads(ModelData model, std::mt19937& random) {
  for (NodeData& node : model.nodes) {
    node.forceX = 0;
    if (Below(4, random) != 0) node.forceY = 0;
  }
  return model;
}

// On two hundred trusses nothing that a rule finds bears a force.  What the rank of the equations finds beyond the
// rules are members at which a joint shows nothing: they take a section, or a sum of moments.
TEST_F(ZeroMembersTest, FoundByRuleAreZeroByRankOnTwoHundredTrusses) {
  std::mt19937 random(20261122);
  int byRule = 0;
  int byRank = 0;
  int same = 0;
  for (int number = 0; number < 200; ++number) {
    SCOPED_TRACE(number);
    const ModelData model = FewerLoads(SeededDeterminate(number, random).model, random);
    const std::vector<ZeroMember> zeros = Zeros(model);
    const std::set<int> rank = ZeroForEveryLoad(model);
    for (const ZeroMember& zero : zeros) ASSERT_TRUE(rank.contains(zero.member)) << zero.text;
    const HandTruss truss = HandTrussOf(model);
    const std::vector<int> others = ZeroByNumbers(truss, SolveByHand(truss).forces, zeros);
    // Rules and numbers together find all that the rank does.
    std::set<int> found(others.begin(), others.end());
    for (const ZeroMember& zero : zeros) found.insert(zero.member);
    for (const int member : rank) ASSERT_TRUE(found.contains(member)) << member;
    byRule += static_cast<int>(zeros.size());
    byRank += static_cast<int>(rank.size());
    if (zeros.size() == rank.size()) ++same;
  }
  RecordProperty("by_rule", byRule);
  RecordProperty("by_rank", byRank);
  RecordProperty("same", same);
  EXPECT_GE(same, 190);
}

} // namespace
} // namespace strutwright
