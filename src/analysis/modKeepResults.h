#pragma once

namespace strutwright {

/// Rebuilds the model from the grids for a command that changes nothing: while an analysis is current and the grids
/// hold what the tables held, member fields 6 to 9 are as they were afterwards.  Where an analysis is current and the
/// grids have changed, it ends, and the truss is drawn without its results.
void RebuildKeepingResults();

} // namespace strutwright
