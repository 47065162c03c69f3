#include "FormFixture.h"

#include "AnalysisState.h"
#include "LongWork.h"
#include "MainStatusBar.h"
#include "modModelStore.h"

#include <chrono>

#include <QCheckBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

namespace strutwright {
namespace {

/// Long work in the window: what is shown, and what gets through meanwhile.
class ProgressFormTest : public FormTest {
 protected:
  QProgressBar& Bar() { return Find<QProgressBar>("stsBar_Progress"); }
  QPushButton& Cancel() { return Find<QPushButton>("stsBar_Cancel"); }

  /// Does something from within the events that progress lets through.
  void Meanwhile(const std::function<void()>& work) {
    QTimer::singleShot(0, frame.get(), work);
    frame->Status().ShowProgress("Solving the equations", 0.5);
  }
};

TEST_F(ProgressFormTest, ShowsHowFarItIsUntilItEnds) {
  EXPECT_TRUE(Bar().isHidden());
  EXPECT_TRUE(frame->Status().ShowProgress("Solving the equations", 0.25));
  EXPECT_TRUE(Bar().isVisible());
  EXPECT_EQ(Bar().value(), 25);
  EXPECT_EQ(LabelText("stsBar_Hint"), "Solving the equations ...");
  frame->Status().EndProgress();
  EXPECT_TRUE(Bar().isHidden());
  EXPECT_TRUE(Cancel().isHidden());
  EXPECT_EQ(LabelText("stsBar_Hint"), "");
}

TEST_F(ProgressFormTest, StopsOnAClickOnCancelAndBeginsAfreshNextTime) {
  Meanwhile([this] { QTest::mouseClick(&Cancel(), Qt::LeftButton); });
  EXPECT_FALSE(frame->Status().ShowProgress("Solving the equations", 0.6));
  frame->Status().EndProgress();
  EXPECT_TRUE(frame->Status().ShowProgress("Solving the equations", 0.1));
  frame->Status().EndProgress();
}

TEST_F(ProgressFormTest, LetsNoOtherInputThrough) {
  Meanwhile([this] {
    QTest::mouseClick(&Find<QPushButton>("nLineBtn"), Qt::LeftButton);
    QTest::keyClick(&View("GrJoints"), Qt::Key_5);
    for (const Qt::Key key : {Qt::Key_N, Qt::Key_Z}) QTest::keyClick(frame.get(), key, Qt::ControlModifier);
    QTest::keyClick(frame.get(), Qt::Key_F5);
  });
  frame->Status().EndProgress();
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(frame->windowTitle(), "Strutwright");
  EXPECT_FALSE(Find<QLineEdit>("grTxtBox").isVisible());
}

TEST_F(ProgressFormTest, KeepsARequestToCloseUntilAfterwards) {
  Meanwhile([this] { EXPECT_FALSE(frame->close()); });
  EXPECT_FALSE(frame->IsEnding());
  frame->Status().EndProgress();
  QCoreApplication::processEvents();
  EXPECT_TRUE(frame->IsEnding());
}

TEST_F(ProgressFormTest, GivesTheFocusBack) {
  ClickCell(View("GrJoints"), 1, 1);
  frame->Status().ShowProgress("Solving the equations", 0.5);
  frame->Status().EndProgress();
  EXPECT_TRUE(View("GrJoints").hasFocus());
}

TEST_F(ProgressFormTest, EndsCancelledWorkWithoutABox) {
  EnterThreeBarTruss();
  frame->Run([] { throw WorkCancelled(); });
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
}

TEST_F(ProgressFormTest, LeavesNoAnalysisWhereOneIsCancelled) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  ASSERT_TRUE(Find<QCheckBox>("ReactionsChk").isChecked());
  ThePlatform().now = [] {
    static std::chrono::steady_clock::time_point time;
    return time += std::chrono::seconds(2);
  };
  QTimer::singleShot(0, frame.get(), [this] { QTest::mouseClick(&Cancel(), Qt::LeftButton); });

  Press(Qt::Key_F5);

  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
  for (const char* box : {"ReactionsChk", "MbrForcesChk", "DSDchk"}) {
    EXPECT_FALSE(Find<QCheckBox>(box).isChecked()) << box;
  }
  EXPECT_TRUE(Cancel().isHidden());
}

TEST_F(ProgressFormTest, ShowsWhatNobodyCaughtAndGoesOn) {
  frame->Run([] { throw std::runtime_error("no such thing"); });
  EXPECT_THAT(TakeMessages(), testing::ElementsAre(Box(MessageIcon::Critical, "no such thing")));
  EnterThreeBarTruss();
  frame->runAnalysis();
  EXPECT_EQ(LabelText("stsBar_Analysis"), "Analysis Done");
}

TEST_F(ProgressFormTest, KeepsTheFramesPlaceForTheNextStart) {
  frame->resize(1100, 760);
  EXPECT_TRUE(frame->close());
  frmMain next;
  next.RestorePlace();
  EXPECT_EQ(next.size(), QSize(1100, 760));
}

TEST_F(ProgressFormTest, EndsWithoutAWordWhereItsPlaceCanNotBeKept) {
  PutFile(folder.Path("file"), "");
  ThePlatform().dataFolder = folder.Path("file/nowhere");
  EXPECT_TRUE(frame->close());
}

} // namespace
} // namespace strutwright
