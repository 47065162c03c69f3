#include "modTeacherKey.h"

#include "HandTexts.h"
#include "LargestValues.h"
#include "PreciseText.h"
#include "WorkingParts.h"
#include "modAnalysis.h"
#include "modHandSolution.h"
#include "modMember.h"
#include "modOtherModel.h"
#include "modSheet.h"
#include "modWorking.h"

#include <cmath>
#include <string>
#include <utility>
#include <variant>

namespace strutwright {

namespace {

constexpr int DigitsOfResult = 5;

void AddLine(WorkedDocument& key, const std::string& text) { key.blocks.emplace_back(WorkedParagraph{text}); }

/// Equations and what they give, a row each; what they are about stands in the first one only.
void AddRows(WorkedTable& table, const std::string& about, const std::vector<HandEquation>& equations,
             const std::vector<std::string>& solution) {
  std::string first = about;
  for (const HandEquation& each : equations) table.rows.push_back({std::exchange(first, ""), each.title, each.text});
  if (!solution.empty()) table.rows.push_back({first, "Hence", ListText(solution)});
}

void AddSolutionByHand(WorkedDocument& key, const HandSolution& solution) {
  WorkedTable table{{{"Of", true}, {"What is added up", true}, {"Equation", true}}, {}};
  if (solution.reactions.found) {
    AddRows(table, "Whole truss", solution.reactions.equations, solution.reactions.solution);
  }
  for (const HandStep& step : solution.steps) {
    AddRows(table, NodeNames(step.body.nodes), step.equations, step.solution);
    if (step.solution.empty()) table.rows.push_back({"", "", step.reason});
  }
  if (!table.rows.empty()) key.blocks.emplace_back(table);
  if (!solution.stop.empty()) AddLine(key, solution.stop);
}

/// What is nothing but rounding beside the largest value is written as 0.
std::string Result(double value, double largest = 0) {
  return PreciseText(std::fabs(value) <= NoValue * largest ? 0 : value, DigitsOfResult);
}

void AddDisplacements(WorkedDocument& key) {
  WorkedTable table{{{"Node"}, {"u (mm)"}, {"v (mm)"}}, {}};
  const double largest = LargestDisplacement();
  for (int n = 1; n <= NodeCount; ++n) {
    table.rows.push_back(
        {std::to_string(n), Result(NodeDisplacement(n, "x"), largest), Result(NodeDisplacement(n, "y"), largest)});
  }
  AddLine(key, "Displacements, from K D = P with the supports imposed:");
  key.blocks.emplace_back(table);
}

/// f = EA/L e + PS, with the elongation e of each member.
void AddForces(WorkedDocument& key) {
  WorkedTable table{{{"Member"}, {"L (m)"}, {"EA/L (kN/mm)"}, {"e (mm)"}, {"f (kN)"}, {"", true}}, {}};
  const double largestStretch = LargestDisplacement();
  const double largestForce = LargestForce();
  for (int m = 1; m <= MemberCount; ++m) {
    const double length = static_cast<double>(MemberTable(m, MemberFieldLength));
    const double stiffness =
        length > 0 ? static_cast<double>(MemberTable(m, MemberE)) * MemberTable(m, MemberA) / length : 0;
    table.rows.push_back({std::to_string(m), Result(length / 1000), Result(stiffness),
                          Result(MemberStretch(m), largestStretch), Result(MemberForce(m), largestForce),
                          MemberState(m)});
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

/// The method step by step, below the student's heading.
void AddSolutionByStiffness(WorkedDocument& key, const ClassVariant& variant) {
  const WorkedDocument solution = WorkedSolution(variant.student);
  key.landscape = key.landscape || solution.landscape;
  for (WorkedBlock block : solution.blocks) {
    if (auto* heading = std::get_if<WorkedHeading>(&block)) ++heading->level;
    key.blocks.push_back(std::move(block));
  }
}

/// Of the model in the tables, which is the variant's.
void AddSolution(WorkedDocument& key, const ClassVariant& variant) {
  AnalyseTruss();
  const HandSolution solution = SolveByHand(ReadHandTruss());
  AddLine(key, solution.determinacy.sentence);
  const bool byHand = solution.determinacy.IsDeterminate();
  if (byHand && (AsksFor(variant, AskKind::Force) || AsksFor(variant, AskKind::Reaction))) {
    AddSolutionByHand(key, solution);
  }
  if (byHand && !AsksFor(variant, AskKind::Displacement) && !AsksFor(variant, AskKind::Stiffness)) return;
  if (!byHand || NodeCount <= MaxWorkedNodes) return AddSolutionByStiffness(key, variant);
  AddDisplacements(key);
  AddForces(key);
}

} // namespace

WorkedDocument TeacherKey(const ClassPlan& plan, const std::vector<ClassVariant>& variants,
                          const std::function<void(std::size_t)>& done) {
  WorkedDocument key{"Key: " + SetName(plan), {}};
  for (std::size_t v = 0; v < variants.size(); ++v) {
    const ClassVariant& variant = variants[v];
    if (v > 0) key.blocks.emplace_back(WorkedNewPage{});
    key.blocks.emplace_back(WorkedHeading{2, variant.student});
    if (!variant.varied.empty()) AddLine(key, "Varied: " + variant.varied + ".");
    AddAnswers(key, variant);
    WithModel({variant.model.nodes, variant.model.members}, [&] { AddSolution(key, variant); });
    done(v + 1);
  }
  return key;
}

} // namespace strutwright
