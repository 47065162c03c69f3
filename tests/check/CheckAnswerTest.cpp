#include "CheckFixture.h"
#include "modCheckAnswer.h"
#include "modCheckText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class CheckAnswerTest : public CheckFixture {
 protected:
  /// The report on a model after its analysis, whatever that came to.
  CheckReport ReportOn(const ModelData& model) {
    Analyse(model);
    messages.shown.clear();
    return CheckAnswer(LastOutcome());
  }
};

/// One span of 49 panels, as flat as the stretch makes it.
ModelData LongGirder(float stretch) {
  ModelData model = PrattTruss(100);
  for (NodeData& node : model.nodes) node.x *= stretch;
  return model;
}

/// A truss without one of its diagonals, so stiff that what rounding leaves of its pivot passes.
ModelData AcceptedMechanism() {
  ModelData model = PrattTruss(20);
  for (MemberData& member : model.members) member.A = 5000000;
  model.members.erase(model.members.begin() + 7);
  return model;
}

TEST_F(CheckAnswerTest, SaysHowManyDigitsAreRight) {
  const CheckReport report = ReportOn(PrattTruss(12));
  ASSERT_TRUE(report.accuracy);
  const std::string digits = std::to_string(report.accuracy->digits);
  EXPECT_GE(report.accuracy->digits, 5);
  EXPECT_EQ(report.status, digits + " digits");
  EXPECT_EQ(report.verdict, "The truss is stable and these results are right to " + digits + " digits");
  EXPECT_EQ(report.level, CheckLevel::Good);
  EXPECT_EQ(report.outcome, AnalysisOutcome::Done);
}

TEST_F(CheckAnswerTest, SendsToTheCheckWhereFewDigitsAreRight) {
  ASSERT_TRUE(Analyse(Triangle()));
  Displacements[XFreedom(3)] *= 1.005F; // the largest of all
  CheckReport report = CheckAnswer(AnalysisOutcome::Done);
  EXPECT_EQ(report.status, "2 digits - see Check");
  EXPECT_EQ(report.verdict, "The truss is stable, but these results are only right to 2 digits");
  EXPECT_EQ(report.level, CheckLevel::Doubtful);
  Displacements[XFreedom(3)] *= 1.05F;
  report = CheckAnswer(AnalysisOutcome::Done);
  EXPECT_EQ(report.status, "1 digit - see Check");
  EXPECT_EQ(report.verdict, "The truss is stable, but these results are only right to 1 digit");
  Displacements[XFreedom(3)] *= 2;
  report = CheckAnswer(AnalysisOutcome::Done);
  EXPECT_EQ(report.status, "0 digits - see Check");
  EXPECT_EQ(report.verdict, "The truss is stable, but not one digit of these results is sure");
}

TEST_F(CheckAnswerTest, NamesThreeDigitsWithoutAHint) {
  ASSERT_TRUE(Analyse(Triangle()));
  Displacements[XFreedom(3)] *= 1.0005F;
  EXPECT_EQ(CheckAnswer(AnalysisOutcome::Done).status, "3 digits");
}

TEST_F(CheckAnswerTest, NamesAMechanismThatTheAnalysisRefuses) {
  const CheckReport report = ReportOn(MechanismM2());
  EXPECT_EQ(report.outcome, AnalysisOutcome::Unstable);
  EXPECT_EQ(report.status, "Mechanism - see Check");
  EXPECT_EQ(report.verdict, "The truss is a mechanism: it can move in one way without stretching a member");
  EXPECT_EQ(report.level, CheckLevel::Bad);
  EXPECT_FALSE(report.accuracy);
  EXPECT_FALSE(report.balance);
  EXPECT_THAT(report.zeroBars, IsEmpty());
}

TEST_F(CheckAnswerTest, NamesAMechanismThatTheAnalysisAccepts) {
  const CheckReport report = ReportOn(AcceptedMechanism());
  EXPECT_EQ(report.outcome, AnalysisOutcome::Done);
  EXPECT_EQ(report.status, "Mechanism - see Check");
  EXPECT_EQ(report.verdict, "The truss is a mechanism: it can move in one way without stretching a member, so these "
                            "results can't be trusted");
  EXPECT_FALSE(report.accuracy);
  EXPECT_TRUE(report.balance);
}

TEST_F(CheckAnswerTest, CountsTheWaysOfAMechanism) {
  EXPECT_EQ(ReportOn(MechanismM3()).verdict,
            "The truss is a mechanism: it can move in 2 independent ways without stretching a member");
}

TEST_F(CheckAnswerTest, DefendsASoundTrussWhoseAreaIsInSquareMetres) {
  ModelData model = PrattTruss(12);
  for (MemberData& member : model.members) member.A = 0.001F;
  const CheckReport report = ReportOn(model);
  EXPECT_EQ(report.outcome, AnalysisOutcome::Unstable);
  EXPECT_EQ(report.status, "Unstable by rounding only - see Check");
  EXPECT_EQ(report.verdict, "The truss is stable: the analysis gave up because of its rounding and its fixed limit, "
                            "not because of the truss");
  EXPECT_EQ(report.level, CheckLevel::Doubtful);
  EXPECT_THAT(report.findings[0].text, HasSubstr("was it typed in m2"));
}

TEST_F(CheckAnswerTest, IsSilentWithoutAnAnalysis) {
  SetTables(Triangle());
  const CheckReport report = CheckAnswer(LastOutcome());
  EXPECT_EQ(report.status, "");
  EXPECT_EQ(report.level, CheckLevel::None);
  EXPECT_EQ(report.verdict, "The truss is stable, but there are no results to judge");
  EXPECT_FALSE(report.accuracy);
}

TEST_F(CheckAnswerTest, IsSilentWhereNoEquationsWereSolved) {
  const CheckReport empty = ReportOn({});
  EXPECT_EQ(empty.status, "");
  EXPECT_EQ(empty.verdict, "There is no truss to judge");
  ModelData model = Triangle();
  model.members.push_back({1, 9});
  EXPECT_EQ(ReportOn(model).status, "");
}

TEST_F(CheckAnswerTest, DoesNotTakeArraysOfAnotherModelForResults) {
  ASSERT_TRUE(Analyse(Triangle()));
  SetTables(PrattTruss(12));
  EXPECT_EQ(CheckAnswer(AnalysisOutcome::Done).outcome, AnalysisOutcome::None);
}

TEST_F(CheckAnswerTest, ChangesNothing) {
  ASSERT_TRUE(Analyse(PrattTruss(12)));
  const FieldTable members = MemberTable;
  const std::vector<float> displacements = Displacements;
  CheckAnswer(AnalysisOutcome::Done);
  EXPECT_EQ(MemberTable, members);
  EXPECT_EQ(Displacements, displacements);
}

TEST_F(CheckAnswerTest, FindsALongSpanOutrightWrong) {
  const CheckReport report = ReportOn(LongGirder(20));
  EXPECT_TRUE(report.stability.Stable());
  ASSERT_TRUE(report.accuracy);
  EXPECT_EQ(report.accuracy->digits, 0);
  EXPECT_GT(report.balance->wholeResidual, 1);
}

CheckReport ReportToPrint() {
  CheckReport report;
  report.verdict = "Verdict";
  report.accuracy = AccuracyReport{5, 1.234e-6, 0, 2e-7, 3, 0};
  report.balance = BalanceReport{0.00125, 2, 0.5, 1.5, 1234, 1230};
  report.stability.indeterminacy = 1;
  report.zeroBars = {{4, "Reason"}};
  report.findings = {{FindingKind::FreeNode, "Node 7 has no member", {7}, {}}};
  return report;
}

TEST(CheckTextTest, ListsEverything) {
  EXPECT_EQ(CheckText(ReportToPrint()),
            "Verdict\n"
            "Mechanisms: 0\n"
            "Static indeterminacy: 1\n"
            "Digits: 5\n"
            "Largest difference of displacements: 1.23e-06 of the largest, worst at node 3\n"
            "Largest difference of member forces: 0 of the largest\n"
            "Largest difference of reactions: 2e-07 of the largest\n"
            "Largest residual of a node: 0.00125 kN, worst at node 2\n"
            "Residual of the whole: 0.5 kN, 1.5 kN m\n"
            "Work of loads and prestress: 1.23e+03 J, stored energy: 1.23e+03 J\n"
            "Zero bars: 1\n"
            "  Member 4: Reason\n"
            "Oddities of the model: 1\n"
            "  Node 7 has no member\n");
}

TEST(CheckTextTest, ListsMechanismsAndTheirCures) {
  CheckReport report;
  report.verdict = "Verdict";
  report.stability.mechanismCount = 3;
  report.stability.mechanisms = {{{}, {2}, "Node 2 can move up", {{2, 0, 1, "Support node 2 in y (support code 1)"}}}};
  EXPECT_EQ(CheckText(report), "Verdict\n"
                               "Mechanisms: 3\n"
                               "  Node 2 can move up\n"
                               "    Support node 2 in y (support code 1) would stop it\n"
                               "  and 2 more\n"
                               "Static indeterminacy: 0\n"
                               "Oddities of the model: 0\n");
}

} // namespace
} // namespace strutwright
