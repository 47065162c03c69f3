#pragma once

#include <memory>

namespace strutwright {

class frmClassSet;
class frmHand;
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
  void ShowHand();
  void ShowClassSet();

  /// Opens the hand methods on the joint of a node.
  void ShowJointByHand(int node);

  /// The truss has been drawn anew.
  void Follow();

 private:
  frmHand& MakeHand();

  frmMain& Frame;
  std::unique_ptr<frmClassSet> ClassSet;
  std::unique_ptr<frmHand> Hand;
  std::unique_ptr<frmInfluence> Influence;
  std::unique_ptr<frmVary> Vary;
};

} // namespace strutwright
