#pragma once

#include <string>

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

  /// Draws the truss again.  zoomToExtents: frame the whole model first.
  virtual void Redraw(bool zoomToExtents) = 0;

  /// Empties the drawing without drawing anew.
  virtual void ClearSurface() = 0;

  /// DeflectionScale 100 and LoadsScale 10, shown in their labels.
  virtual void ResetScales() = 0;

  /// Shows this text in the title bar.
  virtual void SetCaption(const std::string& caption) = 0;

  /// Empties the four grids and gives each GridCapacity data rows.
  virtual void ClearGrids() = 0;

  /// Shows the list of recent files, as it is now, in the menus.
  virtual void ShowRecentFiles() = 0;

  /// Empties the numbers of the equations view.
  virtual void ResetEquations() = 0;

  /// The first node, in number order, that lies closer than PickRadius to a world point in m; 0 when there is none.
  virtual int NodeAt(float x, float y) = 0;

  /// Draws without the highlight of what was picked.
  virtual void DropHighlight() = 0;

  /// Says something in the status bar that needs no answer; it goes by itself.
  virtual void ShowHint(const std::string& text) = 0;

  /// Shows how far a long piece of work is, 0..1, with a way to cancel it; false once the user has cancelled.
  virtual bool ShowProgress(const std::string& text, double fraction) = 0;
  virtual void EndProgress() = 0;

  /// Saves the drawing as DrawingSurface::SavePicture does.  Throws FileError.
  virtual void SavePicture(const std::string& path) = 0;
};

} // namespace strutwright
