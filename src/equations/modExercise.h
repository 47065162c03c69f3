#pragma once

#include "Exercise.h"

#include <string>

namespace strutwright {

// "Try It" in the equations view: after a step the cells that it changed stay blank until each has been answered, in
// any order.  What is said to an answer begins with a word, so that right and wrong never rest on a colour.

/// Switches Try It on, with a new score, or off; what is blank is shown then.
void SwitchExercise(bool on);

/// Asks about the step that was pressed last; nothing is asked while Try It is off.
void AskAboutLastStep();

/// Drops the questions that are left, and shows what they ask for.
void DropQuestions();

/// The question to answer now; nullptr where there is none.
const StepQuestion* CurrentQuestion();

/// Choose the question to answer now: the next (1) or the one before (-1) that is not done, the one about a cell, or
/// the first that is not done about a member or a node and that no cell shows.  Whether there is such a question;
/// without one nothing changes.
bool TurnQuestion(int by);
bool ChooseQuestionAt(EquationGrid grid, int row, int column);
bool ChooseQuestionOfMember(int m);
bool ChooseQuestionOfNode(int n);

/// Whether the supports are asked for, which the last step has applied already.
bool IsAskedForSupports();

/// Whether a cell is blank, because its question has not been answered yet.
bool IsBlank(EquationGrid grid, int row, int column);

/// Whether an answer can be typed into the cell.
bool IsToBeAnswered(EquationGrid grid, int row, int column);

/// Whether a cell was asked for in the last step, and answered.
bool IsAnswered(EquationGrid grid, int row, int column);

/// What was typed into a blank cell and not found right; and whether it was found wrong.
std::string TypedInto(EquationGrid grid, int row, int column);
bool IsWrong(EquationGrid grid, int row, int column);

/// Keeps what is typed as an answer to the current question, which is not judged by that.
void KeepTyped(const std::string& text);

struct AnswerReply {
  bool isJudged = false; ///< a text that can't be read is not wrong, but asked again
  bool isRight = false;  ///< the next question has its turn
  std::string text;      ///< what is said
};

/// Judges the answer to the current question.
AnswerReply AnswerQuestion(const std::string& text);

/// The next hint for the current question; after the third the answer, and the next question has its turn.
std::string NextHint();

/// "Right 5 of 7, 4 at the first try; 9 tries, 2 hints; 1:05".
std::string ScoreText(int seconds);

/// The score and how each question went, line after line, to copy.
std::string ScoreReport(int seconds);

} // namespace strutwright
