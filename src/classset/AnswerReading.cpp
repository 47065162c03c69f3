#include "AnswerReading.h"

#include "ClassTexts.h"
#include "modNumberText.h"
#include "modTables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace strutwright {

namespace {

/// Takes a word off the end or the beginning of a text, if it is there.
bool TakeWord(std::string_view& text, std::string_view word) {
  const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
  if (text.ends_with(word) && text.size() > word.size() && !isLetter(text[text.size() - word.size() - 1])) {
    text.remove_suffix(word.size());
  } else if (text.starts_with(word) && text.size() > word.size() && !isLetter(text[word.size()])) {
    text.remove_prefix(word.size());
  } else {
    return false;
  }
  text = TrimBlanks(text);
  return true;
}

struct SignWord {
  std::string_view word;
  int sign;
};

constexpr std::array<SignWord, 6> SignWords{
    {{"(t)", 1}, {"(c)", -1}, {"tension", 1}, {"compression", -1}, {"t", 1}, {"c", -1}}};

int TakeSignWord(std::string_view& text) {
  for (const SignWord& each : SignWords) {
    if (TakeWord(text, each.word)) return each.sign;
  }
  return 0;
}

/// A number with a decimal point or comma, in double precision: what is off by just the tolerance is still right.
std::optional<double> DecimalNumber(std::string_view text) {
  constexpr std::string_view minus = "\u2212";
  std::string number(text);
  if (const std::size_t at = number.find(minus); at != std::string::npos) number.replace(at, minus.size(), "-");
  if (number.find('.') == std::string::npos) std::replace(number.begin(), number.end(), ',', '.');
  return PlainNumber(number);
}

std::optional<double> ReadDegree(std::string_view text) {
  if (text == "determinate" || text == "statically determinate") return 0;
  constexpr std::string_view words = "indeterminate to ";
  const std::size_t at = text.find(words);
  if (at != std::string_view::npos) text.remove_prefix(at + words.size());
  if (text.starts_with("degree ")) text.remove_prefix(7);
  return DecimalNumber(text);
}

} // namespace

AnswerForm FormOf(const std::string& question) {
  if (question.starts_with("force ")) return AnswerForm::Force;
  if (question == "zero-members") return AnswerForm::Members;
  return question == "determinacy" ? AnswerForm::Degree : AnswerForm::Number;
}

std::optional<double> ReadNumberAnswer(const std::string& text, AnswerForm form, const std::string& unit) {
  const std::string small = InSmallLetters(text);
  std::string_view rest = TrimBlanks(small);
  if (form == AnswerForm::Degree) return ReadDegree(rest);
  const std::string smallUnit = InSmallLetters(unit);
  const auto takeUnit = [&] {
    if (!unit.empty() && rest.ends_with(smallUnit)) rest = TrimBlanks(rest.substr(0, rest.size() - smallUnit.size()));
  };
  takeUnit();
  const int sign = form == AnswerForm::Force ? TakeSignWord(rest) : 0;
  takeUnit();
  const std::optional<double> value = DecimalNumber(rest);
  if (!value || sign == 0) return value;
  if (sign > 0 && *value < 0) return std::nullopt; // tension and a minus: which of the two is meant?
  return sign * std::fabs(*value);
}

std::optional<std::set<int>> ReadMembersAnswer(const std::string& text) {
  std::string small = InSmallLetters(TrimBlanks(text));
  if (small == "none" || small == "no" || small == "-" || small == "0") return std::set<int>{};
  std::replace_if(
      small.begin(), small.end(), [](char c) { return c == ',' || c == ';' || c == '\t' || c == '+'; }, ' ');
  std::set<int> members;
  std::string_view rest = TrimBlanks(small);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    const std::string_view word = rest.substr(0, end);
    rest = TrimBlanks(rest.substr(end));
    if (word == "and" || word == "member" || word == "members") continue;
    const std::optional<int> member = WholeNumber(word);
    if (!member || *member < 1) return std::nullopt;
    members.insert(*member);
  }
  return members.empty() ? std::nullopt : std::optional(members);
}

} // namespace strutwright
