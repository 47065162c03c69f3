#pragma once

#include "BoardController.h"
#include "CheckState.h"
#include "FieldTable.h"

namespace strutwright {

/// What an analysis left behind, kept while a drag changes the model: where the drag is taken back it still holds.
class ResultsBeforeDrag {
 public:
  /// Takes what there is; an analysis is current.
  explicit ResultsBeforeDrag(const BoardController& board);

  /// The tables hold the same input as then.
  void PutBack(BoardController& board) const;

 private:
  FieldTable Members; ///< with the fields of the results
  CheckState Check;
  ResultTicks Ticks;
};

} // namespace strutwright
