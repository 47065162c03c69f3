#pragma once

#include "modImport.h"

#include <string>
#include <vector>

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace strutwright {

class LayerGrid;

/// Shows what a file would bring, and what the check finds about it, before it takes the place of the model.  For a
/// drawing it asks how to read it, and what it shows follows.
class frmImport : public QDialog {
 public:
  /// text: what the file holds.
  frmImport(QWidget* parent, const std::string& path, std::string text);

  /// Why nothing can be imported; empty where something can.
  const std::string& Fault() const { return Problem; }

  /// What is imported where the dialog was accepted.
  const StoredModel& Model() const { return Imported.model; }

 private:
  QWidget* BuildDrawing();
  QLayout* BuildButtons();
  DrawingOptions Options() const;
  void Preview();
  void ShowPreview();

  std::string Path;
  std::string Text;
  std::string Problem;
  ImportedModel Imported;
  std::vector<std::string> Findings; ///< of the check
  QLabel* contentsLbl = nullptr;
  QPlainTextEdit* remarksTxt = nullptr;
  QPlainTextEdit* findingsTxt = nullptr;
  QComboBox* unitCmb = nullptr;
  QLineEdit* toleranceTxt = nullptr;
  QCheckBox* splitChk = nullptr;
  LayerGrid* layersGrd = nullptr;
  QPushButton* btnImport = nullptr;
};

} // namespace strutwright
