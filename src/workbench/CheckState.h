#pragma once

#include "modCheckAnswer.h"

#include <cstddef>
#include <string>
#include <vector>

namespace strutwright {

/// What the program knows about how far the answer can be trusted, and which mechanism it shows.
struct CheckState {
  CheckReport report;          ///< of the model in `judged`
  std::string failure;         ///< why there is no such report; empty where there is one
  std::vector<float> judged;   ///< the numbers of the model that the report is about; empty before the first report
  std::size_t judgedNodes = 0; ///< how many of them are about nodes

  int motion = 0;     ///< the mechanism shown in the display, by its place in the report; 0 for none
  int motionStep = 0; ///< where its swing stands, see modMotionView.h

  CheckReport (*judge)(AnalysisOutcome outcome) = &CheckAnswer; ///< what makes the report
};

} // namespace strutwright
