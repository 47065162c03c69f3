#include "modExercise.h"

#include "EquationsState.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modStepQuestions.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <optional>
#include <sstream>

namespace strutwright {

namespace {

constexpr std::string_view NoFreedomsText =
    "That is no list of freedoms. Type them such as 1 x, 1 y, 3 y, or none, then press Enter.";
constexpr std::string_view NoForceText = "That is no force. Type one such as 12.5 C or 12.5 T, then press Enter.";

StepQuestion& Current() { return TheExercise.questions.at(TheExercise.current); }

bool AsksFor(const StepQuestion& question, EquationGrid grid, int row, int column) {
  return std::any_of(question.cells.begin(), question.cells.end(), [&](const BlankCell& cell) {
    return cell.grid == grid && cell.row == row && cell.column == column;
  });
}

/// The question about a cell that is not done; nullptr where there is none.
StepQuestion* OpenQuestionAt(EquationGrid grid, int row, int column) {
  for (StepQuestion& each : TheExercise.questions) {
    if (!each.isDone && AsksFor(each, grid, row, column)) return &each;
  }
  return nullptr;
}

/// Whether there is an open question of that kind, which is chosen then.
template <class Fits>
bool ChooseFirst(const Fits& fits) {
  const auto found = std::find_if(TheExercise.questions.begin(), TheExercise.questions.end(),
                                  [&](const StepQuestion& each) { return !each.isDone && fits(each); });
  if (found == TheExercise.questions.end()) return false;
  TheExercise.current = static_cast<std::size_t>(found - TheExercise.questions.begin());
  return true;
}

/// Turns to the next question.  outcome: how this one went.
void Finish(const std::string& outcome) {
  TheExercise.score.lines.push_back(Current().text + " " + outcome);
  Current().isDone = true;
  if (!TurnQuestion(1)) TheExercise.current = TheExercise.questions.size();
}

std::string Counted(int count, const std::string& what, const std::string& ofMany) {
  return std::to_string(count) + " " + (count == 1 ? what : ofMany);
}

/// "12.5 C", "C 12.5", "-12.5": the force, tension positive.
std::optional<double> ForceAnswer(std::string text) {
  const auto isState = [](char c) { return c == 'T' || c == 't' || c == 'C' || c == 'c'; };
  char state = ' ';
  const std::string_view trimmed = TrimBlanks(text);
  if (!trimmed.empty() && isState(trimmed.back())) {
    state = trimmed.back();
    text = trimmed.substr(0, trimmed.size() - 1);
  } else if (!trimmed.empty() && isState(trimmed.front())) {
    state = trimmed.front();
    text = trimmed.substr(1);
  }
  const std::optional<double> value = AnswerNumber(text);
  if (!value || state == ' ') return value;
  return state == 'C' || state == 'c' ? -std::abs(*value) : std::abs(*value);
}

/// "1 x, 1y; 3 y" as freedoms in rising order; nothing where a word of it is none.
std::optional<std::vector<int>> FreedomsAnswer(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c == ',' || c == ';' ? ' ' : static_cast<char>(std::tolower(c)); });
  if (TrimBlanks(text) == "none") return std::vector<int>{};
  std::istringstream words(text);
  std::vector<int> freedoms;
  int node = 0;
  while (words >> node) {
    char direction = ' ';
    words >> direction;
    if (node < 1 || node > NodeCount || (direction != 'x' && direction != 'y')) return std::nullopt;
    freedoms.push_back(2 * node - (direction == 'x' ? 1 : 0));
  }
  if (!words.eof() || freedoms.empty()) return std::nullopt;
  std::sort(freedoms.begin(), freedoms.end());
  freedoms.erase(std::unique(freedoms.begin(), freedoms.end()), freedoms.end());
  return freedoms;
}

/// What is wrong with a list, without giving the answer away.
std::string ListFault(const std::vector<int>& answer, const std::vector<int>& right) {
  const auto missing = [](const std::vector<int>& from, const std::vector<int>& in) {
    return std::count_if(from.begin(), from.end(), [&](int f) { return !std::binary_search(in.begin(), in.end(), f); });
  };
  const auto swapped = [&] {
    std::vector<int> other;
    for (const int f : answer) other.push_back(f % 2 == 1 ? f + 1 : f - 1);
    std::sort(other.begin(), other.end());
    return other == right;
  };
  if (swapped()) return "Wrong. Likely slip: the directions x and y swapped.";
  return "Wrong. " + std::to_string(missing(right, answer)) + " missing, " + std::to_string(missing(answer, right)) +
         " too many.";
}

AnswerReply Judged(bool isRight, const std::string& text) {
  ExerciseScore& score = TheExercise.score;
  StepQuestion& question = Current();
  ++score.tries;
  ++question.tries;
  question.isWrong = !isRight;
  if (!isRight) return {true, false, "\u2717 " + text};
  ++score.right;
  if (question.tries == 1 && question.hints == 0) ++score.firstTry;
  question.wasRight = true;
  Finish("right after " + Counted(question.tries, "try", "tries") + ", " + Counted(question.hints, "hint", "hints"));
  return {true, true, "\u2713 Right: " + question.answer + "."};
}

AnswerReply JudgeList(const std::string& text) {
  const std::optional<std::vector<int>> answer = FreedomsAnswer(text);
  if (!answer) return {false, false, std::string(NoFreedomsText)};
  const bool isRight = *answer == Current().freedoms;
  return Judged(isRight, isRight ? "" : ListFault(*answer, Current().freedoms));
}

} // namespace

void SwitchExercise(bool on) {
  TheExercise = ExerciseState{};
  TheExercise.on = on;
}

void AskAboutLastStep() {
  DropQuestions();
  if (!TheExercise.on) return;
  TheExercise.questions = QuestionsOf(TheEquations.page);
}

void DropQuestions() {
  TheExercise.questions.clear();
  TheExercise.current = 0;
}

const StepQuestion* CurrentQuestion() {
  return TheExercise.current < TheExercise.questions.size() ? &Current() : nullptr;
}

bool TurnQuestion(int by) {
  const std::size_t count = TheExercise.questions.size();
  for (std::size_t turns = 1; turns < count; ++turns) {
    const std::size_t next = (TheExercise.current + (by > 0 ? turns : count - turns)) % count;
    if (TheExercise.questions[next].isDone) continue;
    TheExercise.current = next;
    return true;
  }
  return false;
}

bool ChooseQuestionAt(EquationGrid grid, int row, int column) {
  return ChooseFirst([&](const StepQuestion& each) { return AsksFor(each, grid, row, column); });
}

bool ChooseQuestionOfMember(int m) {
  return ChooseFirst([m](const StepQuestion& each) { return each.cells.empty() && each.member == m; });
}

bool ChooseQuestionOfNode(int n) {
  return ChooseFirst([n](const StepQuestion& each) { return each.cells.empty() && each.node == n; });
}

bool IsAskedForSupports() {
  const StepQuestion* question = CurrentQuestion();
  return question != nullptr && question->kind == StepQuestionKind::Freedoms;
}

bool IsBlank(EquationGrid grid, int row, int column) {
  if (grid == EquationGrid::Stiffness && IsAskedForSupports()) return true; // its cleared rows give them away
  return IsToBeAnswered(grid, row, column);
}

bool IsToBeAnswered(EquationGrid grid, int row, int column) { return OpenQuestionAt(grid, row, column) != nullptr; }

bool IsAnswered(EquationGrid grid, int row, int column) {
  return std::any_of(TheExercise.questions.begin(), TheExercise.questions.end(),
                     [&](const StepQuestion& each) { return each.wasRight && AsksFor(each, grid, row, column); });
}

std::string TypedInto(EquationGrid grid, int row, int column) {
  const StepQuestion* question = OpenQuestionAt(grid, row, column);
  return question == nullptr ? "" : question->typed;
}

bool IsWrong(EquationGrid grid, int row, int column) {
  const StepQuestion* question = OpenQuestionAt(grid, row, column);
  return question != nullptr && question->isWrong;
}

void KeepTyped(const std::string& text) {
  if (CurrentQuestion() == nullptr || Current().typed == text) return;
  Current().typed = text;
  Current().isWrong = false;
}

AnswerReply AnswerQuestion(const std::string& text) {
  if (CurrentQuestion() == nullptr) return {};
  KeepTyped(text);
  const StepQuestion& question = Current();
  if (question.kind == StepQuestionKind::Freedoms) return JudgeList(text);
  const bool isForce = question.kind == StepQuestionKind::MemberForce;
  const std::optional<double> answer = isForce ? ForceAnswer(text) : AnswerNumber(text);
  if (!answer) return {false, false, std::string(isForce ? NoForceText : NoNumberText)};
  const AnswerJudgement judgement = JudgeAnswer(*answer, question.right, question.tolerance, question.slips);
  return Judged(judgement.verdict == AnswerVerdict::Right, "Wrong. " + judgement.sentence);
}

std::string NextHint() {
  if (CurrentQuestion() == nullptr) return "";
  StepQuestion& question = Current();
  if (question.hints < static_cast<int>(question.stages.size())) {
    ++TheExercise.score.hints;
    const auto stage = static_cast<std::size_t>(question.hints++);
    return "Hint " + std::to_string(stage + 1) + " of 3: " + question.stages[stage];
  }
  ++TheExercise.score.shown;
  Finish("shown");
  return "The answer: " + question.answer + ".";
}

std::string ScoreText(int seconds) {
  const ExerciseScore& score = TheExercise.score;
  const std::string rest = std::to_string(seconds % 60);
  return "Right " + std::to_string(score.right) + " of " + std::to_string(score.Done()) + ", " +
         std::to_string(score.firstTry) + " at the first try; tries " + std::to_string(score.tries) + ", hints " +
         std::to_string(score.hints) + "; " + std::to_string(seconds / 60) + ":" + (rest.size() == 1 ? "0" : "") + rest;
}

std::string ScoreReport(int seconds) {
  std::string report = ScoreText(seconds) + "\n";
  for (const std::string& line : TheExercise.score.lines) report += line + "\n";
  return report;
}

} // namespace strutwright
