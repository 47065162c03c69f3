#pragma once

#include "Grid.h"

namespace strutwright {

/// The results grids; the data grids belong to the model.
struct UiState {
  Grid jResGr; ///< joint results, columns as in JointResultColumns
  Grid mResGr; ///< member results, columns as in MemberResultColumns
};

inline UiState TheUi;
inline auto& jResGr = TheUi.jResGr;
inline auto& mResGr = TheUi.mResGr;

} // namespace strutwright
