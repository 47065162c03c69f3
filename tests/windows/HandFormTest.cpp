#include "DisplayFormFixture.h"

#include "Pattern.h"
#include "PictureArea.h"
#include "frmHand.h"
#include "modModelStore.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTabBar>
#include <QTimer>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class HandFormTest : public DisplayFormTest {
 protected:
  /// A truss of two rafters and a tie, 4 m wide, its top node 2 m up.
  void Open() {
    EnterThreeBarTruss();
    Command("mnuHand").trigger();
    Window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    Picture().grab(); // draws it
  }

  frmHand& Window() { return *static_cast<frmHand*>(&Find<QDialog>("frmHand")); }
  PictureArea& Picture() { return static_cast<PictureArea&>(Find<QWidget>("handPic")); }
  std::string Told() { return Find<QPlainTextEdit>("toldTxt").toPlainText().toStdString(); }
  std::string Line() { return LabelText("lineLbl"); }
  std::string Steps() { return LabelText("stepLbl"); }
  using DisplayFormTest::At;
  QPoint At(int figure, double x, double y) { return Picture().PixelOf(figure, x, y).toPoint(); }
  void Click(const QString& button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }

  /// With the keys of the row of tabs.
  void Choose(HandTopic topic) {
    auto& tabs = Find<QTabBar>("topicTab");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(static_cast<int>(topic)).center());
  }

  void Drag(QPoint from, QPoint to) {
    QTest::mousePress(&Picture(), Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, Picture().mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&Picture(), &move);
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, to);
  }

  void Point(QPoint at) {
    QMouseEvent move(QEvent::MouseMove, at, Picture().mapToGlobal(at), Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(&Picture(), &move);
  }
};

TEST_F(HandFormTest, OpensNoLargerThanItsScreen) {
  Open();
  const QSize room = Window().screen()->availableSize();
  EXPECT_LT(Window().width(), room.width());
  EXPECT_LT(Window().height(), room.height());
}

TEST_F(HandFormTest, BeginsWithTheReactions) {
  Open();
  EXPECT_THAT(Told(), StartsWith("Reactions\n\nb + r = 3 + 3 = 6 = 2n: determinate, a simple truss"));
  EXPECT_EQ(Steps(), "0 / 3");
  EXPECT_FALSE(Find<QPushButton>("btnBack").isEnabled());
  Click("btnNext");
  EXPECT_EQ(Steps(), "1 / 3");
  Click("btnLast");
  EXPECT_THAT(Told(), HasSubstr("R1y = 5 kN"));
  EXPECT_FALSE(Find<QPushButton>("btnNext").isEnabled());
  Click("btnBack");
  Click("btnFirst");
  EXPECT_EQ(Steps(), "0 / 3");
}

TEST_F(HandFormTest, WalksThroughALessonWithTheKeys) {
  Open();
  Choose(HandTopic::Joints);
  Picture().setFocus();
  const std::string start = Told();
  QTest::keyClick(&Picture(), Qt::Key_Right);
  EXPECT_THAT(Told(), StartsWith("Step 1 of 3: joint 1"));
  EXPECT_THAT(Told(), HasSubstr("(compression)"));
  QTest::keyClick(&Picture(), Qt::Key_Right);
  EXPECT_THAT(Told(), StartsWith("Step 2 of 3: joint 2"));
  QTest::keyClick(&Picture(), Qt::Key_Left);
  EXPECT_THAT(Told(), StartsWith("Step 1 of 3"));
  QTest::keyClick(&Picture(), Qt::Key_End);
  EXPECT_THAT(Told(), StartsWith("All forces are known"));
  QTest::keyClick(&Picture(), Qt::Key_Home);
  EXPECT_EQ(Told(), start);
}

TEST_F(HandFormTest, ShowsTheJointOfANodeThatIsClicked) {
  Open();
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, At(0, 2, 2));
  EXPECT_EQ(Find<QTabBar>("topicTab").currentIndex(), static_cast<int>(HandTopic::Joints));
  EXPECT_THAT(Told(), StartsWith("Joint 3\n"));
  EXPECT_EQ(Find<QSpinBox>("jointSpin").value(), 3);
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, At(0, 2, 1)); // between the nodes
  EXPECT_THAT(Told(), StartsWith("Joint 3\n"));
}

TEST_F(HandFormTest, TakesTheNextJointByNAndByNumber) {
  Open();
  Choose(HandTopic::Joints);
  Picture().setFocus();
  QTest::keyClick(&Picture(), Qt::Key_N);
  EXPECT_THAT(Told(), StartsWith("Joint 1\n"));
  QTest::keyClick(&Picture(), Qt::Key_N, Qt::ShiftModifier);
  EXPECT_THAT(Told(), StartsWith("Joint 3\n"));
  QTest::keyClick(&Picture(), Qt::Key_N);
  EXPECT_THAT(Told(), StartsWith("Joint 1\n"));
  auto& spin = Find<QSpinBox>("jointSpin");
  spin.setFocus();
  QTest::keyClick(&spin, Qt::Key_Up);
  EXPECT_THAT(Told(), StartsWith("Joint 2\n"));
  QTest::keyClick(&Picture(), Qt::Key_Right); // back to the order
  EXPECT_THAT(Told(), StartsWith("Step 1 of 3"));
  EXPECT_EQ(spin.text(), "by order");
}

TEST_F(HandFormTest, ChecksAJointWithTheComputedForces) {
  Open();
  Choose(HandTopic::Joints);
  EXPECT_FALSE(Find<QCheckBox>("computedChk").isEnabled());
  Command("mnuAnalyse").trigger();
  ASSERT_TRUE(Find<QCheckBox>("computedChk").isEnabled());
  QTest::mouseClick(&Find<QCheckBox>("computedChk"), Qt::LeftButton, {}, {8, 8});
  QTest::keyClick(&Picture(), Qt::Key_N);
  EXPECT_THAT(Told(), HasSubstr("The computed forces"));
}

TEST_F(HandFormTest, ShowsWhatAnAnalysisAddsAtOnce) {
  Open();
  Choose(HandTopic::Joints);
  Click("btnLast");
  EXPECT_THAT(Told(), HasSubstr("Run the analysis (F5)"));
  Window().activateWindow();
  QTest::keyClick(&Window(), Qt::Key_F5);
  EXPECT_THAT(Told(), HasSubstr("Joints by hand and stiffness agree to"));
  QTest::mouseClick(&Find<QCheckBox>("computedChk"), Qt::LeftButton, {}, {8, 8});
  EXPECT_THAT(Told(), StartsWith("By hand and computed"));
  Click("btnBack");
  EXPECT_THAT(Told(), StartsWith("Joint 3\n"));
  EXPECT_THAT(Told(), HasSubstr("The computed forces"));
  GrJoints.SetText(3, 4, "-20"); // ends the results
  Command("mnuRefresh").trigger();
  EXPECT_THAT(Told(), StartsWith("Step 3 of 3: joint 3"));
}

TEST_F(HandFormTest, KeepsTheChosenJointWhileAnotherPageIsStepped) {
  Open();
  Choose(HandTopic::Joints);
  QTest::keyClick(&Picture(), Qt::Key_N);
  Choose(HandTopic::ForceDiagram);
  Click("btnNext");
  Choose(HandTopic::Joints);
  EXPECT_THAT(Told(), StartsWith("Joint 1\n"));
  Click("btnNext"); // on its own page a step goes back to the order
  EXPECT_THAT(Told(), StartsWith("Step 1 of 3"));
}

TEST_F(HandFormTest, PrintsThePage) {
  Open();
  Click("btnPrint");
  QTest::keyClick(&Find<QPushButton>("btnPrint"), Qt::Key_Space);
  EXPECT_THAT(paper.printed, testing::ElementsAre("Hand Methods - Untitled", "Hand Methods - Untitled"));
  paper.printFailure = "no paper";
  Click("btnPrint");
  const std::vector<Message> boxes = TakeMessages();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].text, "The page could not be printed\nno paper");
}

TEST_F(HandFormTest, OpensOnTheJointOfANodeByItsMenu) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  InPopUp([](QMenu& menu) {
    for (QAction* each : menu.actions()) {
      if (each->objectName() == "mnuNodeHand") each->trigger();
    }
  });
  QTest::mouseClick(&Area(), Qt::RightButton, {}, At(2, 2));
  EXPECT_EQ(Window().windowTitle(), "Hand Methods");
  EXPECT_THAT(Told(), StartsWith("Joint 3\n"));
}

TEST_F(HandFormTest, CutsWhereALineIsDragged) {
  Open();
  Choose(HandTopic::Sections);
  Drag(At(0, 1, 2.5), At(0, 1, -0.5));
  EXPECT_THAT(Told(), StartsWith("Section through members 1 and 3"));
  EXPECT_THAT(Find<QLineEdit>("strokeX0Txt").text().toStdString(), MatchesPattern("(1|0[.]99.*|1[.]00.*)"));
  Drag(At(0, 1, 1), At(0, 1, 1) + QPoint(2, 2)); // too short for a line
  EXPECT_THAT(Told(), StartsWith("Section through members 1 and 3"));
}

TEST_F(HandFormTest, CutsAlongATypedLine) {
  Open();
  Choose(HandTopic::Sections);
  const auto type = [this](const QString& field, const QString& text) {
    Find<QLineEdit>(field).setFocus();
    Find<QLineEdit>(field).selectAll();
    QTest::keyClicks(&Find<QLineEdit>(field), text);
  };
  type("strokeX0Txt", "3");
  type("strokeY0Txt", "4");
  type("strokeX1Txt", "three");
  Click("btnCut");
  EXPECT_EQ(Line(), "Type the line's ends as four numbers in m, such as 4.5, 5 and 4.5, -1.");
  type("strokeX1Txt", "3");
  type("strokeY1Txt", "-1");
  QTest::keyClick(&Find<QLineEdit>("strokeY1Txt"), Qt::Key_Return);
  EXPECT_THAT(Told(), StartsWith("Section through members 2 and 3"));
  Click("btnPropose");
  EXPECT_THAT(Told(), StartsWith("Section through members 1 and 3"));
}

TEST_F(HandFormTest, LightsALineOfTheForceDiagram) {
  Open();
  Choose(HandTopic::ForceDiagram);
  Click("btnLast");
  const QImage before = Picture().grab().toImage();
  Point(At(0, 1, 1)); // on a rafter of the form diagram
  EXPECT_THAT(Line(), HasSubstr("member 1, F1 = -7.0711 kN (compression)"));
  EXPECT_NE(Picture().grab().toImage(), before);
  Point({2, 2});
  EXPECT_THAT(Line(), StartsWith("Point at a line"));
  Picture().setFocus();
  QTest::keyClick(&Picture(), Qt::Key_Down);
  EXPECT_THAT(Line(), HasSubstr(" at node "));
  const std::string first = Line();
  QTest::keyClick(&Picture(), Qt::Key_Up);
  EXPECT_THAT(Line(), HasSubstr("member "));
  QTest::keyClick(&Picture(), Qt::Key_Down);
  EXPECT_EQ(Line(), first);
}

TEST_F(HandFormTest, PlaysToTheEndAndStops) {
  Open();
  Choose(HandTopic::ForceDiagram);
  auto& timer = Find<QTimer>("playTimer");
  Click("btnPlay");
  EXPECT_TRUE(timer.isActive());
  for (int k = 0; k < 6; ++k) QMetaObject::invokeMethod(&timer, "timeout");
  EXPECT_EQ(Steps(), "6 / 6");
  EXPECT_FALSE(timer.isActive());
  EXPECT_FALSE(Find<QPushButton>("btnPlay").isChecked());
}

TEST_F(HandFormTest, FollowsTheModel) {
  Open();
  GrJoints.SetText(3, 4, "-20");
  Command("mnuRefresh").trigger();
  Click("btnLast");
  EXPECT_THAT(Told(), HasSubstr("R1y = 10 kN"));
  GrJoints.SetText(1, 5, "0");
  Command("mnuRefresh").trigger();
  EXPECT_THAT(Told(), StartsWith("Nothing can be found by hand"));
  EXPECT_EQ(Steps(), "0 / 0");
}

TEST_F(HandFormTest, TakesAnEmptyModel) {
  Command("mnuHand").trigger();
  EXPECT_THAT(Told(), HasSubstr("The model has no nodes: enter a truss first."));
  for (int topic = 0; topic < HandTopicCount; ++topic) {
    Choose(static_cast<HandTopic>(topic));
    Picture().grab();
    QTest::keyClick(&Picture(), Qt::Key_N);
    QTest::keyClick(&Picture(), Qt::Key_Right);
  }
}

TEST_F(HandFormTest, CopiesPictureAndText) {
  Open();
  Click("btnCopyPicture");
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), Picture().size() * Picture().devicePixelRatioF());
  Click("btnCopyText");
  EXPECT_EQ(clipboard.text, Told());
}

TEST_F(HandFormTest, SavesThePictureAsItsNameSays) {
  Open();
  for (const std::string ending : {"png", "svg", "tex"}) {
    dialog.WillChoose(folder.Path("joint." + ending));
    Click("btnSavePicture");
    EXPECT_TRUE(std::filesystem::exists(folder.Path("joint." + ending))) << ending;
  }
}

TEST_F(HandFormTest, SavesTheWholeSolutionInEachFormat) {
  Open();
  for (const std::string ending : {"pdf", "html", "tex"}) {
    dialog.WillChoose(folder.Path("solution." + ending));
    Click("btnWorked");
    EXPECT_TRUE(std::filesystem::exists(folder.Path("solution." + ending))) << ending;
  }
  GrJoints.SetText(2, 5, "3");
  Command("mnuRefresh").trigger();
  EXPECT_FALSE(Find<QPushButton>("btnWorked").isEnabled()); // indeterminate now
}

TEST_F(HandFormTest, HasRoomForEveryControlIn960Pixels) {
  Open();
  EXPECT_LE(Window().width(), 960);
  for (int topic = 0; topic < HandTopicCount; ++topic) {
    Choose(static_cast<HandTopic>(topic));
    EXPECT_LE(Window().minimumSizeHint().width(), 940) << topic;
    for (const auto* button : Window().findChildren<QPushButton*>()) {
      if (!button->isVisible()) continue;
      EXPECT_GT(button->width(), button->fontMetrics().horizontalAdvance(button->text().remove('&')))
          << button->objectName().toStdString();
      EXPECT_LE(button->mapTo(&Window(), QPoint(button->width(), 0)).x(), 960);
    }
  }
}

TEST_F(HandFormTest, OfTheCheckSaysHowFarBothAgree) {
  Open();
  Command("mnuAnalyse").trigger();
  Command("mnuCheck").trigger();
  EXPECT_THAT(LabelText("byHandLbl"),
              MatchesPattern("Joints by hand and stiffness agree to [67] digits of the largest force."));
}

} // namespace
} // namespace strutwright
