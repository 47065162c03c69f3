#include "modDeterminacy.h"

#include "AnalysisState.h"
#include "HandTexts.h"
#include "modJointOrder.h"
#include "modRigidParts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace strutwright {

namespace {

/// The roundings of coordinates that are taken to have met in the worst way.
constexpr double RoundingsMet = 2;
/// Elongations this small beside the motion are rounding of double precision.
constexpr double StillStretch = 1e-12;
constexpr int StepsToTheSoftest = 5;
constexpr std::size_t MaxMotions = 20;
/// Motions whose nodes are named; a heap of loose nodes has more.
constexpr std::size_t MaxNamedMotions = 500;
/// A node that moves less, beside the one that moves most, rests.
constexpr double Rests = 1e-6;

double Dot(const std::vector<double>& a, const std::vector<double>& b) {
  return std::inner_product(a.begin(), a.end(), b.begin(), 0.0);
}

/// Takes away what lies along vectors of length 1, and makes the length 1.
void MakeUnit(std::vector<double>& v, const std::vector<std::vector<double>>& others) {
  for (const std::vector<double>& other : others) {
    const double share = Dot(v, other);
    for (std::size_t k = 0; k < v.size(); ++k) v[k] -= share * other[k];
  }
  const double length = std::sqrt(Dot(v, v));
  for (double& part : v) part /= length;
}

/// A vector that is unlikely to be at right angles to any motion.
std::vector<double> AnyDirection(int size) {
  std::vector<double> v(static_cast<std::size_t>(size));
  for (std::size_t k = 0; k < v.size(); ++k) v[k] = std::sin(1.0 + static_cast<double>(k * k % 1009));
  return v;
}

/// The motion of length 1 that stretches the members with pivots least, by inverse iteration with A A'.
std::vector<double> SoftestMotion(const EquilibriumMatrix& matrix, int rows,
                                  const std::vector<std::vector<double>>& others) {
  std::vector<double> v = AnyDirection(rows);
  MakeUnit(v, others);
  for (int step = 0; step < StepsToTheSoftest; ++step) {
    v = matrix.SolveTransposed(matrix.Solve(v));
    MakeUnit(v, others);
  }
  return v;
}

/// A motion by freedom (0..2 nodeCount).
std::vector<double> ByFreedom(const JointEquations& equations, const std::vector<double>& v) {
  std::vector<double> motion(equations.rowOf.size(), 0);
  for (std::size_t d = 1; d < motion.size(); ++d) {
    if (equations.rowOf[d] >= 0) motion[d] = v[static_cast<std::size_t>(equations.rowOf[d])];
  }
  return motion;
}

/// Whether other roundings of the coordinates could have made a motion free.  To first order, turning the members by
/// dB changes the least singular value s = u' B v by u' dB v.
bool IsFreeButForRounding(const HandTruss& truss, const std::vector<double>& motion) {
  double squares = 0;
  double reach = 0;
  for (const HandMember& member : truss.members) {
    const double du = motion[XFreedom(member.j)] - motion[XFreedom(member.i)];
    const double dv = motion[YFreedom(member.j)] - motion[YFreedom(member.i)];
    const double elongation = member.c * du + member.s * dv;
    squares += elongation * elongation;
    reach += std::abs(elongation) * std::hypot(du, dv) * RoundingsMet * member.doubt;
  }
  return squares <= std::max(reach, StillStretch * StillStretch);
}

/// The motions that only rounding hides; the matrix has a pivot in each row.
std::vector<std::vector<double>> HiddenMotions(const HandTruss& truss, const JointEquations& equations,
                                               const EquilibriumMatrix& matrix) {
  std::vector<std::vector<double>> found;
  while (found.size() < MaxMotions && static_cast<int>(found.size()) < equations.rows) {
    std::vector<double> v = SoftestMotion(matrix, equations.rows, found);
    if (!IsFreeButForRounding(truss, ByFreedom(equations, v))) break;
    found.push_back(std::move(v));
  }
  return found;
}

void AddMotion(const std::vector<double>& motion, std::vector<char>& moves, Determinacy& verdict) {
  double largest = 0;
  for (const double part : motion) largest = std::max(largest, std::abs(part));
  for (std::size_t d = 1; d < motion.size(); ++d) {
    if (std::abs(motion[d]) > Rests * largest) moves[(d + 1) / 2] = 1;
  }
  if (!verdict.motion.empty()) return;
  verdict.motion = motion;
  for (double& part : verdict.motion) part /= largest;
}

/// Finds the motions, if there are any.
void FindWhatMoves(const HandTruss& truss, Determinacy& verdict) {
  const JointEquations equations = EquationsOfJoints(truss);
  const EquilibriumMatrix matrix(equations.rows, equations.columns);
  std::vector<std::vector<double>> motions;
  for (const int row : matrix.FreeRows()) {
    if (motions.size() < MaxNamedMotions) motions.push_back(matrix.NullVector(row));
  }
  verdict.motions = equations.rows - matrix.Rank();
  if (verdict.motions == 0) {
    motions = HiddenMotions(truss, equations, matrix);
    verdict.motions = static_cast<int>(motions.size());
  }
  std::vector<char> moves(truss.x.size(), 0);
  for (const std::vector<double>& v : motions) AddMotion(ByFreedom(equations, v), moves, verdict);
  for (int node = 1; node <= truss.nodeCount; ++node) {
    if (moves[static_cast<std::size_t>(node)] != 0) verdict.movingNodes.push_back(node);
  }
}

TrussKind KindOf(const HandTruss& truss, const Determinacy& verdict) {
  if (verdict.motions > 0) return TrussKind::Mechanism;
  if (verdict.degree > 0) return TrussKind::Indeterminate;
  if (GoesByJointsAlone(truss)) return TrussKind::Simple;
  return JoinsToOneBody(truss) ? TrussKind::Compound : TrussKind::Complex;
}

std::string CountText(const Determinacy& verdict) {
  const int unknowns = verdict.members + verdict.reactions;
  const int equations = 2 * verdict.nodes;
  const char* relation = unknowns == equations ? " = 2n" : unknowns < equations ? " < 2n" : " > 2n";
  std::string text = "b + r = " + std::to_string(verdict.members) + " + " + std::to_string(verdict.reactions) + " = " +
                     std::to_string(unknowns) + relation;
  if (unknowns != equations) text += " = " + std::to_string(equations);
  return text;
}

std::string MechanismText(const Determinacy& verdict) {
  const bool tooFew = verdict.members + verdict.reactions < 2 * verdict.nodes;
  const std::string ways = verdict.motions == 1 ? "one way" : std::to_string(verdict.motions) + " ways";
  return std::string(tooFew ? ": a mechanism. " : ", and yet a mechanism. ") + NodeNames(verdict.movingNodes) +
         " can move in " + ways + "; no member or support resists this";
}

std::string VerdictText(const Determinacy& verdict) {
  switch (verdict.kind) {
  case TrussKind::Empty: return "The model has no node";
  case TrussKind::Mechanism: return CountText(verdict) + MechanismText(verdict);
  case TrussKind::Simple:
    return CountText(verdict) + ": determinate, a simple truss: joint after joint has at most two unknown forces";
  case TrussKind::Compound:
    return CountText(verdict) + ": determinate, a compound truss: simple parts joined by hinges and bars";
  case TrussKind::Complex:
    return CountText(verdict) + ": determinate, a complex truss: it is not put together of simple parts";
  case TrussKind::Indeterminate:
    return CountText(verdict) + ": indeterminate to degree " + std::to_string(verdict.degree) +
           "; equilibrium alone leaves as many forces open";
  }
  return "";
}

} // namespace

JointEquations EquationsOfJoints(const HandTruss& truss) {
  JointEquations equations;
  equations.rowOf.assign(truss.fixed.size(), -1);
  for (std::size_t d = 1; d < truss.fixed.size(); ++d) {
    if (truss.fixed[d] == 0) equations.rowOf[d] = equations.rows++;
  }
  for (const HandMember& member : truss.members) {
    SparseColumn column;
    const auto add = [&](std::size_t freedom, double value) {
      if (equations.rowOf[freedom] >= 0 && value != 0) column.emplace_back(equations.rowOf[freedom], value);
    };
    add(XFreedom(member.i), member.c);
    add(YFreedom(member.i), member.s);
    add(XFreedom(member.j), -member.c);
    add(YFreedom(member.j), -member.s);
    equations.columns.push_back(column);
  }
  return equations;
}

Determinacy JudgeDeterminacy(const HandTruss& truss) {
  Determinacy verdict;
  verdict.nodes = truss.nodeCount;
  verdict.members = static_cast<int>(truss.members.size());
  verdict.reactions = truss.RestraintCount();
  if (truss.nodeCount > 0) {
    FindWhatMoves(truss, verdict);
    verdict.degree = std::max(0, verdict.members + verdict.reactions - 2 * verdict.nodes);
    verdict.kind = KindOf(truss, verdict);
    if (verdict.kind == TrussKind::Mechanism) verdict.degree = 0;
  }
  verdict.sentence = VerdictText(verdict);
  return verdict;
}

std::string KindText(const Determinacy& determinacy) {
  switch (determinacy.kind) {
  case TrussKind::Empty: return "empty";
  case TrussKind::Mechanism: return "mechanism";
  case TrussKind::Simple: return "simple";
  case TrussKind::Compound: return "compound";
  case TrussKind::Complex: return "complex";
  case TrussKind::Indeterminate: return "indeterminate to " + std::to_string(determinacy.degree);
  }
  return "";
}

} // namespace strutwright
