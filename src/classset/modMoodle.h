#pragma once

#include "modClassSet.h"

#include <string>

namespace strutwright {

// A question bank for Moodle, in the form that its "Moodle XML" import reads: one category, and one question with
// embedded answers (cloze) for each variant.

/// Everything before the questions.  category: its name.
std::string MoodleBegin(const std::string& category);

/// The text of a variant's question as HTML.  Its model must be in the tables.
/// width, height: of its drawing as it is shown, in pixels.
std::string MoodleText(const ClassVariant& variant, int width, int height);

/// The question of a variant.  text: MoodleText gives it; png: its drawing.
std::string MoodleQuestion(const ClassPlan& plan, const ClassVariant& variant, const std::string& text,
                           const std::string& png);

std::string MoodleEnd();

} // namespace strutwright
