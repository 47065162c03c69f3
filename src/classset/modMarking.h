#pragma once

#include "Grid.h"
#include "modKey.h"

#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// What a student handed in for a question.
struct HandedIn {
  int line = 0; ///< of the file
  std::string student;
  std::string question;
  std::string answer;
};

/// Reads answers with the columns student,question,answer.  Throws ClassFault for what is no such table.
std::vector<HandedIn> ReadAnswers(const std::string& text);

struct MarkingRules {
  bool forgiveSign = false; ///< the wrong sign, or T for C, gets the point all the same
};

enum class MarkKind { Right, Wrong, NoAnswer, Unreadable };

/// The mark of one question of one student.
struct Mark {
  std::string student;
  std::string question;
  MarkKind kind = MarkKind::NoAnswer;
  int points = 0;   ///< 0 or 1
  std::string slip; ///< the likely one, "no answer" or "can't be read"; empty where there is none
  int line = 0;     ///< of the answer; 0 where there is none
  std::string answer;
};

/// Marks every question of the key, in its order.  A measured number may be off by the key's tolerance.
/// Throws ClassFault where an answer is to a question that the key does not have, or is the second to one.
std::vector<Mark> MarkAnswers(const std::vector<KeyEntry>& key, const std::vector<HandedIn>& answers,
                              const MarkingRules& rules);

/// The marks as comma-separated values with the columns student,question,points,slip.
std::string MarksCsv(const std::vector<Mark>& marks);

/// How the class did with each question, the one that went wrong most often first.
Grid SummaryOfQuestions(const std::vector<Mark>& marks);

/// A line for each answer that can't be read, and one with the points of the whole class.
std::vector<std::string> UnreadableAnswers(const std::vector<Mark>& marks);
std::string SummaryOfClass(const std::vector<Mark>& marks);

} // namespace strutwright
