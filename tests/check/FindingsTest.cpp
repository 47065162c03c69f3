#include "FindingsFixture.h"
#include "LargeModels.h"

#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using FindingsTest = FindingsFixture;

constexpr const char* Replaced = " and is ignored: the analysis adds the stiffness of member 3 in its place";

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

TEST_F(FindingsTest, CountANodeAsJoinedThatAnyMemberNames) {
  ModelData model = Triangle();
  model.nodes.push_back({4, 3, 0, 0, 3});
  model.members.push_back({4, 3});
  EXPECT_THAT(TextsOf(FindingKind::FreeNode, model), IsEmpty());
  model.members.back() = {4, 9};
  EXPECT_THAT(TextsOf(FindingKind::FreeNode, model), IsEmpty());
}

TEST_F(FindingsTest, NameModuliAndAreasThatBearNothing) {
  const std::string same = "Members 2 and 4 join the same nodes, 2 and 3";
  EXPECT_THAT(Texts(With({2, 3, 0, 1000})), ElementsAre(same, "Member 4 has E = 0 and bears nothing"));
  EXPECT_THAT(Texts(With({2, 3, 200, 0})), ElementsAre(same, "Member 4 has A = 0 and bears nothing"));
  EXPECT_THAT(Texts(With({2, 3, -200, 1000})), ElementsAre(same, std::string("Member 4 has E = -200") + Replaced));
  EXPECT_THAT(Texts(With({2, 3, 200, -10})), ElementsAre(same, std::string("Member 4 has A = -10") + Replaced));
}

TEST_F(FindingsTest, NameMembersOfOneBadValueTogether) {
  ModelData model = Triangle();
  model.members[0].A = model.members[2].A = 0;
  EXPECT_THAT(Texts(model), ElementsAre("Members 1 and 3 have A = 0 and bear nothing"));
  model = With({2, 3, 200, -1});
  model.members[2].A = -1;
  EXPECT_THAT(TextsOf(FindingKind::BadArea, model),
              ElementsAre("Members 3 and 4 have A = -1 and are ignored: the analysis adds the stiffness of member 2 "
                          "in their place"));
  std::swap(model.members[1], model.members[2]);
  EXPECT_THAT(TextsOf(FindingKind::BadArea, model),
              ElementsAre("Members 2 and 4 have A = -1 and are ignored: the analysis adds the stiffness of the last "
                          "valid member before each in its place"));
}

TEST_F(FindingsTest, SayThatNothingStandsInForTheFirstMember) {
  ModelData model = Triangle();
  model.members[0].E = -1;
  EXPECT_THAT(Texts(model), ElementsAre("Member 1 has E = -1 and is ignored: the analysis adds nothing in its place"));
  model.members[1].E = -1;
  EXPECT_THAT(Texts(model),
              ElementsAre("Members 1 and 2 have E = -1 and are ignored: the analysis adds nothing in their place"));
}

TEST_F(FindingsTest, ReportTheStandInThatTheAnalysisAdds) {
  ModelData model = Square();
  model.members = {{1, 3}, {1, 2}, {2, 3}, {3, 4}, {4, 1, 200, 500}, {2, 3, -1, 1000}, {2, 3, 200, -1}};
  EXPECT_THAT(TextsOf(FindingKind::BadArea, model),
              ElementsAre("Member 7 has A = -1 and is ignored: the analysis adds the stiffness of member 5 in its "
                          "place"));
  EXPECT_TRUE(Analyse(model));
  EXPECT_THAT(atFault, SizeIs(2));
  const std::vector<float> displacements = Displacements;
  // Members 5 and 6 are parallel and equally long.
  model.members[5] = model.members[6] = {2, 3, 200, 500};
  EXPECT_TRUE(Analyse(model));
  EXPECT_EQ(Displacements, displacements);
}

TEST_F(FindingsTest, ReportThePrestressOfWhatBearsNothing) {
  const auto texts = [](const MemberData& member) { return Texts(With(member)).back(); };
  const std::string acts = " its prestress of 5 kN acts on its nodes";
  EXPECT_EQ(texts({2, 3, 0, 1000, 5}), "Member 4 has E = 0 and bears nothing, but" + acts);
  EXPECT_EQ(texts({2, 3, 200, 0, 5}), "Member 4 has A = 0 and bears nothing, but" + acts);
  EXPECT_EQ(texts({2, 3, -1, 1000, 5}), std::string("Member 4 has E = -1") + Replaced + ", and" + acts);
  EXPECT_EQ(texts({2, 2, 0, 1000, 5}), "Member 4 has E = 0 and bears nothing");
  EXPECT_EQ(texts({2, 0, 0, 1000, 5}), "Member 4 has E = 0 and bears nothing");
  ModelData model = Triangle();
  for (MemberData& member : model.members) member = {member.i, member.j, 0, 1000, -2.5F};
  EXPECT_THAT(Texts(model), ElementsAre("Members 1, 2 and 3 have E = 0 and bear nothing, but their prestress of -2.5 "
                                        "kN acts on their nodes"));
}

TEST_F(FindingsTest, NameNodesThatDoNotExist) {
  EXPECT_THAT(Texts(With({3, 0})), ElementsAre("Member 4 names node 0, which does not exist"));
  EXPECT_THAT(Texts(With({9, 3})), ElementsAre("Member 4 names node 9, which does not exist"));
  EXPECT_THAT(Texts(With({0, 0})), ElementsAre("Member 4 names node 0, which does not exist"));
  EXPECT_THAT(Texts(With({1, 8.6F})), ElementsAre("Member 4 names node 9, which does not exist"));
  EXPECT_THAT(Texts(With({3e38F, -5})), ElementsAre("Member 4 names node 3E+38, which does not exist",
                                                    "Member 4 names node -5, which does not exist"));
}

TEST_F(FindingsTest, AddNothingForAMemberWithoutTwoNodes) {
  EXPECT_THAT(TextsOf(FindingKind::BadModulus, With({3, 0, -1, 1000})),
              ElementsAre("Member 4 has E = -1 and is ignored"));
}

TEST_F(FindingsTest, NameMembersWithoutLength) {
  EXPECT_THAT(Texts(With({2, 2})),
              ElementsAre("Member 4 joins node 2 to itself and is ignored, which changes nothing"));
  ModelData model = Triangle();
  model.nodes.push_back({4, 3, 0, 0, 3});
  model.members.push_back({4, 3});
  EXPECT_THAT(Texts(model), ElementsAre("Nodes 3 and 4 are at the same place",
                                        std::string("Member 4 has no length between nodes 3 and 4") + Replaced));
}

TEST_F(FindingsTest, ChangeNothingByAMemberJoinedToItself) {
  Analyse(Triangle());
  const std::vector<float> displacements = Displacements;
  Analyse(With({2, 2}));
  EXPECT_THAT(atFault, SizeIs(1));
  EXPECT_EQ(Displacements, displacements);
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

} // namespace
} // namespace strutwright
