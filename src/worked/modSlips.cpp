#include "modSlips.h"

#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace strutwright {

namespace {

constexpr double Thousand = 1000.0;
constexpr double NearMiss = 0.05;    // of the right value's size: rounding, more likely than a slip
constexpr double SameValue = 1e-6;   // two slips that differ by less can't be told apart
constexpr std::size_t MostNamed = 2; // slips
constexpr std::string_view RightText = "Right.";
constexpr std::string_view SlipText = "Likely slip: ";
constexpr std::string_view NearText = "Close, but off by more than 1 %: keep more digits on the way.";
constexpr std::string_view WrongText = "No common slip gives this number. Work it out again.";

bool IsWithin(double answer, double value, const AnswerTolerance& tolerance) {
  // Numbers that differ by exactly the tolerance in decimals need not do so in binary.
  constexpr double rounding = 1 + 1e-9;
  return std::abs(answer - value) <= rounding * std::max(tolerance.relative * std::abs(value), tolerance.absolute);
}

/// The candidates that give this answer, the nearest first; of equal ones the first.
std::vector<Slip> Fitting(double answer, double right, const AnswerTolerance& tolerance,
                          const std::vector<Slip>& slips) {
  std::vector<Slip> fitting;
  for (const Slip& each : slips) {
    if (IsWithin(answer, each.value, tolerance) && !IsWithin(each.value, right, tolerance)) fitting.push_back(each);
  }
  std::stable_sort(fitting.begin(), fitting.end(), [answer](const Slip& one, const Slip& other) {
    return std::abs(one.value - answer) + SameValue * std::abs(answer) < std::abs(other.value - answer);
  });
  return fitting;
}

/// The likeliest, and another one that gives the very same value.
std::vector<std::string> NamesOf(const std::vector<Slip>& fitting) {
  std::vector<std::string> names;
  for (const Slip& each : fitting) {
    const double value = fitting.front().value;
    const bool isAlike = std::abs(each.value - value) <= SameValue * std::abs(value);
    const bool isNew = std::find(names.begin(), names.end(), each.name) == names.end();
    if (isAlike && isNew && names.size() < MostNamed) names.push_back(each.name);
  }
  return names;
}

std::string SlipSentence(const std::vector<std::string>& names) {
  std::string text(SlipText);
  for (std::size_t i = 0; i < names.size(); ++i) text += (i == 0 ? "" : ", or ") + names[i];
  return text + ".";
}

} // namespace

AnswerJudgement JudgeAnswer(double answer, double right, const AnswerTolerance& tolerance,
                            const std::vector<Slip>& slips) {
  if (IsWithin(answer, right, tolerance)) return {AnswerVerdict::Right, {}, std::string(RightText)};
  const std::vector<std::string> names = NamesOf(Fitting(answer, right, tolerance, slips));
  if (!names.empty()) return {AnswerVerdict::LikelySlip, names, SlipSentence(names)};
  const bool isNear = std::abs(answer - right) <= NearMiss * std::abs(right);
  return {AnswerVerdict::Wrong, {}, std::string(isNear ? NearText : WrongText)};
}

std::vector<Slip> GeneralSlips(double right, AnswerQuantity quantity) {
  const bool isForce = quantity == AnswerQuantity::MemberForce || quantity == AnswerQuantity::Force;
  std::vector<Slip> slips{{quantity == AnswerQuantity::MemberForce ? "T and C exchanged" : "the sign", -right}};
  if (quantity == AnswerQuantity::Number) return slips;
  for (const double sign : {1.0, -1.0}) {
    const std::string also = sign < 0 ? ", and the sign" : "";
    if (isForce) {
      slips.push_back({"N for kN" + also, sign * right * Thousand});
      slips.push_back({"MN for kN" + also, sign * right / Thousand});
    } else {
      const bool isLength = quantity == AnswerQuantity::Length;
      slips.push_back({(isLength ? "m for mm" : "m for mm in the length") + also, sign * right / Thousand});
      slips.push_back({"a factor of 1000 too much, as from m and mm mixed" + also, sign * right * Thousand});
    }
  }
  return slips;
}

std::optional<double> AnswerNumber(std::string_view text) {
  constexpr std::string_view minus = "\u2212";
  std::string typed(text);
  if (const std::size_t at = typed.find(minus); at != std::string::npos) typed.replace(at, minus.size(), "-");
  if (const std::size_t at = typed.find(','); at != std::string::npos && typed.find('.') == std::string::npos) {
    typed[at] = '.';
  }
  const std::optional<float> value = NumericValue(typed);
  return value ? std::optional<double>(*value) : std::nullopt;
}

} // namespace strutwright
