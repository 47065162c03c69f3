#pragma once

#include "FieldTable.h"

#include <optional>

namespace strutwright {

/// Rebuilds the model from the grids for a command that changes nothing: while an analysis is current and the grids
/// hold what the tables held, member fields 6 to 9 are as they were afterwards.  Where an analysis is current and the
/// grids have changed, it ends, and the truss is drawn without its results.
void RebuildKeepingResults();

/// The same in two steps, for a command that needs the model as the rebuild leaves it, with member fields 6 to 9 zero:
/// creating one rebuilds the model, destroying it puts the fields back.
class KeptResults {
 public:
  KeptResults();
  ~KeptResults();
  KeptResults(const KeptResults&) = delete;
  KeptResults& operator=(const KeptResults&) = delete;

 private:
  std::optional<FieldTable> Members; ///< as they were; nothing when there are no results to put back
};

} // namespace strutwright
