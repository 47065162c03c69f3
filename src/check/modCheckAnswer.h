#pragma once

#include "CheckReport.h"

#include <string>
#include <vector>

namespace strutwright {

/// Digits from which on the status panel has nothing to add.
inline constexpr int EnoughDigits = 3;

/// What the last analysis came to: AnalysisDone, or FailedCheck where it is not done.  To be asked right after an
/// analysis, while the tables are as it found them.
AnalysisOutcome LastOutcome();

/// Judges the model in the tables, and the results of its analysis where the outcome is Done.  Changes nothing and
/// shows nothing.  After an edit, call it with None: the results belong to another model then.
CheckReport CheckAnswer(AnalysisOutcome outcome);

/// One figure of a report, and where it is worst.
struct CheckRow {
  std::string label;
  std::string value; ///< with its unit
  int worstNode = 0; ///< 0: none is named
  int worstMember = 0;
};

/// The figures of a report: digits, differences, residuals and energies as far as there are results, then mechanisms
/// and static indeterminacy.
std::vector<CheckRow> CheckRows(const CheckReport& report);

/// The report as plain text, a line each, for the clipboard and the command line.
std::string CheckText(const CheckReport& report);

} // namespace strutwright
