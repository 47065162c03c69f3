#pragma once

#include "modEquationCells.h"
#include "modSlips.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace strutwright {

/// How a question is answered.
enum class StepQuestionKind {
  Number,
  MemberForce, ///< a number with T or C behind it, or with a sign
  Freedoms     ///< a list of freedoms: "1 x, 1 y", or "none"
};

/// A cell of one of the grids, which stays blank until its question is done.
struct BlankCell {
  EquationGrid grid{};
  int row = 0;
  int column = 0;
};

/// One number, or one list, that the last step found.
struct StepQuestion {
  std::string text; ///< ends in a question mark
  StepQuestionKind kind = StepQuestionKind::Number;
  double right = 0;
  AnswerTolerance tolerance;
  std::vector<Slip> slips;
  std::vector<int> freedoms;         ///< the right list
  std::array<std::string, 3> stages; ///< hints, each says more than the one before
  std::string answer;                ///< the right answer in words, with its unit
  std::vector<BlankCell> cells;      ///< empty where no grid shows what is asked
  int member = 0;                    ///< that it is about; 0 for none
  int node = 0;                      ///< that it is about; 0 for none

  // How it goes.
  std::string typed;     ///< what was typed last
  bool isWrong = false;  ///< that was judged, and is wrong
  int tries = 0;         ///< answers that were judged
  int hints = 0;         ///< that were given
  bool isDone = false;   ///< answered or shown
  bool wasRight = false; ///< it was answered, and not shown
};

/// How the questions went, since Try It was switched on.
struct ExerciseScore {
  int right = 0;    ///< answered, and not shown
  int firstTry = 0; ///< of them at the first try and without a hint
  int shown = 0;    ///< given up: the value was shown
  int tries = 0;    ///< answers that were judged
  int hints = 0;
  std::vector<std::string> lines; ///< how each question went

  int Done() const { return right + shown; }
};

/// The exercise of the equations view; nothing of it goes into the model or a file.
struct ExerciseState {
  bool on = false;
  std::vector<StepQuestion> questions; ///< of the last step
  std::size_t current = 0;             ///< the one to answer now; their number where all are done
  ExerciseScore score;
};

inline ExerciseState TheExercise;

} // namespace strutwright
