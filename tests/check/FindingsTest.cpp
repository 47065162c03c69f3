#include "CheckFixture.h"
#include "LargeModels.h"
#include "modFindings.h"

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

class FindingsTest : public CheckFixture {
 protected:
  static std::vector<Finding> Findings(const ModelData& model) { return FindOddities(TrussOf(model)); }

  static std::vector<std::string> Texts(const ModelData& model) {
    std::vector<std::string> texts;
    for (const Finding& finding : Findings(model)) texts.push_back(finding.text);
    return texts;
  }

  /// The triangle with one member more.
  static ModelData With(const MemberData& member) {
    ModelData model = Triangle();
    model.members.push_back(member);
    return model;
  }
};

constexpr const char* Ignored = " and is ignored: the analysis adds the stiffness of an earlier member in its place";

TEST_F(FindingsTest, AreNoneInASoundTruss) {
  EXPECT_THAT(Texts(Triangle()), IsEmpty());
  EXPECT_THAT(Texts(PrattTruss(40)), IsEmpty());
  EXPECT_THAT(Texts({}), IsEmpty());
}

TEST_F(FindingsTest, NameCoincidentNodes) {
  ModelData model = Triangle();
  model.nodes.push_back({4, 3, 0, 0, 3});
  model.members.push_back({4, 1});
  const auto findings = Findings(model);
  ASSERT_THAT(findings, SizeIs(2));
  EXPECT_EQ(findings[0].text, "Nodes 3 and 4 are at the same place");
  EXPECT_EQ(findings[0].kind, FindingKind::CoincidentNodes);
  EXPECT_THAT(findings[0].nodes, ElementsAre(3, 4));
  EXPECT_EQ(findings[1].text, "Member 4 lies on top of member 3");
  EXPECT_THAT(findings[1].members, ElementsAre(3, 4));
}

TEST_F(FindingsTest, TakeNodesAMillionthApartForOne) {
  ModelData model = Triangle();
  model.nodes.push_back({4.000001F, 3, 0, 0, 3});
  model.members.push_back({4, 2});
  EXPECT_THAT(Texts(model), testing::Contains("Nodes 3 and 4 are at the same place"));
  model.nodes[3].x = 4.0001F;
  EXPECT_THAT(Texts(model), testing::Not(testing::Contains("Nodes 3 and 4 are at the same place")));
}

TEST_F(FindingsTest, NameParallelMembers) {
  const auto findings = Findings(With({3, 1}));
  ASSERT_THAT(findings, SizeIs(1));
  EXPECT_EQ(findings[0].text, "Members 3 and 4 join the same nodes, 1 and 3; both bear");
  EXPECT_EQ(findings[0].kind, FindingKind::MemberOnMember);
}

TEST_F(FindingsTest, NameAMemberOnTopOfAnotherAndTheNodeOnIt) {
  const ModelData model{{{0, 0, 0, 0, 3}, {1, 1, 0, 0, 3}, {3, 3, 0, 0, 3}}, {{1, 3}, {2, 3}}};
  EXPECT_THAT(Texts(model),
              ElementsAre("Member 2 lies on top of member 1", "Node 2 lies on member 1 but is not joined to it"));
  const auto findings = Findings(model);
  EXPECT_THAT(findings[1].nodes, ElementsAre(2));
  EXPECT_THAT(findings[1].members, ElementsAre(1));
}

TEST_F(FindingsTest, LetMembersInLineMeetAtANode) {
  EXPECT_THAT(Texts({{{0, 0, 0, 0, 3}, {1, 1, 0, 0, 3}, {3, 3, 0, 0, 3}}, {{1, 2}, {2, 3}}}), IsEmpty());
}

TEST_F(FindingsTest, NameCrossingMembers) {
  ModelData model = Square();
  model.members.push_back({1, 3});
  model.members.push_back({2, 4});
  EXPECT_THAT(Texts(model), ElementsAre("Members 5 and 6 cross without a node"));
  EXPECT_THAT(Findings(model)[0].members, ElementsAre(5, 6));
}

TEST_F(FindingsTest, NameFreeNodes) {
  ModelData model = Triangle();
  model.nodes.push_back({9, 9});
  model.nodes.push_back({8, 9, 0, 0, 3});
  EXPECT_THAT(Texts(model), ElementsAre("Node 4 has no member and no support", "Node 5 has no member"));
}

TEST_F(FindingsTest, NameModuliAndAreasThatBearNothing) {
  EXPECT_THAT(Texts(With({2, 3, 0, 1000}))[1], "Member 4 has E = 0 and bears nothing");
  EXPECT_THAT(Texts(With({2, 3, 200, 0}))[1], "Member 4 has A = 0 and bears nothing");
  EXPECT_THAT(Texts(With({2, 3, -200, 1000}))[1], std::string("Member 4 has E = -200") + Ignored);
  EXPECT_THAT(Texts(With({2, 3, 200, -10}))[1], std::string("Member 4 has A = -10") + Ignored);
  ModelData model = Triangle();
  model.members[0].A = model.members[2].A = -1;
  EXPECT_THAT(Texts(model), ElementsAre("Members 1 and 3 have A = -1 and are ignored: the analysis adds the stiffness "
                                        "of an earlier member in their place"));
  model.members[0].A = model.members[2].A = 0;
  EXPECT_THAT(Texts(model), ElementsAre("Members 1 and 3 have A = 0 and bear nothing"));
}

TEST_F(FindingsTest, NameNodesThatDoNotExist) {
  EXPECT_THAT(Texts(With({3, 0})), ElementsAre("Member 4 names node 0, which does not exist"));
  EXPECT_THAT(Texts(With({9, 3})), ElementsAre("Member 4 names node 9, which does not exist"));
}

TEST_F(FindingsTest, NameMembersWithoutLength) {
  EXPECT_THAT(Texts(With({2, 2})), ElementsAre(std::string("Member 4 joins node 2 to itself") + Ignored));
  ModelData model = Triangle();
  model.nodes.push_back({4, 3, 0, 0, 3});
  model.members.push_back({4, 3});
  EXPECT_THAT(Texts(model), testing::Contains(std::string("Member 4 has no length between nodes 3 and 4") + Ignored));
}

TEST_F(FindingsTest, AskForTheUnitOfASmallArea) {
  ModelData model = PrattTruss(8);
  for (MemberData& member : model.members) member.A = 0.001F;
  const auto findings = Findings(model);
  ASSERT_THAT(findings, SizeIs(1));
  EXPECT_EQ(findings[0].text,
            "Members 1, 2, 3, 4 and 9 more have an area of 0.001 mm2; was it typed in m2 (1000 mm2)?");
  EXPECT_THAT(findings[0].members, SizeIs(13));
}

TEST_F(FindingsTest, NameUnusualAreas) {
  ModelData model = Triangle();
  model.members[1].A = 1;
  model.members[2].A = 1e6F;
  EXPECT_THAT(Texts(model), IsEmpty());
  model.members[1].A = 0.5F;
  model.members[2].A = 2e6F;
  EXPECT_THAT(Texts(model), ElementsAre("Member 2 has an area of 0.5 mm2; was it typed in m2 (500000 mm2)?",
                                        "Member 3 has an area of 2000000 mm2, over a square metre"));
}

TEST_F(FindingsTest, AskForTheUnitOfAnUnusualModulus) {
  const auto textFor = [](float E) {
    ModelData model = Triangle();
    for (MemberData& member : model.members) member.E = E;
    const auto texts = Texts(model);
    return texts.empty() ? "" : texts[0];
  };
  const std::string have = "Members 1, 2 and 3 have an E of ";
  EXPECT_EQ(textFor(210000), have + "210000 kN/mm2; was it typed in N/mm2 (210 kN/mm2)?");
  EXPECT_EQ(textFor(2.1e8F), have + "2.1E+08 kN/mm2; was it typed in kN/m2 (210 kN/mm2)?");
  EXPECT_EQ(textFor(2.1e11F), have + "2.1E+11 kN/mm2; was it typed in N/m2 (210 kN/mm2)?");
  EXPECT_EQ(textFor(0.05F), have + "0.05 kN/mm2, far out of the usual");
  EXPECT_EQ(textFor(0.1F), "");
  EXPECT_EQ(textFor(1200), "");
}

TEST_F(FindingsTest, NameUnusualLengths) {
  ModelData model = Triangle();
  for (NodeData& node : model.nodes) {
    node.x *= 1000;
    node.y *= 1000;
  }
  EXPECT_THAT(Texts(model),
              ElementsAre("Members 1, 2 and 3 are longer than 1000 m; were the coordinates typed in mm?"));
  model = Triangle();
  model.nodes[1] = {4.005F, 3, 0, 0, 1};
  EXPECT_THAT(Texts(model), ElementsAre("Member 2 is shorter than 10 mm"));
}

TEST_F(FindingsTest, AreCountedBeyondFiftyOfAKind) {
  ModelData model = Triangle();
  for (int n = 0; n < 53; ++n) model.nodes.push_back({static_cast<float>(20 + n), 9, 0, 0, 3});
  const auto texts = Texts(model);
  ASSERT_THAT(texts, SizeIs(51));
  EXPECT_EQ(texts[49], "Node 53 has no member");
  EXPECT_EQ(texts[50], "And 3 more of this kind");
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

TEST_F(FindingsTest, MissNoCrossingOfARandomTangle) {
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
  std::set<std::pair<int, int>> crossings;
  for (const Finding& finding : FindOddPlaces(TrussOf(model))) {
    if (finding.kind == FindingKind::CrossingMembers) crossings.insert({finding.members[0], finding.members[1]});
  }
  EXPECT_EQ(crossings, CrossingsByHand(model)) << "seed " << seed;
  EXPECT_GT(crossings.size(), 100U);
}

} // namespace
} // namespace strutwright
