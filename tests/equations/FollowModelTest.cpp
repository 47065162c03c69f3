// While a truss is dragged the equations follow it: what they show is what the same presses would have shown.

#include "EquationsFixture.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

using Press = void (*)();

class FollowModelTest : public EquationsTest {
 protected:
  static std::vector<std::string> CellsAfter(const ModelData& model, const std::vector<Press>& presses) {
    TheEquations = EquationsState{};
    SetModel(model);
    for (const Press press : presses) press();
    return ValueCells();
  }

  /// One model is followed to another at the end of the presses.
  void ExpectFollowed(const std::vector<Press>& presses, const std::string& name) {
    const std::vector<std::string> expected = CellsAfter(other, presses);
    CellsAfter(FourNodesThreeBars(), presses);
    SetModel(other);

    FollowModel();

    EXPECT_EQ(ValueCells(), expected) << name;
    TakeMessages();
  }

  static ModelData Other() {
    ModelData model = FourNodesThreeBars();
    model.nodes[2].x = 2;
    model.nodes[2].forceX = 30;
    model.nodes[3].support = 2;
    model.members[1].A = 900;
    model.members[2].PS = 12;
    return model;
  }

  ModelData other = Other();
};

TEST_F(FollowModelTest, ShowsWhatTheSamePressesWouldHaveShown) {
  ExpectFollowed({}, "nothing pressed");
  ExpectFollowed({StepShowForces}, "loads");
  ExpectFollowed({StepRestrict}, "restricted before any member");
  ExpectFollowed({StepShowForces, StepAddMember}, "one member");
  ExpectFollowed({StepAddMember, StepAddMember, StepAddMember}, "all members");
  ExpectFollowed({StepAddMember, StepAddMember, StepAddMember, StepAddMember}, "emptied");
  ExpectFollowed({StepShowGlobalK}, "K");
  ExpectFollowed({StepShowForces, StepShowGlobalK, StepRestrict}, "restricted");
  ExpectFollowed({StepShowForces, StepShowGlobalK, StepRestrict, StepSolve}, "solved");
}

TEST_F(FollowModelTest, WaitsWithAMemberThatCameSince) {
  other.members.push_back({2, 3});
  ExpectFollowed({StepAddMember, StepAddMember, StepAddMember}, "one member more");
  EXPECT_EQ(Caption(), "Add Member 4");
}

TEST_F(FollowModelTest, ShowsNoDisplacementsOfAMechanism) {
  other.members.pop_back();
  other.nodes[3].support = 3;
  other.members.pop_back();
  CellsAfter(FourNodesThreeBars(), {StepShowForces, StepShowGlobalK, StepRestrict, StepSolve, StepMemberForces});
  EXPECT_NE(Disp(5), "");
  SetModel(other);

  FollowModel();

  EXPECT_EQ(Disp(5), "");
  EXPECT_EQ(TheEquations.page.memberForces, nullptr);
  EXPECT_TRUE(TakeMessages().empty());
}

TEST_F(FollowModelTest, KeepsThePressesThatCanBeTakenBack) {
  CellsAfter(FourNodesThreeBars(), {StepShowForces, StepAddMember});
  SetModel(other);
  FollowModel();
  EXPECT_EQ(TheEquations.past.size(), 2U);
}

TEST_F(FollowModelTest, LeavesAViewOfAnotherSizeAsItIs) {
  const std::vector<std::string> before = CellsAfter(FourNodesThreeBars(), {StepShowForces, StepShowGlobalK});
  SetModel(Triangle());
  FollowModel();
  EXPECT_EQ(ValueCells(), before);
}

} // namespace
} // namespace strutwright
