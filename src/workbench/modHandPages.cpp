#include "AnalysisState.h"
#include "HandTexts.h"
#include "modHandAgreement.h"
#include "modHandFigures.h"
#include "modHandLesson.h"
#include "modMember.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

// The pages of the lesson on which the user chooses: a joint, a section, and lines of the force diagram.

namespace strutwright {

namespace {

constexpr double UpperPart = 0.5;
constexpr std::size_t MostCutsTried = 60;

std::size_t Number(int number) { return static_cast<std::size_t>(number); }

/// What the analysis has left in the tables.
HandForces ComputedForces(const HandTruss& truss) {
  std::vector<double> members(Number(truss.memberCount) + 1, 0);
  for (int m = 1; m <= truss.memberCount; ++m) members[Number(m)] = MemberForce(m);
  std::vector<double> reactions(truss.fixed.size(), 0);
  for (std::size_t k = 0; k < std::min(reactions.size(), Reactions.size()); ++k) reactions[k] = Reactions[k];
  return {std::move(members), std::move(reactions)};
}

double LargestIn(const FreeBody& body) {
  double largest = 0;
  for (const BodyForce& force : body.forces) largest = std::max(largest, std::abs(force.value));
  return largest;
}

bool IsAllKnown(const FreeBody& body) {
  return std::all_of(body.forces.begin(), body.forces.end(), [](const BodyForce& force) { return force.isKnown; });
}

std::string Balances(const HandStep& joint, bool computed) {
  if (!IsAllKnown(joint.body)) return "Not every force of this joint is known from equilibrium.";
  const double error = ClosingError(joint.polygon);
  const double largest = LargestIn(joint.body);
  const std::string whose = computed ? "The computed forces" : "The forces";
  if (error <= joint.body.nothing) return whose + " balance: the polygon closes.";
  return whose + " leave " + HandNumber(error) + " kN, " + HandNumber(largest > 0 ? error / largest : 0) +
         " of the largest: the polygon closes but for the rounding of the results.";
}

/// Upright strokes between neighbouring x of the nodes, those near the middle first.
std::vector<double> CutsOf(const HandTruss& truss) {
  std::vector<double> x(truss.x.begin() + 1, truss.x.end());
  std::sort(x.begin(), x.end());
  std::vector<double> cuts;
  for (std::size_t k = 1; k < x.size(); ++k) {
    if (x[k] - x[k - 1] > 1e-3 * truss.size) cuts.push_back((x[k] + x[k - 1]) / 2);
  }
  const double middle = x.empty() ? 0 : (x.front() + x.back()) / 2;
  std::stable_sort(cuts.begin(), cuts.end(),
                   [middle](double a, double b) { return std::abs(a - middle) < std::abs(b - middle); });
  if (cuts.size() > MostCutsTried) cuts.resize(MostCutsTried);
  return cuts;
}

} // namespace

bool HandLesson::HasComputed() { return AnalysisDone == FlagTrue; }

HandTelling HandLesson::TellJoint(int node, bool computed) const {
  if (!WhyNothing().empty()) return Nothing();
  HandTelling telling;
  telling.heading = "Joint " + std::to_string(node);
  const HandStep joint = JointOf(TheTruss, node, computed ? ComputedForces(TheTruss) : TheSolution.forces);
  if (joint.body.forces.empty()) telling.sentences.emplace_back("Nothing acts on this node.");
  const int step = StepOfJoint(node);
  if (step > 0 && !computed) {
    telling.sentences.push_back("Step " + std::to_string(step) +
                                " takes this joint; here every force that is known "
                                "at the end has its number.");
  }
  telling.equations = joint.equations;
  if (!joint.body.forces.empty()) telling.remarks.push_back(Balances(joint, computed));
  FigureMarks marks;
  marks.nodes = {node};
  Sketch truss = TrussFigure(TheTruss, computed ? ComputedForces(TheTruss) : TheSolution.forces, marks);
  Sketch body = BodyFigure(TheTruss, joint.body);
  body.title = "The joint cut free";
  Sketch polygon = PolygonFigure(joint.body, joint.polygon);
  polygon.title = "Its force polygon";
  telling.sheet = {{std::move(truss), 0, 0, 1, UpperPart},
                   {std::move(body), 0, UpperPart, 0.5, 1 - UpperPart},
                   {std::move(polygon), 0.5, UpperPart, 0.5, 1 - UpperPart}};
  return telling;
}

HandTelling HandLesson::TellComputed(int step) const {
  if (!WhyNothing().empty()) return Nothing();
  if (const int node = JointOfStep(step); node > 0) return TellJoint(node, true);
  HandTelling telling;
  telling.heading = "By hand and computed";
  if (!TheSolution.stop.empty()) telling.sentences.push_back(TheSolution.stop + ".");
  const HandForces computed = ComputedForces(TheTruss);
  const HandForces& byHand = TheSolution.forces;
  for (const HandMember& member : TheTruss.members) {
    const auto at = Number(member.number);
    const std::string text =
        ForceText("F" + std::to_string(member.number), computed.members[at], true, TheTruss.nothing);
    telling.solution.push_back(
        text + (byHand.memberKnown[at] != 0 ? ", by hand " + HandNumber(byHand.members[at]) : ", by hand left open"));
  }
  if (TheSolution.stop.empty()) telling.remarks.push_back(AgreementSentence(TheTruss, TheSolution));
  telling.sheet = {{TrussFigure(TheTruss, computed, {})}};
  return telling;
}

HandTelling HandLesson::TellHowToCut() const {
  HandTelling telling;
  telling.heading = "Sections";
  telling.sentences = Verdict();
  telling.sentences.emplace_back("Drag a line across the truss, or type its ends: the members that it cuts give the "
                                 "forces that are asked for.");
  telling.sheet = {{TrussFigure(TheTruss, HandForces(TheTruss), {})}};
  return telling;
}

HandTelling HandLesson::TellSection(const SectionStroke& stroke, double nearness) const {
  if (!WhyNothing().empty()) return Nothing();
  HandSection section = SectionAlong(TheTruss, stroke, TheSolution.forces, nearness);
  HandTelling telling;
  telling.heading = section.cut.empty() ? "No section" : "Section through " + MemberNames(section.cut);
  FigureMarks marks;
  marks.members = section.cut;
  marks.stroke = SketchStroke{stroke.x0, stroke.y0, stroke.x1, stroke.y1};
  Sketch truss = TrussFigure(TheTruss, HandForces(TheTruss), marks);
  if (!section.whyNot.empty()) telling.remarks.push_back(section.whyNot + ".");
  if (section.body.nodes.empty()) {
    telling.sheet = {{std::move(truss)}};
    return telling;
  }
  const bool one = section.body.nodes.size() == 1;
  telling.sentences.push_back(NodeNames(section.body.nodes) + (one ? " is cut free." : " are cut free together."));
  if (!TheSolution.reactions.found) telling.sentences.push_back(TheSolution.reactions.whyNot + ".");
  if (!section.remark.empty()) telling.sentences.push_back(section.remark + ".");
  telling.equations = section.equations;
  for (std::size_t k = 0; k < section.equations.size(); ++k) {
    BodyForce& force = section.body.forces[Number(section.equations[k].unknowns.front().force)];
    force.value = section.values[k];
    force.isKnown = true;
  }
  truss.title = "The line cuts the truss in two";
  Sketch body = BodyFigure(TheTruss, section.body);
  body.title = "One part cut free";
  telling.sheet = {{std::move(truss), 0, 0, 1, UpperPart}, {std::move(body), 0, UpperPart, 1, 1 - UpperPart}};
  return telling;
}

SectionStroke HandLesson::ProposedStroke() const {
  if (!WhyNothing().empty() || TheTruss.nodeCount == 0) return {};
  const auto [low, high] = std::minmax_element(TheTruss.y.begin() + 1, TheTruss.y.end());
  const double beyond = 0.15 * TheTruss.size;
  SectionStroke any;
  for (const double x : CutsOf(TheTruss)) {
    const SectionStroke stroke{x, *high + beyond, x, *low - beyond};
    const HandSection section = SectionAlong(TheTruss, stroke, TheSolution.forces);
    if (section.whyNot.empty() && section.open.empty()) return stroke;
    if (section.whyNot.empty() && any.x0 == any.x1 && any.y0 == any.y1) any = stroke;
  }
  return any;
}

HandTelling HandLesson::TellDiagram(int step) const {
  HandTelling telling;
  telling.heading = "Force diagram";
  if (!TheDiagram.whyNot.empty()) {
    telling.sentences = {TheDiagram.whyNot + "."};
    telling.sheet = {{TrussFigure(TheTruss, TheSolution.forces, {})}};
    return telling;
  }
  const int last = LastStep(HandTopic::ForceDiagram);
  if (step == 0) {
    telling.sentences = {"Every space between two forces has a letter, clockwise around the truss, and every space "
                         "between members has one too. A force lies between two spaces; in the force diagram it is the "
                         "line between their points.",
                         "First the loads and reactions are put end to end, then the members, joint after joint: each "
                         "point is where the parallels to two members cross."};
  } else {
    const DiagramLine& line = TheDiagram.lines[Number(step - 1)];
    telling.heading = "Line " + std::to_string(step) + " of " + std::to_string(last);
    telling.sentences = {LineText(step) + "."};
    if (line.step > 0) {
      const HandStep& drawn = TheSolution.steps[line.step - 1];
      const bool isJoint = drawn.kind == HandStepKind::Joint;
      telling.sentences.push_back(!line.byHand ? "Its force was found before, so it can be drawn to its length."
                                  : isJoint    ? "It is drawn at joint " + std::to_string(drawn.body.nodes.front()) +
                                                  ", parallel to the member."
                                            : "It is drawn parallel to the member.");
    }
  }
  if (step == last) {
    const double error = TheDiagram.closingError <= TheTruss.nothing ? 0 : TheDiagram.closingError;
    telling.remarks.push_back("The diagram closes; its closing error is " + HandNumber(error) + " kN.");
  }
  Sketch form = FormFigure(TheTruss, TheDiagram, Number(step));
  form.title = "Form diagram";
  Sketch force = ForceFigure(TheDiagram, Number(step));
  force.title = "Force diagram";
  telling.sheet = {{std::move(form), 0, 0, 0.5, 1}, {std::move(force), 0.5, 0, 0.5, 1}};
  return telling;
}

} // namespace strutwright
