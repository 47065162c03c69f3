#include "modReactions.h"

#include "HandTexts.h"
#include "modHinges.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>

namespace strutwright {

namespace {

constexpr int MaxReactionsByHand = 12;
/// A determinant this small beside the factors of its two equations: they say the same.
constexpr double SameEquation = 1e-9;

/// Finds the reactions one after the other, or two at a time.
class ReactionFinder {
 public:
  ReactionFinder(const HandTruss& truss, ReactionsFirst& result)
      : Truss(truss), Result(result), Value(result.body.forces.size(), 0), Solved(result.body.forces.size(), 0) {
    for (std::size_t k = 0; k < Solved.size(); ++k) Solved[k] = Result.body.forces[k].isKnown ? 1 : 0;
  }

  bool Run() {
    AddCandidates();
    while (Left() > 0) {
      if (!TakeOne() && !TakeTwo()) return false;
    }
    return true;
  }

  double ValueOf(std::size_t force) const { return Value[force]; }

 private:
  struct Candidate {
    HandEquation equation;
    int hinge = 0; ///< 0 for the whole truss
  };

  std::ptrdiff_t Left() const { return std::count(Solved.begin(), Solved.end(), 0); }

  const BodyForce& Force(int k) const { return Result.body.forces[static_cast<std::size_t>(k)]; }

  void AddWhole(const Balance& balance) { Candidates.push_back({WriteEquation(balance, Result.body), 0}); }

  void AddCandidates() {
    for (int node = 1; node <= Truss.nodeCount; ++node) {
      if (Truss.HasSupport(node)) AddWhole(AboutNode(node));
    }
    for (const HingePart& part : PartsAtHinges(Truss)) AddPart(part);
    AddWhole(SumOfX());
    AddWhole(SumOfY());
  }

  Balance AboutNode(int node) const {
    return MomentAbout(Truss.x[static_cast<std::size_t>(node)], Truss.y[static_cast<std::size_t>(node)],
                       "node " + std::to_string(node));
  }

  /// The part turns freely about the hinge: the forces on it alone have no moment there.
  void AddPart(const HingePart& part) {
    FreeBody body{part.nodes, {}, Truss.nothing};
    std::vector<int> indices;
    for (int k = 0; k < static_cast<int>(Result.body.forces.size()); ++k) {
      if (!std::binary_search(part.nodes.begin(), part.nodes.end(), Force(k).node)) continue;
      body.forces.push_back(Force(k));
      indices.push_back(k);
    }
    Balance balance = AboutNode(part.hinge);
    balance.title += " of the part with node " + std::to_string(part.nodes.front());
    HandEquation equation = WriteEquation(balance, body);
    for (EquationTerm& term : equation.unknowns) term.force = indices[static_cast<std::size_t>(term.force)];
    if (!equation.unknowns.empty()) Candidates.push_back({equation, part.hinge});
  }

  std::vector<EquationTerm> UnsolvedOf(const HandEquation& equation) const {
    std::vector<EquationTerm> terms;
    for (const EquationTerm& term : equation.unknowns) {
      if (Solved[static_cast<std::size_t>(term.force)] == 0) terms.push_back(term);
    }
    return terms;
  }

  double SumOfSolved(const HandEquation& equation) const {
    double sum = equation.known;
    for (const EquationTerm& term : equation.unknowns) {
      const auto force = static_cast<std::size_t>(term.force);
      if (Solved[force] != 0) sum += term.factor * Value[force];
    }
    return sum;
  }

  void Settle(int force, double value) {
    Value[static_cast<std::size_t>(force)] = value;
    Solved[static_cast<std::size_t>(force)] = 1;
    Result.solution.push_back(ForceText(Force(force).name, value, false, Truss.nothing));
  }

  void Record(const Candidate& candidate) {
    Result.equations.push_back(candidate.equation);
    if (candidate.hinge > 0) Result.hinges.push_back(candidate.hinge);
  }

  bool TakeOne() {
    for (const Candidate& candidate : Candidates) {
      const std::vector<EquationTerm> unsolved = UnsolvedOf(candidate.equation);
      if (unsolved.size() != 1) continue;
      Record(candidate);
      Settle(unsolved[0].force, -SumOfSolved(candidate.equation) / unsolved[0].factor);
      Result.equations.back().solution = Result.solution.back();
      return true;
    }
    return false;
  }

  bool TakeTwo() {
    for (const Candidate& one : Candidates) {
      const std::vector<EquationTerm> first = UnsolvedOf(one.equation);
      if (first.size() != 2) continue;
      for (const Candidate& other : Candidates) {
        const std::vector<EquationTerm> second = UnsolvedOf(other.equation);
        if (second.size() != 2 || second[0].force != first[0].force || second[1].force != first[1].force) continue;
        if (SolveTwo(one, other, first, second)) return true;
      }
    }
    return false;
  }

  bool SolveTwo(const Candidate& one, const Candidate& other, const std::vector<EquationTerm>& a,
                const std::vector<EquationTerm>& b) {
    const double determinant = a[0].factor * b[1].factor - a[1].factor * b[0].factor;
    const double size = std::hypot(a[0].factor, a[1].factor) * std::hypot(b[0].factor, b[1].factor);
    if (std::abs(determinant) <= SameEquation * size) return false;
    const double p = -SumOfSolved(one.equation);
    const double q = -SumOfSolved(other.equation);
    Record(one);
    Record(other);
    Settle(a[0].force, (p * b[1].factor - q * a[1].factor) / determinant);
    Settle(a[1].force, (q * a[0].factor - p * b[0].factor) / determinant);
    return true;
  }

  const HandTruss& Truss;
  ReactionsFirst& Result;
  std::vector<Candidate> Candidates;
  std::vector<double> Value; ///< of each force of the body
  std::vector<char> Solved;
};

/// Three reactions: each from an equation in which it stands alone.
bool FindThree(const HandTruss& truss, ReactionsFirst& result, std::vector<double>& values) {
  const auto count = static_cast<int>(result.body.forces.size());
  for (int k = 0; k < count; ++k) {
    const BodyForce& force = result.body.forces[static_cast<std::size_t>(k)];
    if (force.isKnown) continue;
    const std::optional<Balance> balance = StandsAlone(result.body, k);
    if (!balance) return false;
    result.equations.push_back(WriteEquation(*balance, result.body, k));
    const double value = AloneValue(result.equations.back());
    values[static_cast<std::size_t>(k)] = value;
    result.solution.push_back(ForceText(force.name, value, false, truss.nothing));
    result.equations.back().solution = result.solution.back();
  }
  return true;
}

bool FindMore(const HandTruss& truss, ReactionsFirst& result, std::vector<double>& values) {
  ReactionFinder finder(truss, result);
  if (!finder.Run()) return false;
  for (std::size_t k = 0; k < values.size(); ++k) values[k] = finder.ValueOf(k);
  return true;
}

std::string WhyNotFirst(const HandTruss& truss) {
  const int count = truss.RestraintCount();
  const bool comeLater = static_cast<int>(truss.members.size()) + count <= 2 * truss.nodeCount;
  return "The whole truss has three equations for " + std::to_string(count) +
         " reactions, and no hinge gives enough of them more" +
         (comeLater ? "; the reactions come with the joints" : "");
}

} // namespace

ReactionsFirst FindReactionsFirst(const HandTruss& truss, HandForces& forces) {
  ReactionsFirst result;
  std::vector<int> all(static_cast<std::size_t>(truss.nodeCount));
  std::iota(all.begin(), all.end(), 1);
  result.body = CutFree(truss, all, forces);
  std::vector<double> values(result.body.forces.size(), 0);
  const int count = truss.RestraintCount();
  if (count == 3) result.found = FindThree(truss, result, values);
  if (count > 3 && count <= MaxReactionsByHand) result.found = FindMore(truss, result, values);
  if (!result.found) {
    result.equations.clear();
    result.solution.clear();
    result.hinges.clear();
    result.whyNot = WhyNotFirst(truss);
    return result;
  }
  for (std::size_t k = 0; k < values.size(); ++k) {
    const BodyForce& force = result.body.forces[k];
    if (force.isKnown) continue;
    forces.reactions[force.freedom] = values[k];
    forces.reactionKnown[force.freedom] = 1;
  }
  return result;
}

} // namespace strutwright
