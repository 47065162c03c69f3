#pragma once

#include "CheckReport.h"

namespace strutwright {

/// Digits from which on the status panel has nothing to add.
inline constexpr int EnoughDigits = 3;

/// What the last analysis came to: AnalysisDone, or FailedCheck where it is not done.  To be asked right after an
/// analysis, while the tables are as it found them.
AnalysisOutcome LastOutcome();

/// Judges the model in the tables, and the results of its analysis where the outcome is Done.  Changes nothing and
/// shows nothing.  After an edit, call it with None: the results belong to another model then.
CheckReport CheckAnswer(AnalysisOutcome outcome);

/// Judges the model in the tables without any results: whether it holds, how it can move and what is odd about it.
CheckReport CheckModel();

} // namespace strutwright
