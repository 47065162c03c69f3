#pragma once

#include "EquationsState.h"
#include "Exercise.h"

#include <vector>

namespace strutwright {

/// Most questions about one step; what lies beyond is shown at once.
inline constexpr std::size_t MaxQuestions = 40;

/// What can be asked about the last step of a page: the cells that it changed, the freedoms that it restrained, forces
/// and reactions.  The slips of each are computed from the model.  Assembling all of K at once asks nothing.
std::vector<StepQuestion> QuestionsOf(const EquationPage& page);

} // namespace strutwright
