#include "modAnalysis.h"

#include "AnalysisFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;

class AnalyseTest : public AnalysisFixture {
 protected:
  AnalysisEnd Analyse(const ModelData& model) {
    SetTables(model);
    atFault.clear();
    return AnalyseTruss({[this](const std::vector<MemberAtFault>& seen) { atFault = seen; }, [] { return ""; }});
  }

  std::vector<MemberAtFault> atFault;
};

/// A sound 3-4-5 triangle on which single members and nodes are put to the test.
ModelData TriangleWith(const MemberData& member) {
  ModelData model = Triangle();
  model.members.push_back(member);
  return model;
}

TEST_F(AnalyseTest, ShowsAndAsksNothing) {
  AnalysisDone = 7;
  FailedCheck = 9;
  EXPECT_EQ(Analyse(Triangle()), AnalysisEnd::Done);
  EXPECT_EQ(Analyse({}), AnalysisEnd::NoNodes);
  EXPECT_EQ(Analyse(Square()), AnalysisEnd::Unstable);
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(AnalysisDone, 7);
  EXPECT_EQ(FailedCheck, 9);
}

TEST_F(AnalyseTest, SizesItsArraysByTheModel) {
  Analyse(Triangle());
  EXPECT_EQ(DofCount, 6);
  EXPECT_EQ(Displacements.size(), 7U);
}

TEST_F(AnalyseTest, LeavesTheMatrixWithItsSupports) {
  Analyse(Triangle());
  EXPECT_EQ(GlobalStiffness.Freedoms(), 6);
  EXPECT_EQ(GlobalStiffness(1, 1), 1.0F); // a pin
  EXPECT_EQ(GlobalStiffness(1, 3), 0.0F);
  EXPECT_GT(GlobalStiffness(3, 3), 1.0F);
}

TEST_F(AnalyseTest, GivesTheSameAnswerAgain) {
  Analyse(Triangle());
  const std::vector<float> displacements = Displacements;
  const std::vector<float> reactions = Reactions;
  const FieldTable members = MemberTable;
  AnalyseTruss();
  EXPECT_EQ(Displacements, displacements);
  EXPECT_EQ(Reactions, reactions);
  EXPECT_EQ(MemberTable, members);
}

TEST_F(AnalyseTest, MarksTheRestrainedFreedoms) {
  Analyse(Triangle());
  EXPECT_THAT(Used(FixedDof), ElementsAre(1, 1, 0, 1, 0, 0));
}

TEST_F(AnalyseTest, NamesAMemberAtFaultAndGoesOn) {
  EXPECT_EQ(Analyse(TriangleWith({1, 3, -200, -1000})), AnalysisEnd::Done);
  EXPECT_THAT(atFault,
              ElementsAre(MemberAtFault{4, MemberFault::EBelowZero}, MemberAtFault{4, MemberFault::ABelowZero}));
  EXPECT_EQ(MemberTable(4, MemberFieldForce), 0.0F);
}

TEST_F(AnalyseTest, NamesAMemberAtNodeZeroAndGoesOn) {
  EXPECT_EQ(Analyse(TriangleWith({0, 3})), AnalysisEnd::Done);
  EXPECT_THAT(atFault, ElementsAre(MemberAtFault{4, MemberFault::NoNode}));
}

TEST_F(AnalyseTest, NamesMembersAtFaultBeforeItSolves) {
  SetTables(TriangleWith({0, 3}));
  bool solved = true;
  AnalyseTruss({[&](const auto&) { solved = Displacements[6] != 0.0F; }, [] { return ""; }});
  EXPECT_FALSE(solved);
}

TEST_F(AnalyseTest, TakesNoLoadFromAPrestressedMemberAtNodeZero) {
  Analyse(Triangle());
  const std::vector<float> displacements = Displacements;
  Analyse(TriangleWith({0, 3, 200, 1000, 50}));
  EXPECT_EQ(Displacements, displacements);
}

using EmptyModelTest = AnalyseTest;

TEST_F(EmptyModelTest, IsTheEnd) { EXPECT_EQ(Analyse({}), AnalysisEnd::NoNodes); }

TEST_F(EmptyModelTest, CreatesNoArray) {
  Analyse({});
  EXPECT_EQ(GlobalStiffness, StiffnessMatrix());
  EXPECT_TRUE(LoadVector.empty());
  EXPECT_TRUE(FixedDof.empty());
  EXPECT_TRUE(Displacements.empty());
  EXPECT_TRUE(Reactions.empty());
}

TEST_F(EmptyModelTest, KeepsTheArraysOfTheLastAnalysis) {
  Analyse(Triangle());
  const std::vector<float> displacements = Displacements;
  Analyse({});
  EXPECT_EQ(DofCount, 0);
  EXPECT_EQ(Displacements, displacements);
}

TEST_F(EmptyModelTest, IsOneWithoutNodesThoughItHasMembers) {
  EXPECT_EQ(Analyse({{}, {{1, 2}}}), AnalysisEnd::NoNodes);
}

/// A model that names a node that does not exist.
class MissingNodeTest : public AnalyseTest {
 protected:
  void ExpectFound(float i, float j, float node) {
    EXPECT_EQ(Analyse(TriangleWith({i, j})), AnalysisEnd::UnknownNode);
    const auto unknown = FindUnknownNode();
    ASSERT_TRUE(unknown);
    EXPECT_EQ(unknown->member, 4);
    EXPECT_EQ(unknown->node, node);
  }
};

TEST_F(MissingNodeTest, StopsTheAnalysisAtEitherEnd) {
  ExpectFound(4, 1, 4);
  ExpectFound(1, 4, 4);
}

TEST_F(MissingNodeTest, StopsTheAnalysisBelowZero) {
  ExpectFound(-1, 1, -1);
  ExpectFound(1, -2, -2);
}

TEST_F(MissingNodeTest, IsJudgedByItsRoundedNumber) {
  ExpectFound(3.5F, 1, 4);
  ExpectFound(-0.6F, 1, -1);
  EXPECT_EQ(Analyse(TriangleWith({1, 2.5F})), AnalysisEnd::Done);
  EXPECT_FALSE(FindUnknownNode());
}

TEST_F(MissingNodeTest, IsFoundHoweverLarge) {
  ExpectFound(1, 40000, 40000);
  ExpectFound(1, 65537, 65537);
  ExpectFound(1, 1e30F, 1e30F);
}

TEST_F(MissingNodeTest, IsThatOfTheFirstMember) {
  ModelData model = TriangleWith({9, 8});
  model.members.push_back({7, 6});
  SetTables(model);
  EXPECT_EQ(FindUnknownNode().value().node, 9);
}

TEST_F(MissingNodeTest, IsFoundBeforeAnyOtherFault) {
  ModelData model = TriangleWith({1, 9});
  model.members[0].E = -1;
  EXPECT_EQ(Analyse(model), AnalysisEnd::UnknownNode);
  EXPECT_TRUE(atFault.empty());
}

TEST_F(MissingNodeTest, LeavesArraysAndTablesAsTheyWere) {
  Analyse(Triangle());
  const AnalysisState before = TheAnalysis;
  Analyse(TriangleWith({1, 4}));
  EXPECT_EQ(GlobalStiffness, before.GlobalStiffness);
  EXPECT_EQ(LoadVector, before.LoadVector);
  EXPECT_EQ(FixedDof, before.FixedDof);
  EXPECT_EQ(Displacements, before.Displacements);
  EXPECT_EQ(Reactions, before.Reactions);
  EXPECT_EQ(MemberTable(1, MemberFieldLength), 0.0F);
}

class TooManyNodesTest : public AnalyseTest {
 protected:
  static ModelData Nodes(std::size_t count) { return {std::vector<NodeData>(count), {}}; }
};

TEST_F(TooManyNodesTest, AreFoundBeforeAnyArrayIsCreated) {
  EXPECT_EQ(Analyse(Nodes(16384)), AnalysisEnd::TooManyNodes);
  EXPECT_EQ(GlobalStiffness, StiffnessMatrix());
  EXPECT_TRUE(Displacements.empty());
  EXPECT_EQ(Analyse(Nodes(32767)), AnalysisEnd::TooManyNodes);
}

// The missing node stops the analysis of the largest model before its arrays are made.
TEST_F(TooManyNodesTest, BeginWithOneMoreThanTheFreedomsAllow) {
  ModelData model = Nodes(16383);
  model.members.push_back({1, 16384});
  EXPECT_EQ(Analyse(model), AnalysisEnd::UnknownNode);
  EXPECT_EQ(DofCount, 32766);
}

class MechanismTest : public AnalyseTest, public testing::WithParamInterface<ModelData> {};

TEST_P(MechanismTest, IsUnstableAndLeavesNoDisplacements) {
  EXPECT_EQ(Analyse(GetParam()), AnalysisEnd::Unstable);
  EXPECT_THAT(Displacements, Each(0.0F));
}

const ModelData NodeWithoutMember{{{0, 0, 0, 0, 3}, {4, 0, 5, 0, 0}}, {}};
/// As many bars and restraints as freedoms, but the roller's line goes through the pin.
const ModelData RollerTowardsThePin{{{0, 0, 0, 0, 3}, {3, 0, 5, 0, 0}, {0, 4, 5, 0, 1}}, {{1, 2}, {2, 3}, {1, 3}}};
const ModelData BarsInOneLine{{{0, 0, 0, 0, 3}, {0, 4, 0, -0.5F}, {0, 7, 1, -1}, {0, 10, 0, 0, 3}},
                              {{1, 2}, {2, 3}, {3, 4}}};
const ModelData NothingHoldsX{{{0, 0, 5, 0, 1}, {4, 0, 0, 0, 1}, {2, 3, 0, -10, 1}}, {{1, 2}, {2, 3}, {3, 1}}};
const ModelData NoSupport{{{0, 0}, {4, 0}, {4, 3, 5, -10}}, {{1, 2}, {2, 3}, {3, 1}}};

INSTANTIATE_TEST_SUITE_P(OfEveryKind, MechanismTest,
                         testing::Values(Square(), NodeWithoutMember, RollerTowardsThePin, BarsInOneLine, NothingHoldsX,
                                         NoSupport));

using UnstableAnalysisTest = AnalyseTest;

TEST_F(UnstableAnalysisTest, KeepsTheForcesOfBefore) {
  SetTables(Square());
  MemberTable(3, MemberFieldForce) = 42.0F;
  AnalyseTruss();
  EXPECT_EQ(MemberTable(3, MemberFieldForce), 42.0F);
}

TEST_F(UnstableAnalysisTest, AddsNoMemberForceToTheReactions) {
  ModelData model = Square();
  model.nodes[0].forceX = 8;
  Analyse(model);
  EXPECT_THAT(Used(Reactions), ElementsAre(-8, 0, 0, 0, 0, 0, 0, 0));
}

} // namespace
} // namespace strutwright
