#include "FindingsFixture.h"
#include "LargeModels.h"
#include "Pattern.h"
#include "TrussFamilies.h"

#include <cmath>
#include <random>
#include <set>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using OddPlacesTest = FindingsFixture;

std::string CrossText(int first, int second) {
  return "Members " + std::to_string(first) + " and " + std::to_string(second) + " cross without a node";
}

TEST_F(OddPlacesTest, NameAllNodesAtOnePlaceAtOnce) {
  ModelData model = Triangle();
  for (int n = 0; n < 6; ++n) model.nodes.push_back({4, 3, 0, 0, 3});
  const auto findings = Findings(model);
  EXPECT_EQ(findings[0].text, "Nodes 3, 4, 5, 6 and 3 more are at the same place");
  EXPECT_THAT(findings[0].nodes, ElementsAre(3, 4, 5, 6, 7, 8, 9));
  EXPECT_THAT(TextsOf(FindingKind::CoincidentNodes, model), SizeIs(1));
}

TEST_F(OddPlacesTest, JudgePlacesByTheNodesThemselves) {
  ModelData model{{{0, 0, 0, 0, 3}, {1, 0, 0, 0, 1}, {1, 0.75F, 5, 0, 0}}, {{1, 2}, {2, 3}, {3, 1}}};
  for (const float far : {1e6F, 5e6F, 1e12F, 3e38F}) {
    model.nodes.resize(3);
    model.nodes.push_back({far, far, 0, 0, 3});
    EXPECT_THAT(Texts(model), ElementsAre("Node 4 has no member")) << far;
  }
  model.nodes[3] = {1, 1e-7F, 0, 0, 3};
  EXPECT_THAT(Texts(model), testing::Contains("Nodes 2 and 4 are at the same place"));
}

TEST_F(OddPlacesTest, JudgeMembersByThemselves) {
  ModelData model = Square();
  model.members.push_back({1, 3});
  model.members.push_back({2, 4});
  model.nodes.push_back({2, 0, 0, 0, 3});
  const std::vector<std::string> texts = Texts(model);
  model.nodes.push_back({-1e9F, 1e9F, 0, 0, 3});
  model.nodes.push_back({-1e9F, 2e9F, 0, 0, 3});
  model.members.push_back({6, 7});
  EXPECT_EQ(TextsOf(FindingKind::CrossingMembers, model), std::vector<std::string>{CrossText(5, 6)});
  EXPECT_THAT(TextsOf(FindingKind::NodeOnMember, model),
              ElementsAre("Node 5 lies on member 1 but is not joined to it"));
}

TEST_F(OddPlacesTest, TakeNoTimeForWhatIsFarAway) {
  EXPECT_THAT(Texts({{{1e12F, 0}}, {}}), ElementsAre("Node 1 has no member and no support"));
  EXPECT_THAT(Texts({{{3e38F, 0, 0, 0, 3}, {0, -3e38F, 0, 0, 3}, {1, 1, 0, 0, 3}}, {{1, 3}, {3, 2}}}),
              ElementsAre("Members 1 and 2 are longer than 1000 m; were the coordinates typed in mm?"));
  // Floats of this size are 1024 apart, so that 6 m are nothing.
  EXPECT_THAT(Texts({{{1e10F, 0, 0, 0, 3}, {1e10F, 6, 0, 0, 3}}, {{1, 2}}}),
              ElementsAre("Nodes 1 and 2 are at the same place"));
}

/// Nodes on a circle, each joined to its middle.
ModelData StarOf(int spokes) {
  ModelData model{{{0, 0, 0, -1, 0}}, {}};
  for (int n = 2; n <= spokes + 1; ++n) {
    const double angle = 2 * std::acos(-1.0) * (n - 2) / spokes;
    model.nodes.push_back(
        {static_cast<float>(100 * std::cos(angle)), static_cast<float>(100 * std::sin(angle)), 0, 0, 3});
    model.members.push_back({1, static_cast<float>(n)});
  }
  return model;
}

TEST_F(OddPlacesTest, LoseNoRepeatedMemberOfAStar) {
  ModelData model = StarOf(4000);
  model.members.push_back({3900, 1});
  EXPECT_THAT(Texts(model), ElementsAre("Members 3899 and 4001 join the same nodes, 1 and 3900; both bear"));
}

TEST_F(OddPlacesTest, LoseNoMemberOnTopOfARayOfAStar) {
  for (const std::size_t node : {399U, 200U, 1U}) {
    ModelData model = StarOf(400);
    const NodeData end = model.nodes[node];
    model.nodes.push_back({end.x / 2, end.y / 2, 0, 0, 3});
    model.members.push_back({1, 402});
    const std::string member = "member " + std::to_string(node);
    EXPECT_THAT(Texts(model), ElementsAre("Member 401 lies on top of " + member,
                                          "Node 402 lies on " + member + " but is not joined to it"));
  }
}

TEST_F(OddPlacesTest, CompareAllOfAWheel) {
  ModelData model = StarOf(4000);
  for (int n = 2; n <= 4001; ++n)
    model.members.push_back({static_cast<float>(n), static_cast<float>(n == 4001 ? 2 : n + 1)});
  EXPECT_THAT(Texts(model), IsEmpty());
}

TEST_F(OddPlacesTest, CountWithoutMakingThemAll) {
  const auto findings = Findings({std::vector<NodeData>(16383), std::vector<MemberData>(16383)});
  ASSERT_THAT(findings, SizeIs(1 + 51 + 51));
  EXPECT_EQ(findings[0].text, "Nodes 1, 2, 3, 4 and 16379 more are at the same place");
  EXPECT_EQ(findings[51].text, "And 16333 more of this kind");
  EXPECT_EQ(findings[51].kind, FindingKind::FreeNode);
  EXPECT_EQ(findings[102].text, "And 16333 more of this kind");
  EXPECT_EQ(findings[102].kind, FindingKind::BadNodeNumber);
}

TEST_F(OddPlacesTest, NameManyMembersOfTwoNodesTogether) {
  ModelData model = Triangle();
  for (int m = 4; m <= 30000; ++m) model.members.push_back({1, 2});
  model.members.push_back({3, 2, 0, 1000});
  EXPECT_THAT(TextsOf(FindingKind::MemberOnMember, model),
              ElementsAre("Members 1, 4, 5, 6 and 29994 more join the same nodes, 1 and 2; all bear",
                          "Members 2 and 30001 join the same nodes, 2 and 3"));
}

/// Members that all cross each other.
ModelData Mikado(int sticks) {
  ModelData model;
  for (int k = 0; k < sticks; ++k) model.nodes.push_back({static_cast<float>(k), 0, 0, 0, 3});
  for (int k = 0; k < sticks; ++k) {
    model.nodes.push_back({static_cast<float>(sticks - k) + 0.3F, 5000, 0, 0, 3});
    model.members.push_back({static_cast<float>(k + 1), static_cast<float>(sticks + k + 1)});
  }
  return model;
}

constexpr const char* TooMany = "Too many members are close together to compare all of them; more of them may cross, "
                                "or lie on top of each other or on nodes";

TEST_F(OddPlacesTest, SayWhereTheyGaveUp) {
  const auto texts = TextsOf(FindingKind::CrossingMembers, Mikado(3500));
  ASSERT_THAT(texts, SizeIs(52));
  EXPECT_EQ(texts[0], CrossText(1, 2));
  EXPECT_THAT(texts[50], MatchesPattern("And at least [0-9]+ more of this kind"));
  EXPECT_EQ(texts[51], TooMany);
}

TEST_F(OddPlacesTest, CountManyCrossings) {
  const auto texts = TextsOf(FindingKind::CrossingMembers, Mikado(300));
  ASSERT_THAT(texts, SizeIs(51));
  EXPECT_EQ(texts[50], "And " + std::to_string(300 * 299 / 2 - 50) + " more of this kind");
}

/// A square grid whose squares have two diagonals that cross; the nodes of the lowest row lie on one member.
ModelData CrossBraced(int side) {
  ModelData model;
  const auto node = [side](int row, int column) { return static_cast<float>(row * side + column + 1); };
  for (int row = 0; row < side; ++row) {
    for (int column = 0; column < side; ++column) {
      model.nodes.push_back({static_cast<float>(column), static_cast<float>(row), 0, -1, row == 0 ? 3.0F : 0.0F});
      if (row == 0 || column == 0) continue;
      model.members.push_back({node(row - 1, column - 1), node(row, column)});
      model.members.push_back({node(row - 1, column), node(row, column - 1)});
    }
  }
  model.members.push_back({node(0, 0), node(0, side - 1)});
  return model;
}

TEST_F(OddPlacesTest, AreTheSameAtEveryScale) {
  const ModelData model = CrossBraced(12);
  const auto textsAt = [&model](float factor) {
    FindingList findings;
    FindOddPlaces(TrussOf(Scaled(model, 1, 1, factor)), findings);
    std::vector<std::string> texts;
    for (const Finding& finding : findings.Take()) texts.push_back(finding.text);
    return texts;
  };
  const auto texts = textsAt(1);
  EXPECT_THAT(texts, testing::Contains("And " + std::to_string(11 * 11 - 50) + " more of this kind"));
  EXPECT_THAT(texts, testing::Contains("Node 11 lies on member 243 but is not joined to it"));
  EXPECT_THAT(texts, SizeIs(51 + 10));
  for (const float factor : {1e-6F, 1e-3F, 0.3F, 7.0F, 1e6F}) EXPECT_EQ(textsAt(factor), texts) << factor;
}

/// Crossings of all pairs, one by one.
std::set<std::pair<int, int>> CrossingsByHand(const ModelData& model) {
  std::set<std::pair<int, int>> crossings;
  const auto side = [&model](float a, float b, float c) {
    const auto at = [&model](float n) { return model.nodes[static_cast<std::size_t>(n) - 1]; };
    return (at(b).x - at(a).x) * (at(c).y - at(a).y) - (at(b).y - at(a).y) * (at(c).x - at(a).x) > 0;
  };
  for (std::size_t q = 0; q < model.members.size(); ++q) {
    for (std::size_t p = 0; p < q; ++p) {
      const MemberData& a = model.members[p];
      const MemberData& b = model.members[q];
      if (a.i == b.i || a.i == b.j || a.j == b.i || a.j == b.j) continue;
      if (side(a.i, a.j, b.i) == side(a.i, a.j, b.j) || side(b.i, b.j, a.i) == side(b.i, b.j, a.j)) continue;
      crossings.insert({static_cast<int>(p) + 1, static_cast<int>(q) + 1});
    }
  }
  return crossings;
}

TEST_F(OddPlacesTest, MissNoCrossingOfARandomTangle) {
  constexpr std::uint32_t seed = 99;
  std::mt19937 random(seed);
  ModelData model;
  for (int n = 0; n < 60; ++n) {
    model.nodes.push_back(
        {static_cast<float>(Below(10000, random)) / 100, static_cast<float>(Below(10000, random)) / 100});
  }
  for (int m = 0; m < 80; ++m) {
    const int i = Below(60, random);
    model.members.push_back({static_cast<float>(i + 1), static_cast<float>((i + 1 + Below(59, random)) % 60 + 1)});
  }
  const std::set<std::pair<int, int>> crossings = CrossingsByHand(model);
  ASSERT_GT(crossings.size(), 100U);
  std::vector<std::string> texts;
  for (const auto& [first, second] : crossings) texts.push_back(CrossText(first, second));
  texts.resize(MaxFindingsOfAKind);
  texts.push_back("And " + std::to_string(crossings.size() - MaxFindingsOfAKind) + " more of this kind");
  EXPECT_EQ(TextsOf(FindingKind::CrossingMembers, model), texts) << "seed " << seed;
}

} // namespace
} // namespace strutwright
