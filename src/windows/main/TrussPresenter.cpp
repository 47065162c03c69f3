#include "TrussPresenter.h"

#include "CheckPresenter.h"
#include "DisplayState.h"
#include "MainListener.h"
#include "modEntryGaps.h"
#include "modMotionView.h"
#include "modRedraw.h"
#include "modViewTransform.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace strutwright {

TrussPresenter::TrussPresenter(MainStatus& status, CheckPresenter& check, std::function<void()> show)
    : Status(status), Check(check), ShowIt(std::move(show)) {}

void TrussPresenter::Redraw(bool zoomToExtents) {
  if (Status.IsWorking()) return;
  RedrawDisplay(DisplaySurface, zoomToExtents);
  Show();
}

void TrussPresenter::RedrawWhatCanBeDrawn(bool zoomToExtents) {
  if (Status.IsWorking()) return;
  std::vector<std::string> failures;
  RedrawDisplay(DisplaySurface, zoomToExtents, [&failures](const std::string& text) { failures.push_back(text); });
  Show();
  // Where there is a gap in the grids it is the reason, and the note on it says more.
  if (failures.empty() || !RowGapText().empty()) return;
  std::string hint = failures.front();
  std::replace(hint.begin(), hint.end(), '\n', ' ');
  Status.ShowHint(hint);
}

void TrussPresenter::ZoomOut() {
  if (DisplaySurface == nullptr) return;
  EnlargeWindow(*DisplaySurface);
  Redraw(false);
}

/// A highlight shows the user what is being talked about; the picture is of the truss.
void TrussPresenter::WritePicture(const std::string& path) {
  if (!Check.HasHighlight()) return DisplaySurface->SavePicture(path);
  RedrawDisplay(DisplaySurface, false, [](const std::string& /*failure*/) {});
  DrawShownMotion(*DisplaySurface);
  try {
    DisplaySurface->SavePicture(path);
  } catch (...) {
    RedrawWhatCanBeDrawn(false);
    throw;
  }
  RedrawWhatCanBeDrawn(false);
}

void TrussPresenter::Show() {
  Check.Follow();
  Check.Draw();
  ShowIt();
}

} // namespace strutwright
