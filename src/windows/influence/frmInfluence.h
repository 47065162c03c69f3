#pragma once

#include "modInfluenceSheet.h"

#include <optional>

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace strutwright {

class CommandFrame;
class InfluencePicture;

/// Influence lines, a window beside the frame: what one quantity hears of a load that moves along a path of nodes, and
/// the extremes under a train of loads.  It follows the model while it is open.
class frmInfluence : public QDialog {
 public:
  explicit frmInfluence(CommandFrame& frame);

  /// Proposes the loaded chord where the path that is shown can't be taken in this model.
  void Propose();

  /// Makes the line anew where the model has become another one.
  void Follow();

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* BuildQuestion();
  QWidget* BuildButtons();
  void Ask();
  void ShowValue();
  void Choose(double x, double y, double reach);
  void ChooseNumber(QuantityKind kind, int number);
  void Step(int direction);
  void Walk();
  InfluenceQuestion Question() const;
  Quantity ChosenQuantity() const;

  CommandFrame& Frame;
  InfluenceSheet Sheet;
  std::optional<double> At; ///< x that the user points at, or where the load walks
  int WalkStep = 0;
  QLineEdit* pathTxt = nullptr;
  QComboBox* quantityCmb = nullptr;
  QSpinBox* numberSpin = nullptr;
  QComboBox* trainCmb = nullptr;
  InfluencePicture* Picture = nullptr;
  QLabel* lineLbl = nullptr;
  QPushButton* btnWalk = nullptr;
};

} // namespace strutwright
