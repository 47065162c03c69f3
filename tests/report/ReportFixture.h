#pragma once

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "EventsTest.h"
#include "FileState.h"
#include "ModelBuilder.h"
#include "NativeFileSystem.h"
#include "ScratchFolder.h"
#include "WorkbenchState.h"
#include "modGrids.h"
#include "modModelStore.h"
#include "modReport.h"
#include "modRunAnalysis.h"

#include <string>

#include <gmock/gmock.h>

namespace strutwright {

/// The state of a program that has just started, and short ways to a report.
class ReportTest : public EventsTest {
 protected:
  ReportTest() {
    ResetModel();
    TheAnalysis = AnalysisState{};
    TheDisplay = DisplayState{};
    TheFiles = FileState{};
    TheEditing = EditingState{};
    TheWorkbench = WorkbenchState{};
    ThePlatform().files = &disk;
    initGrids();
  }
  ~ReportTest() override { TheDisplay = DisplayState{}; }

  static void Analyse(const ModelData& model) {
    SetModel(model);
    ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  }

  static std::string HtmlOf(const ModelData& model) {
    Analyse(model);
    return MakeReport("bridge.stw").document.html;
  }

  /// The same with the described drawing.
  static std::string DescribedHtmlOf(const ModelData& model) {
    Analyse(model);
    return MakeReport("bridge.stw", DrawingStyle::Described).document.html;
  }

  /// A member of 5 m that is pulled with 40 kN: E 200 kN/mm2 and A 1000 mm2 make it 1 mm longer.
  static ModelData Bar() { return {{{0, 0, 0, 0, 3}, {5, 0, 40, 0, 1}}, {{1, 2}}}; }

  NativeFileSystem disk;
  ScratchFolder folder;
};

} // namespace strutwright
