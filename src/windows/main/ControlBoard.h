#pragma once

#include "DataGridView.h"
#include "GridEditBox.h"
#include "ScaleSpinner.h"
#include "TrussView.h"

#include <array>

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

namespace strutwright {

/// The control board `CBpic`: the four grids, the two panels for data entry, the display switches and the scales.
/// It only builds the controls; what they do is frmMain's.
class ControlBoard : public QFrame {
 public:
  explicit ControlBoard(QWidget* parent);

  /// The state of the five plain switches.
  ModelLayers Layers() const;

  /// Makes one grid visible: 0 GrJoints, 1 GrMembers, 2 jResGr, 3 mResGr.
  void ShowGrid(int index) { Grids->setCurrentIndex(index); }

  std::array<QRadioButton*, 4> viewOpt{};
  DataGridView* GrJointsView = nullptr;
  DataGridView* GrMembersView = nullptr;
  DataGridView* jResGrView = nullptr;
  DataGridView* mResGrView = nullptr;
  GridEditBox* grTxtBox = nullptr;

  QLineEdit* nLineNoTxt = nullptr;
  QLineEdit* nLineX1Txt = nullptr;
  QLineEdit* nLineY1Txt = nullptr;
  QLineEdit* nLineX2Txt = nullptr;
  QLineEdit* nLineY2Txt = nullptr;
  QPushButton* nLineBtn = nullptr;
  QLineEdit* xnlTxt = nullptr;
  QLineEdit* ynlTxt = nullptr;
  QLineEdit* nodesTxt = nullptr;
  QPushButton* nodeLoadBtn = nullptr;
  QLineEdit* eTxt = nullptr;
  QLineEdit* aTxt = nullptr;
  QLineEdit* memTxt = nullptr;
  QPushButton* EABtn = nullptr;

  QCheckBox* SupportsChk = nullptr;
  QCheckBox* loadsChk = nullptr;
  QCheckBox* gridChk = nullptr;
  QCheckBox* clearChk = nullptr;
  QCheckBox* memberChk = nullptr;
  QCheckBox* nodeChk = nullptr;
  QCheckBox* ReactionsChk = nullptr;
  QCheckBox* MbrForcesChk = nullptr;
  QCheckBox* DSDchk = nullptr;
  ScaleSpinner* udDeflectionScale = nullptr;
  QLabel* lblDeflectionScale = nullptr;
  ScaleSpinner* udLoadsScale = nullptr;
  QLabel* lblLoadsScale = nullptr;
  QPushButton* animateBtn = nullptr;
  QPushButton* DBbtn = nullptr;

 private:
  QWidget* BuildGrids();
  QWidget* BuildNodePanel();
  QWidget* BuildMemberPanel();
  QWidget* BuildSwitches();
  QWidget* BuildScales();
  QLineEdit* AddBox(const QString& name, const QString& text, const QString& description, int characters);
  QCheckBox* AddSwitch(const QString& name, const QString& caption, const QString& toolTip, bool ticked);
  QPushButton* AddButton(const QString& name, const QString& caption, const QString& toolTip);

  QStackedWidget* Grids = nullptr;
};

} // namespace strutwright
