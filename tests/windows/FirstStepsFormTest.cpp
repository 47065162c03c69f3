// The first things that a user sees and does: an empty grid, a new model, a small screen.

#include "FormFixture.h"

#include "modModelStore.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QRadioButton>
#include <QScreen>
#include <QToolBar>

namespace strutwright {
namespace {

class FirstStepsFormTest : public FormTest {
 protected:
  /// Leaves the keyboard and the current cells where a user may have been before.
  void BeElsewhere() {
    EnterThreeBarTruss();
    GrJoints.SetCurrentCell(7, 4);
    Find<QRadioButton>("viewOpt_1").click();
    ClickCell(View("GrMembers"), 3, 5);
    Find<QWidget>("grK").setFocus();
  }

  void ExpectFirstNumberInXOfNode1() {
    Type("4");
    Press(Qt::Key_Right);
    Type("3");
    Press(Qt::Key_Return);
    EXPECT_EQ(GrJoints.Text(1, 1), "4");
    EXPECT_EQ(GrJoints.Text(1, 2), "3");
    EXPECT_EQ(NodeCount, 1);
    Find<QRadioButton>("viewOpt_1").click();
    View("GrMembers").setFocus();
    Type("1");
    Press(Qt::Key_Right);
    EXPECT_EQ(GrMembers.Text(1, 1), "1");
  }

  /// What a grid shows below its first two rows.
  QImage BelowFirstRows(const QString& grid) {
    QCoreApplication::processEvents();
    QTableView& view = View(grid);
    const int top = 2 * view.verticalHeader()->defaultSectionSize();
    return view.viewport()->grab(view.viewport()->rect().adjusted(0, top, 0, 0)).toImage();
  }
};

TEST_F(FirstStepsFormTest, TakesTheFirstNumberAfterNewAsXOfNode1) {
  BeElsewhere();
  Command("mnuNew").trigger();
  EXPECT_EQ(GrJoints.RowCount(), 1);
  ExpectFirstNumberInXOfNode1();
}

TEST_F(FirstStepsFormTest, TakesTheFirstNumberAfterNewOfTheToolBarAsXOfNode1) {
  BeElsewhere();
  Find<QToolBar>("Toolbar1").actions().first()->trigger();
  EXPECT_EQ(GrJoints.CurrentRow(), 1);
  EXPECT_EQ(GrJoints.CurrentColumn(), 1);
  EXPECT_EQ(GrMembers.CurrentRow(), 1);
  EXPECT_EQ(GrMembers.CurrentColumn(), 1);
  ExpectFirstNumberInXOfNode1();
}

TEST_F(FirstStepsFormTest, SaysInAnEmptyGridWhatToDoFirst) {
  const QImage hint = BelowFirstRows("GrJoints");
  ClickCell(View("GrJoints"), 1, 1);
  Type("0");
  Press(Qt::Key_Right);
  const QImage plain = BelowFirstRows("GrJoints");
  EXPECT_NE(hint, plain);
  Command("mnuUndo").trigger();
  EXPECT_EQ(BelowFirstRows("GrJoints"), hint);
}

TEST_F(FirstStepsFormTest, EntersNodesForWhoDoesWhatTheGridSays) {
  ClickCell(View("GrJoints"), 1, 1);
  Type("0");
  Press(Qt::Key_Right);
  Type("5");
  Press(Qt::Key_Return);
  Press(Qt::Key_Left);
  Type("7");
  Press(Qt::Key_Right);
  Type("8");
  Press(Qt::Key_Return);
  EXPECT_EQ(GrJoints.Text(1, 1) + " " + GrJoints.Text(1, 2), "0 5");
  EXPECT_EQ(GrJoints.Text(2, 1) + " " + GrJoints.Text(2, 2), "7 8");
}

TEST_F(FirstStepsFormTest, SaysInAGridWithoutRowsWhatToDoFirst) {
  Command("mnuNew").trigger();
  const auto hasInk = [this](const QString& grid) {
    const QImage picture = BelowFirstRows(grid);
    const QColor base = View(grid).palette().color(QPalette::Base);
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixelColor(x, y) != base) return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(hasInk("GrJoints"));
  Find<QRadioButton>("viewOpt_1").click();
  EXPECT_TRUE(hasInk("GrMembers"));
}

TEST_F(FirstStepsFormTest, CutsNothingOffOnAScreenOf1024By768) {
  const QSize room(1016, 728); // within the frame and below the title that a desktop adds
  EXPECT_LE(frame->minimumSizeHint().width(), room.width());
  EXPECT_LE(frame->minimumSizeHint().height(), room.height());
  frame->resize(room);
  QTest::qWait(1);
  int seen = 0;
  for (const char* part : {"CBpic", "frmEquations"}) {
    const QWidget& whole = Find<QWidget>(part);
    for (const QWidget* each : whole.findChildren<QWidget*>()) {
      const auto* button = qobject_cast<const QAbstractButton*>(each);
      const auto* label = qobject_cast<const QLabel*>(each);
      if (!each->isVisible() || each->objectName().isEmpty() || (button == nullptr && label == nullptr)) continue;
      ++seen;
      EXPECT_TRUE(each->visibleRegion().boundingRect().contains(each->rect())) << each->objectName().toStdString();
      const int needed = button == nullptr ? 0 : button->fontMetrics().horizontalAdvance(button->text().remove('&'));
      EXPECT_GE(each->width(), needed) << each->objectName().toStdString();
    }
  }
  EXPECT_GT(seen, 25);
  for (const QMdiSubWindow* child : frame->findChildren<QMdiSubWindow*>()) {
    EXPECT_TRUE(child->parentWidget()->rect().contains(child->geometry()));
  }
}

TEST_F(FirstStepsFormTest, OpensNoLargerThanItsScreen) {
  const frmMain fresh;
  EXPECT_LE(fresh.width(), fresh.screen()->availableSize().width());
  EXPECT_LE(fresh.height(), fresh.screen()->availableSize().height());
}

} // namespace
} // namespace strutwright
