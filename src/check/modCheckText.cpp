#include "modCheckText.h"

#include "modMechanisms.h"

#include <array>
#include <charconv>
#include <cmath>

namespace strutwright {

namespace {

/// Three significant digits, enough for an error, and the unit.
std::string Short(double value, const std::string& unit = "") {
  if (!std::isfinite(value)) return "no number";
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::general, 3).ptr;
  return std::string(text.begin(), end) + unit;
}

/// The unit of a relative difference.
constexpr const char* OfLargest = " of the largest";

std::string Line(const std::string& text) { return text + "\n"; }

std::string Worst(const CheckRow& row) {
  if (row.worstNode != 0) return ", worst at node " + std::to_string(row.worstNode);
  return row.worstMember != 0 ? ", worst at member " + std::to_string(row.worstMember) : "";
}

std::string RowLine(const CheckRow& row) { return Line(row.label + ": " + row.value + Worst(row)); }

std::vector<CheckRow> AccuracyRows(const AccuracyReport& accuracy) {
  return {
      {"Digits", std::to_string(accuracy.digits)},
      {"Largest difference of displacements", Short(accuracy.displacementDifference, OfLargest), accuracy.worstNode},
      {"Largest difference of member forces", Short(accuracy.forceDifference, OfLargest), 0, accuracy.worstMember},
      {"Largest difference of reactions", Short(accuracy.reactionDifference, OfLargest)}};
}

std::vector<CheckRow> BalanceRows(const BalanceReport& balance) {
  return {
      {"Largest residual of a node", Short(balance.nodeResidual, " kN"), balance.nodeOfResidual},
      {"Residual of the whole", Short(balance.wholeResidual, " kN") + ", " + Short(balance.momentResidual, " kN m")},
      {"Work of loads and prestress",
       Short(balance.work, " J") + ", stored energy: " + Short(balance.storedEnergy, " J")}};
}

std::vector<CheckRow> ResultRows(const CheckReport& report) {
  std::vector<CheckRow> rows;
  if (report.accuracy) rows = AccuracyRows(*report.accuracy);
  if (!report.balance) return rows;
  const std::vector<CheckRow> balance = BalanceRows(*report.balance);
  rows.insert(rows.end(), balance.begin(), balance.end());
  return rows;
}

CheckRow MechanismRow(const StabilityReport& stability) {
  return {"Mechanisms", std::to_string(stability.mechanismCount)};
}

CheckRow IndeterminacyRow(const StabilityReport& stability) {
  return {"Static indeterminacy", std::to_string(stability.indeterminacy)};
}

std::string StabilityLines(const StabilityReport& stability) {
  std::string text = RowLine(MechanismRow(stability));
  for (const Mechanism& mechanism : stability.mechanisms) {
    text += Line("  " + mechanism.sentence);
    for (const Cure& cure : mechanism.cures) text += Line("    " + cure.text + " would stop it");
  }
  const auto named = static_cast<int>(stability.mechanisms.size());
  if (named < stability.mechanismCount)
    text += Line("  and " + std::to_string(stability.mechanismCount - named) + " more");
  return text + RowLine(IndeterminacyRow(stability));
}

std::string ZeroBarLines(const std::vector<ZeroBar>& bars) {
  std::string text = Line("Zero bars: " + std::to_string(bars.size()));
  for (const ZeroBar& bar : bars) text += Line("  Member " + std::to_string(bar.member) + ": " + bar.reason);
  return text;
}

std::string FindingLines(const std::vector<Finding>& findings) {
  std::string text = Line("Oddities of the model: " + std::to_string(findings.size()));
  for (const Finding& finding : findings) text += Line("  " + finding.text);
  return text;
}

} // namespace

std::vector<CheckRow> CheckRows(const CheckReport& report) {
  std::vector<CheckRow> rows = ResultRows(report);
  rows.push_back(MechanismRow(report.stability));
  rows.push_back(IndeterminacyRow(report.stability));
  return rows;
}

std::string CheckText(const CheckReport& report) {
  std::string text = Line(report.verdict) + StabilityLines(report.stability);
  for (const CheckRow& row : ResultRows(report)) text += RowLine(row);
  if (report.stability.Stable()) text += ZeroBarLines(report.zeroBars);
  return text + FindingLines(report.findings);
}

} // namespace strutwright
