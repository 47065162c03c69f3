#include "EquationsFixture.h"

#include <cmath>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::Each;
using testing::ElementsAre;

using EquationStepsTest = EquationsTest;

TEST_F(EquationStepsTest, BeginsWithHeadersOnly) {
  EXPECT_EQ(EquationRowCount(), 1);
  EXPECT_EQ(EquationColumnCount(EquationGrid::Stiffness), 1);
  EXPECT_EQ(EquationColumnCount(EquationGrid::Force), 2);
  EXPECT_EQ(Caption(), "Add Member 1");
  EXPECT_EQ(TheEquations.page.memberIndex, 0);
}

TEST_F(EquationStepsTest, LaysTwoNodesOutInFiveRows) {
  SetModel({{{0, 0}, {1, 0}}, {}});

  StepShowForces();

  for (const EquationGrid grid : {EquationGrid::Force, EquationGrid::Stiffness, EquationGrid::Displacement}) {
    std::vector<std::string> labels;
    for (int row = 0; row < EquationRowCount(); ++row) labels.push_back(EquationCell(grid, row, 0));
    EXPECT_THAT(labels, ElementsAre("DOF", "1 x", "1 y", "2 x", "2 y"));
  }
}

TEST_F(EquationStepsTest, ShowsTheLoadVectorWithPrestress) {
  SetModel({{{0, 0}, {3, 4, 7.126F, -10}}, {{1, 2, 200, 1000, 5}}});

  StepShowForces();

  // 5 kN along (0.6, 0.8) pull both nodes towards each other.
  EXPECT_THAT((std::vector{Force(1), Force(2), Force(3), Force(4)}), ElementsAre("3.", "4.", "4.13", "-14."));
  EXPECT_EQ(K(1, 1), "");
  EXPECT_EQ(Disp(1), "");
}

TEST_F(EquationStepsTest, NamesTheMemberToAddNext) {
  SetModel(Triangle());
  std::vector<std::string> captions{Caption()};

  for (int press = 0; press < 4; ++press) {
    StepAddMember();
    captions.push_back(Caption());
  }

  EXPECT_THAT(captions, ElementsAre("Add Member 1", "Add Member 2", "Add Member 3", "Clear K", "Add Member 1"));
}

TEST_F(EquationStepsTest, LaysOutBeforeTheFirstMember) {
  SetModel(FourNodesThreeBars());

  StepAddMember();

  EXPECT_EQ(EquationRowCount(), 9);
  EXPECT_EQ(Force(6), "-80.");
}

TEST_F(EquationStepsTest, GrowsThePublishedMatrixMemberByMember) {
  SetModel(FourNodesThreeBars());

  StepAddMember();
  EXPECT_THAT(RowOfK(1), ElementsAre("75.", "0.", "0.", "0.", "-75.", "0.", "0.", "0."));
  EXPECT_THAT(RowOfK(2), Each("0."));
  EXPECT_THAT(RowOfK(5), ElementsAre("-75.", "0.", "0.", "0.", "75.", "0.", "0.", "0."));

  StepAddMember();
  EXPECT_THAT(RowOfK(6), ElementsAre("0.", "0.", "0.", "0.", "0.", "50.", "0.", "-50."));
  EXPECT_THAT(RowOfK(8), ElementsAre("0.", "0.", "0.", "0.", "0.", "-50.", "0.", "50."));

  StepAddMember();
  EXPECT_THAT(RowOfK(3), ElementsAre("0.", "0.", "64.", "-48.", "-64.", "48.", "0.", "0."));
  EXPECT_THAT(RowOfK(4), ElementsAre("0.", "0.", "-48.", "36.", "48.", "-36.", "0.", "0."));
  EXPECT_THAT(RowOfK(5), ElementsAre("-75.", "0.", "-64.", "48.", "139.", "-48.", "0.", "0."));
  EXPECT_THAT(RowOfK(6), ElementsAre("0.", "0.", "48.", "-36.", "-48.", "86.", "0.", "-50."));
}

TEST_F(EquationStepsTest, ReachesThePublishedSolution) {
  SetModel(FourNodesThreeBars());
  StepShowGlobalK();

  StepRestrict();
  EXPECT_THAT(RowOfK(1), ElementsAre("1.", "0.", "0.", "0.", "0.", "0.", "0.", "0."));
  EXPECT_THAT(RowOfK(5), ElementsAre("0.", "0.", "0.", "0.", "139.", "-48.", "0.", "0."));
  EXPECT_THAT(RowOfK(6), ElementsAre("0.", "0.", "0.", "0.", "-48.", "86.", "0.", "0."));

  StepSolve();
  EXPECT_NEAR(TheEquations.page.displacements->at(5), -0.397927461, 2e-4);
  EXPECT_NEAR(TheEquations.page.displacements->at(6), -1.15233161, 2e-4);
  EXPECT_THAT((std::vector{Disp(1), Disp(4), Disp(5), Disp(6), Disp(7), Disp(8)}),
              ElementsAre("0.", "0.", "-0.4", "-1.15", "0.", "0."));
}

TEST_F(EquationStepsTest, ShowsTheSameMatrixAtOnceAsMemberByMember) {
  SetModel(TriangleWithIgnoredMembers());
  PressAddMember(4);
  const std::vector<std::string> grown = ValueCells();
  const std::vector<Message> grownMessages = TakeMessages();

  StepShowGlobalK();

  EXPECT_EQ(ValueCells(), grown);
  EXPECT_EQ(TakeMessages(), grownMessages);
}

TEST_F(EquationStepsTest, StartsAgainWithMemberOneAloneAfterClearK) {
  SetModel(FourNodesThreeBars());
  StepAddMember();
  const std::vector<std::string> memberOne = ValueCells();
  PressAddMember(3);
  EXPECT_EQ(K(1, 1), "") << "Clear K empties the cells";
  EXPECT_EQ(TheEquations.page.viewStiffness, nullptr);

  StepAddMember();

  EXPECT_EQ(ValueCells(), memberOne);
}

TEST_F(EquationStepsTest, BeginsWithTheFirstMemberAgainAfterTheWholeMatrix) {
  SetModel(FourNodesThreeBars());
  PressAddMember(2);

  StepShowGlobalK();

  EXPECT_EQ(Caption(), "Add Member 1");
  StepAddMember();
  EXPECT_EQ(Caption(), "Add Member 2");
  EXPECT_EQ(K(5, 5), "75.");
}

TEST_F(EquationStepsTest, AddsThePredecessorsMatrixForAnIgnoredMember) {
  ModelData model = FourNodesThreeBars();
  model.members[1].E = -200;
  SetModel(model);
  StepAddMember();

  StepAddMember();

  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Critical, "Error: member index 2 E-value\nMember ignored")));
  EXPECT_EQ(K(5, 5), "150.") << "member 1's 75 once more, at node 3 of member 2";
  EXPECT_EQ(K(7, 7), "75.");
}

TEST_F(EquationStepsTest, AddsZerosForAnIgnoredFirstMemberEachTime) {
  ModelData model = Triangle();
  model.members[0].A = -1;
  SetModel(model);
  PressAddMember(4);

  StepAddMember();

  EXPECT_EQ(TakeMessages().size(), 2U);
  EXPECT_THAT(RowOfK(1), Each("0."));
}

TEST_F(EquationStepsTest, AddsNothingForAMemberWithoutTwoNodes) {
  SetModel({{{0, 0}, {4, 0}}, {{1, 0, 200, 1000}}});
  GrMembers.SetText(1, MemberNodeI, "2");

  StepAddMember();

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Error: member index 1 node numbers\nMember ignored")));
  EXPECT_THAT(RowOfK(3), Each("0."));
  EXPECT_EQ(Caption(), "Clear K");
}

TEST_F(EquationStepsTest, ClearsWhenMembersHaveGoneSinceTheLastPress) {
  SetModel(Triangle());
  PressAddMember(2);
  GrMembers.SetRowCount(3);

  StepAddMember();

  EXPECT_EQ(Caption(), "Add Member 1");
  EXPECT_EQ(K(1, 1), "");
}

TEST_F(EquationStepsTest, GoesOnWithAMemberThatHasComeSinceTheLast) {
  SetModel(FourNodesThreeBars());
  PressAddMember(3);
  GrMembers.SetRowCount(5);
  for (int column = 1; column <= 5; ++column) GrMembers.SetText(4, column, GrMembers.Text(1, column));

  StepAddMember();

  EXPECT_EQ(Caption(), "Clear K");
  EXPECT_EQ(K(1, 1), "150.");
}

TEST_F(EquationStepsTest, EmptiesEverythingWhenTheModelHasOtherNodes) {
  SetModel(FourNodesThreeBars());
  StepShowGlobalK();
  StepRestrict();
  StepSolve();
  PressAddMember(2);
  SetModel(Triangle());

  StepAddMember();

  EXPECT_EQ(EquationRowCount(), 7);
  EXPECT_EQ(Caption(), "Add Member 2");
  EXPECT_EQ(Disp(1), "");
  EXPECT_EQ(Force(5), "5.");
  EXPECT_EQ(TheEquations.page.fixed, nullptr);
}

TEST_F(EquationStepsTest, KeepsWhatItShowsWhenOnlyTheLoadsAreShownAgain) {
  SetModel(FourNodesThreeBars());
  StepShowGlobalK();
  StepRestrict();
  StepSolve();
  GrJoints.SetText(3, NodeForceX, "12");

  StepShowForces();

  EXPECT_EQ(Force(5), "12.");
  EXPECT_EQ(K(5, 5), "139.");
  EXPECT_EQ(Disp(6), "-1.15");
}

TEST_F(EquationStepsTest, RestrictsAnEmptyMatrixAsZeros) {
  SetModel(FourNodesThreeBars());

  StepRestrict();

  EXPECT_THAT(RowOfK(1), ElementsAre("1.", "0.", "0.", "0.", "0.", "0.", "0.", "0."));
  EXPECT_THAT(RowOfK(5), Each("0."));
}

TEST_F(EquationStepsTest, LeavesLoadsAtSupportsOutAfterRestrict) {
  ModelData model = FourNodesThreeBars();
  model.nodes[0].forceX = 7;
  SetModel(model);
  StepShowGlobalK();
  StepRestrict();

  StepSolve();

  EXPECT_EQ(Disp(1), "0.");
  EXPECT_EQ(Force(1), "7.") << "the load vector is shown as it was";
}

TEST_F(EquationStepsTest, ForgetsTheRestrictionWhenTheMatrixIsMadeAnew) {
  for (const auto makeAnew : {StepAddMember, StepShowGlobalK, ResetEquations}) {
    ResetEquations();
    SetModel(FourNodesThreeBars());
    StepRestrict();
    ASSERT_NE(TheEquations.page.fixed, nullptr);

    makeAnew();

    EXPECT_EQ(TheEquations.page.fixed, nullptr);
  }
}

TEST_F(EquationStepsTest, KeepsTheRestrictionWhileMembersAreAdded) {
  ModelData model = FourNodesThreeBars();
  model.nodes[0].forceX = 7;
  SetModel(model);
  PressAddMember(2);
  StepRestrict();
  PressAddMember(1);

  StepSolve();

  EXPECT_EQ(Disp(1), "0.");
}

TEST_F(EquationStepsTest, KeepsWhatWasRestrainedWhenTheSupportIsGone) {
  SetModel(FourNodesThreeBars());
  StepShowGlobalK();
  StepRestrict();
  GrJoints.SetText(1, NodeSupport, "0");
  GrJoints.SetText(1, NodeForceX, "7");

  StepRestrict();
  StepSolve();

  EXPECT_EQ(Disp(1), "0.") << "its equation reads D = 0 since the first Restrict";
}

TEST_F(EquationStepsTest, SolvesTheSameMatrixAgain) {
  SetModel(FourNodesThreeBars());
  StepShowGlobalK();
  StepRestrict();
  StepSolve();
  const std::vector<std::string> solved = ValueCells();

  StepSolve();

  EXPECT_EQ(ValueCells(), solved);
}

TEST_F(EquationStepsTest, KeepsTheDisplacementsWhenASolveFails) {
  SetModel(FourNodesThreeBars());
  StepShowGlobalK();
  StepRestrict();
  StepSolve();
  StepShowGlobalK();

  StepSolve();

  EXPECT_THAT(TakeMessages(), ElementsAre(UnstableBox()));
  EXPECT_EQ(Disp(6), "-1.15");
}

TEST_F(EquationStepsTest, ReportsAnEmptyModelWhenItIsSolved) {
  StepSolve();

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Structure is unstable - Aborting analysis\nFailed Check 0")));
}

TEST_F(EquationStepsTest, TakesEveryOtherPressOnAnEmptyModelWithoutAWord) {
  StepShowForces();
  StepAddMember();
  StepShowGlobalK();
  StepRestrict();

  EXPECT_EQ(EquationRowCount(), 1);
  EXPECT_EQ(Caption(), "Add Member 1");
}

TEST_F(EquationStepsTest, ChangesNothingWhenAMemberNamesANodeThatIsNotThere) {
  SetModel(Triangle());
  StepAddMember();
  GrMembers.SetText(3, MemberNodeJ, "4");

  StepAddMember();

  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Critical,
                                              "Member 3 names node 4, which does not exist: the nodes are numbered "
                                              "1 to 3.\nCorrect the member's node numbers first.")));
  EXPECT_EQ(Caption(), "Add Member 2");
}

TEST_F(EquationStepsTest, ReportsANodeNumberBelowZero) {
  SetModel(Triangle());
  GrMembers.SetText(1, MemberNodeI, "-1");

  StepShowForces();

  const std::vector<Message> shown = TakeMessages();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_THAT(shown[0].text, testing::StartsWith("Member 1 names node -1, which does not exist"));
  EXPECT_EQ(EquationRowCount(), 1);
}

TEST_F(EquationStepsTest, ReportsMembersWithoutAnyNode) {
  SetModel({{}, {{1, 2}}});

  StepAddMember();

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Member 1 names node 1, which does not exist: the model has no "
                                                     "nodes.\nCorrect the member's node numbers first.")));
}

TEST_F(EquationStepsTest, RefusesMoreFreedomsThanCanBeCounted) {
  GrJoints.SetRowCount(16385);
  for (int row = 1; row <= 16384; ++row) GrJoints.SetText(row, NodeX, "0");

  StepShowForces();

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical,
                              "The model has 16384 nodes, but the equations of at most 16383 can be shown.")));
  EXPECT_EQ(EquationRowCount(), 1);
}

TEST_F(EquationStepsTest, ResetsTheNumbersAndKeepsTheLabels) {
  SetModel(FourNodesThreeBars());
  StepShowForces();
  StepShowGlobalK();
  StepRestrict();
  StepSolve();
  PressAddMember(2);

  ResetEquations();

  EXPECT_THAT(ValueCells(), Each(""));
  EXPECT_EQ(EquationCell(EquationGrid::Stiffness, 8, 0), "4 y");
  EXPECT_EQ(EquationCell(EquationGrid::Force, 8, 0), "4 y");
  EXPECT_EQ(Caption(), "Add Member 1");
  EXPECT_EQ(TheEquations.page.memberIndex, 0);
  EXPECT_FALSE(CanStepBack());
}

TEST_F(EquationStepsTest, StartsFromZerosAfterReset) {
  SetModel(FourNodesThreeBars());
  PressAddMember(2);
  ResetEquations();

  StepSolve();

  EXPECT_THAT(TakeMessages(), ElementsAre(UnstableBox()));
  StepAddMember();
  EXPECT_EQ(K(5, 5), "75.");
}

} // namespace
} // namespace strutwright
