#pragma once

#include <string>

namespace strutwright {

// Live analysis: after each edit the model is analysed without a word.  The results are those of Run Analysis to the
// bit; no scratch copy is written, and what Run Analysis shows in boxes stays unsaid.

/// Whether edits are followed by an analysis.
bool IsLive();

/// Switches it on, also where it had paused, or off.
void SwitchLive(bool on);

/// Goes on where it had paused: the model has become another one, or its nodes have other numbers.
void ResumeLive();

/// Whether the tables and results are what the grids ask for.  Takes the grids in as a command does that changes
/// nothing.
bool LiveIsUpToDate();

/// Takes the model from the grids and analyses it.  AnalysisDone says whether there are results, which the results
/// grids list then.  An analysis that took too long pauses live analysis, and so does one that the user cancels.
void AnalyseLive();

/// What the status bar says: "Live", "Live paused" or nothing.
const char* LiveText();

/// Of the mechanism that the truss has become, its motion: "Node 3 can move ..."; empty where there is none, or where
/// live analysis is off.
std::string LiveMotionText();

} // namespace strutwright
