#include "CommandLine.h"
#include "Commands.h"
#include "HandTexts.h"
#include "ModelSession.h"
#include "modHandLesson.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <ostream>

namespace strutwright {

namespace {

/// Everything that equilibrium shows of the model as the grids show it, which is what an analysis takes.
HandLesson StaticsOfModel() {
  RebuildModelFromGrids();
  HandLesson statics;
  statics.Read();
  return statics;
}

std::string DeterminacyName(const Determinacy& determinacy) {
  if (determinacy.IsDeterminate()) return "determinate";
  return determinacy.kind == TrussKind::Indeterminate ? "indeterminate" : KindText(determinacy);
}

/// A force in kN; what is none but for rounding is 0.
Json JsonForce(const HandLesson& statics, double value) {
  constexpr double largest = std::numeric_limits<float>::max();
  if (!(std::abs(value) <= largest)) return nullptr;
  return JsonNumber(std::abs(value) <= statics.Truss().nothing ? 0.0F : static_cast<float>(value));
}

template <typename Items, typename Value>
Json JsonEach(const Items& items, const Value& value) {
  Json values = Json::array();
  for (const auto& item : items) values.push_back(value(item));
  return values;
}

Json JsonEquations(const std::vector<HandEquation>& equations) {
  return JsonEach(equations, [](const HandEquation& equation) {
    return Json{{"title", equation.title}, {"equation", equation.text}};
  });
}

/// A support's part in a direction: 0 where it does not hold, null where it is not known.
Json JsonReaction(const HandLesson& statics, std::size_t freedom) {
  if (statics.Truss().fixed[freedom] == 0) return JsonNumber(0);
  const HandForces& forces = statics.Solution().forces;
  if (forces.reactionKnown[freedom] == 0) return nullptr;
  return JsonForce(statics, forces.reactions[freedom]);
}

Json JsonReactions(const HandLesson& statics) {
  Json reactions = Json::array();
  for (int node = 1; node <= statics.Truss().nodeCount; ++node) {
    if (!statics.Truss().HasSupport(node)) continue;
    const auto x = static_cast<std::size_t>(2 * node - 1);
    reactions.push_back(Json{{"node", node}, {"rx", JsonReaction(statics, x)}, {"ry", JsonReaction(statics, x + 1)}});
  }
  return reactions;
}

std::string StepName(HandStepKind kind) {
  if (kind == HandStepKind::Joint) return "joint";
  return kind == HandStepKind::Section ? "section" : "together";
}

Json JsonStep(const HandStep& step) {
  return Json{{"step", StepName(step.kind)},
              {"nodes", step.body.nodes},
              {"reason", step.reason},
              {"equations", JsonEquations(step.equations)},
              {"solution", step.solution}};
}

Json JsonMembers(const HandLesson& statics) {
  Json members = Json::array();
  for (int m = 1; m <= statics.Truss().memberCount; ++m) {
    const auto at = static_cast<std::size_t>(m);
    const HandForces& forces = statics.Solution().forces;
    const Json force = forces.memberKnown[at] != 0 ? JsonForce(statics, forces.members[at]) : Json(nullptr);
    members.push_back(Json{{"member", m}, {"force", force}});
  }
  return members;
}

Json JsonZero(const ZeroMember& zero) {
  return Json{{"member", zero.member}, {"node", zero.node}, {"rule", zero.text}};
}

std::string LetterAt(const ForceDiagram& diagram, int space) {
  return diagram.spaces[static_cast<std::size_t>(space)].letter;
}

Json JsonLine(const HandLesson& statics, const DiagramLine& line) {
  return Json{{"member", line.member > 0 ? Json(line.member) : Json(nullptr)},
              {"node", line.node},
              {"from", LetterAt(statics.Diagram(), line.from)},
              {"to", LetterAt(statics.Diagram(), line.to)},
              {"force", JsonForce(statics, line.force)}};
}

Json JsonDiagram(const HandLesson& statics) {
  const ForceDiagram& diagram = statics.Diagram();
  if (!diagram.whyNot.empty()) {
    return Json{
        {"points", Json::array()}, {"lines", Json::array()}, {"closing_error", nullptr}, {"why_not", diagram.whyNot}};
  }
  const Json points = JsonEach(diagram.spaces, [&](const DiagramSpace& space) {
    return Json{{"space", space.letter}, {"x", JsonForce(statics, space.x)}, {"y", JsonForce(statics, space.y)}};
  });
  const Json lines = JsonEach(diagram.lines, [&](const DiagramLine& line) { return JsonLine(statics, line); });
  return Json{{"points", points},
              {"lines", lines},
              {"closing_error", JsonForce(statics, diagram.closingError)},
              {"why_not", nullptr}};
}

void PrintStaticsJson(const ModelSession& session, const HandLesson& statics, std::ostream& out) {
  const Determinacy& verdict = statics.Solution().determinacy;
  const std::string& stop = statics.Solution().stop;
  const Json count{{"nodes", verdict.nodes}, {"members", verdict.members}, {"reactions", verdict.reactions}};
  PrintJsonLine({{"file", session.File()},
                 {"determinacy", DeterminacyName(verdict)},
                 {"kind", KindText(verdict)},
                 {"degree", verdict.degree},
                 {"count", count},
                 {"sentence", verdict.sentence},
                 {"notes", statics.Truss().notes},
                 {"reactions", JsonReactions(statics)},
                 {"reaction_equations", JsonEquations(statics.Solution().reactions.equations)},
                 {"joints", JsonEach(statics.Solution().steps, JsonStep)},
                 {"stop", stop.empty() ? Json(nullptr) : Json(stop)},
                 {"members", JsonMembers(statics)},
                 {"zero_members", JsonEach(statics.Zeros(), JsonZero)},
                 {"zero_by_numbers", statics.ZerosByNumbers()},
                 {"force_diagram", JsonDiagram(statics)}},
                out);
}

void PrintEquations(const std::vector<HandEquation>& equations, std::ostream& out) {
  for (const HandEquation& equation : equations) out << "  " << equation.title << ": " << equation.text << '\n';
}

void PrintLines(const std::vector<std::string>& lines, std::ostream& out) {
  for (const std::string& line : lines) out << "  " << line << '\n';
}

void PrintReactions(const HandLesson& statics, std::ostream& out) {
  const ReactionsFirst& first = statics.Solution().reactions;
  if (statics.Solution().steps.empty() && !first.found) return;
  out << "Reactions\n";
  if (!first.whyNot.empty()) out << "  " << first.whyNot << '\n';
  PrintEquations(first.equations, out);
  PrintLines(first.solution, out);
  out << '\n';
}

void PrintSteps(const HandLesson& statics, std::ostream& out) {
  for (std::size_t k = 0; k < statics.Solution().steps.size(); ++k) {
    const HandStep& step = statics.Solution().steps[k];
    out << "Step " << k + 1 << ", " << StepName(step.kind);
    if (step.kind == HandStepKind::Joint) out << ' ' << step.body.nodes.front();
    out << ": " << step.reason << '\n';
    PrintEquations(step.equations, out);
    PrintLines(step.solution, out);
    out << '\n';
  }
  if (!statics.Solution().steps.empty() && !statics.Solution().stop.empty()) out << statics.Solution().stop << "\n\n";
}

void PrintForces(const HandLesson& statics, std::ostream& out) {
  const HandForces& forces = statics.Solution().forces;
  if (statics.Solution().steps.empty()) return;
  out << "Members\n";
  for (const HandMember& member : statics.Truss().members) {
    const auto at = static_cast<std::size_t>(member.number);
    const std::string name = "F" + std::to_string(member.number);
    out << "  "
        << (forces.memberKnown[at] != 0 ? ForceText(name, forces.members[at], true, statics.Truss().nothing)
                                        : name + " is left open")
        << '\n';
  }
  out << '\n';
}

void PrintZeros(const HandLesson& statics, std::ostream& out) {
  if (statics.Zeros().empty() && statics.ZerosByNumbers().empty()) return;
  out << "Members without force\n";
  for (const ZeroMember& zero : statics.Zeros()) out << "  " << zero.member << ": " << zero.text << '\n';
  for (const int member : statics.ZerosByNumbers())
    out << "  " << member << ": no joint shows it, only the numbers do\n";
  out << '\n';
}

void PrintDiagram(const HandLesson& statics, std::ostream& out) {
  const ForceDiagram& diagram = statics.Diagram();
  if (statics.Solution().steps.empty()) return;
  if (!diagram.whyNot.empty()) {
    out << diagram.whyNot << "\n\n";
    return;
  }
  const auto shown = [&](double value) { return std::abs(value) <= statics.Truss().nothing ? 0 : value; };
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

void PrintStaticsText(const ModelSession& session, const HandLesson& statics, std::ostream& out) {
  const Determinacy& verdict = statics.Solution().determinacy;
  out << ValidText(session.File()) << ": " << KindText(verdict) << "\n\n" << verdict.sentence << '\n';
  for (const std::string& note : statics.Truss().notes) out << note << '\n';
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

int PrintStatics(const std::string& file, OutputFormat format, std::istream& in, std::ostream& out, std::ostream& err) {
  ModelSession session(file, err);
  if (!session.Open(in)) return ExitUsage;
  const HandLesson statics = StaticsOfModel();
  if (format == OutputFormat::Json) PrintStaticsJson(session, statics, out);
  if (format != OutputFormat::Json) PrintStaticsText(session, statics, out);
  return StatusOfStatics(statics.Solution().determinacy);
}

} // namespace strutwright
