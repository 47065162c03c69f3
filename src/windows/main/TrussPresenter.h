#pragma once

#include <functional>
#include <string>

namespace strutwright {

class CheckPresenter;
class MainStatus;

/// Has the truss drawn on the display, with what the check highlights over it.  While long work changes the results
/// there is nothing to draw; whoever works draws when it is done.
class TrussPresenter {
 public:
  /// show: puts on screen what has been drawn, and what depends on the model with it.
  TrussPresenter(MainStatus& status, CheckPresenter& check, std::function<void()> show);

  /// zoomToExtents: frame the whole model first.
  void Redraw(bool zoomToExtents);

  /// What can't be drawn is said in the status bar and not in a box.
  void RedrawWhatCanBeDrawn(bool zoomToExtents);

  /// Makes the window 1.25 times as wide and high.
  void ZoomOut();

  /// Writes the display's picture, without highlights.
  void WritePicture(const std::string& path);

 private:
  void Show();

  MainStatus& Status;
  CheckPresenter& Check;
  std::function<void()> ShowIt;
};

} // namespace strutwright
