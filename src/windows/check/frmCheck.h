#pragma once

#include "CheckReport.h"
#include "modCheckLists.h"

#include <vector>

#include <QDialog>
#include <QTimer>

class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;
class QTableWidget;

namespace strutwright {

class frmMain;

/// The check of the answer, a window beside the frame: verdict, figures, what is odd about the model, zero bars and
/// mechanisms.  It follows each analysis and each edit while it is open; a mechanism swings in the display meanwhile.
class frmCheck : public QDialog {
 public:
  explicit frmCheck(frmMain& frame);

  /// Shows the check of the model as it is now, and its first mechanism.
  void Refresh();

  /// Shows what can be done about members without rigidity, by what the control board's fields hold now.
  void ShowRigidityOffer();

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void BuildVerdict();
  void BuildRigidity();
  void BuildTable();
  void BuildMechanism();
  void BuildMotionButtons();
  void BuildCures();
  void BuildButtons();
  QListWidget* AddList(const QString& name, const QString& caption, const QString& description);

  void FillTable();
  void Fill(QListWidget& list, const std::vector<CheckLine>& lines);
  void ShowChosen(const QListWidget& list);
  void ShowCell(int row);
  void DeselectAllBut(const QWidget* chosen);
  void FillMechanism();
  void EnableMotionButtons();
  void Turn(int by);
  void RunClock();
  void Tick();
  const Cure* ChosenCure() const;
  void ApplyChosenCure();
  void FillInRigidity();
  void Copy();

  frmMain& Frame;
  QLabel* verdictLbl = nullptr;
  QWidget* rigidityPart = nullptr;
  QLabel* rigidityLbl = nullptr;
  QPushButton* btnFillRigidity = nullptr;
  QTableWidget* checkTable = nullptr;
  QListWidget* findingsList = nullptr;
  QListWidget* zeroBarsList = nullptr;
  QGroupBox* mechanismBox = nullptr;
  QLabel* motionLbl = nullptr;
  QWidget* motionButtons = nullptr;
  QPushButton* btnPreviousMotion = nullptr;
  QPushButton* btnNextMotion = nullptr;
  QPushButton* btnAnimateMotion = nullptr;
  QWidget* curesPart = nullptr;
  QListWidget* curesList = nullptr;
  QPushButton* btnApplyCure = nullptr;
  QTimer MotionTimer;
  bool Marking = false; ///< the display shows what was chosen here
};

} // namespace strutwright
