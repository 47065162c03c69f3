#include "AnalysisFixture.h"
#include "modKeepResults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A triangle whose member fields 6 to 9 hold 6.5 to 9.5, as results of a current analysis.
class KeepResultsTest : public AnalysisFixture {
 protected:
  KeepResultsTest() {
    SetModel(Triangle());
    AnalysisDone = FlagTrue;
    for (int m = 1; m <= MemberCount; ++m) {
      for (int field = 6; field <= 9; ++field) MemberTable(m, field) = static_cast<float>(field) + 0.5F;
    }
  }

  static std::vector<float> ResultFields(int m) {
    return {MemberTable(m, 6), MemberTable(m, 7), MemberTable(m, 8), MemberTable(m, 9)};
  }
};

TEST_F(KeepResultsTest, PutsTheFieldsBackWhereTheGridsHoldTheSame) {
  RebuildKeepingResults();
  for (int m = 1; m <= 3; ++m) EXPECT_THAT(ResultFields(m), ElementsAre(6.5F, 7.5F, 8.5F, 9.5F));
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(KeepResultsTest, TakesAnotherTextOfTheSameNumberForTheSame) {
  GrJoints.SetText(2, NodeX, " 4.0e0");
  RebuildKeepingResults();
  EXPECT_THAT(ResultFields(1), ElementsAre(6.5F, 7.5F, 8.5F, 9.5F));
}

TEST_F(KeepResultsTest, EndsTheAnalysisWhereANodeHasChanged) {
  GrJoints.SetText(3, NodeSupport, "1");
  RebuildKeepingResults();
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
  EXPECT_THAT(ResultFields(1), ElementsAre(0, 0, 0, 0));
  EXPECT_EQ(NodeTable(3, NodeSupport), 1.0F);
}

TEST_F(KeepResultsTest, EndsTheAnalysisWhereAMemberHasChanged) {
  GrMembers.SetText(1, MemberPS, "0.5");
  RebuildKeepingResults();
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
  EXPECT_THAT(ResultFields(2), ElementsAre(0, 0, 0, 0));
}

TEST_F(KeepResultsTest, EndsTheAnalysisWhereANodeOrAMemberIsGone) {
  GrJoints.SetRowCount(3);
  RebuildKeepingResults();
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged"));
  AnalysisDone = FlagTrue;
  GrMembers.SetRowCount(3);
  RebuildKeepingResults();
  EXPECT_THAT(events, ElementsAre("AnalysisEnded", "ModelChanged", "AnalysisEnded", "ModelChanged"));
  EXPECT_EQ(MemberCount, 2);
}

TEST_F(KeepResultsTest, OnlyRebuildsWhereNoAnalysisIsCurrent) {
  AnalysisDone = FlagFalse;
  GrJoints.SetText(3, NodeX, "5");
  RebuildKeepingResults();
  EXPECT_THAT(ResultFields(1), ElementsAre(0, 0, 0, 0));
  EXPECT_EQ(NodeTable(3, NodeX), 5.0F);
  EXPECT_THAT(events, IsEmpty());
}

} // namespace
} // namespace strutwright
