#pragma once

#include "DisplayArea.h"
#include "modTrussFamilies.h"

#include <array>
#include <optional>
#include <string>

#include <QWidget>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QLayout;
class QPushButton;

namespace strutwright {

/// Bracefold's window: the description of a truss, and its picture, which follows while one types.
/// The open model is the truss of the last description without a fault.
class frmBracefold : public QWidget, private DisplayListener {
 public:
  /// texts: without a fault.
  frmBracefold(const TrussFamily& family, const TrussTexts& texts);
  ~frmBracefold() override;

 private:
  QLayout* BuildFields();
  QLayout* BuildPicture();
  QLayout* BuildLastRow();
  void AddChoices(QGridLayout& places);
  void AddField(QGridLayout& places, int row, const FieldDescription& field);
  QWidget* NewField(const FieldDescription& field);
  void AddKeys();

  void ShowTexts(const TrussTexts& texts);
  TrussTexts Texts() const;
  void TakeField(TrussField field);
  void ChooseFamily();
  void TakeTruss();
  void Draw(bool zoomToExtents);
  void ShowFault(const std::optional<TrussFault>& fault);
  void ShowSummary(const QString& text);
  std::string Save();
  void SaveAndOpen();

  void Resized() override;
  void MouseMoved(const MouseEvent& event) override;
  void MousePressed(const MouseEvent& event) override;
  void MouseReleased(const MouseEvent& /*event*/) override {}
  void MouseLeft() override {}
  void WheelTurned(const MouseEvent& event, double steps) override;
  void ViewKeyPressed(ViewMove move) override;

  const TrussFamily* Family;
  std::string Summary; ///< of the truss in the preview
  MouseEvent Grabbed;  ///< where the mouse took hold of the drawing
  std::array<QLabel*, TrussFieldCount> Labels{};
  std::array<QWidget*, TrussFieldCount> Fields{};
  std::array<bool, TrussFieldCount> Edited{}; ///< by the user, who may have typed what is another family's standard
  bool SupportChosen = false;
  QComboBox* familyBox = nullptr;
  QComboBox* supportBox = nullptr;
  QCheckBox* numbersChk = nullptr;
  DisplayArea* preview = nullptr;
  QLabel* errorLbl = nullptr;
  QLabel* summaryLbl = nullptr;
  QPushButton* btnSave = nullptr;
  QPushButton* btnSaveOpen = nullptr;
  QPushButton* btnClose = nullptr;
};

} // namespace strutwright
