#include "modHandLesson.h"

#include "HandTexts.h"
#include "modHandAgreement.h"
#include "modHandFigures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace strutwright {

namespace {

constexpr double UpperHalf = 0.48; // of the sheet

std::size_t At(int number) { return static_cast<std::size_t>(number); }

Sketch Titled(Sketch sketch, const std::string& title) {
  sketch.title = title;
  return sketch;
}

SketchSheet Whole(Sketch sketch) { return {{std::move(sketch)}}; }

SketchSheet Below(Sketch upper, Sketch lower) {
  return {{std::move(upper), 0, 0, 1, UpperHalf}, {std::move(lower), 0, UpperHalf, 1, 1 - UpperHalf}};
}

SketchSheet Three(Sketch upper, Sketch left, Sketch right) {
  return {{std::move(upper), 0, 0, 1, UpperHalf},
          {std::move(left), 0, UpperHalf, 0.5, 1 - UpperHalf},
          {std::move(right), 0.5, UpperHalf, 0.5, 1 - UpperHalf}};
}

/// A free body with none of its reactions or members known.
FreeBody AsCutFree(FreeBody body) {
  for (BodyForce& force : body.forces) {
    if (force.kind != ForceKind::Load) force.isKnown = false;
  }
  return body;
}

std::string OfSteps(int step, int last) { return "Step " + std::to_string(step) + " of " + std::to_string(last); }

bool HasLoad(const HandTruss& truss) {
  return std::any_of(truss.load.begin(), truss.load.end(), [](double load) { return load != 0; });
}

void LearnFrom(const FreeBody& body, const std::vector<int>& found, const HandForces& all, HandForces& known) {
  for (const int k : found) {
    const BodyForce& force = body.forces[At(k)];
    if (force.kind == ForceKind::Member) {
      known.members[At(force.member)] = all.members[At(force.member)];
      known.memberKnown[At(force.member)] = 1;
    } else if (force.kind == ForceKind::Reaction) {
      known.reactions[force.freedom] = all.reactions[force.freedom];
      known.reactionKnown[force.freedom] = 1;
    }
  }
}

std::vector<int> AllForcesOf(const FreeBody& body) {
  std::vector<int> all;
  for (int k = 0; k < static_cast<int>(body.forces.size()); ++k) all.push_back(k);
  return all;
}

} // namespace

void HandLesson::Read() {
  Solved = ModelAsEntered::Now();
  TheTruss = ReadHandTruss();
  TheSolution = SolveByHand(TheTruss);
  TheZeros.clear();
  const TrussKind kind = TheSolution.determinacy.kind;
  if (kind != TrussKind::Mechanism && kind != TrussKind::Empty) TheZeros = FindZeroMembers(TheTruss);
  ZeroOnlyByNumbers = ZeroByNumbers(TheTruss, TheSolution.forces, TheZeros);
  TheDiagram = DrawForceDiagram(TheTruss, TheSolution);
}

std::string HandLesson::WhyNothing() const {
  if (TheSolution.determinacy.kind == TrussKind::Empty) return "The model has no nodes: enter a truss first.";
  if (TheSolution.determinacy.kind != TrussKind::Mechanism) return "";
  return TheSolution.determinacy.sentence +
         ". What can move need not be in equilibrium: give it the supports or members "
         "that it lacks; the check says which would do.";
}

std::vector<std::string> HandLesson::Verdict() const {
  std::vector<std::string> sentences{TheSolution.determinacy.sentence + "."};
  for (const std::string& note : TheTruss.notes) sentences.push_back(note + ".");
  if (!HasLoad(TheTruss)) {
    sentences.emplace_back("No node is loaded: every force that equilibrium can find is 0.");
  }
  return sentences;
}

HandTelling HandLesson::Nothing() const {
  HandTelling telling;
  telling.heading = TheTruss.nodeCount == 0 ? "No truss" : "Nothing can be found by hand";
  telling.sentences = {WhyNothing()};
  FigureMarks marks;
  marks.nodes = TheSolution.determinacy.movingNodes;
  if (TheTruss.nodeCount > 0) telling.sheet = Whole(TrussFigure(TheTruss, TheSolution.forces, marks));
  return telling;
}

int HandLesson::LastStep(HandTopic topic) const {
  if (!WhyNothing().empty()) return 0;
  switch (topic) {
  case HandTopic::FirstReactions: return static_cast<int>(TheSolution.reactions.equations.size());
  case HandTopic::ZeroMembers: return static_cast<int>(TheZeros.size());
  case HandTopic::Joints: return static_cast<int>(TheSolution.steps.size()) + 1;
  case HandTopic::ForceDiagram: return static_cast<int>(TheDiagram.lines.size());
  case HandTopic::Sections: break;
  }
  return 0;
}

HandTelling HandLesson::Tell(HandTopic topic, int step) const {
  if (!WhyNothing().empty()) return Nothing();
  const int at = std::clamp(step, 0, LastStep(topic));
  switch (topic) {
  case HandTopic::FirstReactions: return TellReactions(at);
  case HandTopic::ZeroMembers: return TellZeros(at);
  case HandTopic::Joints: return TellJoints(at);
  case HandTopic::ForceDiagram: return TellDiagram(at);
  case HandTopic::Sections: break;
  }
  return TellHowToCut();
}

/// An equation is shown with its solution; at the last all are known.
HandTelling HandLesson::TellReactions(int step) const {
  const ReactionsFirst& first = TheSolution.reactions;
  HandTelling telling;
  telling.heading = "Reactions";
  telling.sentences = Verdict();
  if (!first.whyNot.empty()) telling.sentences.push_back(first.whyNot + ".");
  if (first.found && step == 0) {
    telling.sentences.emplace_back("The whole truss is cut free of its supports, which leave their reactions behind: "
                                   "positive to the right and upward.");
  }
  if (step > 0)
    telling.heading =
        "Reactions, equation " + std::to_string(step) + " of " + std::to_string(LastStep(HandTopic::FirstReactions));
  telling.equations.assign(first.equations.begin(), first.equations.begin() + step);
  FreeBody body = AsCutFree(first.body);
  for (BodyForce& force : body.forces) {
    if (force.kind != ForceKind::Reaction || !first.found) continue;
    const auto index = static_cast<int>(&force - body.forces.data());
    const bool isFound = std::any_of(telling.equations.begin(), telling.equations.end(), [&](const auto& equation) {
      return !equation.solution.empty() && equation.unknowns.size() == 1 && equation.unknowns[0].force == index;
    });
    force.isKnown = isFound || step == LastStep(HandTopic::FirstReactions);
    force.value = force.isKnown ? TheSolution.forces.reactions[force.freedom] : 0;
  }
  if (step > 0 && step == LastStep(HandTopic::FirstReactions)) telling.solution = first.solution;
  telling.sheet = Whole(Titled(BodyFigure(TheTruss, body), "The whole truss cut free"));
  return telling;
}

HandTelling HandLesson::TellZeros(int step) const {
  HandTelling telling;
  telling.heading = "Members without force";
  if (step == 0) {
    telling.sentences = {TheZeros.empty() ? "No joint shows a member without force."
                                          : "Some members can be seen to bear nothing before any number is known."};
  }
  for (int k = 0; k < step; ++k) {
    telling.sentences.push_back("Member " + std::to_string(TheZeros[At(k)].member) + ": " + TheZeros[At(k)].text + ".");
  }
  if (step > 0)
    telling.heading =
        OfSteps(step, LastStep(HandTopic::ZeroMembers)) + ": member " + std::to_string(TheZeros[At(step - 1)].member);
  if (step == LastStep(HandTopic::ZeroMembers) && !ZeroOnlyByNumbers.empty()) {
    std::string names = MemberNames(ZeroOnlyByNumbers);
    names.front() = 'M';
    telling.remarks.push_back(names + (ZeroOnlyByNumbers.size() == 1 ? " bears" : " bear") +
                              " nothing either, but no joint shows it: only the numbers do.");
  }
  telling.sheet = Whole(ZeroFigure(TheTruss, TheZeros, At(step)));
  return telling;
}

HandForces HandLesson::KnownBefore(int step) const {
  HandForces known(TheTruss);
  const HandForces& all = TheSolution.forces;
  if (TheSolution.reactions.found)
    LearnFrom(TheSolution.reactions.body, AllForcesOf(TheSolution.reactions.body), all, known);
  for (int k = 0; k + 1 < step; ++k) {
    const HandStep& each = TheSolution.steps[At(k)];
    LearnFrom(each.body, each.found, all, known);
    for (const FreeBody& joint : each.joints) LearnFrom(joint, AllForcesOf(joint), all, known);
  }
  return known;
}

HandTelling HandLesson::TellStart() const {
  HandTelling telling;
  telling.heading = "Joint after joint";
  telling.sentences = Verdict();
  telling.sentences.push_back(TheSolution.reactions.found
                                  ? "The reactions are known. Each joint has two equations, so the next one is always "
                                    "the first that has at most two unknown forces."
                                  : TheSolution.reactions.whyNot + ".");
  telling.sheet = Whole(Titled(TrussFigure(TheTruss, KnownBefore(0), {}), "Click a node to see its joint"));
  return telling;
}

HandTelling HandLesson::TellEnd() const {
  HandTelling telling;
  const bool all = TheSolution.stop.empty();
  telling.heading = all ? "All forces are known" : "Here it stops";
  if (!all) telling.sentences.push_back(TheSolution.stop + ".");
  for (const HandMember& member : TheTruss.members) {
    const bool isKnown = TheSolution.forces.memberKnown[At(member.number)] != 0;
    const std::string name = "F" + std::to_string(member.number);
    telling.solution.push_back(
        isKnown ? ForceText(name, TheSolution.forces.members[At(member.number)], true, TheTruss.nothing)
                : name + " is left open");
  }
  if (all && HasComputed()) telling.remarks.push_back(AgreementSentence(TheTruss, TheSolution));
  telling.remarks.emplace_back(HasComputed() ? "Tick Computed to see the forces of the analysis beside these."
                                             : "Run the analysis (F5) to see its forces beside these.");
  telling.sheet = Whole(TrussFigure(TheTruss, TheSolution.forces, {}));
  return telling;
}

HandTelling HandLesson::TellJoints(int step) const {
  if (step == 0) return TellStart();
  if (step == LastStep(HandTopic::Joints)) return TellEnd();
  const HandStep& each = TheSolution.steps[At(step - 1)];
  HandTelling telling;
  telling.heading = OfSteps(step, LastStep(HandTopic::Joints) - 1);
  if (each.kind == HandStepKind::Joint) telling.heading += ": joint " + std::to_string(each.body.nodes.front());
  if (each.kind == HandStepKind::Section) telling.heading += ": a section";
  if (each.kind == HandStepKind::Together) telling.heading += ": the joints left together";
  telling.sentences = {each.reason + "."};
  telling.equations = each.equations;
  telling.solution = each.solution;
  FigureMarks marks;
  marks.nodes = each.body.nodes;
  const Sketch truss = TrussFigure(TheTruss, KnownBefore(step), marks);
  if (each.kind == HandStepKind::Together) {
    telling.sheet = Whole(truss);
  } else if (each.kind == HandStepKind::Section) {
    telling.sheet = Below(truss, Titled(BodyFigure(TheTruss, each.body), "The part cut free"));
  } else {
    telling.sheet = Three(truss, Titled(BodyFigure(TheTruss, each.body), "The joint cut free"),
                          Titled(PolygonFigure(each.body, each.polygon), "Its force polygon"));
  }
  return telling;
}

int HandLesson::StepOfJoint(int node) const {
  for (std::size_t k = 0; k < TheSolution.steps.size(); ++k) {
    const HandStep& step = TheSolution.steps[k];
    if (step.kind == HandStepKind::Joint && step.body.nodes.front() == node) return static_cast<int>(k) + 1;
  }
  return 0;
}

int HandLesson::JointOfStep(int step) const {
  if (step < 1 || step > static_cast<int>(TheSolution.steps.size())) return 0;
  const HandStep& taken = TheSolution.steps[At(step - 1)];
  return taken.kind == HandStepKind::Joint ? taken.body.nodes.front() : 0;
}

std::string HandLesson::LineText(int key) const {
  if (key < 1 || key > static_cast<int>(TheDiagram.lines.size())) return "";
  const DiagramLine& line = TheDiagram.lines[At(key - 1)];
  const std::string ends = TheDiagram.spaces[At(line.from)].letter + "-" + TheDiagram.spaces[At(line.to)].letter + ": ";
  if (line.kind == ForceKind::Member) {
    return ends + "member " + std::to_string(line.member) + ", " +
           ForceText("F" + std::to_string(line.member), line.force, true, TheTruss.nothing);
  }
  const std::string kind = line.kind == ForceKind::Load ? "load" : "reaction";
  return ends + kind + " at node " + std::to_string(line.node) + ", " + HandNumber(std::abs(line.force)) + " kN";
}

} // namespace strutwright
