// What the keyboard reaches and moves: the view, the drawing modes, and every control by Tab.

#include "FormFixture.h"

#include "DisplayState.h"
#include "frmEquations.h"

#include <set>

#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

namespace strutwright {
namespace {

class KeyboardFormTest : public FormTest {
 protected:
  QWidget& Area() { return Find<QWidget>("Disp"); }
  static ViewWindow Window() { return DisplaySurface->Window(); }

  void ClickIntoDisplay() { QTest::mouseClick(&Area(), Qt::LeftButton, {}, Area().rect().center()); }

  /// The names of what has the keyboard, from one control on, until it comes round.
  std::set<QString> Round(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    std::set<QString> names;
    const QWidget* first = &Focused();
    for (int press = 0; press < 100; ++press) {
      QTest::keyClick(&Focused(), key, modifiers);
      names.insert(Focused().objectName());
      if (&Focused() == first) return names;
    }
    ADD_FAILURE() << first->objectName().toStdString() << " is not reached again";
    return names;
  }
};

TEST_F(KeyboardFormTest, MovesTheViewByArrowsWhenTheDisplayHasTheFocus) {
  ClickIntoDisplay();
  const ViewWindow before = Window();
  Press(Qt::Key_Right);
  Press(Qt::Key_Up);
  EXPECT_FLOAT_EQ(Window().left, before.left + before.width / 10);
  EXPECT_FLOAT_EQ(Window().top, before.top - before.height / 10);
  EXPECT_EQ(Window().width, before.width);
  Press(Qt::Key_Left);
  Press(Qt::Key_Down);
  EXPECT_NEAR(Window().left, before.left, 1e-5F);
  EXPECT_NEAR(Window().top, before.top, 1e-5F);
}

TEST_F(KeyboardFormTest, ZoomsByPlusAndMinusWhenTheDisplayHasTheFocus) {
  ClickIntoDisplay();
  const ViewWindow before = Window();
  Press(Qt::Key_Plus);
  EXPECT_FLOAT_EQ(Window().width, before.width / 1.25F);
  EXPECT_NEAR(Window().left + Window().width / 2, before.left + before.width / 2, 1e-5F);
  Press(Qt::Key_Minus);
  Press(Qt::Key_Minus, Qt::KeypadModifier);
  EXPECT_FLOAT_EQ(Window().height, before.height * 1.25F);
  Press(Qt::Key_Equal);
  EXPECT_FLOAT_EQ(Window().height, before.height);
}

TEST_F(KeyboardFormTest, DrawsWhatItHasMovedTo) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  Command("mnuZoomExtents").trigger();
  ClickIntoDisplay();
  EXPECT_GT(Ink(Qt::red), 20);
  for (int press = 0; press < 12; ++press) Press(Qt::Key_Right);
  EXPECT_EQ(Ink(Qt::red), 0);
}

TEST_F(KeyboardFormTest, LeavesTheViewAloneOtherwise) {
  const ViewWindow before = Window();
  ClickIntoDisplay();
  Press(Qt::Key_Right, Qt::ControlModifier);
  Press(Qt::Key_Plus, Qt::AltModifier);
  Press(Qt::Key_A);
  ClickCell(View("GrJoints"), 1, 1);
  Press(Qt::Key_Right);
  EXPECT_EQ(Window(), before);
}

TEST_F(KeyboardFormTest, FramesTheDisplayWhileItHasTheFocus) {
  const auto edge = [this] { return Area().grab().toImage().pixelColor(0, Area().height() / 2); };
  ClickCell(View("GrJoints"), 1, 1);
  EXPECT_NE(edge(), Area().palette().color(QPalette::Highlight));
  ClickIntoDisplay();
  EXPECT_EQ(edge(), Area().palette().color(QPalette::Highlight));
}

TEST_F(KeyboardFormTest, ChoosesTheDrawingModesFromWhereverTheFocusIs) {
  for (const char* start : {"Disp", "grK", "GrJoints"}) {
    Find<QWidget>(start).setFocus();
    Press(Qt::Key_F7);
    EXPECT_EQ(LabelText("stsBar_MouseMode"), "Draw Node") << start;
    Press(Qt::Key_F8);
    EXPECT_EQ(LabelText("stsBar_MouseMode"), "Draw Member") << start;
    Press(Qt::Key_Escape);
    EXPECT_EQ(LabelText("stsBar_MouseMode"), "Mouse Mode") << start;
  }
}

TEST_F(KeyboardFormTest, ReachesEveryPartOfTheFrameByTabFromAnyOther) {
  const std::set<QString> parts{"Disp", "btnAddMember", "grK", "grForce", "GrJoints", "nLineBtn", "eTxt", "DBbtn"};
  for (const QString& start : parts) {
    Find<QWidget>(start).setFocus();
    const std::set<QString> forward = Round(Qt::Key_Tab, {});
    Find<QWidget>(start).setFocus();
    const std::set<QString> back = Round(Qt::Key_Backtab, Qt::ShiftModifier);
    for (const QString& part : parts) {
      EXPECT_TRUE(forward.contains(part)) << part.toStdString() << " from " << start.toStdString();
      EXPECT_TRUE(back.contains(part)) << part.toStdString() << " back from " << start.toStdString();
    }
  }
}

TEST_F(KeyboardFormTest, StopsOnlyWhereThereIsSomethingToDo) {
  Find<QWidget>("grK").setFocus();
  for (const QString& name : Round(Qt::Key_Tab, {})) {
    EXPECT_NE(name, "");
    EXPECT_NE(name, "MdiArea");
  }
}

TEST_F(KeyboardFormTest, ShowsTheMenusOfTheChildThatTabHasReached) {
  auto& area = Find<QMdiArea>("MdiArea");
  Find<QWidget>("Disp").setFocus();
  EXPECT_EQ(area.activeSubWindow()->widget()->objectName(), "frmGraph");
  Find<QWidget>("DBbtn").setFocus();
  while (Focused().objectName() != "grK") Press(Qt::Key_Tab);
  EXPECT_EQ(area.activeSubWindow()->widget()->objectName(), "frmEquations");
}

} // namespace
} // namespace strutwright
