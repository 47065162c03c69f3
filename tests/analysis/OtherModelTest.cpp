#include "AnalysisFixture.h"
#include "LongWork.h"
#include "modAnalysis.h"
#include "modOtherModel.h"

#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

/// A triangle with results is open; the other model is a bar.
class OtherModelTest : public AnalysisFixture {
 protected:
  OtherModelTest() {
    SetBar(3, 4, 7.5F);
    Bar = {NodeTable, MemberTable};
    SetModel(Triangle());
    EXPECT_EQ(AnalyseTruss(), AnalysisEnd::Done);
    AnalysisDone = FlagTrue;
    FailedCheck = UnstableCheck;
    Before = TheModel;
    Results = TheAnalysis;
  }

  void ExpectTheOpenModel() const {
    EXPECT_EQ(NodeTable, Before.NodeTable);
    EXPECT_EQ(MemberTable, Before.MemberTable);
    EXPECT_EQ(NodeCount, 3);
    EXPECT_EQ(MemberCount, 3);
    EXPECT_EQ(AnalysisDone, FlagTrue);
    EXPECT_EQ(Displacements, Results.Displacements);
    EXPECT_EQ(Reactions, Results.Reactions);
    EXPECT_EQ(DofCount, 6);
    EXPECT_EQ(FailedCheck, UnstableCheck);
  }

  ModelTables Bar;
  ModelState Before;
  AnalysisState Results;
};

TEST_F(OtherModelTest, IsInTheTablesWithoutResults) {
  WithModel(Bar, [this] {
    EXPECT_EQ(NodeTable, Bar.nodes);
    EXPECT_EQ(MemberTable, Bar.members);
    EXPECT_EQ(NodeCount, 2);
    EXPECT_EQ(MemberCount, 1);
    EXPECT_EQ(AnalysisDone, FlagFalse);
    EXPECT_TRUE(Displacements.empty());
    EXPECT_FALSE(FailedCheck.has_value());
  });
}

TEST_F(OtherModelTest, GivesWayToTheOpenOneAndItsResults) {
  WithModel(Bar, [] {
    AnalyseTruss();
    AnalysisDone = FlagTrue;
    NodeTable.Recreate(7);
    NodeCount = 7;
  });
  ExpectTheOpenModel();
}

TEST_F(OtherModelTest, GivesWayWhereTheWorkIsCancelled) {
  EXPECT_THROW(WithModel(Bar, [] { throw WorkCancelled(); }), WorkCancelled);
  ExpectTheOpenModel();
}

TEST_F(OtherModelTest, GivesWhatTheWorkGives) {
  const ModelTables none;
  EXPECT_EQ(WithModel(Bar, [] { return AnalyseTruss(); }), AnalysisEnd::Unstable);
  EXPECT_EQ(WithModel(none, [] { return AnalyseTruss(); }), AnalysisEnd::NoNodes);
  EXPECT_EQ(WithModel(Bar,
                      [] {
                        return std::vector<float>{MemberLength(1), MemberCos(1)};
                      }),
            (std::vector<float>{5, 0.6F}));
}

TEST_F(OtherModelTest, LeavesTheGrids) {
  WithModel(Bar, [] { EXPECT_EQ(GrJoints.RowCount(), 4); });
  EXPECT_EQ(GrJoints.Text(3, NodeX), "4");
}

} // namespace
} // namespace strutwright
