#include "EquationsFixture.h"
#include "modEquationTexts.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

class CellOriginTest : public EquationsTest {
 protected:
  CellOriginTest() { SetModel(FourNodesThreeBars()); }
};

TEST_F(CellOriginTest, AddsMemberByMemberToWhatTheCellShows) {
  StepShowGlobalK();

  EXPECT_EQ(CellOrigin(5, 5), "K(3 x, 3 x) = 75 (member 1) + 64 (member 3) = 139 kN/mm");
  EXPECT_EQ(CellOrigin(6, 6), "K(3 y, 3 y) = 50 (member 2) + 36 (member 3) = 86 kN/mm");
  EXPECT_EQ(CellOrigin(5, 6), "K(3 x, 3 y) = -48 (member 3) = -48 kN/mm");
}

TEST_F(CellOriginTest, GoesUpToTheMembersAddedSoFar) {
  PressAddMember(2);
  EXPECT_EQ(CellOrigin(5, 5), "K(3 x, 3 x) = 75 (member 1) = 75 kN/mm");

  StepAddMember();
  EXPECT_EQ(CellOrigin(5, 5), "K(3 x, 3 x) = 75 (member 1) + 64 (member 3) = 139 kN/mm");

  StepBack();
  EXPECT_EQ(CellOrigin(5, 5), "K(3 x, 3 x) = 75 (member 1) = 75 kN/mm");
}

TEST_F(CellOriginTest, SaysWhereNoMemberAddsAnything) {
  StepShowGlobalK();

  EXPECT_EQ(CellOrigin(1, 3), "K(1 x, 2 x) = 0 kN/mm, no member adds to it so far");
}

TEST_F(CellOriginTest, WritesASubtractionForANegativeShare) {
  GrMembers.SetText(1, MemberNodeI, "2"); // members 1 and 3 side by side

  StepShowGlobalK();

  // c2 EA/L is 0.64 * 60 of member 1 and 64 of member 3, negative between the two ends.
  EXPECT_EQ(CellOrigin(3, 5), "K(2 x, 3 x) = -38.4 (member 1) - 64 (member 3) = -102.4 kN/mm");
}

TEST_F(CellOriginTest, SaysWhichSupportClearedTheCell) {
  StepShowGlobalK();
  StepRestrict();

  EXPECT_EQ(CellOrigin(1, 5), "K(1 x, 3 x) = 0 kN/mm, cleared: 1 x is supported");
  EXPECT_EQ(CellOrigin(5, 1), "K(3 x, 1 x) = 0 kN/mm, cleared: 1 x is supported");
  EXPECT_EQ(CellOrigin(1, 1), "K(1 x, 1 x) = 1 kN/mm, cleared: 1 x is supported");
  EXPECT_EQ(CellOrigin(1, 4), "K(1 x, 2 y) = 0 kN/mm, cleared: 1 x and 2 y are supported");
  EXPECT_EQ(CellOrigin(5, 5), "K(3 x, 3 x) = 75 (member 1) + 64 (member 3) = 139 kN/mm");
}

TEST_F(CellOriginTest, GoesOnFromAClearedCell) {
  StepAddMember();
  StepRestrict();
  PressAddMember(2);

  EXPECT_EQ(CellOrigin(3, 3), "K(2 x, 2 x) = 1 (cleared: 2 x is supported) + 64 (member 3) = 65 kN/mm");
  EXPECT_EQ(CellOrigin(3, 4), "K(2 x, 2 y) = 0 (cleared: 2 x and 2 y are supported) - 48 (member 3) = -48 kN/mm");
  EXPECT_EQ(CellOrigin(1, 1), "K(1 x, 1 x) = 1 kN/mm, cleared: 1 x is supported");
}

TEST_F(CellOriginTest, NamesWhoseMatrixAnIgnoredMemberAdded) {
  GrMembers.SetText(2, MemberE, "-1");
  StepShowGlobalK();
  TakeMessages();

  EXPECT_EQ(CellOrigin(5, 5),
            "K(3 x, 3 x) = 75 (member 1) + 75 (member 2 with the matrix of member 1) + 64 (member 3) = 214 kN/mm");
}

TEST_F(CellOriginTest, IsEmptyForHeadersAndEmptyCells) {
  StepShowForces();
  EXPECT_EQ(CellOrigin(1, 1), "");

  StepShowGlobalK();
  EXPECT_EQ(CellOrigin(0, 1), "");
  EXPECT_EQ(CellOrigin(1, 0), "");
}

class StepTextTest : public EquationsTest {
 protected:
  StepTextTest() { SetModel(FourNodesThreeBars()); }
};

TEST_F(StepTextTest, BeginsWithTheModel) {
  SetModel({});

  EXPECT_EQ(StepDoneText(), "Nothing has been assembled yet.");
  EXPECT_EQ(StepToComeText(), "Enter nodes and members; then Add Member 1 or Show Global K begins the matrix.");
}

TEST_F(StepTextTest, BeginsWithTheFirstMember) {
  EXPECT_EQ(StepDoneText(), "Nothing has been assembled yet.");
  EXPECT_EQ(StepToComeText(), "Add Member 1 begins K with one member; Show Global K assembles all members at once.");
}

TEST_F(StepTextTest, ExplainsTheLoads) {
  StepShowForces();

  EXPECT_EQ(StepDoneText(),
            "The load vector P holds the loads at the nodes, and what prestressed members exert on them.");
  EXPECT_EQ(StepToComeText(), "Add Member 1 begins K with one member; Show Global K assembles all members at once.");
}

TEST_F(StepTextTest, ExplainsAMemberAndNamesTheNext) {
  StepAddMember();

  EXPECT_EQ(StepDoneText(), "The 16 numbers of member 1 were added to K in the rows and columns of its freedoms, "
                            "1 x, 1 y, 3 x and 3 y.");
  EXPECT_EQ(StepToComeText(), "Add Member 2 adds the next member at its own freedoms.");
}

TEST_F(StepTextTest, GoesOnWithTheSupportsAfterTheLastMember) {
  PressAddMember(3);

  EXPECT_EQ(StepToComeText(), "Restrict DOFs takes the supported freedoms out of the equations.");
}

TEST_F(StepTextTest, ExplainsAnIgnoredMember) {
  GrMembers.SetText(2, MemberE, "-1");

  PressAddMember(2);

  TakeMessages();
  EXPECT_EQ(StepDoneText(),
            "Member 2 was ignored, so the matrix of member 1 was added once more, at the freedoms of member 2.");
}

TEST_F(StepTextTest, ExplainsAnIgnoredFirstMember) {
  GrMembers.SetText(1, MemberE, "-1");

  StepAddMember();

  TakeMessages();
  EXPECT_EQ(StepDoneText(), "Member 1 was ignored, and no valid member came before it: zeros were added.");
}

TEST_F(StepTextTest, ExplainsAMemberWithoutTwoNodes) {
  GrMembers.SetText(1, MemberNodeI, "0");

  StepAddMember();

  TakeMessages();
  EXPECT_EQ(StepDoneText(), "Member 1 was ignored: without two nodes there is no place in K for it.");
}

TEST_F(StepTextTest, ExplainsClearing) {
  PressAddMember(4);

  EXPECT_EQ(StepDoneText(), "K was cleared.");
  EXPECT_EQ(StepToComeText(), "Add Member 1 begins K with one member; Show Global K assembles all members at once.");
}

TEST_F(StepTextTest, ExplainsTheWholeMatrix) {
  StepShowGlobalK();

  EXPECT_EQ(StepDoneText(), "K is the sum of the matrices of all members (3), each added at its own freedoms.");
  EXPECT_EQ(StepToComeText(), "Restrict DOFs takes the supported freedoms out of the equations.");
}

TEST_F(StepTextTest, ExplainsTheSupports) {
  StepShowGlobalK();

  StepRestrict();

  EXPECT_EQ(StepDoneText(),
            "Supported freedoms (6) can't move: their rows and columns are zero now, with 1 on the diagonal.");
  EXPECT_EQ(StepToComeText(), "Solve finds the displacements that balance the loads.");
}

TEST_F(StepTextTest, SaysWhenThereIsNoSupport) {
  for (int node = 1; node <= 4; ++node) GrJoints.SetText(node, NodeSupport, "0");
  StepShowGlobalK();

  StepRestrict();

  EXPECT_EQ(StepDoneText(), "No node has a support, so nothing was cleared.");
}

TEST_F(StepTextTest, ExplainsTheSolution) {
  StepShowGlobalK();
  StepRestrict();

  StepSolve();

  EXPECT_EQ(StepDoneText(), "K D = P was solved: D holds the displacement of each freedom in mm.");
  EXPECT_EQ(StepToComeText(), "Member Forces finds what each member bears; Show Global K begins again.");
}

TEST_F(StepTextTest, ExplainsAFailureWithoutRestriction) {
  StepShowGlobalK();

  StepSolve();

  TakeMessages();
  EXPECT_EQ(StepDoneText(), "K D = P has no single solution: something can move without any member resisting it.");
  EXPECT_EQ(StepToComeText(), "Nothing holds the truss in place before Restrict DOFs, so restrict first, then solve.");
}

TEST_F(StepTextTest, AsksForSupportsWhereThereAreNone) {
  SetModel({{{0, 0}, {4, 0}}, {{1, 2, 200, 1000}}});
  StepShowGlobalK();
  StepRestrict();

  EXPECT_EQ(StepToComeText(), "Add the members or supports that are missing, and begin again with Show Global K.");

  StepSolve();
  TakeMessages();
  EXPECT_EQ(StepToComeText(), "Add the members or supports that are missing, and begin again with Show Global K.");
}

TEST_F(StepTextTest, ExplainsAFailureWithMembersMissing) {
  StepAddMember();
  StepRestrict();

  StepSolve();

  TakeMessages();
  EXPECT_EQ(StepToComeText(), "Show Global K assembles all members; then restrict and solve again.");
}

TEST_F(StepTextTest, ExplainsAMechanism) {
  SetModel(Square());
  StepShowGlobalK();
  StepRestrict();

  StepSolve();

  TakeMessages();
  EXPECT_EQ(StepToComeText(), "Add the members or supports that are missing, and begin again with Show Global K.");
}

TEST_F(StepTextTest, SaysThatAnEmptyModelHasNothingToSolve) {
  SetModel({});

  StepSolve();

  TakeMessages();
  EXPECT_EQ(StepDoneText(), "There is no freedom, so there is nothing to solve.");
}

TEST_F(StepTextTest, CountsTheMembersThatWereThere) {
  StepShowGlobalK();

  MemberCount = 2;

  EXPECT_EQ(StepDoneText(), "K is the sum of the matrices of all members (3), each added at its own freedoms.");
}

} // namespace
} // namespace strutwright
