#include "modMarking.h"

#include "AnswerReading.h"
#include "ClassFault.h"
#include "ClassTable.h"
#include "ClassTexts.h"
#include "CsvText.h"
#include "modSlips.h"
#include "modTables.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <set>
#include <utility>

namespace strutwright {

namespace {

constexpr const char* NoAnswerText = "no answer";
constexpr const char* UnreadableText = "can't be read";
constexpr double CopiedTolerance = 0.001; // of a value: no one comes so near to another sheet's by chance

AnswerQuantity QuantityOf(const KeyEntry& entry, AnswerForm form) {
  if (form == AnswerForm::Force) return AnswerQuantity::MemberForce;
  if (entry.unit == "kN") return AnswerQuantity::Force;
  if (entry.unit == "mm") return AnswerQuantity::Length;
  return entry.unit == "kN/mm" ? AnswerQuantity::Stiffness : AnswerQuantity::Number;
}

std::string Joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : " or ") + name;
  return text;
}

std::string NumbersText(const std::vector<int>& members) {
  std::string text;
  for (const int member : members) text += (text.empty() ? "" : ", ") + std::to_string(member);
  return text;
}

/// Marks one answer with the whole key at hand.
class Marker {
 public:
  Marker(const std::vector<KeyEntry>& key, const MarkingRules& rules) : Rules(rules) {
    for (const KeyEntry& entry : key) {
      ByStudent[entry.student].push_back(&entry);
      ByQuestion[PlainName(entry.question)].push_back(&entry);
    }
  }

  void Judge(Mark& mark, const KeyEntry& entry) const {
    const AnswerForm form = FormOf(PlainName(entry.question));
    mark.kind = form == AnswerForm::Members ? JudgeMembers(mark, entry) : JudgeNumber(mark, entry, form);
    if (mark.kind == MarkKind::Right) mark.points = 1;
    if (mark.kind == MarkKind::Unreadable) mark.slip = UnreadableText;
  }

 private:
  static MarkKind JudgeMembers(Mark& mark, const KeyEntry& entry) {
    const auto answer = ReadMembersAnswer(mark.answer);
    if (!answer) return MarkKind::Unreadable;
    const std::set<int> right = ReadMembersAnswer(entry.answer).value_or(std::set<int>{});
    std::vector<int> missing;
    std::vector<int> extra;
    std::set_difference(right.begin(), right.end(), answer->begin(), answer->end(), std::back_inserter(missing));
    std::set_difference(answer->begin(), answer->end(), right.begin(), right.end(), std::back_inserter(extra));
    if (!missing.empty()) mark.slip = "not named: " + NumbersText(missing);
    if (!extra.empty()) mark.slip += (mark.slip.empty() ? "" : "; ") + ("not without force: " + NumbersText(extra));
    return mark.slip.empty() ? MarkKind::Right : MarkKind::Wrong;
  }

  MarkKind JudgeNumber(Mark& mark, const KeyEntry& entry, AnswerForm form) const {
    const auto answer = ReadNumberAnswer(mark.answer, form, entry.unit);
    const auto right = ReadNumberAnswer(entry.answer, form, entry.unit);
    if (!right)
      throw ClassFault("The key's answer " + InQuotes(entry.answer) + " to " + InQuotes(entry.question) +
                       " is no number");
    if (!answer) return MarkKind::Unreadable;
    const AnswerTolerance tolerance{0, entry.tolerance};
    const AnswerJudgement judgement = JudgeAnswer(*answer, *right, tolerance, SlipsOf(entry, form, *right));
    if (judgement.verdict == AnswerVerdict::Right) return MarkKind::Right;
    mark.slip = judgement.slips.empty() ? CopiedFrom(entry, form, *answer) : Joined(judgement.slips);
    const bool signOnly = JudgeAnswer(-*answer, *right, tolerance, {}).verdict == AnswerVerdict::Right;
    return Rules.forgiveSign && signOnly ? MarkKind::Right : MarkKind::Wrong;
  }

  /// The general slips first, then those that only a whole sheet shows.
  std::vector<Slip> SlipsOf(const KeyEntry& entry, AnswerForm form, double right) const {
    std::vector<Slip> slips = GeneralSlips(right, QuantityOf(entry, form));
    for (const KeyEntry* other : ByStudent.at(entry.student)) {
      if (other == &entry || other->unit != entry.unit || FormOf(PlainName(other->question)) != form) continue;
      if (const auto value = ReadNumberAnswer(other->answer, form, other->unit)) {
        slips.push_back({"the answer to " + other->question, *value});
      }
    }
    if (form == AnswerForm::Degree) return slips;
    slips.push_back({"half of the value", right / 2});
    slips.push_back({"twice the value", 2 * right});
    return slips;
  }

  /// Another student's sheet with this very answer; empty where there is none.
  std::string CopiedFrom(const KeyEntry& entry, AnswerForm form, double answer) const {
    if (form == AnswerForm::Degree || answer == 0) return "";
    for (const KeyEntry* other : ByQuestion.at(PlainName(entry.question))) {
      const auto value = ReadNumberAnswer(other->answer, form, other->unit);
      if (other->student == entry.student || !value) continue;
      if (std::fabs(answer - *value) <= CopiedTolerance * std::fabs(*value)) {
        return "the answer of the sheet of " + other->student;
      }
    }
    return "";
  }

  MarkingRules Rules;
  std::map<std::string, std::vector<const KeyEntry*>> ByStudent;
  std::map<std::string, std::vector<const KeyEntry*>> ByQuestion;
};

using AnswersByQuestion = std::map<std::pair<std::string, std::string>, const HandedIn*>;

AnswersByQuestion OrderedAnswers(const std::vector<HandedIn>& answers) {
  AnswersByQuestion ordered;
  for (const HandedIn& each : answers) {
    const auto [first, isNew] = ordered.emplace(std::pair(each.student, PlainName(each.question)), &each);
    if (isNew) continue;
    throw ClassFault("Line " + std::to_string(each.line) + " of the answers: " + InQuotes(each.student) +
                     " has answered " + InQuotes(each.question) + " before, in line " +
                     std::to_string(first->second->line));
  }
  return ordered;
}

/// An answer that belongs to no question is a sign of another class's key.
void CheckFit(const std::vector<KeyEntry>& key, const std::vector<HandedIn>& answers) {
  std::set<std::string> students;
  std::set<std::pair<std::string, std::string>> questions;
  for (const KeyEntry& entry : key) {
    students.insert(entry.student);
    questions.emplace(entry.student, PlainName(entry.question));
  }
  for (const HandedIn& each : answers) {
    const std::string where = "Line " + std::to_string(each.line) + " of the answers: the key has no ";
    if (!students.contains(each.student)) {
      throw ClassFault(where + "student " + InQuotes(each.student) + "; take the key of the same class set");
    }
    if (questions.contains({each.student, PlainName(each.question)})) continue;
    throw ClassFault(where + "question " + InQuotes(each.question) + " for " + InQuotes(each.student) +
                     "; take the key of the same class set");
  }
}

} // namespace

std::vector<HandedIn> ReadAnswers(const std::string& text) {
  std::vector<HandedIn> answers;
  for (const ClassRow& row : ReadClassTable(text, {"student", "question", "answer"}, "The table of answers")) {
    answers.push_back({row.line, row.values[0], row.values[1], row.values[2]});
  }
  return answers;
}

std::vector<Mark> MarkAnswers(const std::vector<KeyEntry>& key, const std::vector<HandedIn>& answers,
                              const MarkingRules& rules) {
  CheckFit(key, answers);
  const AnswersByQuestion handedIn = OrderedAnswers(answers);
  const Marker marker(key, rules);
  std::vector<Mark> marks;
  for (const KeyEntry& entry : key) {
    Mark mark{entry.student, entry.question, MarkKind::NoAnswer, 0, NoAnswerText, 0, ""};
    const auto found = handedIn.find({entry.student, PlainName(entry.question)});
    if (found != handedIn.end() && !found->second->answer.empty()) {
      mark.line = found->second->line;
      mark.answer = found->second->answer;
      mark.slip.clear();
      marker.Judge(mark, entry);
    }
    marks.push_back(mark);
  }
  return marks;
}

std::string MarksCsv(const std::vector<Mark>& marks) {
  std::string csv = CsvRecord({"student", "question", "points", "slip"});
  for (const Mark& mark : marks)
    csv += CsvRecord({mark.student, mark.question, std::to_string(mark.points), mark.slip});
  return csv;
}

} // namespace strutwright
