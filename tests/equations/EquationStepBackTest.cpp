#include "EquationsFixture.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

using EquationStepBackTest = EquationsTest;

TEST_F(EquationStepBackTest, StepsBackToTheBeginning) {
  SetModel(FourNodesThreeBars());
  const std::vector<void (*)()> steps{StepShowForces, StepAddMember,   StepAddMember, StepRestrict, StepAddMember,
                                      StepSolve,      StepShowGlobalK, StepRestrict,  StepSolve,    StepAddMember};
  std::vector<std::vector<std::string>> shown;
  std::vector<std::string> captions;
  for (const auto step : steps) {
    shown.push_back(ValueCells());
    captions.push_back(Caption());
    step();
  }
  TakeMessages();

  for (std::size_t i = steps.size(); i-- > 0;) {
    ASSERT_TRUE(CanStepBack());
    StepBack();
    EXPECT_EQ(ValueCells(), shown[i]) << "before press " << i;
    EXPECT_EQ(Caption(), captions[i]) << "before press " << i;
  }
  EXPECT_FALSE(CanStepBack());
  StepBack();
  EXPECT_EQ(ValueCells(), shown[0]);
}

TEST_F(EquationStepBackTest, StepsBackOverAChangeOfTheModel) {
  SetModel(FourNodesThreeBars());
  PressAddMember(2);
  const std::vector<std::string> before = ValueCells();
  SetModel(Triangle());
  StepAddMember();

  StepBack();

  EXPECT_EQ(ValueCells(), before);
  EXPECT_EQ(Caption(), "Add Member 3");
}

TEST_F(EquationStepBackTest, GoesOnAfterAStepBackAsIfThePressHadNotBeen) {
  SetModel(TriangleWithIgnoredMembers());
  PressAddMember(2);
  const std::vector<std::string> two = ValueCells();
  StepBack();

  StepAddMember();

  EXPECT_EQ(ValueCells(), two);
  EXPECT_EQ(TakeMessages().size(), 2U) << "the ignored member is reported each time";
}

TEST_F(EquationStepBackTest, TakesNoRefusedPressForAStep) {
  SetModel(Triangle());
  StepAddMember();
  GrMembers.SetText(3, MemberNodeJ, "4");
  StepAddMember();
  TakeMessages();

  StepBack();

  EXPECT_EQ(Caption(), "Add Member 1");
}

} // namespace
} // namespace strutwright
