#include "FormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "WorkbenchState.h"
#include "modModelStore.h"

#include <algorithm>
#include <vector>

#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

namespace strutwright {
namespace {

class ScalesFormTest : public FormTest {
 protected:
  void Analyse() {
    EnterThreeBarTruss();
    frame->runAnalysis();
  }

  QSpinBox& deflection = Find<QSpinBox>("udDeflectionScale");
  QSpinBox& loads = Find<QSpinBox>("udLoadsScale");
};

TEST_F(ScalesFormTest, StepsTheDeflectionScaleByTens) {
  Analyse();
  QTest::keyClick(&deflection, Qt::Key_Up);
  EXPECT_EQ(DeflectionScale, 110.0F);
  EXPECT_EQ(LabelText("lblDeflectionScale"), "110 mm/mm");
  QTest::keyClick(&deflection, Qt::Key_Down);
  EXPECT_EQ(DeflectionScale, 100.0F);
}

TEST_F(ScalesFormTest, GoesFromOneToTenAndStopsAtBothEnds) {
  Analyse();
  DeflectionScale = 1;
  deflection.setValue(501);
  EXPECT_EQ(DeflectionScale, 10.0F);
  deflection.setValue(500);
  EXPECT_EQ(DeflectionScale, 1.0F);
  DeflectionScale = 5000;
  deflection.setValue(501);
  EXPECT_EQ(DeflectionScale, 5000.0F);
}

TEST_F(ScalesFormTest, LeavesTheDeflectionScaleAloneWithoutResults) {
  deflection.setValue(501);
  EXPECT_EQ(DeflectionScale, 100.0F);
  EXPECT_FALSE(ShowDeflectedShape);
  EXPECT_EQ(LabelText("lblDeflectionScale"), "100 mm/mm");
}

TEST_F(ScalesFormTest, ShowsTheDeflectedShapeWhenItsScaleIsStepped) {
  Analyse();
  ShowDeflectedShape = false;
  deflection.setValue(501);
  EXPECT_TRUE(ShowDeflectedShape);
}

TEST_F(ScalesFormTest, StepsTheLoadsScaleByAQuarterWithoutResultsToo) {
  loads.setValue(501);
  EXPECT_EQ(LabelText("lblLoadsScale"), "12.5 kN/m");
  loads.setValue(502);
  EXPECT_EQ(LabelText("lblLoadsScale"), "15.6 kN/m");
  loads.setValue(501);
  loads.setValue(500);
  loads.setValue(499);
  EXPECT_EQ(LabelText("lblLoadsScale"), "8.0 kN/m");
  EXPECT_EQ(LoadsScale, 8.0F);
}

TEST_F(ScalesFormTest, KeepsTheLoadsScaleWithinItsLimits) {
  LoadsScale = 4800;
  loads.setValue(501);
  EXPECT_EQ(LoadsScale, 5000.0F);
  LoadsScale = 1.1F;
  loads.setValue(500);
  EXPECT_EQ(LoadsScale, 1.0F);
}

TEST_F(ScalesFormTest, TakesTheFirstChangeFromFiveHundredAndLaterOnesFromTheLast) {
  loads.setValue(400);
  EXPECT_EQ(LoadsScale, 8.0F);
  loads.setValue(450);
  EXPECT_EQ(LoadsScale, 10.0F);
}

TEST_F(ScalesFormTest, ShowsNoNumberAndTakesNoDigits) {
  loads.setFocus();
  QTest::keyClicks(&loads, "7");
  EXPECT_EQ(loads.value(), 500);
  EXPECT_FALSE(loads.findChild<QLineEdit*>()->isVisible());
}

TEST_F(ScalesFormTest, LeavesTheOtherLabelAlone) {
  deflection.setValue(501);
  EXPECT_EQ(LabelText("lblLoadsScale"), "10 kN/m");
}

TEST_F(ScalesFormTest, DoesNotAnimateWithoutResults) {
  Find<QPushButton>("animateBtn").click();
  EXPECT_FALSE(animating);
}

TEST_F(ScalesFormTest, SwingsOnceAndEndsWhereItBegan) {
  Analyse();
  Find<QTimer>("Timer1").setInterval(1);
  Find<QPushButton>("animateBtn").click();
  EXPECT_TRUE(animating);
  std::vector<int> values;
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        if (values.empty() || values.back() != deflection.value()) values.push_back(deflection.value());
        return !animating;
      },
      20000));
  EXPECT_EQ(*std::max_element(values.begin(), values.end()), 551);
  EXPECT_EQ(deflection.value(), 501);
  EXPECT_EQ(DeflectionScale, 100.0F);
  EXPECT_EQ(LabelText("lblDeflectionScale"), "100 mm/mm");
}

TEST_F(ScalesFormTest, BeatsEveryTenthOfASecond) {
  const auto* timer = frame->findChild<QTimer*>("Timer1");
  ASSERT_NE(timer, nullptr);
  EXPECT_TRUE(timer->isActive());
  EXPECT_EQ(timer->interval(), 100);
}

TEST_F(ScalesFormTest, IsNotDisturbedByTypingMeanwhile) {
  Analyse();
  Find<QPushButton>("animateBtn").click();
  ClickCell(View("GrJoints"), 3, 4);
  Type("-5");
  QTest::qWait(300);
  EXPECT_EQ(Find<QLineEdit>("grTxtBox").text(), "-5");
  Press(Qt::Key_Return);
  EXPECT_EQ(GrJoints.Text(3, 4), "-5");
  EXPECT_EQ(AnalysisDone, FlagFalse);
  QTest::qWait(300);
  EXPECT_FALSE(ShowDeflectedShape);
}

} // namespace
} // namespace strutwright
