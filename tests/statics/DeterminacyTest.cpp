#include "HandFixture.h"
#include "TextbookTrusses.h"
#include "modDeterminacy.h"
#include "modRigidParts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DeterminacyTest : public HandFixture {
 protected:
  static Determinacy Judged(const ModelData& model) { return JudgeDeterminacy(HandTrussOf(model)); }
};

TEST_F(DeterminacyTest, OfNoNodeIsEmpty) {
  const Determinacy verdict = Judged({});
  EXPECT_EQ(verdict.kind, TrussKind::Empty);
  EXPECT_EQ(verdict.sentence, "The model has no node");
  EXPECT_EQ(KindText(verdict), "empty");
}

TEST_F(DeterminacyTest, CountsAndNamesASimpleTruss) {
  const Determinacy verdict = Judged(Triangle());
  EXPECT_EQ(verdict.kind, TrussKind::Simple);
  EXPECT_EQ(KindText(verdict), "simple");
  EXPECT_EQ(verdict.sentence, "b + r = 3 + 3 = 6 = 2n: determinate, a simple truss: joint after joint has at most two "
                              "unknown forces");
  EXPECT_EQ(verdict.nodes, 3);
  EXPECT_EQ(verdict.members, 3);
  EXPECT_EQ(verdict.reactions, 3);
}

TEST_F(DeterminacyTest, NamesACompoundAndAComplexTruss) {
  EXPECT_THAT(Judged(TwoTriangles()).sentence,
              HasSubstr("b + r = 19 + 3 = 22 = 2n: determinate, a compound truss: simple parts joined by hinges and "
                        "bars"));
  EXPECT_THAT(Judged(SubstituteMember().model).sentence,
              HasSubstr("b + r = 9 + 3 = 12 = 2n: determinate, a complex truss: it is not put together of simple "
                        "parts"));
}

TEST_F(DeterminacyTest, SaysIndeterminateOnlyBeyondTheCount) {
  ModelData model = Triangle();
  model.nodes[1].support = 3;
  const Determinacy verdict = Judged(model);
  EXPECT_EQ(verdict.kind, TrussKind::Indeterminate);
  EXPECT_EQ(verdict.degree, 1);
  EXPECT_EQ(KindText(verdict), "indeterminate to 1");
  EXPECT_EQ(verdict.sentence,
            "b + r = 3 + 4 = 7 > 2n = 6: indeterminate to degree 1; equilibrium alone leaves as many forces open");
  model.nodes[2].support = 3;
  EXPECT_EQ(KindText(Judged(model)), "indeterminate to 3");
}

TEST_F(DeterminacyTest, NamesTheNodesOfAMechanismWithTooFewMembers) {
  ModelData model = Square();
  const Determinacy verdict = Judged(model);
  EXPECT_EQ(verdict.kind, TrussKind::Mechanism);
  EXPECT_EQ(verdict.motions, 1);
  EXPECT_EQ(verdict.degree, 0);
  EXPECT_THAT(verdict.sentence, HasSubstr(" < 2n = 8: a mechanism. Nodes "));
  EXPECT_THAT(verdict.sentence, HasSubstr(" can move in one way; no member or support resists this"));
}

/// Two panels: one with both diagonals, one with none.
ModelData MisplacedDiagonal() {
  return {{{0, 0, 0, 0, 3}, {4, 0}, {8, 0, 0, -10, 1}, {0, 3}, {4, 3}, {8, 3}},
          {{1, 2}, {2, 3}, {4, 5}, {5, 6}, {1, 4}, {2, 5}, {3, 6}, {1, 5}, {4, 2}}};
}

TEST_F(DeterminacyTest, SeesAMechanismThatTheCountDoesNot) {
  const Determinacy verdict = Judged(MisplacedDiagonal());
  EXPECT_EQ(verdict.kind, TrussKind::Mechanism);
  EXPECT_EQ(verdict.sentence, "b + r = 9 + 3 = 12 = 2n, and yet a mechanism. Nodes 2, 4, 5 and 6 can move in one "
                              "way; no member or support resists this");
  ASSERT_EQ(verdict.motion.size(), 13U);
  EXPECT_DOUBLE_EQ(LargestOf(verdict.motion), 1);
}

TEST_F(DeterminacyTest, SeesAMechanismWithMoreMembersThanTheCountAsksFor) {
  ModelData model = MisplacedDiagonal();
  model.members.push_back({1, 2});
  model.members.push_back({4, 1});
  const Determinacy verdict = Judged(model);
  EXPECT_EQ(verdict.kind, TrussKind::Mechanism);
  EXPECT_THAT(verdict.sentence, HasSubstr("b + r = 11 + 3 = 14 > 2n = 12, and yet a mechanism. "));
  EXPECT_EQ(verdict.degree, 0);
}

TEST_F(DeterminacyTest, SeesAStraightChainThroughTheRoundingOfItsNodes) {
  for (const float slope : {0.1F, 0.3F, 0.7F, 3.3F}) {
    const ModelData chain{{{10, slope * 10, 0, 0, 3}, {10.7F, slope * 10.7F, 0, -1}, {11.5F, slope * 11.5F, 0, 0, 3}},
                          {{1, 2}, {2, 3}}};
    EXPECT_EQ(Judged(chain).kind, TrussKind::Mechanism) << slope;
    EXPECT_THAT(Judged(chain).movingNodes, ElementsAre(2)) << slope;
  }
}

TEST_F(DeterminacyTest, TakesAFlatChainOfExactNumbersForWhatItIs) {
  const ModelData flat{{{0, 0, 0, 0, 3}, {1000, 0.001F, 0, -1}, {2000, 0, 0, 0, 3}}, {{1, 2}, {2, 3}}};
  EXPECT_EQ(Judged(flat).kind, TrussKind::Simple);
}

TEST_F(DeterminacyTest, CountsTwoMotionsOfANodeWithoutMember) {
  ModelData model = Triangle();
  model.nodes.push_back({9, 9});
  const Determinacy verdict = Judged(model);
  EXPECT_EQ(verdict.motions, 2);
  EXPECT_THAT(verdict.movingNodes, ElementsAre(4));
  EXPECT_THAT(verdict.sentence, HasSubstr("Node 4 can move in 2 ways"));
}

TEST_F(DeterminacyTest, NamesTenNodesAndCountsTheOthers) {
  ModelData model;
  for (int n = 0; n < 13; ++n) model.nodes.push_back({static_cast<float>(n), 0});
  EXPECT_THAT(Judged(model).sentence, HasSubstr("Nodes 1, 2, 3, 4, 5, 6, 7, 8, 9, 10 and 3 more can move in 26 ways"));
}

TEST_F(DeterminacyTest, CountsMembersWhateverTheirModulusAndArea) {
  ModelData model = Triangle();
  model.members[0].E = -200;
  model.members[1].A = 0;
  EXPECT_EQ(Judged(model).kind, TrussKind::Simple);
  EXPECT_THAT(HandTrussOf(model).notes, IsEmpty());
}

TEST_F(DeterminacyTest, LeavesOutMembersWithoutLengthOrNode) {
  ModelData model = Triangle();
  model.members.push_back({2, 2});
  model.members.push_back({1, 9});
  model.members.push_back({0, 2});
  const HandTruss truss = HandTrussOf(model);
  EXPECT_THAT(truss.notes, ElementsAre("Member 4 has no length and is left out",
                                       "Member 5 names node 9, which does not exist, and is left out",
                                       "Member 6 names node 0, which does not exist, and is left out"));
  EXPECT_EQ(JudgeDeterminacy(truss).kind, TrussKind::Simple);
}

TEST_F(DeterminacyTest, SaysThatPrestressChangesNoForce) {
  ModelData model = Triangle();
  const HandSolution before = Solved(model);
  model.members[1].PS = 50;
  EXPECT_THAT(HandTrussOf(model).notes,
              ElementsAre("Prestress changes no force that statics alone can find: the pair of forces that it puts on "
                          "the two nodes and the member's own part cancel; only the forces that an indeterminate "
                          "truss leaves open change with it"));
  EXPECT_EQ(Solved(model).forces.members, before.forces.members);
  EXPECT_NEAR(ByStiffness(model).forces[2], before.forces.members[2], 1e-9);
}

TEST_F(DeterminacyTest, IsTheSameAtEveryScale) {
  for (const float scale : {1e-15F, 1e-6F, 1e6F, 1e15F}) {
    ModelData model = TwoTriangles();
    for (NodeData& node : model.nodes) {
      node.x *= scale;
      node.y *= scale;
    }
    EXPECT_EQ(Judged(model).kind, TrussKind::Compound) << scale;
  }
}

TEST_F(DeterminacyTest, FindsTheSimplePartsOfACompoundTruss) {
  EXPECT_THAT(SimpleParts(HandTrussOf(TwoTriangles())),
              ElementsAre(ElementsAre(1, 2, 3, 6, 7, 8), ElementsAre(3, 4, 5, 9, 10, 11)));
}

/// Two bodies above each other, joined by two bars on one line and one beside it.
ModelData BodiesOnThreeParallelBars() {
  return {{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 1}, {0, -1}, {6, -1}, {0, 5}, {4, 5}, {0, 6}, {7, 6}},
          {{1, 2}, {2, 3}, {1, 3}, {2, 4}, {3, 4}, {5, 6}, {6, 7}, {5, 7}, {6, 8}, {7, 8}, {1, 5}, {3, 7}, {2, 6}}};
}

TEST_F(DeterminacyTest, JoinsBodiesByAnyThreeBarsThatDoNotMeet) {
  ModelData model = BodiesOnThreeParallelBars();
  EXPECT_FALSE(JoinsToOneBody(HandTrussOf(model)));
  model.members.push_back({4, 8});
  EXPECT_TRUE(JoinsToOneBody(HandTrussOf(model)));
}

} // namespace
} // namespace strutwright
