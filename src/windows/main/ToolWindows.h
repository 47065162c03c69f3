#pragma once

#include <memory>

namespace strutwright {

class frmInfluence;
class frmMain;
class frmVary;

/// The windows beside the main frame that show the model in another way.  Each is made when it is first asked for, and
/// keeps to the model from then on.
class ToolWindows {
 public:
  explicit ToolWindows(frmMain& frame);
  ~ToolWindows();
  ToolWindows(const ToolWindows&) = delete;
  ToolWindows& operator=(const ToolWindows&) = delete;

  /// Open a window, or bring it to the front, on the model as it stands in the grids.
  void ShowInfluence();
  void ShowVary();

  /// The truss has been drawn anew.
  void Follow();

 private:
  frmMain& Frame;
  std::unique_ptr<frmInfluence> Influence;
  std::unique_ptr<frmVary> Vary;
};

} // namespace strutwright
