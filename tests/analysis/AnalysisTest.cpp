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
  AnalyseTest() { AnalysisDone = FlagTrue; }

  /// Analyses the model; gives the boxes that were shown.
  std::vector<Message> Analyse(const ModelData& model) {
    SetTables(model);
    AnalyseTruss(ok);
    return TakeMessages();
  }

  std::int16_t ok = FlagTrue;
};

/// A sound 3-4-5 triangle on which single members and nodes are put to the test.
ModelData TriangleWith(const MemberData& member) {
  ModelData model = Triangle();
  model.members.push_back(member);
  return model;
}

TEST_F(AnalyseTest, LeavesOkAndTheFlagAloneOnSuccess) {
  EXPECT_TRUE(Analyse(Triangle()).empty());
  EXPECT_EQ(ok, FlagTrue);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_TRUE(events.empty());
}

TEST_F(AnalyseTest, SizesItsArraysByTheModel) {
  Analyse(Triangle());
  EXPECT_EQ(DofCount, 6);
  EXPECT_EQ(Displacements.size(), 7U);
}

TEST_F(AnalyseTest, GivesUpTheFullMatrix) {
  DofCount = 2;
  AllocateAnalysisArrays();
  Analyse(Triangle());
  EXPECT_EQ(GlobalStiffness, Matrix());
}

TEST_F(AnalyseTest, GivesTheSameAnswerAgain) {
  Analyse(Triangle());
  const std::vector<float> displacements = Displacements;
  const std::vector<float> reactions = Reactions;
  const FieldTable members = MemberTable;
  AnalyseTruss(ok);
  EXPECT_EQ(Displacements, displacements);
  EXPECT_EQ(Reactions, reactions);
  EXPECT_EQ(MemberTable, members);
}

TEST_F(AnalyseTest, MarksTheRestrainedFreedoms) {
  Analyse(Triangle());
  EXPECT_THAT(Used(FixedDof), ElementsAre(1, 1, 0, 1, 0, 0));
}

TEST_F(AnalyseTest, ReportsAMemberAndGoesOn) {
  const auto shown = Analyse(TriangleWith({1, 3, -200, -1000}));
  EXPECT_THAT(shown, ElementsAre(IgnoredBox(4, "E-value"), IgnoredBox(4, "A-value")));
  EXPECT_EQ(ok, FlagTrue);
  EXPECT_EQ(MemberTable(4, MemberFieldForce), 0.0F);
}

TEST_F(AnalyseTest, ReportsAMemberAtNodeZeroAndGoesOn) {
  const auto shown = Analyse(TriangleWith({0, 3}));
  EXPECT_THAT(shown, ElementsAre(IgnoredBox(4, "node numbers")));
  EXPECT_EQ(ok, FlagTrue);
}

TEST_F(AnalyseTest, TakesNoLoadFromAPrestressedMemberAtNodeZero) {
  Analyse(Triangle());
  const std::vector<float> displacements = Displacements;
  Analyse(TriangleWith({0, 3, 200, 1000, 50}));
  EXPECT_EQ(Displacements, displacements);
}

using EmptyModelTest = AnalyseTest;

TEST_F(EmptyModelTest, IsReportedWithCodeZeroAndNothingElse) {
  EXPECT_THAT(Analyse({}),
              ElementsAre(Box(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check 0")));
  EXPECT_EQ(FailedCheck, 0);
  EXPECT_EQ(ok, FlagFalse);
}

TEST_F(EmptyModelTest, LeavesTheAnalysisState) {
  Analyse({});
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged"));
}

TEST_F(EmptyModelTest, CreatesNoArray) {
  Analyse({});
  EXPECT_EQ(GlobalStiffness, Matrix());
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
  EXPECT_THAT(Analyse({{}, {{1, 2}}}), ElementsAre(FailureBox(0)));
}

/// A model that names a node that does not exist.
class MissingNodeTest : public AnalyseTest {
 protected:
  void ExpectStopped(float i, float j, const std::string& node) {
    const auto shown = Analyse(TriangleWith({i, j}));
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].icon, MessageIcon::Critical);
    EXPECT_EQ(shown[0].title, "Strutwright");
    EXPECT_THAT(shown[0].text, testing::HasSubstr("Member 4 names node " + node + ","));
    EXPECT_EQ(ok, FlagFalse);
  }
};

TEST_F(MissingNodeTest, IsNamedTogetherWithItsMember) {
  EXPECT_THAT(Analyse(TriangleWith({1, 4})),
              ElementsAre(Box(MessageIcon::Critical,
                              "Member 4 names node 4, which does not exist: the nodes are numbered 1 to 3.\n"
                              "Correct the member's node numbers and run the analysis again.")));
}

TEST_F(MissingNodeTest, StopsTheAnalysisAtEitherEnd) {
  ExpectStopped(4, 1, "4");
  ExpectStopped(1, 4, "4");
}

TEST_F(MissingNodeTest, StopsTheAnalysisBelowZero) {
  ExpectStopped(-1, 1, "-1");
  ExpectStopped(1, -2, "-2");
}

TEST_F(MissingNodeTest, IsJudgedByItsRoundedNumber) {
  ExpectStopped(3.5F, 1, "4");
  ExpectStopped(-0.6F, 1, "-1");
  EXPECT_TRUE(Analyse(TriangleWith({1, 2.5F})).empty());
}

TEST_F(MissingNodeTest, IsNamedHoweverLarge) {
  ExpectStopped(1, 40000, "40000");
  ExpectStopped(1, 65537, "65537");
  ExpectStopped(1, 1e30F, "1E+30");
}

TEST_F(MissingNodeTest, IsReportedOnceForTheFirstMember) {
  ModelData model = TriangleWith({9, 8});
  model.members.push_back({7, 6});
  const auto shown = Analyse(model);
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_THAT(shown[0].text, testing::StartsWith("Member 4 names node 9,"));
}

TEST_F(MissingNodeTest, IsReportedBeforeAnyOtherFault) {
  ModelData model = TriangleWith({1, 9});
  model.members[0].E = -1;
  EXPECT_EQ(Analyse(model).size(), 1U);
}

TEST_F(MissingNodeTest, LeavesTheAnalysisState) {
  Analyse(TriangleWith({1, 4}));
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged"));
  EXPECT_EQ(FailedCheck, std::nullopt);
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

TEST_F(TooManyNodesTest, AreReportedBeforeAnyArrayIsCreated) {
  const auto shown = Analyse(Nodes(16384));
  EXPECT_THAT(shown,
              ElementsAre(Box(MessageIcon::Critical, "The model has 16384 nodes, but at most 16383 can be analysed.\n"
                                                     "Remove nodes and run the analysis again.")));
  EXPECT_EQ(GlobalStiffness, Matrix());
  EXPECT_TRUE(Displacements.empty());
}

TEST_F(TooManyNodesTest, LeaveTheAnalysisState) {
  Analyse(Nodes(32767));
  EXPECT_EQ(ok, FlagFalse);
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged"));
}

// The missing node stops the analysis of the largest model before its gigabytes are asked for.
TEST_F(TooManyNodesTest, BeginWithOneMoreThanTheFreedomsAllow) {
  ModelData model = Nodes(16383);
  model.members.push_back({1, 16384});
  const auto shown = Analyse(model);
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_THAT(shown[0].text, testing::StartsWith("Member 1 names node 16384,"));
  EXPECT_EQ(DofCount, 32766);
}

class MechanismTest : public AnalyseTest, public testing::WithParamInterface<ModelData> {};

TEST_P(MechanismTest, IsReportedWithCodeTwo) {
  EXPECT_THAT(Analyse(GetParam()), ElementsAre(FailureBox(2)));
  EXPECT_EQ(ok, FlagFalse);
  EXPECT_EQ(FailedCheck, 2);
}

TEST_P(MechanismTest, LeavesTheAnalysisStateWithoutDisplacements) {
  Analyse(GetParam());
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_THAT(events, ElementsAre("AnalysisStateChanged"));
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
  AnalyseTruss(ok);
  TakeMessages();
  EXPECT_EQ(MemberTable(3, MemberFieldForce), 42.0F);
}

TEST_F(UnstableAnalysisTest, AddsNoMemberForceToTheReactions) {
  ModelData model = Square();
  model.nodes[0].forceX = 8;
  Analyse(model);
  EXPECT_THAT(Used(Reactions), ElementsAre(-8, 0, 0, 0, 0, 0, 0, 0));
}

TEST_F(UnstableAnalysisTest, IsForgottenByTheNextAnalysis) {
  Analyse(Square());
  ASSERT_EQ(FailedCheck, 2);
  ok = FlagTrue;
  Analyse(Triangle());
  EXPECT_EQ(FailedCheck, std::nullopt);
  EXPECT_EQ(ok, FlagTrue);
}

} // namespace
} // namespace strutwright
