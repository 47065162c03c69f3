#pragma once

#include "Grid.h"

#include <cstdint>
#include <vector>

namespace strutwright {

/// What the grids on screen hold besides the model, whose own the data grids are, and the list of rows last asked for.
struct EditingState {
  Grid jResGr; ///< joint results, columns as in JointResultColumns
  Grid mResGr; ///< member results, columns as in MemberResultColumns

  std::vector<std::int16_t> rangeList{0}; ///< row numbers, ascending, of the last text that could be parsed; entry 0
                                          ///< is not used
  bool rigidityFromBoard = false;         ///< a member that is drawn gets E and A of the control board
  bool rangeError = false;                ///< the last text could not be parsed
};

inline EditingState TheEditing;
inline auto& jResGr = TheEditing.jResGr;
inline auto& mResGr = TheEditing.mResGr;
inline auto& rangeList = TheEditing.rangeList;
inline auto& rangeError = TheEditing.rangeError;

} // namespace strutwright
