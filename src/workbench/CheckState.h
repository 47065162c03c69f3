#pragma once

#include "ModelAsEntered.h"
#include "modCheckAnswer.h"

#include <string>

namespace strutwright {

/// What the program knows about how far the answer can be trusted, and which mechanism it shows.
struct CheckState {
  CheckReport report;    ///< of the model in `judged`
  std::string failure;   ///< why there is no such report; empty where there is one
  ModelAsEntered judged; ///< the model that the report is about; none before the first report

  int motion = 0;     ///< the mechanism shown in the display, by its place in the report; 0 for none
  int motionStep = 0; ///< where its swing stands, see modMotionView.h

  CheckReport (*judge)(AnalysisOutcome outcome) = &CheckAnswer; ///< what makes the report
};

} // namespace strutwright
