#include "modHandSolution.h"

#include "HandTexts.h"
#include "modGoOn.h"
#include "modJointOrder.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace strutwright {

namespace {

/// Goes from step to step; knows the order of the joints and the values.
class HandSolver {
 public:
  HandSolver(const HandTruss& truss, HandSolution& solution)
      : Truss(truss), Solution(solution), Order(truss, solution.reactions.found) {}

  void Run() {
    while (GoOn()) {
    }
  }

 private:
  bool GoOn() {
    if (const std::optional<int> node = Order.Next()) {
      TakeJoint(*node);
      return true;
    }
    if (!IsAnyUnknown()) return false;
    if (!Solution.determinacy.IsDeterminate()) {
      Solution.stop = "No joint left has at most two unknown forces: " + Solution.determinacy.sentence;
      return false;
    }
    if (!Sections) Sections.emplace(Truss);
    if (std::optional<HandStep> section = Sections->Next(Order, Solution)) {
      TakeSection(std::move(*section));
      return true;
    }
    TakeTogether();
    return true;
  }

  bool IsAnyUnknown() const {
    for (int index = 0; index < static_cast<int>(Truss.members.size()); ++index) {
      if (!Order.KnowsMember(index)) return true;
    }
    return false;
  }

  void Learn(const UnknownForce& force, double value) {
    Order.Learn(force);
    Put(force, value, Truss, Solution.forces);
  }

  void TakeJoint(int node) {
    HandStep step = JointOf(Truss, node, Solution.forces);
    const std::vector<UnknownForce> unknowns = Order.UnknownsAt(node);
    SolveJoint(unknowns, step);
    for (std::size_t k = 0; k < unknowns.size(); ++k) {
      Learn(unknowns[k], step.body.forces[static_cast<std::size_t>(step.found[k])].value);
    }
    Order.MarkDone(node);
    Solution.steps.push_back(std::move(step));
  }

  static int IndexOf(const UnknownForce& force, const HandTruss& truss, const FreeBody& body) {
    for (int k = 0; k < static_cast<int>(body.forces.size()); ++k) {
      const BodyForce& each = body.forces[static_cast<std::size_t>(k)];
      const bool same = force.IsMember() ? each.member == truss.members[static_cast<std::size_t>(force.member)].number
                                         : each.kind == ForceKind::Reaction && each.freedom == force.freedom;
      if (same) return k;
    }
    return -1;
  }

  /// Two equations, c1 F1 + c2 F2 + x = 0 and s1 F1 + s2 F2 + y = 0; of a lone force its part along it.
  void SolveJoint(const std::vector<UnknownForce>& unknowns, HandStep& step) {
    const double x = step.equations[0].known;
    const double y = step.equations[1].known;
    if (unknowns.size() == 1) SetFound(unknowns[0], -(x * unknowns[0].line.c + y * unknowns[0].line.s), step);
    if (unknowns.size() == 2) {
      const ForceLine& a = unknowns[0].line;
      const ForceLine& b = unknowns[1].line;
      SetFound(unknowns[0], (b.c * y - b.s * x) / a.Sine(b), step);
      SetFound(unknowns[1], (a.s * x - a.c * y) / a.Sine(b), step);
    }
    AttachSolutions(step);
    step.polygon = ForcePolygon(step.body, step.found);
    step.reason = unknowns.empty()       ? "Every force at this joint is known: it must balance"
                  : unknowns.size() == 1 ? "One unknown force: one equation gives it, the other checks"
                                         : "Two unknown forces";
  }

  void SetFound(const UnknownForce& force, double value, HandStep& step) {
    const int k = IndexOf(force, Truss, step.body);
    BodyForce& found = step.body.forces[static_cast<std::size_t>(k)];
    found.value = value;
    found.isKnown = true;
    step.found.push_back(k);
    step.solution.push_back(ForceText(found.name, value, force.IsMember(), Truss.nothing));
  }

  /// An equation with one unknown force gives it by itself.
  static void AttachSolutions(HandStep& step) {
    for (HandEquation& equation : step.equations) {
      if (equation.unknowns.size() != 1) continue;
      for (std::size_t k = 0; k < step.found.size(); ++k) {
        if (step.found[k] == equation.unknowns[0].force) equation.solution = step.solution[k];
      }
    }
  }

  void TakeSection(HandStep step) {
    for (const int k : step.found) {
      const BodyForce& force = step.body.forces[static_cast<std::size_t>(k)];
      Learn(ToUnknown(force, Truss), force.value);
    }
    Solution.steps.push_back(std::move(step));
  }

  void TakeTogether() {
    HandStep step = SolveTogether(Truss, Order, Solution);
    for (const FreeBody& joint : step.joints) {
      for (const BodyForce& force : joint.forces) {
        if (force.kind != ForceKind::Load) Learn(ToUnknown(force, Truss), force.value);
      }
    }
    Solution.steps.push_back(std::move(step));
  }

  const HandTruss& Truss;
  HandSolution& Solution;
  JointOrder Order;
  std::optional<SectionSearch> Sections; ///< where joints alone do not go on
};

} // namespace

HandStep JointOf(const HandTruss& truss, int node, const HandForces& forces) {
  HandStep step;
  step.body = CutFree(truss, {node}, forces);
  step.equations = {WriteEquation(SumOfX(), step.body), WriteEquation(SumOfY(), step.body)};
  step.polygon = ForcePolygon(step.body, {});
  return step;
}

HandSolution SolveByHand(const HandTruss& truss) {
  HandSolution solution;
  solution.determinacy = JudgeDeterminacy(truss);
  solution.forces = HandForces(truss);
  const TrussKind kind = solution.determinacy.kind;
  if (kind == TrussKind::Empty || kind == TrussKind::Mechanism) {
    solution.stop = solution.determinacy.sentence;
    return solution;
  }
  solution.reactions = FindReactionsFirst(truss, solution.forces);
  HandSolver(truss, solution).Run();
  return solution;
}

} // namespace strutwright
