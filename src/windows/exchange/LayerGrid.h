#pragma once

#include "modDrawnTruss.h"
#include "modImportFile.h"

#include <vector>

#include <QTableWidget>

namespace strutwright {

/// The layers of a drawing that is imported, with the E and A of their members, which can be typed.
class LayerGrid : public QTableWidget {
 public:
  LayerGrid();

  /// Shows these layers.  What was typed stays.
  void Show(const std::vector<DrawnLayer>& layers);

  /// What was typed so far.
  std::vector<TypedLayer> Typed() const;

 private:
  void SetCell(int row, int column, const QString& text, Qt::ItemFlags flags);
};

} // namespace strutwright
