#include "modTeacherKey.h"

#include "HandTexts.h"
#include "PreciseText.h"
#include "modAnalysis.h"
#include "modHandSolution.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modSheet.h"

#include <string>

namespace strutwright {

namespace {

constexpr int DigitsOfResult = 5;

void AddLine(WorkedDocument& key, const std::string& text) { key.blocks.emplace_back(WorkedParagraph{text}); }

/// Equations and what they give, a line each.
void AddEquations(WorkedDocument& key, const std::vector<HandEquation>& equations,
                  const std::vector<std::string>& solution) {
  WorkedTable table{{{"Equation", true}, {"", true}}, {}};
  for (const HandEquation& each : equations) table.rows.push_back({each.title, each.text});
  if (!solution.empty()) table.rows.push_back({"Hence", ListText(solution)});
  if (!table.rows.empty()) key.blocks.emplace_back(table);
}

void AddSolutionByHand(WorkedDocument& key, const HandSolution& solution) {
  if (solution.reactions.found) {
    AddLine(key, "Reactions, from the whole truss:");
    AddEquations(key, solution.reactions.equations, solution.reactions.solution);
  }
  for (const HandStep& step : solution.steps) {
    AddLine(key, NodeNames(step.body.nodes) + ": " + step.reason);
    AddEquations(key, step.equations, step.solution);
  }
  if (!solution.stop.empty()) AddLine(key, solution.stop);
}

std::string Result(double value) { return PreciseText(value, DigitsOfResult); }

void AddDisplacements(WorkedDocument& key) {
  WorkedTable table{{{"Node"}, {"u (mm)"}, {"v (mm)"}}, {}};
  for (int n = 1; n <= NodeCount; ++n) {
    table.rows.push_back({std::to_string(n), Result(NodeDisplacement(n, "x")), Result(NodeDisplacement(n, "y"))});
  }
  AddLine(key, "Displacements, from K D = P with the supports imposed:");
  key.blocks.emplace_back(table);
}

/// f = EA/L e + PS, with the elongation e of each member.
void AddForces(WorkedDocument& key) {
  WorkedTable table{{{"Member"}, {"L (m)"}, {"EA/L (kN/mm)"}, {"e (mm)"}, {"f (kN)"}, {"", true}}, {}};
  for (int m = 1; m <= MemberCount; ++m) {
    const double length = static_cast<double>(MemberTable(m, MemberFieldLength));
    const double stiffness =
        length > 0 ? static_cast<double>(MemberTable(m, MemberE)) * MemberTable(m, MemberA) / length : 0;
    table.rows.push_back({std::to_string(m), Result(length / 1000), Result(stiffness), Result(MemberStretch(m)),
                          Result(MemberForce(m)), MemberState(m)});
  }
  AddLine(key, "Member forces, f = EA/L e + PS, with e = c (u2 - u1) + s (v2 - v1):");
  key.blocks.emplace_back(table);
}

bool AsksFor(const ClassVariant& variant, AskKind kind) {
  for (const KeyedQuestion& each : variant.questions) {
    if (each.question.kind == kind) return true;
  }
  return false;
}

void AddAnswers(WorkedDocument& key, const ClassVariant& variant) {
  WorkedTable table{{{"Question", true}, {"Answer"}, {"Unit", true}, {"Tolerance"}}, {}};
  for (const KeyedQuestion& each : variant.questions) {
    const std::string tolerance = each.tolerance > 0 ? PreciseText(each.tolerance, 3) : "";
    table.rows.push_back({NameOf(each.question), each.answer, UnitOf(each.question), tolerance});
  }
  key.blocks.emplace_back(table);
}

void AddSolution(WorkedDocument& key, const ClassVariant& variant) {
  const HandSolution solution = SolveByHand(ReadHandTruss());
  AddLine(key, solution.determinacy.sentence);
  const bool byHand = solution.determinacy.IsDeterminate();
  if (byHand && (AsksFor(variant, AskKind::Force) || AsksFor(variant, AskKind::Reaction))) {
    AddSolutionByHand(key, solution);
  }
  if (byHand && !AsksFor(variant, AskKind::Displacement)) return;
  AddDisplacements(key);
  AddForces(key);
}

} // namespace

WorkedDocument TeacherKey(const ClassPlan& plan, const std::vector<ClassVariant>& variants) {
  WorkedDocument key{"Key: " + SetName(plan), {}};
  for (const ClassVariant& variant : variants) {
    PutInTables(variant.model);
    AnalyseTruss();
    key.blocks.emplace_back(WorkedHeading{2, variant.student});
    if (!variant.varied.empty()) AddLine(key, "Varied: " + variant.varied + ".");
    AddAnswers(key, variant);
    AddSolution(key, variant);
  }
  return key;
}

} // namespace strutwright
