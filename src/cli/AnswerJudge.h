#pragma once

#include "PlainCommands.h"
#include "modCheckAnswer.h"

#include <functional>
#include <optional>

namespace strutwright {

/// What judges the answer in the tables.
using AnswerJudge = std::function<CheckReport(AnalysisOutcome)>;

/// The second judgement of a model's answer, in words and for scripts; nothing where there is no model.  Whatever goes
/// wrong is reported, and does not keep other models from their turn.
std::optional<Judgement> JudgeAnswer(ModelSession& session, Result result, const AnswerJudge& judge);

} // namespace strutwright
