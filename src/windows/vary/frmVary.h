#pragma once

#include "ModelAsEntered.h"
#include "modVary.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;
class QSpinBox;

namespace strutwright {

class CommandFrame;
class PlotArea;

/// Varies one quantity of the truss with a slider and plots a result over its range.
class frmVary : public QDialog {
 public:
  explicit frmVary(CommandFrame& frame);

  /// Begins anew with the model as it is.
  void Begin();

  /// The model may have become another one.
  void Follow();

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  QLayout* BuildChoice();
  QLayout* BuildSlider();
  QLayout* BuildButtons();
  QPushButton* AddButton(const QString& name, const QString& caption, const QString& toolTip,
                         const std::function<void()>& command);
  Varied Quantity() const;
  ChosenResult Result() const;
  std::string Fault() const;
  std::optional<double> Limit(const QLineEdit* field) const;
  double SliderValue() const;
  void ProposeRange();
  void ChooseQuantity();
  void MakePlot();
  void ShowPlot();
  void PlaceSlider();
  void Slide();
  void Commit();
  void ExportCsv();
  void ExportPicture();

  CommandFrame& Frame;
  std::vector<VaryPoint> Points; ///< empty where there is a fault
  ModelAsEntered PlottedIn;      ///< the model that the plot begins from
  CellEdits Edits;               ///< of the slider while it is held
  bool Sliding = false;
  QComboBox* variedCmb = nullptr;
  QLineEdit* numbersTxt = nullptr;
  QComboBox* resultCmb = nullptr;
  QSpinBox* resultSpin = nullptr;
  QLineEdit* fromTxt = nullptr;
  QLineEdit* toTxt = nullptr;
  QSlider* slider = nullptr;
  QLabel* valueLbl = nullptr;
  PlotArea* Area = nullptr;
};

} // namespace strutwright
