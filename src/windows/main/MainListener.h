#pragma once

#include "FileEvents.h"
#include "Hints.h"
#include "ModelEvents.h"
#include "Progress.h"
#include "ViewEvents.h"

#include <string>

namespace strutwright {

class MainStatusBar;
class frmMain;

/// Hears what happens on the floors below while it lives, and has the main frame show it.
class MainListener : public ModelListener, public FileListener, public ViewListener {
 public:
  explicit MainListener(frmMain& frame);
  ~MainListener() override;
  MainListener(const MainListener&) = delete;
  MainListener& operator=(const MainListener&) = delete;

  void AnalysisEnded() override;
  void AnalysisStateChanged() override;
  void ModelChanged() override;
  void PickDropped() override;
  void NodesRenumbered() override;
  void ModelEmptied() override;
  void ModelReplaced() override;

  void FileOpened() override;
  void CaptionChanged(const std::string& caption) override;
  void RecentFilesChanged() override;

  void ViewChanged() override;

 private:
  frmMain& Frame;
};

/// The status bar of the main frame as the floors below know it.  While long work shows its progress, the frame draws
/// nothing: the results are not to be looked at.
class MainStatus : public Hints, public Progress {
 public:
  explicit MainStatus(MainStatusBar& bar) : Bar(bar) {}

  void ShowHint(const std::string& text) override;
  bool ShowProgress(const std::string& text, double fraction) override;
  void EndProgress() override;

  bool IsWorking() const { return Working; }

  /// Shows the progress of long work in another place from now on; in the status bar again for nullptr.
  void ShowProgressIn(Progress* place) { Elsewhere = place; }

 private:
  MainStatusBar& Bar;
  Progress* Elsewhere = nullptr;
  bool Working = false;
};

} // namespace strutwright
