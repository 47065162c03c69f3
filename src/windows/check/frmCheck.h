#pragma once

#include "MechanismBox.h"
#include "modCheck.h"

#include <functional>

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace strutwright {

class CommandFrame;
class FigureTable;
class LineList;

/// The check of the answer, a window beside the frame: verdict, figures, what is odd about the model, zero bars and
/// mechanisms.  It follows each analysis and each edit while it is open; a mechanism swings in the display meanwhile.
class frmCheck : public QDialog {
 public:
  /// offer: what can be done about members without rigidity, by what the control board's fields hold now.
  /// fillIn: does it.
  frmCheck(CommandFrame& frame, std::function<RigidityOffer()> offer, std::function<void()> fillIn);

  /// Shows the check of the model as it is now, and its first mechanism.
  void Refresh();

  /// Shows what can be done about members without rigidity.
  void ShowRigidityOffer();

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void BuildVerdict();
  void BuildRigidity();
  void BuildTable();
  void BuildButtons();
  LineList* AddList(const QString& name, const QString& caption, const QString& description);

  void ShowChosen(const QListWidget& list);
  void ShowCell(int row);
  void DeselectAllBut(const QWidget* chosen);
  void FillInRigidity();
  void Copy();

  CommandFrame& Frame;
  std::function<RigidityOffer()> Offer;
  std::function<void()> FillIn;
  QLabel* verdictLbl = nullptr;
  QLabel* byHandLbl = nullptr;
  QWidget* rigidityPart = nullptr;
  QLabel* rigidityLbl = nullptr;
  QPushButton* btnFillRigidity = nullptr;
  FigureTable* checkTable = nullptr;
  LineList* findingsList = nullptr;
  LineList* zeroBarsList = nullptr;
  MechanismBox* mechanismBox = nullptr;
  bool Marking = false; ///< the display shows what was chosen here
};

} // namespace strutwright
