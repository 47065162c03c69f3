#pragma once

#include "modClassSet.h"

#include <string>

namespace strutwright {

// A question bank for Moodle, in the form that its "Moodle XML" import reads: one category, and one question with
// embedded answers (cloze) for each variant.

/// Everything before the questions.  category: its name.
std::string MoodleBegin(const std::string& category);

/// The question of a variant, whose model must be in the tables.  png: its drawing; width, height: as it is shown.
std::string MoodleQuestion(const ClassPlan& plan, const ClassVariant& variant, const std::string& png, int width,
                           int height);

std::string MoodleEnd();

} // namespace strutwright
