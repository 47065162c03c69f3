#pragma once

#include "CheckState.h"
#include "LiveState.h"
#include "OptionsState.h"

#include <cstdint>

namespace strutwright {

/// What the workbench remembers between commands: the scales' spinners, the animation, the check, live analysis and the
/// options dialog.
struct WorkbenchState {
  std::int16_t lastDeflectionSpin = 0; ///< what the spinner of DeflectionScale showed at its last change; 0: none yet
  std::int16_t lastLoadsSpin = 0;      ///< the same of LoadsScale
  bool animating = false;              ///< the animation of the deflected shape runs
  std::int16_t animStep = 0;           ///< +1 or -1, the way in which it turns the spinner

  CheckState check; ///< the check of the last answer
  LiveState live;
  OptionsState options;
};

inline WorkbenchState TheWorkbench;
inline auto& lastDeflectionSpin = TheWorkbench.lastDeflectionSpin;
inline auto& lastLoadsSpin = TheWorkbench.lastLoadsSpin;
inline auto& animating = TheWorkbench.animating;
inline auto& animStep = TheWorkbench.animStep;
inline auto& TheCheck = TheWorkbench.check;
inline auto& TheLive = TheWorkbench.live;
inline auto& TheOptions = TheWorkbench.options;

} // namespace strutwright
