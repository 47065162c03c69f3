#include "ModelBuilder.h"
#include "Pattern.h"
#include "WorkbenchFixture.h"
#include "modCheck.h"
#include "modRunAnalysis.h"

#include <new>
#include <stdexcept>
#include <string>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// The check as the window runs it: after each analysis, gone with the model.
class CheckStateTest : public WorkbenchFixture {
 protected:
  /// Analyses a model as the command does and checks the answer.
  void AnalyseAndCheck(const ModelData& model) {
    SetModel(model);
    runAnalysis(ScratchCopy::None);
    CheckLastAnalysis();
    messages.shown.clear();
  }
};

/// A truss without one of its diagonals, so stiff that what rounding leaves of its pivot passes.
ModelData AcceptedPratt() {
  ModelData model = PrattTruss(20);
  for (MemberData& member : model.members) member.A = 5000000;
  model.members.erase(model.members.begin() + 7);
  return model;
}

/// So soft that the analysis takes a sound truss for unstable.
ModelData SoftTriangle() {
  ModelData model = Triangle();
  for (MemberData& member : model.members) member.A = 0.001F;
  return model;
}

/// One span of 49 panels, so flat that hardly a digit is left.
ModelData FlatGirder() {
  ModelData model = PrattTruss(100);
  for (NodeData& node : model.nodes) node.x *= 2;
  return model;
}

TEST_F(CheckStateTest, SaysNothingWithoutAnAnalysis) {
  EXPECT_EQ(CheckStatusText(), "");
  EXPECT_EQ(CheckStatusLevel(), CheckLevel::None);
}

TEST_F(CheckStateTest, SaysHowManyDigitsAreRight) {
  AnalyseAndCheck(Triangle());
  EXPECT_EQ(CheckStatusText(), "7 digits");
  EXPECT_EQ(CheckStatusLevel(), CheckLevel::Good);
  EXPECT_EQ(CheckVerdict(), "The truss is stable and these results are right to 7 digits");
}

TEST_F(CheckStateTest, PointsToTheCheckWhereDigitsAreFew) {
  AnalyseAndCheck(FlatGirder());
  EXPECT_THAT(CheckStatusText(), MatchesPattern("[012] digits? - see Check"));
  EXPECT_EQ(CheckStatusLevel(), CheckLevel::Doubtful);
}

TEST_F(CheckStateTest, NamesAMechanismThatTheAnalysisRefused) {
  AnalyseAndCheck(Square());
  EXPECT_EQ(CheckStatusText(), "Mechanism - see Check");
  EXPECT_EQ(CheckStatusLevel(), CheckLevel::Bad);
}

TEST_F(CheckStateTest, NamesAMechanismThatTheAnalysisAccepted) {
  AnalyseAndCheck(AcceptedPratt());
  ASSERT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(CheckStatusText(), "Mechanism - see Check");
  EXPECT_THAT(CheckVerdict(), HasSubstr("so these results can't be trusted"));
}

TEST_F(CheckStateTest, NamesATrussThatRoundingAloneMadeUnstable) {
  AnalyseAndCheck(SoftTriangle());
  EXPECT_EQ(CheckStatusText(), "Unstable by rounding only - see Check");
  EXPECT_EQ(CheckStatusLevel(), CheckLevel::Doubtful);
}

TEST_F(CheckStateTest, SaysNothingOfAnAnalysisThatEndedBeforeItsEquations) {
  AnalyseAndCheck({});
  EXPECT_EQ(CheckStatusText(), "");
  AnalyseAndCheck(Square());
  ModelData model = Triangle();
  model.members[0].j = 9;
  AnalyseAndCheck(model);
  EXPECT_EQ(CheckStatusText(), "");
  EXPECT_EQ(TheCheck.report.findings.size(), 1U);
}

TEST_F(CheckStateTest, ForgetsTheFailureOfTheAnalysisBefore) {
  AnalyseAndCheck(Square());
  EXPECT_FALSE(runAnalysis(ScratchCopy::Written)); // there are no files here to write a scratch copy to
  EXPECT_EQ(TakeMessages().size(), 1U);
  AnalysisDone = FlagFalse;
  CheckLastAnalysis();
  EXPECT_EQ(CheckStatusText(), "");
}

TEST_F(CheckStateTest, IsBlankOnceItIsDropped) {
  AnalyseAndCheck(Triangle());
  DropCheck();
  EXPECT_EQ(CheckStatusText(), "");
  EXPECT_EQ(CheckStatusLevel(), CheckLevel::None);
  EXPECT_FALSE(CheckIsCurrent());
}

TEST_F(CheckStateTest, KnowsWhetherItsModelIsTheOneInTheTables) {
  AnalyseAndCheck(Triangle());
  EXPECT_TRUE(CheckIsCurrent());
  MemberTable(1, MemberFieldForce) = 99; // a result is no part of the model
  EXPECT_TRUE(CheckIsCurrent());
  MemberTable(1, MemberPS) = 1;
  EXPECT_FALSE(CheckIsCurrent());
  MemberTable(1, MemberPS) = 0;
  NodeTable(3, NodeSupport) = 1;
  EXPECT_FALSE(CheckIsCurrent());
}

TEST_F(CheckStateTest, JudgesAChangedModelWithoutResults) {
  AnalyseAndCheck(Triangle());
  NodeTable(3, NodeForceY) = -99;

  BringCheckUpToDate();

  EXPECT_TRUE(CheckIsCurrent());
  EXPECT_EQ(CheckStatusText(), "");
  EXPECT_EQ(CheckVerdict(), "The truss is stable, but there are no results to judge");
}

TEST_F(CheckStateTest, StaysAsItIsForTheSameModel) {
  AnalyseAndCheck(Triangle());
  BringCheckUpToDate();
  EXPECT_EQ(CheckStatusText(), "7 digits");
}

TEST_F(CheckStateTest, KeepsAFailureOfItsOwnToItself) {
  TheCheck.judge = [](AnalysisOutcome) -> CheckReport { throw std::runtime_error("no such luck"); };
  AnalyseAndCheck(Triangle());
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(CheckStatusText(), "");
  EXPECT_EQ(CheckVerdict(), "The check could not be made: no such luck");
  EXPECT_EQ(CheckReportText(), "The check could not be made: no such luck\n");
  TheCheck.judge = [](AnalysisOutcome) -> CheckReport { throw std::bad_alloc(); };
  CheckLastAnalysis();
  EXPECT_EQ(CheckVerdict(), "The check could not be made: there is not enough memory");
  TheCheck.judge = CheckAnswer;
  CheckLastAnalysis();
  EXPECT_EQ(CheckStatusText(), "7 digits");
}

TEST_F(CheckStateTest, ShowsNoBoxAndChangesNoResult) {
  AnalyseAndCheck(Triangle());
  const AnalysisState before = TheAnalysis;
  const ModelState model = TheModel;
  events.clear();

  CheckLastAnalysis();

  EXPECT_EQ(TheAnalysis.Displacements, before.Displacements);
  EXPECT_EQ(TheAnalysis.Reactions, before.Reactions);
  EXPECT_EQ(NodeTable, model.NodeTable);
  EXPECT_EQ(MemberTable, model.MemberTable);
  EXPECT_THAT(events, ElementsAre());
}

TEST_F(CheckStateTest, GivesItsReportAsText) {
  AnalyseAndCheck(Square());
  EXPECT_THAT(CheckReportText(), StartsWith("The truss is a mechanism"));
  EXPECT_THAT(CheckReportText(), HasSubstr("Add a member from node 1 to node 3 would stop it"));
}

} // namespace
} // namespace strutwright
