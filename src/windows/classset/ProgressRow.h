#pragma once

#include "Progress.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace strutwright {

/// A progress bar with Cancel in a window of its own.  While work is under way, nothing else there takes input.
class ProgressRow : public QWidget, public Progress {
 public:
  explicit ProgressRow(QWidget* parent);

  bool ShowProgress(const std::string& text, double fraction) override;
  void EndProgress() override;

 private:
  QLabel* workLbl = nullptr;
  QProgressBar* workBar = nullptr;
  QPushButton* btnCancel = nullptr;
  QPointer<QWidget> FocusBefore; ///< what had the focus when the work began to show
  bool Cancelled = false;
};

} // namespace strutwright
