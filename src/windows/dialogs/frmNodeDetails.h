#pragma once

#include "modInspectors.h"

#include <cstdint>

#include <QDialog>

class QLineEdit;
class QRadioButton;

namespace strutwright {

class CommandFrame;

/// The node inspector: properties and deflections of one node, a load to apply to it, and its deletion.
class frmNodeDetails : public QDialog {
 public:
  explicit frmNodeDetails(CommandFrame& frame);
  ~frmNodeDetails() override;

  /// Fills the grids with the node as it is now.  node: 1..NodeCount.
  void setNode(std::int16_t node);

 private:
  QWidget* BuildLoad();
  QRadioButton* AddMode(int index, const QString& caption, LoadMode mode);
  QWidget* BuildButtons();
  void Apply();
  void Delete();

  CommandFrame& Frame;
  NodeDetails Details;
  std::int16_t Node = 0;
  LoadMode Mode = LoadMode::Overwrite;
  QLineEdit* txtForce = nullptr;
  QLineEdit* txtAngle = nullptr;
};

} // namespace strutwright
