#pragma once

#include "Grid.h"

#include <cstdint>
#include <vector>

namespace strutwright {

/// What the main window holds besides the model: the results grids, and the list that was parsed last.
struct UiState {
  Grid jResGr; ///< joint results, columns as in JointResultColumns
  Grid mResGr; ///< member results, columns as in MemberResultColumns

  std::vector<std::int16_t> rangeList{0}; ///< row numbers, ascending, of the last text that could be parsed; entry 0
                                          ///< is not used
  bool rangeError = false;                ///< the last text could not be parsed
};

inline UiState TheUi;
inline auto& jResGr = TheUi.jResGr;
inline auto& mResGr = TheUi.mResGr;
inline auto& rangeList = TheUi.rangeList;
inline auto& rangeError = TheUi.rangeError;

} // namespace strutwright
