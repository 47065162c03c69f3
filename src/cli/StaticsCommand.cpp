#include "CommandLine.h"
#include "Commands.h"
#include "HandTexts.h"
#include "ModelSession.h"
#include "modForceDiagram.h"
#include "modHandSolution.h"
#include "modModelStore.h"
#include "modZeroMembers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>

namespace strutwright {

namespace {

/// Everything that equilibrium shows of a model.
struct Statics {
  HandTruss truss;
  HandSolution solution;
  std::vector<ZeroMember> zeros;
  std::vector<int> zeroByNumbers;
  ForceDiagram diagram;
};

/// Of the model as the grids show it, which is what an analysis takes.
Statics StaticsOfModel() {
  RebuildModelFromGrids();
  Statics statics;
  statics.truss = ReadHandTruss();
  statics.solution = SolveByHand(statics.truss);
  // A mechanism need not balance, and so its joints show nothing.
  if (statics.solution.determinacy.kind != TrussKind::Mechanism) statics.zeros = FindZeroMembers(statics.truss);
  statics.zeroByNumbers = ZeroByNumbers(statics.truss, statics.solution.forces, statics.zeros);
  statics.diagram = DrawForceDiagram(statics.truss, statics.solution);
  return statics;
}

std::string DeterminacyName(const Determinacy& determinacy) {
  if (determinacy.IsDeterminate()) return "determinate";
  return determinacy.kind == TrussKind::Indeterminate ? "indeterminate" : KindText(determinacy);
}

/// A force in kN as a JSON number; what is none but for rounding is 0.
std::string JsonForce(const Statics& statics, double value) {
  constexpr double largest = std::numeric_limits<float>::max();
  if (!(std::abs(value) <= largest)) return "null";
  return JsonNumber(std::abs(value) <= statics.truss.nothing ? 0.0F : static_cast<float>(value));
}

template <typename Items, typename Text>
std::string JsonEach(const Items& items, const Text& text) {
  std::vector<std::string> values;
  for (const auto& item : items) values.push_back(text(item));
  return JsonList(values);
}

std::string JsonEquations(const std::vector<HandEquation>& equations) {
  return JsonEach(equations, [](const HandEquation& equation) {
    return JsonObject({{"title", JsonText(equation.title)}, {"equation", JsonText(equation.text)}});
  });
}

std::string JsonTexts(const std::vector<std::string>& texts) { return JsonEach(texts, JsonText); }

std::string JsonNumbers(const std::vector<int>& numbers) {
  return JsonEach(numbers, [](int number) { return std::to_string(number); });
}

/// A support's part in a direction: 0 where it does not hold, null where it is not known.
std::string JsonReaction(const Statics& statics, std::size_t freedom) {
  if (statics.truss.fixed[freedom] == 0) return "0";
  const HandForces& forces = statics.solution.forces;
  return forces.reactionKnown[freedom] != 0 ? JsonForce(statics, forces.reactions[freedom]) : "null";
}

std::string JsonReactions(const Statics& statics) {
  std::vector<std::string> reactions;
  for (int node = 1; node <= statics.truss.nodeCount; ++node) {
    if (!statics.truss.HasSupport(node)) continue;
    const auto x = static_cast<std::size_t>(2 * node - 1);
    reactions.push_back(JsonObject(
        {{"node", std::to_string(node)}, {"rx", JsonReaction(statics, x)}, {"ry", JsonReaction(statics, x + 1)}}));
  }
  return JsonList(reactions);
}

std::string StepName(HandStepKind kind) {
  if (kind == HandStepKind::Joint) return "joint";
  return kind == HandStepKind::Section ? "section" : "together";
}

std::string JsonStep(const HandStep& step) {
  return JsonObject({{"step", JsonText(StepName(step.kind))},
                     {"nodes", JsonNumbers(step.body.nodes)},
                     {"reason", JsonText(step.reason)},
                     {"equations", JsonEquations(step.equations)},
                     {"solution", JsonTexts(step.solution)}});
}

std::string JsonMembers(const Statics& statics) {
  std::vector<std::string> members;
  for (int m = 1; m <= statics.truss.memberCount; ++m) {
    const auto at = static_cast<std::size_t>(m);
    const HandForces& forces = statics.solution.forces;
    const std::string force = forces.memberKnown[at] != 0 ? JsonForce(statics, forces.members[at]) : "null";
    members.push_back(JsonObject({{"member", std::to_string(m)}, {"force", force}}));
  }
  return JsonList(members);
}

std::string JsonZero(const ZeroMember& zero) {
  return JsonObject(
      {{"member", std::to_string(zero.member)}, {"node", std::to_string(zero.node)}, {"rule", JsonText(zero.text)}});
}

std::string LetterAt(const ForceDiagram& diagram, int space) {
  return diagram.spaces[static_cast<std::size_t>(space)].letter;
}

std::string JsonLine(const Statics& statics, const DiagramLine& line) {
  return JsonObject({{"member", line.member > 0 ? std::to_string(line.member) : "null"},
                     {"node", std::to_string(line.node)},
                     {"from", JsonText(LetterAt(statics.diagram, line.from))},
                     {"to", JsonText(LetterAt(statics.diagram, line.to))},
                     {"force", JsonForce(statics, line.force)}});
}

std::string JsonDiagram(const Statics& statics) {
  if (!statics.diagram.whyNot.empty()) {
    return JsonObject({{"points", "[]"}, {"lines", "[]"}, {"why_not", JsonText(statics.diagram.whyNot)}});
  }
  const std::string points = JsonEach(statics.diagram.spaces, [&](const DiagramSpace& space) {
    return JsonObject(
        {{"space", JsonText(space.letter)}, {"x", JsonForce(statics, space.x)}, {"y", JsonForce(statics, space.y)}});
  });
  const std::string lines =
      JsonEach(statics.diagram.lines, [&](const DiagramLine& line) { return JsonLine(statics, line); });
  return JsonObject({{"points", points},
                     {"lines", lines},
                     {"closing_error", JsonForce(statics, statics.diagram.closingError)},
                     {"why_not", "null"}});
}

void PrintStaticsJson(const ModelSession& session, const Statics& statics, std::ostream& out) {
  const Determinacy& verdict = statics.solution.determinacy;
  const ReactionsFirst& first = statics.solution.reactions;
  const std::string count = JsonObject({{"nodes", std::to_string(verdict.nodes)},
                                        {"members", std::to_string(verdict.members)},
                                        {"reactions", std::to_string(verdict.reactions)}});
  out << JsonObject({{"file", JsonText(session.File())},
                     {"determinacy", JsonText(DeterminacyName(verdict))},
                     {"kind", JsonText(KindText(verdict))},
                     {"degree", std::to_string(verdict.degree)},
                     {"count", count},
                     {"sentence", JsonText(verdict.sentence)},
                     {"notes", JsonTexts(statics.truss.notes)},
                     {"reactions", JsonReactions(statics)},
                     {"reaction_equations", JsonEquations(first.equations)},
                     {"joints", JsonEach(statics.solution.steps, JsonStep)},
                     {"stop", statics.solution.stop.empty() ? "null" : JsonText(statics.solution.stop)},
                     {"members", JsonMembers(statics)},
                     {"zero_members", JsonEach(statics.zeros, JsonZero)},
                     {"zero_by_numbers", JsonNumbers(statics.zeroByNumbers)},
                     {"force_diagram", JsonDiagram(statics)}})
      << '\n';
}

void PrintEquations(const std::vector<HandEquation>& equations, std::ostream& out) {
  for (const HandEquation& equation : equations) out << "  " << equation.title << ": " << equation.text << '\n';
}

void PrintLines(const std::vector<std::string>& lines, std::ostream& out) {
  for (const std::string& line : lines) out << "  " << line << '\n';
}

void PrintReactions(const Statics& statics, std::ostream& out) {
  const ReactionsFirst& first = statics.solution.reactions;
  if (statics.solution.steps.empty() && !first.found) return;
  out << "Reactions\n";
  if (!first.whyNot.empty()) out << "  " << first.whyNot << '\n';
  PrintEquations(first.equations, out);
  PrintLines(first.solution, out);
  out << '\n';
}

void PrintSteps(const Statics& statics, std::ostream& out) {
  for (std::size_t k = 0; k < statics.solution.steps.size(); ++k) {
    const HandStep& step = statics.solution.steps[k];
    out << "Step " << k + 1 << ", " << StepName(step.kind);
    if (step.kind == HandStepKind::Joint) out << ' ' << step.body.nodes.front();
    out << ": " << step.reason << '\n';
    PrintEquations(step.equations, out);
    PrintLines(step.solution, out);
    out << '\n';
  }
  if (!statics.solution.steps.empty() && !statics.solution.stop.empty()) out << statics.solution.stop << "\n\n";
}

void PrintForces(const Statics& statics, std::ostream& out) {
  const HandForces& forces = statics.solution.forces;
  if (statics.solution.steps.empty()) return;
  out << "Members\n";
  for (const HandMember& member : statics.truss.members) {
    const auto at = static_cast<std::size_t>(member.number);
    const std::string name = "F" + std::to_string(member.number);
    out << "  "
        << (forces.memberKnown[at] != 0 ? ForceText(name, forces.members[at], true, statics.truss.nothing)
                                        : name + " is left open")
        << '\n';
  }
  out << '\n';
}

void PrintZeros(const Statics& statics, std::ostream& out) {
  if (statics.zeros.empty() && statics.zeroByNumbers.empty()) return;
  out << "Members without force\n";
  for (const ZeroMember& zero : statics.zeros) out << "  " << zero.member << ": " << zero.text << '\n';
  for (const int member : statics.zeroByNumbers) out << "  " << member << ": no joint shows it, only the numbers do\n";
  out << '\n';
}

void PrintDiagram(const Statics& statics, std::ostream& out) {
  const ForceDiagram& diagram = statics.diagram;
  if (statics.solution.steps.empty()) return;
  if (!diagram.whyNot.empty()) {
    out << diagram.whyNot << "\n\n";
    return;
  }
  const auto shown = [&](double value) { return std::abs(value) <= statics.truss.nothing ? 0 : value; };
  out << "Force diagram, points in kN\n";
  for (const DiagramSpace& space : diagram.spaces) {
    out << "  " << space.letter << ' ' << PlaceText(shown(space.x), shown(space.y)) << '\n';
  }
  for (const DiagramLine& line : diagram.lines) {
    out << "  " << LetterAt(diagram, line.from) << '-' << LetterAt(diagram, line.to) << ' ';
    if (line.member > 0) out << "member " << line.member;
    if (line.member == 0) out << (line.kind == ForceKind::Load ? "load" : "reaction") << " at node " << line.node;
    out << ": " << HandNumber(shown(line.force)) << " kN\n";
  }
  out << "  Closing error " << HandNumber(shown(diagram.closingError)) << " kN\n\n";
}

void PrintStaticsText(const ModelSession& session, const Statics& statics, std::ostream& out) {
  const Determinacy& verdict = statics.solution.determinacy;
  out << ValidText(session.File()) << ": " << KindText(verdict) << "\n\n" << verdict.sentence << '\n';
  for (const std::string& note : statics.truss.notes) out << note << '\n';
  out << '\n';
  PrintReactions(statics, out);
  PrintSteps(statics, out);
  PrintForces(statics, out);
  PrintZeros(statics, out);
  PrintDiagram(statics, out);
}

int StatusOfStatics(const Determinacy& verdict) {
  return verdict.kind == TrussKind::Empty || verdict.kind == TrussKind::Mechanism ? ExitFailed : ExitOk;
}

} // namespace

int PrintStatics(const std::string& file, OutputFormat format, std::ostream& out, std::ostream& err) {
  ModelSession session(file, err);
  if (!session.Open()) return ExitUsage;
  const Statics statics = StaticsOfModel();
  if (format == OutputFormat::Json) PrintStaticsJson(session, statics, out);
  if (format != OutputFormat::Json) PrintStaticsText(session, statics, out);
  return StatusOfStatics(statics.solution.determinacy);
}

} // namespace strutwright
