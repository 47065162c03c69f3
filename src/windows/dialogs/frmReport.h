#pragma once

#include "modReport.h"

#include <functional>

#include <QDialog>

class QLabel;
class QPushButton;
class QTextBrowser;

namespace strutwright {

class CommandFrame;

/// The results report, to read, save and print, in a window that leaves the others free.
/// It shows the report of the moment at which it was asked for, and says so once the model is another one.
class frmReport : public QDialog {
 public:
  /// renew: makes the report anew, as the menu does.
  frmReport(CommandFrame& frame, const std::function<void()>& renew);

  /// Shows a report from its beginning.
  void ShowReport(Report report);

  /// Says whether the report is of the model as it is now.
  void NoteModel();

 private:
  QLayout* BuildButtons(const std::function<void()>& renew);
  QPushButton* AddButton(const QString& name, const QString& caption, const QString& toolTip,
                         const std::function<void()>& command);

  CommandFrame& Frame;
  Report Shown;
  QLabel* lblState = nullptr;
  QTextBrowser* reportTxt = nullptr;
};

} // namespace strutwright
