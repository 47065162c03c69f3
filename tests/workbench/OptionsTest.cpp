#include "DisplayState.h"
#include "FileState.h"
#include "RecentFiles.h"
#include "RecordingSurface.h"
#include "WorkbenchFixture.h"
#include "modGrids.h"
#include "modOptions.h"
#include "modRecentFiles.h"

#include <string>
#include <vector>

namespace strutwright {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class OptionsTest : public WorkbenchFixture {
 protected:
  OptionsTest() {
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
    TheDisplay = DisplayState{};
    DisplaySurface = &surface;
    TakeOptions();
  }
  ~OptionsTest() override {
    TheDisplay = DisplayState{};
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
  }

  /// What the user types into a field, then Apply.
  static void ApplyWith(std::string OptionsState::*field, const std::string& text) {
    TheOptions.*field = text;
    ApplyOptions();
  }

  static void ApplyCapacity(const std::string& text) {
    ChangeCapacity(text);
    ApplyOptions();
  }

  RecordingSurface surface;
};

// Start and opening

TEST_F(OptionsTest, StartWithTheTextsOfTheDesign) {
  GridSpacingX = 7;
  GridSpacingY = 7;
  PickRadius = 7;
  StartNodeNumber = 7;
  GridLineStyle = 0;
  GridCapacity = 7;
  TakeOptions();
  EXPECT_EQ(GridSpacingX, 1.0F);
  EXPECT_EQ(GridSpacingY, 1.0F);
  EXPECT_EQ(PickRadius, 0.1F);
  EXPECT_EQ(StartNodeNumber, 1);
  EXPECT_EQ(GridLineStyle, 1);
  EXPECT_EQ(GridCapacity, 20);
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "4");
  EXPECT_FALSE(TheOptions.capacityChanged);
}

TEST_F(OptionsTest, ShowTheLimitThatTheStartFinds) {
  settings.texts = {{"Recent Files/1", "/models/a.stw"}, {"Config/MAX_FILES", "9"}};
  startUpList();
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "9");
}

TEST_F(OptionsTest, OpenWithTheSettingsInForce) {
  GridSpacingX = 2.5F;
  GridSpacingY = 0.25F;
  PickRadius = 1e-5F;
  StartNodeNumber = -3;
  GridLineStyle = 0;
  GridCapacity = 300;
  MAX_FILES = 7;
  FillOptions();
  EXPECT_EQ(TheOptions.xSpaceTxt, "2.5");
  EXPECT_EQ(TheOptions.ySpaceTxt, "0.25");
  EXPECT_EQ(TheOptions.snapRtxt, "1E-05");
  EXPECT_EQ(TheOptions.snapSNtxt, "-3");
  EXPECT_EQ(TheOptions.optGridline, 0);
  EXPECT_EQ(TheOptions.maxTxt, "300");
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "7");
}

TEST_F(OptionsTest, CountNothingAsAChangeThatTheyOpenWith) {
  ChangeCapacity("30");
  FillOptions();
  EXPECT_FALSE(TheOptions.capacityChanged);
  ApplyOptions();
  EXPECT_EQ(GrJoints.RowCount(), 21);
}

// What is taken at once

TEST_F(OptionsTest, TakeTheLineStyleAtOnce) {
  ChooseGridLineStyle(0);
  EXPECT_EQ(GridLineStyle, 0);
  ChooseGridLineStyle(1);
  EXPECT_EQ(GridLineStyle, 1);
}

TEST_F(OptionsTest, TakeACapacityBelowFiveThousandAtOnce) {
  for (const auto& [text, capacity] : std::vector<std::pair<std::string, int>>{
           {"4999", 4999}, {" 7 ", 7}, {"0", 0}, {"-5", -5}, {"2.5", 2}, {"4999.4", 4999}, {"4999.6", 5000}}) {
    GridCapacity = 20;
    ChangeCapacity(text);
    EXPECT_EQ(GridCapacity, capacity) << text;
    EXPECT_TRUE(TheOptions.capacityChanged) << text;
  }
}

TEST_F(OptionsTest, IgnoreAnyOtherCapacityWithoutAWord) {
  for (const char* text : {"5000", "5000.1", "40000", "-40000", "1e39", "", "abc", "1,5"}) {
    ChangeCapacity("30");
    ChangeCapacity(text);
    EXPECT_EQ(GridCapacity, 30) << text;
    EXPECT_FALSE(TheOptions.capacityChanged) << text;
  }
}

TEST_F(OptionsTest, LayNothingOutAfterAChangeThatIsIgnored) {
  ChangeCapacity("30");
  ApplyCapacity("5000");
  EXPECT_EQ(GrJoints.RowCount(), 21);
}

// Apply

using ApplyOptionsTest = OptionsTest;

TEST_F(ApplyOptionsTest, TakesNumericTexts) {
  TheOptions.xSpaceTxt = "2.5";
  TheOptions.ySpaceTxt = " 1e1 ";
  TheOptions.snapRtxt = "0.3333333333";
  TheOptions.snapSNtxt = "7.6";
  ApplyOptions();
  EXPECT_EQ(GridSpacingX, 2.5F);
  EXPECT_EQ(GridSpacingY, 10.0F);
  EXPECT_EQ(PickRadius, 0.3333333333F);
  EXPECT_EQ(StartNodeNumber, 8);
}

TEST_F(ApplyOptionsTest, WritesThemBackAsPlainNumbers) {
  TheOptions.xSpaceTxt = "02.50";
  TheOptions.ySpaceTxt = " 1e1 ";
  TheOptions.snapRtxt = "0.3333333333";
  TheOptions.snapSNtxt = "7.6";
  ApplyOptions();
  EXPECT_EQ(TheOptions.xSpaceTxt, "2.5");
  EXPECT_EQ(TheOptions.ySpaceTxt, "10");
  EXPECT_EQ(TheOptions.snapRtxt, "0.3333333");
  EXPECT_EQ(TheOptions.snapSNtxt, "8");
}

TEST_F(ApplyOptionsTest, IgnoresOtherTextsWithoutAWordAndRevertsTheirFields) {
  TheOptions.xSpaceTxt = "1.2.3";
  TheOptions.ySpaceTxt = "";
  TheOptions.snapRtxt = "1e39";
  TheOptions.snapSNtxt = "40000";
  ApplyOptions();
  EXPECT_EQ(GridSpacingX, 1.0F);
  EXPECT_EQ(GridSpacingY, 1.0F);
  EXPECT_EQ(PickRadius, 0.1F);
  EXPECT_EQ(StartNodeNumber, 1);
  EXPECT_EQ(TheOptions.xSpaceTxt, "1");
  EXPECT_EQ(TheOptions.ySpaceTxt, "1");
  EXPECT_EQ(TheOptions.snapRtxt, "0.1");
  EXPECT_EQ(TheOptions.snapSNtxt, "1");
}

TEST_F(ApplyOptionsTest, DrawsTheGridWhereItIsSwitchedOn) {
  ApplyWith(&OptionsState::xSpaceTxt, "2");
  EXPECT_THAT(surface.ink, testing::Not(IsEmpty()));
  EXPECT_THAT(surface.ink, Contains(testing::HasSubstr("dashed")));
  surface.Forget();
  TheDisplay.Layers.grid = false;
  ApplyOptions();
  EXPECT_THAT(surface.ink, IsEmpty());
}

TEST_F(ApplyOptionsTest, RedrawsAndKeepsTheView) {
  ApplyOptions();
  EXPECT_THAT(events, ElementsAre("ViewChanged", "RecentFilesChanged"));
}

/// Looks at what is done by the time of the redraw.
class RedrawWatcher : public ViewListener {
 public:
  explicit RedrawWatcher(const RecordingSurface& drawing, const FakeSettings& store) : Drawing(drawing), Store(store) {}
  void ViewChanged() override {
    fieldAtRedraw = TheOptions.xSpaceTxt;
    gridIsDrawn = !Drawing.ink.empty();
    rowsAtRedraw = GrJoints.RowCount();
    limitIsStored = Store.texts.contains("Config/MAX_FILES");
  }

  std::string fieldAtRedraw;
  bool gridIsDrawn = false;
  int rowsAtRedraw = 0;
  bool limitIsStored = false;

 private:
  const RecordingSurface& Drawing;
  const FakeSettings& Store;
};

TEST_F(ApplyOptionsTest, GoesFieldByFieldThenGridLayoutRedrawAndLimit) {
  RedrawWatcher watcher(surface, settings);
  ListenToView(&watcher);
  ChangeCapacity("30");
  ApplyWith(&OptionsState::xSpaceTxt, "02");
  EXPECT_EQ(watcher.fieldAtRedraw, "2");
  EXPECT_TRUE(watcher.gridIsDrawn);
  EXPECT_EQ(watcher.rowsAtRedraw, 31);
  EXPECT_FALSE(watcher.limitIsStored);
  EXPECT_EQ(settings.texts["Config/MAX_FILES"], "4");
}

TEST_F(ApplyOptionsTest, WorksBeforeThereIsADrawing) {
  DisplaySurface = nullptr;
  ApplyWith(&OptionsState::xSpaceTxt, "2");
  EXPECT_EQ(GridSpacingX, 2.0F);
}

TEST_F(ApplyOptionsTest, TakesTheLimitOfTheRecentFiles) {
  TheRecentFiles.txtMaxFiles = "7";
  ApplyOptions();
  EXPECT_EQ(MAX_FILES, 7);
  EXPECT_EQ(settings.texts["Config/MAX_FILES"], "7");
}

TEST_F(ApplyOptionsTest, RefusesALimitThatIsNoNumber) {
  TheRecentFiles.txtMaxFiles = "abc";
  ApplyOptions();
  EXPECT_EQ(MAX_FILES, 4);
  ExpectBoxes({Box(MessageIcon::None, "Please input a number in future, ok")});
}

// The layout for another capacity

class CapacityTest : public OptionsTest {
 protected:
  CapacityTest() {
    WriteRow(GrJoints, 1, {"0", "0", "", "", "3"});
    WriteRow(GrJoints, 3, {"4", "0", "1", "-10", "1"});
    WriteRow(GrMembers, 1, {"1", "3", "200", "1000", "0"});
  }
};

TEST_F(CapacityTest, GivesTheDataGridsSoManyNumberedRows) {
  ApplyCapacity("30");
  EXPECT_EQ(GrJoints.RowCount(), 31);
  EXPECT_EQ(GrMembers.RowCount(), 31);
  EXPECT_EQ(GrJoints.Text(30, 0), "30");
  EXPECT_EQ(GrMembers.Text(30, 0), "30");
  EXPECT_EQ(jResGr.RowCount(), 2);
}

TEST_F(CapacityTest, LeavesRowsThatHoldDataWhereTheyAre) {
  ApplyCapacity("30");
  EXPECT_THAT(RowTexts(GrJoints, 1), ElementsAre("1", "0", "0", "", "", "3"));
  EXPECT_THAT(RowTexts(GrJoints, 2), ElementsAre("2", "", "", "", "", ""));
  EXPECT_THAT(RowTexts(GrJoints, 3), ElementsAre("3", "4", "0", "1", "-10", "1"));
  EXPECT_THAT(RowTexts(GrMembers, 1), ElementsAre("1", "1", "3", "200", "1000", "0"));
}

TEST_F(CapacityTest, NeverTakesARowThatHoldsData) {
  for (const char* capacity : {"2", "0", "-5"}) {
    ApplyCapacity(capacity);
    EXPECT_EQ(GrJoints.RowCount(), 4) << capacity;
    EXPECT_THAT(ColumnTexts(GrJoints, 0), ElementsAre("1", "2", "3")) << capacity;
    EXPECT_EQ(GrJoints.Text(3, 4), "-10") << capacity;
  }
  EXPECT_EQ(GrMembers.RowCount(), 2);
}

TEST_F(CapacityTest, TakesEmptyRowsAway) {
  ApplyCapacity("5");
  EXPECT_EQ(GrJoints.RowCount(), 6);
  EXPECT_EQ(GrMembers.RowCount(), 6);
}

TEST_F(CapacityTest, KeepsTheHeaderRowAtLeast) {
  initGrids();
  ApplyCapacity("-5");
  EXPECT_EQ(GrJoints.RowCount(), 1);
  EXPECT_EQ(GrJoints.Text(0, 1), "x(m)");
}

TEST_F(CapacityTest, LeavesTheResultsOfACurrentAnalysis) {
  AnalysisDone = FlagTrue;
  jResGr.SetRowCount(3);
  NumberRows(jResGr);
  WriteRow(jResGr, 1, {"0.0", "0.0", ".", "5."});
  WriteRow(jResGr, 2, {"1.5", "0.0", ".", "."});
  const auto before = AllTexts(jResGr);
  ApplyCapacity("30");
  EXPECT_EQ(AllTexts(jResGr), before);
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(CapacityTest, EmptiesTheResultsOfAnAnalysisThatHasEnded) {
  WriteRow(jResGr, 1, {"0.0", "0.0", ".", "5."});
  ApplyCapacity("30");
  EXPECT_THAT(RowTexts(jResGr, 1), ElementsAre("", "", "", "", ""));
}

} // namespace
} // namespace strutwright
