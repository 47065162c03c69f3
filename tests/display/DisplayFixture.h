#pragma once

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EventsTest.h"
#include "ModelBuilder.h"
#include "RecordingSurface.h"
#include "modRedraw.h"
#include "modViewTransform.h"

#include <string>
#include <vector>

namespace strutwright {

using Lines = std::vector<std::string>;

/// An empty model on a recording surface of 800 by 600 pixels; every layer of the model is off.
class DisplayFixture : public EventsTest {
 protected:
  DisplayFixture() {
    ResetModel();
    TheAnalysis = AnalysisState{};
    TheDisplay = DisplayState{};
    DisplaySurface = &surface;
    TheDisplay.Layers = {false, false, false, false, false};
  }
  ~DisplayFixture() override { TheDisplay = DisplayState{}; }

  /// What the display shows; the extents are taken where it would frame them.
  static TrussView View() {
    if (!KeepView) ComputeModelExtents();
    return ViewOfDisplay();
  }

  static Message DrawingBox(const std::string& description) {
    return Box(MessageIcon::Information, "Drawing error: check the input data\n" + description);
  }

  RecordingSurface surface;
};

} // namespace strutwright
