#include "DisplayFixture.h"
#include "modAnalysis.h"
#include "modModelStore.h"
#include "modReportSheets.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include <gmock/gmock.h>

namespace strutwright {
namespace {

class ReportSheetsTest : public DisplayFixture {
 protected:
  static ReportSheets SheetsOf(const ModelData& model) {
    SetTables(model);
    EXPECT_EQ(AnalyseTruss(), AnalysisEnd::Done);
    AnalysisDone = FlagTrue;
    return LayOutSheets();
  }

  /// The texts that are drawn on all sheets.
  std::set<std::string> TextsOf(const ReportSheets& sheets) {
    ClearMemory memory;
    std::set<std::string> texts;
    for (std::size_t index = 0; index < sheets.sheets.size(); ++index) {
      RecordingSurface page;
      page.width = static_cast<float>(sheets.width);
      page.height = static_cast<float>(sheets.height);
      DrawSheet(page, sheets, index, memory);
      for (const PixelLabel& label : page.pixelTexts) texts.insert(label.text);
    }
    return texts;
  }

  /// A tower: the truss turned a quarter round.
  static ModelData Tower(int nodes) {
    ModelData model = PrattTruss(nodes);
    for (NodeData& node : model.nodes) node = {-node.y, node.x, node.forceY, 0, 0};
    model.nodes[0].support = model.nodes[1].support = 3;
    return model;
  }
};

TEST_F(ReportSheetsTest, HasOneUprightSheetForASmallTruss) {
  const ReportSheets sheets = SheetsOf(Triangle());
  EXPECT_FALSE(sheets.landscape);
  EXPECT_EQ(sheets.width, ReportWidth);
  EXPECT_EQ(sheets.sheets.size(), 1U);
}

TEST_F(ReportSheetsTest, LaysALongTrussOnItsSide) {
  const ReportSheets sheets = SheetsOf(PrattTruss(10)); // 12 m by 4 m
  EXPECT_TRUE(sheets.landscape);
  EXPECT_EQ(sheets.width, LandscapeWidth);
  EXPECT_FALSE(SheetsOf(PrattTruss(8)).landscape); // 9 m by 4 m
}

TEST_F(ReportSheetsTest, SplitsALongTrussIntoPartsThatOverlap) {
  const ReportSheets sheets = SheetsOf(PrattTruss(80)); // 117 m
  ASSERT_GT(sheets.sheets.size(), 1U);
  EXPECT_EQ(sheets.sheets.front().from, 0);
  EXPECT_EQ(sheets.sheets.back().to, 117);
  for (std::size_t index = 1; index < sheets.sheets.size(); ++index) {
    const ViewWindow before = sheets.sheets[index - 1].window;
    const ViewWindow window = sheets.sheets[index].window;
    EXPECT_NEAR(before.left + before.width - window.left, 0.15 * window.width, 1e-3);
    EXPECT_EQ(window.width, before.width);
    EXPECT_GT(sheets.sheets[index - 1].to, sheets.sheets[index].from + 3) << "not a whole bay is repeated";
  }
}

TEST_F(ReportSheetsTest, HasRoomForEveryForceOfATrussInParts) {
  for (const std::string& text : TextsOf(SheetsOf(PrattTruss(80)))) {
    const bool isNotice = text.starts_with("showing ");
    EXPECT_FALSE(isNotice && text.find(" forces") != std::string::npos) << text;
  }
}

TEST_F(ReportSheetsTest, SplitsATowerUpwards) {
  const ReportSheets sheets = SheetsOf(Tower(80));
  EXPECT_TRUE(sheets.upwards);
  EXPECT_FALSE(sheets.landscape);
  ASSERT_GT(sheets.sheets.size(), 1U);
  EXPECT_EQ(sheets.sheets.front().from, 0);
  EXPECT_EQ(sheets.sheets.back().to, 117);
  EXPECT_GT(sheets.sheets.front().window.top, sheets.sheets.back().window.top);
}

TEST_F(ReportSheetsTest, EndsAtEightParts) { EXPECT_EQ(SheetsOf(PrattTruss(600)).sheets.size(), 8U); }

TEST_F(ReportSheetsTest, DrawsTheSameForATrussOfAnotherLength) {
  ModelData model = PrattTruss(40);
  const ReportSheets sheets = SheetsOf(model);
  for (NodeData& node : model.nodes) {
    node.x /= 256;
    node.y /= 256;
  }
  const ReportSheets small = SheetsOf(model);
  EXPECT_EQ(small.height, sheets.height);
  EXPECT_EQ(small.sheets.size(), sheets.sheets.size());
  EXPECT_NEAR(small.sheets[0].window.width * 256, sheets.sheets[0].window.width, 1e-3);
}

TEST_F(ReportSheetsTest, CutsNoArrow) {
  for (const int nodes : {10, 80}) {
    const std::set<std::string> texts = TextsOf(SheetsOf(PrattTruss(nodes)));
    for (const std::string& text : texts) EXPECT_THAT(text, testing::Not(testing::HasSubstr("cut")));
  }
}

TEST_F(ReportSheetsTest, KnowsAForceThatIsNotLessThanTheLargest) {
  const ReportSheets sheets = SheetsOf(PrattTruss(80)); // 40 loads of 10 kN on two supports
  EXPECT_GE(sheets.largestForce, 200);
  EXPECT_LT(sheets.largestForce, 3 * 200);
}

TEST_F(ReportSheetsTest, LeavesTheDisplayAsItIs) {
  surface.window = {1, 2, 3, 4};
  TextsOf(SheetsOf(PrattTruss(20)));
  EXPECT_EQ(surface.window, (ViewWindow{1, 2, 3, 4}));
  EXPECT_TRUE(surface.calls.empty());
}

TEST_F(ReportSheetsTest, HasASheetForASinglePoint) {
  const ReportSheets sheets = SheetsOf({{{2, 3, 4, -5, 3}}, {}});
  ASSERT_EQ(sheets.sheets.size(), 1U);
  EXPECT_TRUE(TextsOf(sheets).contains("5 kN"));
}

} // namespace
} // namespace strutwright
