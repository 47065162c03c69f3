// Every stored model is drawn with all layers, without a box except where a member names a node that is not there.

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "EventsTest.h"
#include "NativeFileSystem.h"
#include "RecordingSurface.h"
#include "ReferenceModels.h"
#include "WorkbenchState.h"
#include "modFileCommands.h"
#include "modGrids.h"
#include "modModelStore.h"
#include "modRedraw.h"
#include "modRunAnalysis.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

/// Record 0 of the table is drawn as a node that does not move.
bool NamesAMissingNode(int m) {
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  return std::min(i, j) < 0 || std::max(i, j) > NodeCount;
}

bool AnyMemberNamesAMissingNode() {
  for (int m = 1; m <= MemberCount; ++m) {
    if (NamesAMissingNode(m)) return true;
  }
  return false;
}

class ReferenceDrawingTest : public EventsTest, public testing::WithParamInterface<std::string> {
 protected:
  ReferenceDrawingTest() {
    ThePlatform().files = &disk;
    TheModel = ModelState{};
    TheAnalysis = AnalysisState{};
    TheEditing = EditingState{};
    TheWorkbench = WorkbenchState{};
    TheDisplay = DisplayState{};
    DisplaySurface = &surface;
    initGrids();
  }
  ~ReferenceDrawingTest() override { TheDisplay = DisplayState{}; }

  NativeFileSystem disk;
  RecordingSurface surface;
};

TEST_P(ReferenceDrawingTest, IsDrawnWithoutABox) {
  ASSERT_TRUE(openModel(std::string(REFERENCE_DIR) + "/" + GetParam() + ".stw"));
  ShowReactions = ShowMemberForces = ShowDeflectedShape = runAnalysis(ScratchCopy::None);
  TakeMessages();

  RedrawDisplay(&surface, true);

  EXPECT_EQ(TakeMessages().size(), AnyMemberNamesAMissingNode() ? 1U : 0U);
  EXPECT_FALSE(surface.ink.empty());
}

INSTANTIATE_TEST_SUITE_P(Models, ReferenceDrawingTest, testing::ValuesIn(ReferenceNames()),
                         [](const auto& each) { return each.param; });

} // namespace
} // namespace strutwright
