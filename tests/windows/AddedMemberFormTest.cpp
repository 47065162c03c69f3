// The highlight of the member that the stiffness equations have just added.

#include "FormFixture.h"
#include "modModelStore.h"

#include <functional>

#include <QColor>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>

namespace strutwright {
namespace {

class AddedMemberFormTest : public FormTest {
 protected:
  AddedMemberFormTest() {
    EnterThreeBarTruss();
    frame->Redraw(true);
  }

  void Click(const QString& button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }

  static bool HasOrange(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixelColor(x, y) == QColor(255, 140, 0)) return true;
      }
    }
    return false;
  }

  bool IsHighlighted() { return HasOrange(Find<QWidget>("Disp").grab().toImage()); }
};

TEST_F(AddedMemberFormTest, IsOrangeAfterTheStepsThatLeaveTheMatrixItsSum) {
  for (int member = 1; member <= 3; ++member) Click("btnAddMember");
  for (const char* step : {"btnShowForces", "btnRestrict", "btnSolve"}) {
    Click(step);
    EXPECT_TRUE(IsHighlighted()) << step;
  }
}

TEST_F(AddedMemberFormTest, IsOrangeNoMoreWhenKIsClearedOrMadeWhole) {
  for (int member = 1; member <= 3; ++member) Click("btnAddMember");
  EXPECT_TRUE(IsHighlighted());
  Click("btnAddMember"); // Clear K
  EXPECT_FALSE(IsHighlighted());
  Click("btnAddMember");
  EXPECT_TRUE(IsHighlighted());
  Click("btnShowGlobalK");
  EXPECT_FALSE(IsHighlighted());
}

TEST_F(AddedMemberFormTest, IsOrangeNoMoreWhenTheAnalysisRuns) {
  Click("btnAddMember");
  Press(Qt::Key_F5);
  EXPECT_FALSE(IsHighlighted());
  Click("btnRestrict");
  EXPECT_FALSE(IsHighlighted()) << "a later step brings it back";
}

TEST_F(AddedMemberFormTest, IsOrangeNoMoreWhenTheModelChanges) {
  const auto changeCell = [this] {
    ClickCell(View("GrJoints"), 3, 4);
    Type("-20");
    Press(Qt::Key_Return);
  };
  const auto applyList = [this] {
    Find<QLineEdit>("memTxt").setText("1-3");
    Find<QLineEdit>("aTxt").setText("500");
    Click("EABtn");
  };
  const auto undo = [this] { Press(Qt::Key_Z, Qt::ControlModifier); };
  const auto paste = [this] {
    clipboard.text = "0\t1\n";
    ClickCell(View("GrJoints"), 1, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
  };
  for (const std::function<void()>& change : {std::function<void()>(changeCell), std::function<void()>(applyList),
                                              std::function<void()>(undo), std::function<void()>(paste)}) {
    Click("btnShowGlobalK");
    Click("btnAddMember");
    ASSERT_TRUE(IsHighlighted());
    change();
    EXPECT_FALSE(IsHighlighted());
  }
}

TEST_F(AddedMemberFormTest, IsOrangeWhenTheCheckIsClosed) {
  Click("btnAddMember");
  frame->ShowCheck();
  frame->ShowParts({1}, {});
  Find<QWidget>("frmCheck").close();
  EXPECT_TRUE(IsHighlighted());
}

TEST_F(AddedMemberFormTest, IsNeverOrangeInASavedPicture) {
  Click("btnAddMember");
  dialog.WillChoose(folder.Path("truss.png"));
  Command("mnuSavePic").trigger();
  const QImage picture(QString::fromStdString(folder.Path("truss.png")));
  ASSERT_FALSE(picture.isNull());
  EXPECT_FALSE(HasOrange(picture));
  EXPECT_TRUE(IsHighlighted()) << "on screen it stays";
}

TEST_F(AddedMemberFormTest, StaysOrangeWhenThePictureCanNotBeSaved) {
  Click("btnAddMember");
  dialog.WillChoose(folder.Path("missing/truss.png"));
  Command("mnuSavePic").trigger();
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_TRUE(IsHighlighted());
}

} // namespace
} // namespace strutwright
