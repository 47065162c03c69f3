#pragma once

#include "CheckState.h"
#include "Grid.h"

#include <cstdint>
#include <vector>

namespace strutwright {

/// What the main window holds besides the model, whose own the data grids are.
struct UiState {
  Grid jResGr; ///< joint results, columns as in JointResultColumns
  Grid mResGr; ///< member results, columns as in MemberResultColumns

  std::int16_t lastDeflectionSpin = 0; ///< what the spinner of DeflectionScale showed at its last change; 0: none yet
  std::int16_t lastLoadsSpin = 0;      ///< the same of LoadsScale
  bool animating = false;              ///< the animation of the deflected shape runs
  std::int16_t animStep = 0;           ///< +1 or -1, the way in which it turns the spinner

  std::vector<std::int16_t> rangeList{0}; ///< row numbers, ascending, of the last text that could be parsed; entry 0
                                          ///< is not used
  bool rangeError = false;                ///< the last text could not be parsed

  CheckState check; ///< the check of the last answer
};

inline UiState TheUi;
inline auto& jResGr = TheUi.jResGr;
inline auto& mResGr = TheUi.mResGr;
inline auto& lastDeflectionSpin = TheUi.lastDeflectionSpin;
inline auto& lastLoadsSpin = TheUi.lastLoadsSpin;
inline auto& animating = TheUi.animating;
inline auto& animStep = TheUi.animStep;
inline auto& rangeList = TheUi.rangeList;
inline auto& rangeError = TheUi.rangeError;
inline auto& TheCheck = TheUi.check;

} // namespace strutwright
