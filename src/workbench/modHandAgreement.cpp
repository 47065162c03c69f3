#include "modHandAgreement.h"

#include "AnalysisState.h"
#include "WorkbenchState.h"
#include "modMember.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace strutwright {

namespace {

constexpr int DigitsOfTables = 7;
constexpr int MostMembers = 5000; // of more the check's window would have to wait

/// Largest value and largest difference of what was compared.
struct Comparison {
  double largest = 0;
  double difference = 0;

  void Take(double byHand, double computed) {
    largest = std::max({largest, std::abs(byHand), std::abs(computed)});
    difference = std::max(difference, std::abs(byHand - computed));
  }
};

Comparison CompareAll(const HandTruss& truss, const HandForces& forces) {
  Comparison all;
  for (const HandMember& member : truss.members) {
    all.Take(forces.members[static_cast<std::size_t>(member.number)], MemberForce(member.number));
  }
  for (std::size_t freedom = 1; freedom < truss.fixed.size() && freedom < Reactions.size(); ++freedom) {
    if (truss.fixed[freedom] != 0) all.Take(forces.reactions[freedom], Reactions[freedom]);
  }
  return all;
}

bool IsLeftOut(const HandTruss& truss) { return static_cast<int>(truss.members.size()) != truss.memberCount; }

} // namespace

int DigitsShared(const HandTruss& truss, const HandSolution& solution) {
  const Comparison all = CompareAll(truss, solution.forces);
  if (!(all.difference > 0)) return DigitsOfTables;
  const double digits = std::floor(std::log10(all.largest / all.difference));
  return static_cast<int>(std::clamp(digits, 0.0, static_cast<double>(DigitsOfTables)));
}

std::string AgreementSentence(const HandTruss& truss, const HandSolution& solution) {
  const int digits = DigitsShared(truss, solution);
  return "Joints by hand and stiffness agree to " + std::to_string(digits) + (digits == 1 ? " digit" : " digits") +
         " of the largest force.";
}

std::string HandAgreementText() {
  if (MemberCount > MostMembers || AnalysisDone != FlagTrue || !TheCheck.report.withoutRigidity.empty()) return "";
  const HandTruss truss = ReadHandTruss();
  if (IsLeftOut(truss)) return "";
  const HandSolution solution = SolveByHand(truss);
  if (!solution.determinacy.IsDeterminate() || !solution.stop.empty()) return "";
  return AgreementSentence(truss, solution);
}

} // namespace strutwright
