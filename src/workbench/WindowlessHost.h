#pragma once

#include "Host.h"

namespace strutwright {

/// The host of a program without a window: keeps the state that a window would show, and shows nothing.
class WindowlessHost : public Host {
 public:
  void EndAnalysis(bool redraw) override;
  void RefreshStatusTexts() override {}
  void Redraw(bool /*zoomToExtents*/) override {}
  void ClearSurface() override {}
  void ResetScales() override {}
  void SetCaption(const std::string& /*caption*/) override {}
  void ClearGrids() override;
  void ShowRecentFiles() override {}
  void ResetEquations() override {}
  int NodeAt(float /*x*/, float /*y*/) override { return 0; }
  void DropHighlight() override {}
  void ShowHint(const std::string& /*text*/) override {}
  bool ShowProgress(const std::string& /*text*/, double /*fraction*/) override { return true; }
  void EndProgress() override {}
  [[noreturn]] void SavePicture(const std::string& path) override;
};

} // namespace strutwright
