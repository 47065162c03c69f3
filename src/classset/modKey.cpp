#include "modKey.h"

#include "AnswerReading.h"
#include "ClassFault.h"
#include "ClassTable.h"
#include "ClassTexts.h"
#include "CsvText.h"
#include "PreciseText.h"

#include <optional>
#include <set>
#include <utility>

namespace strutwright {

namespace {

constexpr int DigitsOfTolerance = 3;

KeyEntry EntryOf(const ClassRow& row) {
  const std::string where = "Line " + std::to_string(row.line) + " of the key: ";
  if (row.values[0].empty() || row.values[1].empty()) throw ClassFault(where + "student and question must be given");
  if (row.values[2].empty()) throw ClassFault(where + "the answer is missing");
  const std::optional<double> tolerance =
      row.values[3].empty() ? 0.0 : ReadNumberAnswer(row.values[3], AnswerForm::Number, "");
  if (!tolerance || *tolerance < 0) {
    throw ClassFault(where + InQuotes(row.values[3]) + " is no tolerance: write a number from 0 on");
  }
  return {row.values[0], row.values[1], row.values[2], *tolerance, row.values[4]};
}

} // namespace

std::string KeyCsv(const std::vector<ClassVariant>& variants) {
  std::string csv = CsvRecord({"student", "question", "answer", "tolerance", "unit"});
  for (const ClassVariant& variant : variants) {
    for (const KeyedQuestion& each : variant.questions) {
      csv += CsvRecord({variant.student, NameOf(each.question), each.answer,
                        PreciseText(each.tolerance, DigitsOfTolerance), UnitOf(each.question)});
    }
  }
  return csv;
}

std::vector<KeyEntry> ReadKey(const std::string& text) {
  std::vector<KeyEntry> key;
  std::set<std::pair<std::string, std::string>> known;
  for (const ClassRow& row : ReadClassTable(text, {"student", "question", "answer", "tolerance", "unit"}, "The key")) {
    const KeyEntry entry = EntryOf(row);
    if (!known.emplace(entry.student, PlainName(entry.question)).second) {
      throw ClassFault("Line " + std::to_string(row.line) + " of the key: the question " + InQuotes(entry.question) +
                       " of " + InQuotes(entry.student) + " is there twice");
    }
    key.push_back(entry);
  }
  if (key.empty()) throw ClassFault("The key has no answers");
  return key;
}

} // namespace strutwright
