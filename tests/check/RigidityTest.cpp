#include "CheckFixture.h"
#include "modCheckAnswer.h"
#include "modRigidity.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class RigidityTest : public CheckFixture {
 protected:
  /// The triangle, its members with these E and A.
  static ModelData TriangleOf(const std::vector<std::pair<float, float>>& values) {
    ModelData model = Triangle();
    for (std::size_t m = 0; m < values.size(); ++m) {
      model.members[m].E = values[m].first;
      model.members[m].A = values[m].second;
    }
    return model;
  }

  static CheckReport ReportOn(const ModelData& model) {
    SetTables(model);
    return CheckAnswer(AnalysisOutcome::None);
  }

  static std::string VerdictOn(const ModelData& model) { return ReportOn(model).verdict; }
};

TEST_F(RigidityTest, IsTheFirstThingThatTheVerdictNames) {
  EXPECT_EQ(VerdictOn(TriangleOf({{0, 0}, {0, 0}, {0, 0}})),
            "Members 1, 2 and 3 have no rigidity: their E and A are not above zero. "
            "The truss is a mechanism: it can move in 3 independent ways without stretching a member");
}

TEST_F(RigidityTest, IsNamedByWhatIsMissing) {
  EXPECT_THAT(VerdictOn(TriangleOf({{200, 0}, {200, 1000}, {200, 1000}})),
              StartsWith("Member 1 has no rigidity: its A is not above zero. The truss is a mechanism"));
  EXPECT_THAT(VerdictOn(TriangleOf({{-1, 1000}, {0, 1000}, {200, 1000}})),
              StartsWith("Members 1 and 2 have no rigidity: their E is not above zero. "));
  EXPECT_THAT(VerdictOn(TriangleOf({{200, 0}, {0, 1000}, {200, 1000}})),
              StartsWith("Members 1 and 2 have no rigidity: their E or A is not above zero. "));
  EXPECT_THAT(VerdictOn(TriangleOf({{0, 0}, {0, 1000}, {200, 1000}})),
              StartsWith("Members 1 and 2 have no rigidity: their E or A is not above zero. "));
  EXPECT_THAT(VerdictOn(TriangleOf({{0, 0}, {200, 1000}, {200, 1000}})),
              StartsWith("Member 1 has no rigidity: its E and A are not above zero. "));
}

TEST_F(RigidityTest, IsNamedInAStableTrussToo) {
  ModelData model = Triangle();
  model.members.push_back({2, 3, 0, 0});
  const CheckReport report = ReportOn(model);
  EXPECT_EQ(report.verdict, "Member 4 has no rigidity: its E and A are not above zero. "
                            "The truss is stable, but there are no results to judge");
  EXPECT_THAT(report.withoutRigidity, ElementsAre(4));
}

TEST_F(RigidityTest, IsNotNamedWhereEveryMemberHasSome) {
  EXPECT_THAT(ReportOn(Triangle()).withoutRigidity, IsEmpty());
  EXPECT_THAT(VerdictOn(Triangle()), StartsWith("The truss is stable"));
  EXPECT_EQ(VerdictOn({{}, {{1, 2, 0, 0}}}), "There is no truss to judge");
}

TEST_F(RigidityTest, IsTheOneCureOfTheMotionsThatItStops) {
  const CheckReport report = ReportOn(TriangleOf({{0, 0}, {0, 0}, {0, 0}}));
  ASSERT_EQ(report.stability.mechanisms.size(), 3U);
  for (const Mechanism& mechanism : report.stability.mechanisms) {
    ASSERT_EQ(mechanism.cures.size(), 1U);
    EXPECT_EQ(mechanism.cures[0].text, "Give members 1, 2 and 3 an E and an A above zero");
    EXPECT_TRUE(mechanism.cures[0].IsRigidity());
    EXPECT_FALSE(mechanism.cures[0].IsMember());
  }
}

TEST_F(RigidityTest, LeavesTheCuresOfMotionsThatItDoesNotStop) {
  ModelData model = MechanismM2(); // four bars without a diagonal
  model.members.push_back({1, 2, 0, 0});
  const CheckReport report = ReportOn(model);
  ASSERT_EQ(report.stability.mechanisms.size(), 1U);
  ASSERT_FALSE(report.stability.mechanisms[0].cures.empty());
  for (const Cure& cure : report.stability.mechanisms[0].cures) EXPECT_FALSE(cure.IsRigidity()) << cure.text;
}

} // namespace
} // namespace strutwright
