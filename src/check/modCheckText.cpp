#include "modCheckAnswer.h"
#include "modMechanisms.h"

#include <array>
#include <charconv>
#include <cmath>

namespace strutwright {

namespace {

/// Three significant digits, which is all that an error deserves, and the unit.
std::string Short(double value, const std::string& unit = "") {
  if (!std::isfinite(value)) return "no number";
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::general, 3).ptr;
  return std::string(text.begin(), end) + unit;
}

std::string Line(const std::string& text) { return text + "\n"; }

std::string StabilityLines(const StabilityReport& stability) {
  std::string text = Line("Mechanisms: " + std::to_string(stability.mechanismCount));
  for (const Mechanism& mechanism : stability.mechanisms) {
    text += Line("  " + mechanism.sentence);
    for (const Cure& cure : mechanism.cures) text += Line("    " + cure.text + " would stop it");
  }
  const auto named = static_cast<int>(stability.mechanisms.size());
  if (named < stability.mechanismCount)
    text += Line("  and " + std::to_string(stability.mechanismCount - named) + " more");
  return text + Line("Static indeterminacy: " + std::to_string(stability.indeterminacy));
}

std::string Worst(const std::string& kind, int number) {
  return number == 0 ? "" : ", worst at " + kind + " " + std::to_string(number);
}

std::string AccuracyLines(const AccuracyReport& accuracy) {
  return Line("Digits: " + std::to_string(accuracy.digits)) +
         Line("Largest difference of displacements: " + Short(accuracy.displacementDifference) +
              Worst("node", accuracy.worstNode)) +
         Line("Largest difference of member forces: " + Short(accuracy.forceDifference) +
              Worst("member", accuracy.worstMember)) +
         Line("Largest difference of reactions: " + Short(accuracy.reactionDifference));
}

std::string BalanceLines(const BalanceReport& balance) {
  return Line("Largest residual of a node: " + Short(balance.nodeResidual, " kN") +
              Worst("node", balance.nodeOfResidual)) +
         Line("Residual of the whole: " + Short(balance.wholeResidual, " kN") + ", " +
              Short(balance.momentResidual, " kN m")) +
         Line("Work of loads and prestress: " + Short(balance.work, " J") +
              ", stored energy: " + Short(balance.storedEnergy, " J"));
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

std::string CheckText(const CheckReport& report) {
  std::string text = Line(report.verdict) + StabilityLines(report.stability);
  if (report.accuracy) text += AccuracyLines(*report.accuracy);
  if (report.balance) text += BalanceLines(*report.balance);
  if (report.stability.Stable()) text += ZeroBarLines(report.zeroBars);
  return text + FindingLines(report.findings);
}

} // namespace strutwright
