#pragma once

namespace strutwright {

/// What the lower floors ask of the main window.
class Host {
 public:
  virtual ~Host() = default;

  /// Leaves the analysis state: result switches off, AnalysisDone cleared, status texts refreshed.
  /// redraw: draw the truss again afterwards, without its results.
  virtual void EndAnalysis(bool redraw) = 0;

  /// Writes the status texts ("Analysis Done", "No Analysis") that fit the state as it is now.
  virtual void RefreshStatusTexts() = 0;
};

} // namespace strutwright
