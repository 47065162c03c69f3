#pragma once

#include <functional>

#include <QByteArray>
#include <QTextBrowser>

namespace strutwright {

/// How the pane stands in the equations window; kept from one run to the next.
struct WorkingPlace {
  bool shown = true;
  QByteArray beside; ///< how the room is shared while the pane stands beside K; empty as at first
  QByteArray under;  ///< and under it
};

inline WorkingPlace TheWorkingPlace;

/// The working of the last step, as formulas.  A number that comes from somewhere is a link, which the mouse and
/// Tab and Enter follow; pointing at a number shows all its digits.  What would need scrolling is set a little smaller
/// where it fits then.
class WorkingPane : public QTextBrowser {
 public:
  explicit WorkingPane(QWidget* parent);

  /// Shows the working of the step that was pressed last.
  void ShowStep();

  /// Called with the link of a number that was clicked.
  void SetFollower(std::function<void(const std::string& link)> follower) { Follower = std::move(follower); }

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetTextSize(double share);
  void FitText();

  QSize FittedTo;      ///< its size when the text was last fitted to a new one
  bool IsStale = true; ///< what it shows is not of the last step
  std::function<void(const std::string& link)> Follower;
};

} // namespace strutwright
