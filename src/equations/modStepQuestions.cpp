#include "modStepQuestions.h"

#include "WorkingParts.h"
#include "modAnalysis.h"
#include "modEquationCells.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace strutwright {

namespace {

constexpr double LastShownDigit = 0.01; // of the format of the grids
constexpr double LengthFactor = 1000.0; // m for mm

AnswerTolerance ShownTolerance() {
  AnswerTolerance tolerance;
  tolerance.absolute = LastShownDigit;
  return tolerance;
}

bool IsX(int freedom) { return freedom % 2 == 1; }

std::string Fine(double value) { return FineNumber(static_cast<float>(value)).text; }

// An entry of K.

/// What a member adds at local row p and column q, in letters and numbers.
struct ShareTerms {
  double axial = 0; ///< EA/L
  double c = 0;
  double s = 0;
  double sign = 1; ///< -1 between its ends
  bool rowIsX = false;
  bool columnIsX = false;

  bool IsCross() const { return rowIsX != columnIsX; }
  double Product() const { return (rowIsX ? c : s) * (columnIsX ? c : s); }
};

ShareTerms TermsOf(const MemberShare& share, std::size_t p, std::size_t q) {
  const int m = share.matrixOf;
  const MemberAxis axis = AxisOf(m);
  const double EA = static_cast<double>(MemberTable(m, MemberE)) * MemberTable(m, MemberA);
  return {axis.length > 0 ? EA / axis.length : 0,
          axis.c,
          axis.s,
          (p <= 2) == (q <= 2) ? 1.0 : -1.0,
          IsX(share.freedoms[p]),
          IsX(share.freedoms[q])};
}

/// Slips in the share, each with what it gives for the new sum.
std::vector<Slip> EntrySlips(const ShareTerms& terms, double before, double share) {
  const auto with = [&](double product) { return before + terms.sign * terms.axial * product; };
  const double other = (terms.rowIsX ? terms.s : terms.c) * (terms.columnIsX ? terms.s : terms.c);
  const double cosTwo = terms.c * terms.c - terms.s * terms.s;
  std::vector<Slip> slips{{"the sign of the share", before - share},
                          {"the share alone, without the sum so far", share},
                          {"L in m instead of mm", before + LengthFactor * share},
                          {"the sum so far, without the share", before},
                          {"half of the share forgotten", before + share / 2},
                          {"the sign", -(before + share)}};
  if (terms.IsCross()) {
    slips.push_back({"c squared instead of the cross term cs", with(terms.c * terms.c)});
    slips.push_back({"s squared instead of the cross term cs", with(terms.s * terms.s)});
  } else {
    slips.push_back({"c and s exchanged", with(other)});
    slips.push_back({"the freedoms x and y swapped", with(other)});
    slips.push_back({"the cross term cs instead of a square", with(terms.c * terms.s)});
    slips.push_back({"cos 2a instead of cos squared a", with(terms.rowIsX ? cosTwo : -cosTwo)});
  }
  return slips;
}

std::string SquareOrCross(const ShareTerms& terms) {
  if (terms.IsCross()) return "c \u00B7 s";
  return terms.rowIsX ? "c\u00B2" : "s\u00B2";
}

StepQuestion EntryQuestion(const MemberShare& share, std::size_t p, std::size_t q, double right) {
  const int row = share.freedoms[p];
  const int column = share.freedoms[q];
  const double before = share.before[4 * (p - 1) + q - 1];
  const ShareTerms terms = TermsOf(share, p, q);
  const std::string m = std::to_string(share.matrixOf);
  const std::string sign = terms.sign > 0 ? " + " : " - ";
  StepQuestion question;
  question.text = "K(" + FreedomLabel(row) + ", " + FreedomLabel(column) + ") with member " +
                  std::to_string(share.member) + ", in kN/mm?";
  question.right = right;
  question.tolerance = ShownTolerance();
  question.slips = EntrySlips(terms, before, right - before);
  question.stages = {"The new sum is the sum so far and the share of member " + m + ".",
                     "Sum so far" + sign + "EA/L \u00B7 " + SquareOrCross(terms) + ", with L in mm.",
                     NumberAsShown(static_cast<float>(before)) + sign + NumberAsShown(static_cast<float>(terms.axial)) +
                         " \u00B7 (" + Fine(terms.rowIsX ? terms.c : terms.s) + ") \u00B7 (" +
                         Fine(terms.columnIsX ? terms.c : terms.s) + ")"};
  question.answer = NumberAsShown(static_cast<float>(right)) + " kN/mm";
  question.cells = {{EquationGrid::Stiffness, row, column}, {EquationGrid::Stiffness, column, row}};
  question.member = share.member;
  return question;
}

/// The entries that the member changed, each pair of equal ones once.
std::vector<StepQuestion> MemberQuestions(const EquationPage& page) {
  std::vector<StepQuestion> questions;
  if (page.lastFreedoms[1] == 0 || page.viewStiffness->Shares().empty()) return questions;
  const MemberShare& share = page.viewStiffness->Shares().back();
  if (share.freedoms[1] == share.freedoms[3]) return questions; // its entries meet each other
  for (std::size_t p = 1; p <= 4; ++p) {
    for (std::size_t q = p; q <= 4; ++q) {
      if (share.k(static_cast<int>(p), static_cast<int>(q)) == 0.0F) continue;
      const float sum = page.viewStiffness->Values()(share.freedoms[p], share.freedoms[q]);
      questions.push_back(EntryQuestion(share, p, q, sum));
    }
  }
  return questions;
}

// Supports and displacements.

std::vector<StepQuestion> RestrictQuestions(const EquationPage& page) {
  StepQuestion question;
  question.text = "Which freedoms are restrained?";
  question.kind = StepQuestionKind::Freedoms;
  std::string list;
  for (int freedom = 1; freedom <= page.viewDofCount; ++freedom) {
    if (page.fixed->at(static_cast<std::size_t>(freedom)) == 0) continue;
    question.freedoms.push_back(freedom);
    list += (list.empty() ? "" : ", ") + FreedomLabel(freedom);
  }
  question.stages = {"Look for the nodes with a support; every other node is free.",
                     "Support 1 holds y, 2 holds x, 3 and any other but 0 holds both.",
                     "There are " + std::to_string(question.freedoms.size()) + " of them."};
  question.answer = list.empty() ? "none" : list;
  return {question};
}

std::vector<StepQuestion> DisplacementQuestions(const EquationPage& page) {
  std::vector<StepQuestion> questions;
  for (int freedom = 1; freedom <= page.viewDofCount && questions.size() < MaxQuestions; ++freedom) {
    if (page.fixed && page.fixed->at(static_cast<std::size_t>(freedom)) == 1) continue;
    const auto value = [&](int f) { return static_cast<double>(page.displacements->at(static_cast<std::size_t>(f))); };
    StepQuestion question;
    question.text = "D(" + FreedomLabel(freedom) + "), in mm?";
    question.right = value(freedom);
    question.tolerance = ShownTolerance();
    question.slips = GeneralSlips(question.right, AnswerQuantity::Length);
    question.slips.push_back({"the freedoms x and y swapped", value(IsX(freedom) ? freedom + 1 : freedom - 1)});
    question.stages = {"Solve the equations that are left: those without restrained freedoms.",
                       "Eliminate one unknown after the other, then go back from the last.",
                       "It is " + std::string(question.right < 0 ? "negative" : "not negative") + "."};
    question.answer = NumberAsShown(static_cast<float>(question.right)) + " mm";
    question.cells = {{EquationGrid::Displacement, freedom, 1}};
    questions.push_back(question);
  }
  return questions;
}

// Forces and reactions.

std::string ForceWords(float force) {
  const std::string state = StateOfForce(force);
  const bool isBar = state == "T" || state == "C";
  return NumberAsShown(std::abs(force)) + " kN" + (isBar ? " " + state : "");
}

StepQuestion ForceQuestion(const EquationPage& page, int m) {
  const MemberAxis axis = AxisOf(m);
  const MemberForceTerms terms = ForceTermsOf(m, axis, *page.displacements);
  const double EA = static_cast<double>(MemberTable(m, MemberE)) * MemberTable(m, MemberA);
  const double axial = axis.length > 0 ? EA / axis.length : 0;
  const double PS = MemberTable(m, MemberPS);
  const double f = terms.force;
  const double elongation = static_cast<double>(axis.c) * terms.du + static_cast<double>(axis.s) * terms.dv;
  const double exchanged = static_cast<double>(axis.s) * terms.du + static_cast<double>(axis.c) * terms.dv;
  StepQuestion question;
  question.text = "Force of member " + std::to_string(m) + ": how much in kN, T or C?";
  question.kind = StepQuestionKind::MemberForce;
  question.right = f;
  question.tolerance = ShownTolerance();
  question.slips = {{"T and C exchanged", -f},
                    {"the member's ends exchanged", 2 * PS - f},
                    {"the prestress forgotten", f - PS},
                    {"c and s exchanged", axial * exchanged + PS},
                    {"the elongation instead of the force", elongation}};
  for (const Slip& slip : GeneralSlips(f, AnswerQuantity::MemberForce)) question.slips.push_back(slip);
  question.stages = {"The force follows from how node j moved against node i, along the member.",
                     "f = EA/L (c \u0394u + s \u0394v) + PS; positive is tension, T.",
                     "f = " + NumberAsShown(static_cast<float>(axial)) + " \u00B7 ((" + Fine(axis.c) + ") \u00B7 (" +
                         Fine(terms.du) + ") + (" + Fine(axis.s) + ") \u00B7 (" + Fine(terms.dv) + ")) + " +
                         NumberAsShown(MemberTable(m, MemberPS))};
  question.answer = ForceWords(terms.force);
  question.member = m;
  return question;
}

std::vector<StepQuestion> ForceQuestions(const EquationPage& page) {
  std::vector<StepQuestion> questions;
  for (int m = 1; m <= MemberCount && questions.size() < MaxQuestions; ++m) questions.push_back(ForceQuestion(page, m));
  return questions;
}

std::vector<StepQuestion> ReactionQuestions(const EquationPage& page) {
  const auto size = static_cast<std::size_t>(page.viewDofCount) + 1;
  std::vector<float> P(size, 0.0F);
  BuildLoadVector(P);
  const std::vector<float> loads = P;
  std::vector<float> R(size, 0.0F);
  std::vector<std::int16_t> held(size, 0);
  RestrainSupports(P, R, held);
  std::vector<StepQuestion> questions;
  for (int freedom = 1; freedom <= page.viewDofCount && questions.size() < MaxQuestions; ++freedom) {
    if (held[static_cast<std::size_t>(freedom)] == 0) continue;
    const auto reaction = [&](int f) { return static_cast<double>(page.reactions->at(static_cast<std::size_t>(f))); };
    const double load = loads[static_cast<std::size_t>(freedom)];
    StepQuestion question;
    question.text = "Reaction at " + FreedomLabel(freedom) + ", in kN, right and up positive?";
    question.right = reaction(freedom);
    question.tolerance = ShownTolerance();
    question.slips = GeneralSlips(question.right, AnswerQuantity::Force);
    question.slips.push_back({"the load at the support forgotten", question.right + load});
    question.slips.push_back({"the members with the wrong sign", -2 * load - question.right});
    question.slips.push_back({"the load with the wrong sign", question.right + 2 * load});
    question.stages = {"What the support bears balances the loads and the member forces at its node.",
                       "R = -P and then each member there: + where it ends, - where it starts, (f - PS) times c for x "
                       "or s for y.",
                       "It is " + std::string(question.right < 0 ? "negative" : "not negative") + "; -P is " +
                           NumberAsShown(static_cast<float>(-load)) + " kN."};
    question.answer = NumberAsShown(static_cast<float>(question.right)) + " kN";
    question.node = (freedom + 1) / 2;
    questions.push_back(question);
  }
  return questions;
}

} // namespace

std::vector<StepQuestion> QuestionsOf(const EquationPage& page) {
  switch (page.lastStep) {
  case EquationStep::AddMember: return MemberQuestions(page);
  case EquationStep::Restrict: return RestrictQuestions(page);
  case EquationStep::Solve: return DisplacementQuestions(page);
  case EquationStep::MemberForces: return ForceQuestions(page);
  case EquationStep::SupportReactions: return ReactionQuestions(page);
  default: return {};
  }
}

} // namespace strutwright
