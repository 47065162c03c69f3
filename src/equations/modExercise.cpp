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

/// Turns to the next question.  outcome: how this one went.
void Finish(const std::string& outcome) {
  TheExercise.score.lines.push_back(Current().text + " " + outcome);
  ++TheExercise.current;
  TheExercise.triesNow = 0;
  TheExercise.hintsNow = 0;
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
  ++score.tries;
  ++TheExercise.triesNow;
  if (!isRight) return {true, false, "\u2717 " + text};
  ++score.right;
  if (TheExercise.triesNow == 1 && TheExercise.hintsNow == 0) ++score.firstTry;
  Current().wasRight = true;
  const std::string answer = Current().answer;
  Finish("right after " + std::to_string(TheExercise.triesNow) + (TheExercise.triesNow == 1 ? " try" : " tries") +
         ", " + std::to_string(TheExercise.hintsNow) + (TheExercise.hintsNow == 1 ? " hint" : " hints"));
  return {true, true, "\u2713 Right: " + answer + "."};
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
  TheExercise.triesNow = 0;
  TheExercise.hintsNow = 0;
}

const StepQuestion* CurrentQuestion() {
  return TheExercise.current < TheExercise.questions.size() ? &Current() : nullptr;
}

bool IsAskedForSupports() {
  const StepQuestion* question = CurrentQuestion();
  return question != nullptr && question->kind == StepQuestionKind::Freedoms;
}

bool IsBlank(EquationGrid grid, int row, int column) {
  if (grid == EquationGrid::Stiffness && IsAskedForSupports()) return true; // its cleared rows give them away
  for (std::size_t i = TheExercise.current; i < TheExercise.questions.size(); ++i) {
    if (AsksFor(TheExercise.questions[i], grid, row, column)) return true;
  }
  return false;
}

bool IsAnswered(EquationGrid grid, int row, int column) {
  for (std::size_t i = 0; i < TheExercise.current; ++i) {
    const StepQuestion& question = TheExercise.questions[i];
    if (question.wasRight && AsksFor(question, grid, row, column)) return true;
  }
  return false;
}

AnswerReply AnswerQuestion(const std::string& text) {
  if (CurrentQuestion() == nullptr) return {};
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
  const StepQuestion question = Current();
  if (TheExercise.hintsNow < static_cast<int>(question.hints.size())) {
    ++TheExercise.score.hints;
    const auto stage = static_cast<std::size_t>(TheExercise.hintsNow++);
    return "Hint " + std::to_string(stage + 1) + " of 3: " + question.hints[stage];
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
