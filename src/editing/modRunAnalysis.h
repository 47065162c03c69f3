#pragma once

namespace strutwright {

/// Whether an analysis keeps a scratch copy of the model that it begins with.
/// None is for the command line, which has the model in a file already and may run where nothing can be written.
enum class ScratchCopy { Written, None };

/// The whole command "Run Analysis": rebuilds the model from the grids, writes the scratch copy and reads it back,
/// analyses the model and lists the results.
/// A failure has been reported when this returns and leaves "No Analysis".
/// Returns whether there are results.
bool runAnalysis(ScratchCopy scratch = ScratchCopy::Written);

/// Shows that the analysis was given up, and why by a code: 0 no node, 2 unstable.  Clears AnalysisDone.
void ReportAnalysisFailure(int code);

} // namespace strutwright
