#pragma once

#include <optional>
#include <set>
#include <string>

namespace strutwright {

/// What kind of answer a question of a key takes, by its name.
enum class AnswerForm { Force, Number, Members, Degree };
AnswerForm FormOf(const std::string& question);

/// The number that was handed in: with a decimal point or comma, with or without its unit; of a member force also with
/// T or C for the sign; of a degree of indeterminacy also as words.  Nothing where it can't be read.
std::optional<double> ReadNumberAnswer(const std::string& text, AnswerForm form, const std::string& unit);

/// The members of a list such as "3, 7" or "3 7" or "none".  Nothing where it can't be read.
std::optional<std::set<int>> ReadMembersAnswer(const std::string& text);

} // namespace strutwright
