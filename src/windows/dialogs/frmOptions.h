#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace strutwright {

class CommandFrame;

/// The options: the drawing grid, snapping to nodes, the capacity of the grids, the length of the recent files, and
/// what the clear drawing shows.
/// It opens with the settings in force.
class frmOptions : public QDialog {
 public:
  explicit frmOptions(CommandFrame& frame);

  /// What was not applied is forgotten when the dialog closes.
  void done(int result) override;

 private:
  QWidget* BuildGeneral();
  QWidget* BuildFileHandling();
  QWidget* BuildDrawing();
  QWidget* BuildLineStyle();
  QWidget* BuildCapacity();
  QLayout* BuildClearDrawing();
  QWidget* BuildSnap();
  QLayout* BuildButtons();
  void AddPage(QWidget* page, const QString& title);
  QLineEdit* AddField(const QString& name, const QString& description, const std::string& text);
  QRadioButton* AddLineStyle(int index, const QString& caption, const QString& toolTip);
  void ShowNextPage();
  void Apply();

  CommandFrame& Frame;
  QTabWidget* tbsOptions = nullptr;
  QLineEdit* xSpaceTxt = nullptr;
  QLineEdit* ySpaceTxt = nullptr;
  QLineEdit* snapRtxt = nullptr;
  QLineEdit* snapSNtxt = nullptr;
  QLineEdit* maxTxt = nullptr;
  QLineEdit* txtMaxFiles = nullptr;
  QCheckBox* widthChk = nullptr;
  QCheckBox* legendChk = nullptr;
};

} // namespace strutwright
