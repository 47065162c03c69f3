#pragma once

#include "CheckReport.h"
#include "modModelFile.h"

#include <string>
#include <vector>

namespace strutwright {

enum class AskKind { Force, Reaction, Displacement, ZeroMembers, Determinacy, Stiffness };

/// What is asked of every variant, as a teacher asks for it: "forces:7,9", "reactions", "displacement:4y",
/// "zero-members", "determinacy", "k:2".
struct Ask {
  struct Item {
    int number = 0;       ///< of a member or a node
    char direction = ' '; ///< 'x' or 'y'; blank for both, or where there is none
  };

  AskKind kind = AskKind::Force;
  std::vector<Item> items; ///< empty: all that there are
};

/// Throws ClassFault.
Ask ReadAsk(const std::string& text);

/// One question, with one answer.
struct Question {
  AskKind kind = AskKind::Force;
  int number = 0;       ///< of the member or the node
  char direction = ' '; ///< 'x' or 'y'
  int row = 0;          ///< of a member's matrix, 1..4
  int column = 0;

  bool operator==(const Question&) const = default;
};

/// What it is called in the key: "force 7", "reaction 1x", "displacement 4y", "zero-members", "determinacy", "k 2 12".
std::string NameOf(const Question& question);

/// What is asked, with unit and sign rule.  The model tells which nodes a member joins.
std::string TextOf(const StoredModel& model, const Question& question);

/// "kN", "mm" or "kN/mm"; empty where there is none.
std::string UnitOf(const Question& question);

/// Whether the answer is a measured number, and no count or list.
bool IsMeasured(const Question& question);

/// The questions about a model, each once.  Throws ClassFault where the model lacks what is asked for.
std::vector<Question> QuestionsAbout(const StoredModel& model, const std::vector<Ask>& asks);

/// A question with its answer.
struct KeyedQuestion {
  Question question;
  std::string answer;   ///< as the key has it
  double value = 0;     ///< what the text stands for; of members without force 0
  double tolerance = 0; ///< absolute, in the question's unit
};

/// The answers in the analysed model of the tables.  check: of these results.
/// percent: of the right value that an answer may be off; a tenth of it of the largest value of the kind at least.
std::vector<KeyedQuestion> Answered(const std::vector<Question>& questions, const CheckReport& check, double percent);

} // namespace strutwright
