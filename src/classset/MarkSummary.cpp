#include "ClassTexts.h"
#include "modMarking.h"

#include <algorithm>
#include <map>
#include <set>

namespace strutwright {

namespace {

struct QuestionTally {
  std::string question;
  int asked = 0;
  int right = 0;
  int wrong = 0;
  int open = 0; ///< without an answer, or with one that can't be read
  std::map<std::string, int> slips;

  int Missed() const { return asked - right; }

  /// The slip that came most often, with how often.
  std::string UsualSlip() const {
    const auto most = std::max_element(slips.begin(), slips.end(),
                                       [](const auto& one, const auto& other) { return one.second < other.second; });
    return most == slips.end() ? "" : most->first + " (" + std::to_string(most->second) + ")";
  }
};

void Count(QuestionTally& tally, const Mark& mark) {
  ++tally.asked;
  if (mark.kind == MarkKind::Right) ++tally.right;
  if (mark.kind == MarkKind::Wrong) ++tally.wrong;
  if (mark.kind == MarkKind::NoAnswer || mark.kind == MarkKind::Unreadable) ++tally.open;
  if (mark.kind == MarkKind::Wrong && !mark.slip.empty()) ++tally.slips[mark.slip];
}

std::vector<QuestionTally> TalliesOf(const std::vector<Mark>& marks) {
  std::vector<QuestionTally> tallies;
  std::map<std::string, std::size_t> places;
  for (const Mark& mark : marks) {
    const auto [place, isNew] = places.emplace(mark.question, tallies.size());
    if (isNew) tallies.push_back({.question = mark.question, .slips = {}});
    Count(tallies[place->second], mark);
  }
  std::stable_sort(tallies.begin(), tallies.end(),
                   [](const QuestionTally& one, const QuestionTally& other) { return one.Missed() > other.Missed(); });
  return tallies;
}

void SetTexts(Grid& grid, int row, const std::vector<std::string>& texts) {
  for (std::size_t column = 0; column < texts.size(); ++column) {
    grid.SetText(row, static_cast<int>(column), texts[column]);
  }
}

} // namespace

Grid SummaryOfQuestions(const std::vector<Mark>& marks) {
  const std::vector<QuestionTally> tallies = TalliesOf(marks);
  Grid grid(static_cast<int>(tallies.size()) + 1, 6);
  SetTexts(grid, 0, {"QUESTION", "Asked", "Right", "Wrong", "No answer", "Usual slip"});
  for (std::size_t row = 0; row < tallies.size(); ++row) {
    const QuestionTally& each = tallies[row];
    SetTexts(grid, static_cast<int>(row) + 1,
             {each.question, std::to_string(each.asked), std::to_string(each.right), std::to_string(each.wrong),
              std::to_string(each.open), each.UsualSlip()});
  }
  return grid;
}

std::vector<std::string> UnreadableAnswers(const std::vector<Mark>& marks) {
  std::vector<std::string> lines;
  for (const Mark& mark : marks) {
    if (mark.kind != MarkKind::Unreadable) continue;
    lines.push_back("Line " + std::to_string(mark.line) + ": the answer " + InQuotes(mark.answer) + " of " +
                    InQuotes(mark.student) + " to " + InQuotes(mark.question) + " can't be read and gets no points");
  }
  return lines;
}

std::string SummaryOfClass(const std::vector<Mark>& marks) {
  std::set<std::string> students;
  int points = 0;
  for (const Mark& mark : marks) {
    students.insert(mark.student);
    points += mark.points;
  }
  return CountOf(students.size(), "student") + ": " + std::to_string(points) + " of " + CountOf(marks.size(), "point");
}

} // namespace strutwright
