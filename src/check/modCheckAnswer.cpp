#include "modCheckAnswer.h"

#include "AnalysisState.h"
#include "CheckedTruss.h"
#include "RefinedSolution.h"
#include "modAccuracy.h"
#include "modFindings.h"
#include "modMechanisms.h"
#include "modModelStore.h"
#include "modRigidity.h"
#include "modZeroBars.h"

namespace strutwright {

namespace {

std::string Plural(int count, const std::string& one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::string MechanismVerdict(const CheckReport& report) {
  const int ways = report.stability.mechanismCount;
  const std::string can = ways == 1 ? "one way" : std::to_string(ways) + " independent ways";
  const std::string verdict = "The truss is a mechanism: it can move in " + can + " without stretching a member";
  return report.outcome == AnalysisOutcome::Done ? verdict + ", so these results can't be trusted" : verdict;
}

/// Why there are so few digits, where the coordinates are the reason.
std::string CoordinateHint(const CheckReport& report) {
  const bool many = !report.accuracy || report.accuracy->digits >= EnoughDigits;
  if (many || DigitsOf(report.accuracy->directionError) > report.accuracy->digits) return "";
  return ", because so far from the origin its coordinates are too coarse: put the origin near the truss";
}

std::string VerdictOnTruss(const CheckReport& report) {
  if (!report.stability.Stable()) return MechanismVerdict(report);
  if (report.outcome == AnalysisOutcome::None) return "The truss is stable, but there are no results to judge";
  if (report.outcome == AnalysisOutcome::Unstable) {
    return "The truss is stable: the analysis gave up because of its rounding and its fixed limit, not because of the "
           "truss";
  }
  const int digits = report.accuracy ? report.accuracy->digits : 0;
  if (digits == 0) return "The truss is stable, but not one digit of these results is sure" + CoordinateHint(report);
  const std::string right = "right to " + Plural(digits, "digit") + CoordinateHint(report);
  if (digits < EnoughDigits) return "The truss is stable, but these results are only " + right;
  return "The truss is stable and these results are " + right;
}

std::string VerdictOf(const CheckReport& report) {
  if (NodeCount == 0) return "There is no truss to judge";
  return RigidityVerdict(report.withoutRigidity) + VerdictOnTruss(report);
}

std::string StatusOf(const CheckReport& report) {
  if (report.outcome == AnalysisOutcome::None) return "";
  if (!report.stability.Stable()) return "Mechanism - see Check";
  if (report.outcome == AnalysisOutcome::Unstable) return "Unstable by rounding only - see Check";
  const int digits = report.accuracy ? report.accuracy->digits : 0;
  return Plural(digits, "digit") + (digits < EnoughDigits ? " - see Check" : "");
}

CheckLevel LevelOf(const CheckReport& report) {
  if (report.outcome == AnalysisOutcome::None) return CheckLevel::None;
  if (!report.stability.Stable()) return CheckLevel::Bad;
  const int digits = report.accuracy ? report.accuracy->digits : 0;
  if (report.outcome == AnalysisOutcome::Done && digits >= EnoughDigits) return CheckLevel::Good;
  return CheckLevel::Doubtful;
}

/// Whether the arrays of the analysis fit the tables.
bool HaveResults() {
  const std::size_t size = 2 * static_cast<std::size_t>(NodeCount) + 1;
  return Displacements.size() == size && Reactions.size() == size;
}

/// What there is to say without results, but for the verdict.
CheckReport ReportOnModel(const CheckedTruss& truss) {
  CheckReport report;
  report.stability = JudgeStability(truss);
  report.withoutRigidity = MembersWithoutRigidity();
  ProposeRigidity(truss, report);
  report.findings = FindOddities(truss);
  return report;
}

} // namespace

AnalysisOutcome LastOutcome() {
  if (AnalysisDone != FlagFalse) return AnalysisOutcome::Done;
  return FailedCheck == UnstableCheck ? AnalysisOutcome::Unstable : AnalysisOutcome::None;
}

CheckReport CheckAnswer(AnalysisOutcome outcome) {
  const CheckedTruss truss = ReadTruss();
  CheckReport report = ReportOnModel(truss);
  report.outcome = outcome == AnalysisOutcome::Done && !HaveResults() ? AnalysisOutcome::None : outcome;
  if (report.outcome == AnalysisOutcome::Done) report.balance = BalanceResults(truss);
  if (report.stability.Stable()) {
    const RefinedSolution refined = Refine(truss);
    report.zeroBars = FindZeroBars(truss, refined);
    if (report.outcome == AnalysisOutcome::Done) report.accuracy = CompareResults(truss, refined);
  }
  report.level = LevelOf(report);
  report.status = StatusOf(report);
  report.verdict = VerdictOf(report);
  return report;
}

CheckReport CheckModel() {
  CheckReport report = ReportOnModel(ReadTruss());
  const bool holds = NodeCount > 0 && report.stability.Stable();
  report.verdict = holds ? RigidityVerdict(report.withoutRigidity) + "The truss is stable" : VerdictOf(report);
  return report;
}

} // namespace strutwright
