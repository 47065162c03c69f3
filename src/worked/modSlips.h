#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace strutwright {

// What may have gone wrong in an answer.  A slip is found by computing what it would give and comparing: no slip is
// guessed from the answer's looks.

/// What an answer is a number of: which general slips can happen to it.
enum class AnswerQuantity {
  MemberForce, ///< kN, tension positive
  Force,       ///< kN: reactions and loads
  Length,      ///< mm: displacements and changes of length
  Stiffness,   ///< kN/mm
  Number       ///< without a unit: a cosine, a count
};

struct Slip {
  std::string name; ///< what was mistaken, as it follows "Likely slip: "
  double value = 0; ///< the answer that it gives
};

/// How far an answer may be off and still be right: either will do.
struct AnswerTolerance {
  double relative = 0.01; ///< of the right value's size
  double absolute = 0;    ///< one unit in the last digit that is shown
};

enum class AnswerVerdict { Right, LikelySlip, Wrong };

struct AnswerJudgement {
  AnswerVerdict verdict = AnswerVerdict::Wrong;
  std::vector<std::string> slips; ///< names of those that give this answer, the likeliest first; at most two
  std::string sentence;           ///< for the one who answered
};

/// Judges an answer against the right value.  A right answer is never called a slip, whatever a slip would give.
/// slips: the likelier first; those that give the right value don't count.
AnswerJudgement JudgeAnswer(double answer, double right, const AnswerTolerance& tolerance,
                            const std::vector<Slip>& slips);

/// What can happen to every answer of the kind: the sign or T and C exchanged, m for mm, N for kN.
std::vector<Slip> GeneralSlips(double right, AnswerQuantity quantity);

/// The number that was typed; a decimal comma and a printed minus are taken too.  Nothing where the text is no number.
std::optional<double> AnswerNumber(std::string_view text);

/// What is said to a text that is no number; it isn't wrong, but asked again.
inline constexpr std::string_view NoNumberText = "That is not a number. Type one such as -12.5, then press Enter.";

} // namespace strutwright
