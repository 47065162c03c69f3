#include "modAccuracy.h"

#include "AnalysisState.h"
#include "modMember.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace strutwright {

namespace {

/// A value below this share of the loads that cause it is itself rounding; differences are then measured by the cause.
constexpr double NegligibleShare = 1e-9;

/// The largest difference among values of a kind, the largest value, and whose difference it is.
class Kind {
 public:
  void Compare(double result, double refined, int owner) {
    const double difference =
        std::isfinite(result) ? std::abs(result - refined) : std::numeric_limits<double>::infinity();
    Largest = std::max(Largest, std::abs(refined));
    if (difference <= Difference) return;
    Difference = difference;
    Owner = owner;
  }

  /// cause: what the values would be measured by if all of them were zero.
  double Relative(double cause) const {
    if (Difference == 0) return 0;
    return Difference / (Largest > NegligibleShare * cause ? Largest : cause);
  }
  int Worst() const { return Owner; }

 private:
  double Difference = 0;
  double Largest = 0;
  int Owner = 0;
};

/// How far the softest member gives way to 1 kN, mm.
double LargestFlexibility(const CheckedTruss& truss) {
  double largest = 0;
  for (const CheckedMember& member : truss.members) {
    if (member.CanCarryForce()) largest = std::max(largest, member.length / member.axialRigidity);
  }
  return largest;
}

struct Vector {
  double x = 0;
  double y = 0;
  double Size() const { return std::hypot(x, y); }
};

double ReactionAt(const CheckedTruss& truss, std::size_t freedom) {
  return truss.fixed[freedom] != 0 ? static_cast<double>(Reactions[freedom]) : 0;
}

/// Load and reaction at a node.
Vector ExternalForce(const CheckedTruss& truss, int node) {
  return {truss.load[AlongX(node)] + ReactionAt(truss, AlongX(node)),
          truss.load[AlongY(node)] + ReactionAt(truss, AlongY(node))};
}

std::vector<Vector> NodeResiduals(const CheckedTruss& truss) {
  std::vector<Vector> residuals(At(truss.nodeCount) + 1);
  for (int n = 1; n <= truss.nodeCount; ++n) residuals[At(n)] = ExternalForce(truss, n);
  for (const CheckedMember& member : truss.members) {
    const double F = MemberForce(member.number);
    residuals[At(member.i)].x += F * member.c;
    residuals[At(member.i)].y += F * member.s;
    residuals[At(member.j)].x -= F * member.c;
    residuals[At(member.j)].y -= F * member.s;
  }
  return residuals;
}

double Middle(const std::vector<double>& coordinates) {
  const auto [low, high] = std::minmax_element(coordinates.begin() + 1, coordinates.end());
  return (*low + *high) / 2;
}

void BalanceWhole(const CheckedTruss& truss, BalanceReport& report) {
  if (truss.nodeCount == 0) return;
  const double middleX = Middle(truss.x);
  const double middleY = Middle(truss.y);
  Vector sum;
  double moment = 0;
  for (int n = 1; n <= truss.nodeCount; ++n) {
    const Vector force = ExternalForce(truss, n);
    sum = {sum.x + force.x, sum.y + force.y};
    moment += (truss.x[At(n)] - middleX) * force.y - (truss.y[At(n)] - middleY) * force.x;
  }
  report.wholeResidual = sum.Size();
  report.momentResidual = std::abs(moment);
}

// W = 1/2 sum of P u;  U = 1/2 sum of (F - PS)^2 L/(EA); kN mm are J.   Checked: equal for a bar that is pulled.
void BalanceEnergy(const CheckedTruss& truss, BalanceReport& report) {
  const std::vector<double> P = LoadsWithPrestress(truss);
  for (std::size_t d = 1; d < P.size(); ++d) {
    if (truss.fixed[d] == 0) report.work += P[d] * static_cast<double>(Displacements[d]) / 2;
  }
  for (const CheckedMember& member : truss.members) {
    if (!member.CanCarryForce()) continue;
    const double elastic = MemberForce(member.number) - member.prestress;
    report.storedEnergy += elastic * elastic * member.length / member.axialRigidity / 2;
  }
}

} // namespace

int DigitsOf(double error) {
  if (!(error < 1)) return 0;
  if (error <= 0) return MaxDigits;
  return std::min(MaxDigits, static_cast<int>(std::floor(-std::log10(error))));
}

AccuracyReport CompareResults(const CheckedTruss& truss, const RefinedSolution& refined) {
  Kind displacements;
  Kind forces;
  Kind reactions;
  for (std::size_t d = 1; d <= truss.FreedomCount(); ++d) {
    const int node = static_cast<int>(d + 1) / 2;
    displacements.Compare(static_cast<double>(Displacements[d]), refined.displacements[d], node);
    if (truss.fixed[d] != 0) reactions.Compare(static_cast<double>(Reactions[d]), refined.reactions[d], node);
  }
  for (const CheckedMember& member : truss.members) {
    forces.Compare(MemberForce(member.number), refined.forces[At(member.number)], member.number);
  }
  const double cause = LargestCause(truss);
  AccuracyReport report;
  report.displacementDifference = displacements.Relative(cause * LargestFlexibility(truss));
  report.forceDifference = forces.Relative(cause);
  report.reactionDifference = reactions.Relative(cause);
  report.worstNode = displacements.Worst();
  report.worstMember = forces.Worst();
  const double largest = std::max({report.displacementDifference, report.forceDifference, report.reactionDifference});
  report.directionError = LargestTurn(truss);
  report.digits = std::min(DigitsOf(largest + refined.uncertainty), DigitsOf(report.directionError));
  return report;
}

BalanceReport BalanceResults(const CheckedTruss& truss) {
  BalanceReport report;
  const std::vector<Vector> residuals = NodeResiduals(truss);
  for (int n = 1; n <= truss.nodeCount; ++n) {
    const double size = residuals[At(n)].Size();
    // What is no number can't be compared, and is worse than anything that is.
    if (size <= report.nodeResidual || std::isnan(report.nodeResidual)) continue;
    report.nodeResidual = size;
    report.nodeOfResidual = n;
  }
  BalanceWhole(truss, report);
  BalanceEnergy(truss, report);
  return report;
}

} // namespace strutwright
