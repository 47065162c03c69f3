#include "DisplayFormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "Pattern.h"
#include "Platform.h"
#include "modModelStore.h"
#include "modPlaces.h"

#include <filesystem>
#include <functional>

#include <QMenu>
#include <QTimer>
#include <QWheelEvent>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class MouseFormTest : public DisplayFormTest {
 protected:
  void Click(double x, double y, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseMove(&Area(), At(x, y));
    QTest::mouseClick(&Area(), button, {}, At(x, y));
  }

  void Drag(double x1, double y1, double x2, double y2) {
    QTest::mousePress(&Area(), Qt::LeftButton, {}, At(x1, y1));
    // QTest::mouseMove reports no button as held.
    QMouseEvent move(QEvent::MouseMove, At(x2, y2), Area().mapToGlobal(At(x2, y2)), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&Area(), &move);
    QTest::mouseRelease(&Area(), Qt::LeftButton, {}, At(x2, y2));
  }
};

TEST_F(MouseFormTest, ShowsWhereTheMouseIsWithYUpwards) {
  QTest::mouseMove(&Area(), At(2, 1.5));
  EXPECT_THAT(LabelText("stsBar_Coords"), MatchesPattern("x: (1.99|2.0[01])   y: (1.49|1.5[01])"));
}

TEST_F(MouseFormTest, DrawsNodesAtGridPointsOnly) {
  Command("mnuDrawNodes").trigger();
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Draw Node");
  Click(2, 1);
  Click(3.05, 1.95);
  Click(4.5, 1.5);
  EXPECT_EQ(NodeCount, 2);
  EXPECT_EQ(GrJoints.Text(1, 1), "2");
  EXPECT_EQ(GrJoints.Text(2, 1), "3");
  EXPECT_EQ(GrJoints.Text(2, 2), "2");
}

TEST_F(MouseFormTest, DrawsAMemberWithTwoClicks) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  Command("mnuDrawMembers").trigger();
  Click(0, 0);
  Click(2, 2);
  EXPECT_EQ(MemberCount, 4);
  EXPECT_EQ(GrMembers.Text(4, 1), "1");
  EXPECT_EQ(GrMembers.Text(4, 2), "3");
  EXPECT_THAT(LabelText("stsBar_Hint"), HasSubstr("parallel to member 1"));
}

TEST_F(MouseFormTest, OffersToAddANodeWhereAMemberShallEnd) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  Command("mnuDrawMembers").trigger();
  Click(0, 0);
  messages.WillAnswer(true);
  Click(6, 3);
  const auto boxes = TakeMessages();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_THAT(boxes[0].text, testing::AllOf(testing::StartsWith("Node not found: \nx: "),
                                            testing::EndsWith("\nDo you want to add this node?")));
  EXPECT_EQ(NodeCount, 4);
  EXPECT_EQ(MemberCount, 4);
  EXPECT_EQ(GrMembers.Text(4, 2), "4");
}

TEST_F(MouseFormTest, CountsNoPickWhereTheOfferIsDeclined) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  Command("mnuDrawMembers").trigger();
  messages.WillAnswer(false);
  Click(6, 3);
  TakeMessages();
  Click(0, 0);
  Click(4, 0);
  EXPECT_EQ(MemberCount, 4);
}

TEST_F(MouseFormTest, DeletesANodeBeforeAMemberAtTheSameSpot) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  Command("mnuDelete").trigger();
  messages.WillAnswer(true);
  Click(2, 2);
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Question,
                                              "Are you sure you want to delete node 3 and all connecting members?")));
  EXPECT_EQ(NodeCount, 2);
  EXPECT_EQ(MemberCount, 1);
}

TEST_F(MouseFormTest, DeletesAMemberAndSaysWhereNoneIs) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  Command("mnuDelete").trigger();
  messages.WillAnswer(true);
  Click(1, 1);
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(MemberCount, 2);
  Click(8, 4);
  const auto boxes = TakeMessages();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].icon, MessageIcon::Information);
  EXPECT_THAT(boxes[0].text, testing::StartsWith("Member not found: \nx: "));
}

TEST_F(MouseFormTest, EndsTheAnalysisWhenANodeIsDrawn) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  ASSERT_EQ(AnalysisDone, FlagTrue);
  Command("mnuDrawNodes").trigger();
  Click(6, 3);
  EXPECT_EQ(AnalysisDone, FlagFalse);
}

TEST_F(MouseFormTest, PansSoThatThePointStaysUnderTheMouse) {
  Command("mnuPan").trigger();
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Pan Mode");
  QTest::mouseMove(&Area(), At(2, 1));
  EXPECT_EQ(Area().cursor().shape(), Qt::OpenHandCursor);
  const ViewWindow before = DisplaySurface->Window();
  Drag(2, 1, 3, 2);
  EXPECT_NEAR(DisplaySurface->Window().left, before.left - 1, 0.03);
  EXPECT_NEAR(DisplaySurface->Window().top, before.top + 1, 0.03);
  EXPECT_FLOAT_EQ(DisplaySurface->Window().width, before.width);
}

TEST_F(MouseFormTest, ZoomsToARectangleAndResumesTheMode) {
  Command("mnuDrawNodes").trigger();
  Command("mnuZW").trigger();
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Zoom Mode");
  const ViewWindow before = DisplaySurface->Window();
  Drag(1, 1, 3, 2);
  EXPECT_LT(DisplaySurface->Window().width, before.width);
  EXPECT_NEAR(DisplaySurface->Window().left + DisplaySurface->Window().width / 2, 2, 0.05);
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Draw Node");
  EXPECT_EQ(NodeCount, 0);
}

TEST_F(MouseFormTest, ErasesItsRubberBandsWithoutATrace) {
  Command("mnuZW").trigger();
  const QImage before = Area().Surface().Image().copy();
  QTest::mousePress(&Area(), Qt::LeftButton, {}, At(1, 1));
  QMouseEvent move(QEvent::MouseMove, At(3, 2), Area().mapToGlobal(At(3, 2)), Qt::NoButton, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&Area(), &move);
  EXPECT_NE(Area().Surface().Image(), before);
  QTest::mouseRelease(&Area(), Qt::LeftButton, {}, At(1, 1));
  EXPECT_EQ(Area().Surface().Image(), before);
}

TEST_F(MouseFormTest, OpensTheInspectorOfWhatIsPicked) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  const auto titleOfNextDialog = [this](const QPoint& place) {
    QString title;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&title] {
      if (QWidget* inspector = QApplication::activeModalWidget()) {
        title = inspector->windowTitle();
        inspector->close();
      }
    });
    watch.start(1);
    QTest::mouseClick(&Area(), Qt::LeftButton, {}, place);
    return title;
  };
  Command("mnuSelNode").trigger();
  EXPECT_EQ(titleOfNextDialog(At(4, 0)), "Node Details");
  Command("mnuSelMember").trigger();
  EXPECT_EQ(titleOfNextDialog(At(1, 1)), "Member Details");
}

TEST_F(MouseFormTest, LeavesTheModeOnEscape) {
  Command("mnuDelete").trigger();
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Delete Mode");
  QTest::keyClick(frame.get(), Qt::Key_Escape);
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Mouse Mode");
}

TEST_F(MouseFormTest, ClearsTheModeWhenThePopUpClosesWithoutAChoice) {
  Command("mnuDrawMembers").trigger();
  InPopUp([](QMenu& menu) { EXPECT_TRUE(menu.isVisible()); });
  Click(1, 1, Qt::RightButton);
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Mouse Mode");
}

TEST_F(MouseFormTest, KeepsTheModeThatIsChosenInThePopUp) {
  InPopUp([this](QMenu&) { Command("mnuSelNode").trigger(); });
  Click(1, 1, Qt::RightButton);
  EXPECT_EQ(LabelText("stsBar_MouseMode"), "Select Node");
}

TEST_F(MouseFormTest, ZoomsAboutTheMouseWithTheWheel) {
  const QPointF place = At(2, 1);
  const QPointF before = Area().Surface().ToSurface(place);
  const float width = DisplaySurface->Window().width;
  QWheelEvent turn(place, Area().mapToGlobal(place), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&Area(), &turn);
  EXPECT_NEAR(DisplaySurface->Window().width, width / 1.25, 1e-3);
  EXPECT_NEAR(Area().Surface().ToSurface(place).x(), before.x(), 1e-3);
  EXPECT_NEAR(Area().Surface().ToSurface(place).y(), before.y(), 1e-3);
}

TEST_F(MouseFormTest, TakesAPendingEditBeforeAClick) {
  ClickCell(View("GrJoints"), 1, 1);
  Type("3");
  Command("mnuDrawNodes").trigger();
  Click(5, 1);
  EXPECT_EQ(GrJoints.Text(1, 1), "3");
  EXPECT_EQ(GrJoints.Text(2, 1), "5");
}

TEST_F(MouseFormTest, SaysThatThereIsNoResultsReport) {
  Command("mnuResults").trigger();
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "No results report available yet")));
}

TEST_F(MouseFormTest, LaunchesTheCompanionProgramInTheProgramsFolder) {
  Command("mnuGenerator").trigger();
  constexpr char separator = static_cast<char>(std::filesystem::path::preferred_separator);
  EXPECT_THAT(shell.opened, ElementsAre(CompanionProgram(ProgramFolder(), separator)));
}

TEST_F(MouseFormTest, DoesNothingOnHelp) {
  EXPECT_EQ(Command("mnuSWHelp").text(), "&Strutwright Help");
  const std::string mode = LabelText("stsBar_MouseMode");
  Command("mnuSWHelp").trigger();
  EXPECT_TRUE(shell.opened.empty());
  EXPECT_EQ(NodeCount, 0);
  EXPECT_EQ(LabelText("stsBar_MouseMode"), mode);
}

} // namespace
} // namespace strutwright
