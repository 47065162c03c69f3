#include "DisplayFormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "InfluencePicture.h"
#include "WorkbenchState.h"
#include "modModelStore.h"
#include "modRunAnalysis.h"

#include <QDialog>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

namespace strutwright {
namespace {

using testing::HasSubstr;

/// A user who draws a bridge, and counts clicks, drags and keys.
class BridgeTask : public DisplayFormTest {
 protected:
  BridgeTask() { TheLive.mostTime = 1e9; } // however slow the machine is

  void Click(double x, double y) {
    ++Events;
    QTest::mouseClick(&Area(), Qt::LeftButton, {}, At(x, y));
  }

  void Drag(double x1, double y1, double x2, double y2) {
    ++Events;
    QTest::mousePress(&Area(), Qt::LeftButton, {}, At(x1, y1));
    const QPoint end = At(x2, y2);
    QMouseEvent move(QEvent::MouseMove, end, Area().mapToGlobal(end), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&Area(), &move);
    QCoreApplication::processEvents();
    QTest::mouseRelease(&Area(), Qt::LeftButton, {}, end);
  }

  void Key(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
    ++Events;
    QTest::keyClick(&Area(), key, keys);
  }

  /// A menu and its entry.
  void Choose(const QString& command) {
    Events += 2;
    Command(command).trigger();
  }

  void Line(double x1, double y1, double x2, double y2) {
    Click(x1, y1);
    Click(x2, y2);
  }

  /// Five more bays: the fields propose one copy, right beside what is copied.
  void RepeatTheBay() {
    QTimer::singleShot(0, frame.get(), [this] {
      auto* asked = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(asked, nullptr);
      auto* count = asked->findChild<QLineEdit*>("countTxt");
      Events += 2; // the number, which takes the place of what is marked, and Enter
      QTest::keyClick(count, Qt::Key_5);
      QTest::keyClick(count, Qt::Key_Return);
    });
    Choose("mnuCopies");
    frame->activateWindow(); // as a window manager does when a dialog closes
    EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
  }

  int Events = 0;
};

TEST_F(BridgeTask, TakesFewerThan60EventsWithoutAGrid) {
  // given: a bay, 1 m wide and high
  Key(Qt::Key_F7);
  for (const int x : {0, 1}) {
    for (const int y : {0, 1}) Click(x, y);
  }
  Key(Qt::Key_F8);
  Line(0, 0, 1, 0);
  Line(0, 1, 1, 1);
  Line(0, 0, 0, 1);
  Line(1, 0, 1, 1);
  Line(0, 1, 1, 0);
  ++Events;
  QTest::mouseClick(&Find<QPushButton>("stsBar_Rigidity"), Qt::LeftButton); // sections from the board

  // when: it becomes a bridge of 6 bays with supports and loads
  Key(Qt::Key_F12);
  Key(Qt::Key_A, Qt::ControlModifier);
  RepeatTheBay();
  Key(Qt::Key_F4);
  Choose("mnuSupportPin");
  Click(0, 0);
  Choose("mnuSupportRollerX");
  Click(6, 0);
  Choose("mnuLoadDown");
  for (int x = 1; x <= 5; ++x) Click(x, 0);
  Key(Qt::Key_L, Qt::ControlModifier);

  // then: it is analysed
  EXPECT_EQ(NodeCount, 14);
  EXPECT_EQ(MemberCount, 5 + 5 * 4);
  ASSERT_EQ(AnalysisDone, FlagTrue);
  const float before = MemberTable(2, MemberFieldForce);

  // when: its upper chord is moved up, the forces following
  Key(Qt::Key_F12);
  Drag(-0.4, 0.6, 6.4, 1.4);
  EXPECT_EQ(TheDisplay.Selected.nodes.size(), 7U);
  Drag(3, 1, 3, 2);

  // then: twice as high the chord bears half as much
  EXPECT_EQ(GrJoints.Text(2, 2), "2");
  EXPECT_NEAR(MemberTable(2, MemberFieldForce), before / 2, 1e-3 * std::abs(before));

  // when: the line of the first diagonal is asked for by a click
  Choose("mnuInfluence");
  auto& picture = static_cast<InfluencePicture&>(Find<QWidget>("influencePic"));
  picture.grab();
  ++Events;
  QTest::mouseClick(&picture, Qt::LeftButton, {}, picture.PixelOf(0.25, 1.5).toPoint());
  EXPECT_EQ(Find<QSpinBox>("numberSpin").value(), 5);
  Events += 2;
  QTest::keyClick(&picture, Qt::Key_Right);
  QTest::keyClick(&picture, Qt::Key_Right);

  // then: a load at the first inner node, of which 5/6 go to the left support, pulls it by 5/6 sqrt(5)/2
  EXPECT_THAT(LabelText("lineLbl"), HasSubstr("x = 1 m: 0.931695 kN per kN"));
  EXPECT_LT(Events, 60);
  std::cout << Events << " events\n";
}

} // namespace
} // namespace strutwright
