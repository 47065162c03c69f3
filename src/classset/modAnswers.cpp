#include "AnalysisState.h"
#include "LargestValues.h"
#include "PreciseText.h"
#include "modAnalysis.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modQuestions.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

constexpr int MostDigits = 5;            // of an answer, where so many are sure
constexpr double FloorOfTolerance = 0.1; // of what the largest value may be off
constexpr double LeastTolerance = 0.001; // where all values of the kind are zero

MemberMatrix MatrixOfMember(int m) {
  MemberMatrix k;
  MemberStiffness(k, m);
  return k;
}

double ValueIn(const Question& question) {
  switch (question.kind) {
  case AskKind::Force: return MemberForce(question.number);
  case AskKind::Reaction:
    return Reactions.at(question.direction == 'x' ? XFreedom(question.number) : YFreedom(question.number));
  case AskKind::Displacement: return NodeDisplacement(question.number, std::string(1, question.direction));
  case AskKind::Stiffness: return MatrixOfMember(question.number)(question.row, question.column);
  default: return 0;
  }
}

/// The entries at free directions mean nothing.
double LargestReaction() {
  double largest = 0;
  for (std::size_t d = 1; d < Reactions.size(); ++d) {
    if (FixedDof[d] != 0) largest = std::max<double>(largest, std::fabs(Reactions[d]));
  }
  return largest;
}

double LargestEntry(int m) {
  const MemberMatrix k = MatrixOfMember(m);
  double largest = 0;
  for (int d = 1; d <= 4; ++d) largest = std::max<double>(largest, std::fabs(k(d, d)));
  return largest;
}

/// The largest value of the question's kind; of members' matrices that of the same member.
double ScaleOfKind(const Question& question) {
  switch (question.kind) {
  case AskKind::Force: return LargestForce();
  case AskKind::Reaction: return LargestReaction();
  case AskKind::Displacement: return LargestDisplacement();
  case AskKind::Stiffness: return LargestEntry(question.number);
  default: return 0;
  }
}

/// Two significant digits, rounded up, so that nobody loses by it.
double RoundedUp(double tolerance) {
  const double unit = std::pow(10.0, std::floor(std::log10(tolerance)) - 1);
  return std::ceil(tolerance / unit - 1e-9) * unit;
}

/// What the last of so many digits counts.
double LastDigit(double value, int digits) {
  return value == 0 ? 0 : std::pow(10.0, std::floor(std::log10(std::fabs(value))) - digits + 1);
}

/// digits: that are sure.
KeyedQuestion MeasuredAnswer(const Question& question, int digits, double percent) {
  const double scale = ScaleOfKind(question);
  const double exact = ValueIn(question);
  const double value = std::fabs(exact) <= NoValue * scale ? 0 : exact;
  const double part = percent / 100;
  const double tolerance =
      std::max({part * std::fabs(value), part * FloorOfTolerance * scale, LastDigit(value, digits)});
  KeyedQuestion keyed{question, PreciseText(value, digits), value, LeastTolerance};
  if (tolerance > 0) keyed.tolerance = RoundedUp(tolerance);
  return keyed;
}

KeyedQuestion ZeroMembersAnswer(const Question& question, const CheckReport& check) {
  std::string members;
  for (const ZeroBar& bar : check.zeroBars) members += (members.empty() ? "" : " ") + std::to_string(bar.member);
  return {question, members.empty() ? "none" : members, 0, 0};
}

KeyedQuestion AnswerOf(const Question& question, const CheckReport& check, double percent) {
  if (question.kind == AskKind::ZeroMembers) return ZeroMembersAnswer(question, check);
  if (question.kind != AskKind::Determinacy) {
    const int sure = check.accuracy ? check.accuracy->digits : MostDigits;
    return MeasuredAnswer(question, std::clamp(sure, 1, MostDigits), percent);
  }
  const int degree = check.stability.indeterminacy;
  return {question, std::to_string(degree), static_cast<double>(degree), 0};
}

} // namespace

std::vector<KeyedQuestion> Answered(const std::vector<Question>& questions, const CheckReport& check, double percent) {
  std::vector<KeyedQuestion> answers;
  for (const Question& question : questions) answers.push_back(AnswerOf(question, check, percent));
  return answers;
}

} // namespace strutwright
