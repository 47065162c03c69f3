#include "modGoOn.h"

#include "EquilibriumMatrix.h"
#include "HandTexts.h"
#include "modRigidParts.h"
#include "modSections.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <numeric>
#include <tuple>
#include <utility>

namespace strutwright {

namespace {

constexpr std::size_t MaxHingesTried = 40;

std::size_t Position(int number) { return static_cast<std::size_t>(number); }

std::string WhySection(const HandSection& section, const HandSolution& solution) {
  const std::string kind = solution.determinacy.kind == TrussKind::Complex ? "complex" : "compound";
  const std::string stuck = "No joint left has at most two unknown forces: the truss is " + kind + ". ";
  if (section.body.nodes.size() > 1) {
    return stuck + "The section through " + MemberNames(section.cut) + " goes on" +
           (section.remark.empty() ? "" : ": " + section.remark);
  }
  return stuck + "At node " + std::to_string(section.body.nodes.front()) +
         " all unknown forces but one lie on a line: the sum across it goes on";
}

HandStep StepOf(HandSection section, const HandSolution& solution) {
  HandStep step;
  step.kind = HandStepKind::Section;
  step.reason = WhySection(section, solution);
  step.body = std::move(section.body);
  for (std::size_t k = 0; k < section.equations.size(); ++k) {
    const int force = section.equations[k].unknowns.front().force;
    step.found.push_back(force);
    step.solution.push_back(section.equations[k].solution);
    step.body.forces[Position(force)].value = section.values[k];
    step.body.forces[Position(force)].isKnown = true;
  }
  step.equations = std::move(section.equations);
  return step;
}

/// The joints left, and a column for each force that is unknown at them.
struct JointsLeft {
  std::vector<int> nodes;
  std::vector<UnknownForce> unknowns;
  std::vector<SparseColumn> columns;
};

JointsLeft CollectJointsLeft(const HandTruss& truss, const JointOrder& order) {
  JointsLeft left;
  std::map<int, std::size_t> columnOf;
  for (int node = 1; node <= truss.nodeCount; ++node) {
    const std::vector<UnknownForce> unknowns = order.UnknownsAt(node);
    if (unknowns.empty()) continue;
    const int row = 2 * static_cast<int>(left.nodes.size());
    left.nodes.push_back(node);
    for (const UnknownForce& force : unknowns) {
      // A member comes twice, a reaction once.
      const int key = force.IsMember() ? force.member : -1 - static_cast<int>(force.freedom);
      const auto [place, isNew] = columnOf.emplace(key, left.columns.size());
      if (isNew) {
        left.unknowns.push_back(force);
        left.columns.emplace_back();
      }
      left.columns[place->second].emplace_back(row, force.line.c);
      left.columns[place->second].emplace_back(row + 1, force.line.s);
    }
  }
  return left;
}

/// Solves, and corrects once with what was left over.
std::vector<double> SolveLeft(const JointsLeft& left, const std::vector<HandEquation>& equations) {
  const EquilibriumMatrix matrix(static_cast<int>(equations.size()), left.columns);
  std::vector<double> b;
  for (const HandEquation& equation : equations) b.push_back(-equation.known);
  std::vector<double> values = matrix.Solve(b);
  for (std::size_t k = 0; k < left.columns.size(); ++k) {
    for (const auto& [row, factor] : left.columns[k]) b[Position(row)] -= factor * values[k];
  }
  const std::vector<double> change = matrix.Solve(b);
  for (std::size_t k = 0; k < values.size(); ++k) values[k] += change[k];
  return values;
}

/// Members by their numbers, then reactions.
std::vector<std::size_t> InOrder(const std::vector<UnknownForce>& unknowns) {
  std::vector<std::size_t> order(unknowns.size());
  std::iota(order.begin(), order.end(), 0);
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    const auto key = [](const UnknownForce& force) {
      return std::tuple(!force.IsMember(), force.member, force.freedom);
    };
    return key(unknowns[a]) < key(unknowns[b]);
  });
  return order;
}

std::string WhyTogether(const JointsLeft& left, const HandSolution& solution) {
  const std::string kind = solution.determinacy.kind == TrussKind::Complex ? "complex" : "compound";
  return "No joint left has at most two unknown forces, and no section has one alone: the truss is " + kind + ". The " +
         std::to_string(2 * left.nodes.size()) + " equations of the " + std::to_string(left.nodes.size()) +
         " joints left are solved together for " + std::to_string(left.unknowns.size()) + " forces";
}

std::string NameOf(const UnknownForce& force, const HandTruss& truss) {
  if (force.IsMember()) return "F" + std::to_string(truss.members[Position(force.member)].number);
  return "R" + std::to_string((force.freedom + 1) / 2) + (force.freedom % 2 == 1 ? "x" : "y");
}

} // namespace

SectionSearch::SectionSearch(const HandTruss& truss) : Truss(truss) {
  for (std::vector<int>& part : SimpleParts(truss)) Parts.push_back({std::move(part)});
  for (int node = 1; node <= truss.nodeCount; ++node) Joints.push_back({{node}});
}

std::optional<HandStep> SectionSearch::Next(const JointOrder& order, const HandSolution& solution) {
  const Candidate* best = BestOf(Parts, order, solution.forces);
  if (best == nullptr) best = BestOf(Joints, order, solution.forces);
  if (best == nullptr) return std::nullopt;
  return StepOf(SectionAround(Truss, best->best, solution.forces), solution);
}

const SectionSearch::Candidate* SectionSearch::BestOf(std::vector<Candidate>& candidates, const JointOrder& order,
                                                      const HandForces& forces) const {
  const Candidate* best = nullptr;
  for (Candidate& candidate : candidates) {
    int unknowns = 0;
    for (const int node : candidate.nodes) unknowns += order.UnknownCountAt(node);
    if (unknowns == 0) continue;
    if (unknowns != candidate.unknowns) TryAgain(order, forces, candidate);
    candidate.unknowns = unknowns;
    if (candidate.best.empty() || (best != nullptr && best->asked <= candidate.asked)) continue;
    best = &candidate;
  }
  return best;
}

/// The nodes themselves, and without each of those at which unknown members go on to others.
void SectionSearch::TryAgain(const JointOrder& order, const HandForces& forces, Candidate& candidate) const {
  candidate.best.clear();
  Try(candidate.nodes, forces, candidate);
  std::size_t tried = 0;
  for (const int node : candidate.nodes) {
    if (!LeadsOut(node, order, candidate.nodes) || ++tried > MaxHingesTried) continue;
    std::vector<int> rest = candidate.nodes;
    std::erase(rest, node);
    Try(rest, forces, candidate);
  }
}

void SectionSearch::Try(const std::vector<int>& nodes, const HandForces& forces, Candidate& candidate) const {
  if (nodes.empty() || static_cast<int>(nodes.size()) == Truss.nodeCount) return;
  const HandSection section = SectionAround(Truss, nodes, forces);
  const std::size_t asked = section.equations.size() + section.open.size();
  if (section.equations.empty() || (!candidate.best.empty() && candidate.asked <= asked)) return;
  candidate.best = nodes;
  candidate.asked = asked;
}

bool SectionSearch::LeadsOut(int node, const JointOrder& order, const std::vector<int>& part) const {
  const auto& members = Truss.membersAt[Position(node)];
  return std::any_of(members.begin(), members.end(), [&](int index) {
    const int end = Truss.members[Position(index)].OtherEnd(node);
    return !order.KnowsMember(index) && !std::binary_search(part.begin(), part.end(), end);
  });
}

HandStep SolveTogether(const HandTruss& truss, const JointOrder& order, const HandSolution& solution) {
  const JointsLeft left = CollectJointsLeft(truss, order);
  HandStep step;
  step.kind = HandStepKind::Together;
  step.reason = WhyTogether(left, solution);
  for (const int node : left.nodes) {
    FreeBody joint = CutFree(truss, {node}, solution.forces);
    for (Balance balance : {SumOfX(), SumOfY()}) {
      balance.title += " at node " + std::to_string(node);
      step.equations.push_back(WriteEquation(balance, joint));
    }
    step.joints.push_back(std::move(joint));
  }
  const std::vector<double> values = SolveLeft(left, step.equations);
  HandForces solved = solution.forces;
  for (const std::size_t k : InOrder(left.unknowns)) {
    Put(left.unknowns[k], values[k], truss, solved);
    step.solution.push_back(
        ForceText(NameOf(left.unknowns[k], truss), values[k], left.unknowns[k].IsMember(), truss.nothing));
  }
  for (FreeBody& joint : step.joints) joint = CutFree(truss, joint.nodes, solved);
  step.body.nodes = left.nodes;
  step.body.nothing = truss.nothing;
  return step;
}

UnknownForce ToUnknown(const BodyForce& force, const HandTruss& truss) {
  if (force.kind == ForceKind::Reaction) return {-1, force.freedom, force.line};
  const auto found = std::lower_bound(truss.members.begin(), truss.members.end(), force.member,
                                      [](const HandMember& member, int number) { return member.number < number; });
  return {static_cast<int>(found - truss.members.begin()), 0, force.line};
}

void Put(const UnknownForce& force, double value, const HandTruss& truss, HandForces& forces) {
  if (!force.IsMember()) {
    forces.reactions[force.freedom] = value;
    forces.reactionKnown[force.freedom] = 1;
    return;
  }
  const auto number = Position(truss.members[Position(force.member)].number);
  forces.members[number] = value;
  forces.memberKnown[number] = 1;
}

} // namespace strutwright
