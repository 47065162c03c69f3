// Members without rigidity in the check window: what it says of them, and that it fills in E and A.

#include "FormFixture.h"

#include "DisplayArea.h"
#include "WorkbenchState.h"
#include "modModelStore.h"

#include <utility>

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class RigidityFormTest : public FormTest {
 protected:
  void ClickAt(double x, double y) {
    auto& area = static_cast<DisplayArea&>(Find<QWidget>("Disp"));
    QTest::mouseClick(&area, Qt::LeftButton, {}, area.Surface().ToPixel(x, -y).toPoint());
  }

  /// A triangle drawn with the mouse, its supports typed.
  void DrawTriangle() {
    Command("mnuDrawNodes").trigger();
    for (const auto& [x, y] : {std::pair(0, 0), std::pair(4, 0), std::pair(2, 2)}) ClickAt(x, y);
    Command("mnuDrawMembers").trigger();
    for (const auto& [x, y] :
         {std::pair(0, 0), std::pair(4, 0), std::pair(4, 0), std::pair(2, 2), std::pair(2, 2), std::pair(0, 0)}) {
      ClickAt(x, y);
    }
    Press(Qt::Key_Escape);
    ClickCell(View("GrJoints"), 1, 5);
    Type("3");
    Press(Qt::Key_Return);
    Type("1");
    Press(Qt::Key_Return);
    ASSERT_EQ(NodeCount, 3);
    ASSERT_EQ(MemberCount, 3);
  }

  void OpenCheck() { QTest::keyClick(frame.get(), Qt::Key_F6); }
  void Push(const QString& button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
  bool IsOffered() { return Find<QPushButton>("btnFillRigidity").isVisible(); }
  bool CanFill() { return Find<QPushButton>("btnFillRigidity").isEnabled(); }

  void SetBoard(const QString& E, const QString& A) {
    Find<QLineEdit>("eTxt").setText(E);
    Find<QLineEdit>("aTxt").setText(A);
  }

  std::vector<std::string> CureTexts() {
    std::vector<std::string> texts;
    auto& list = Find<QListWidget>("curesList");
    for (int row = 0; row < list.count(); ++row) texts.push_back(list.item(row)->text().toStdString());
    return texts;
  }
};

TEST_F(RigidityFormTest, IsTheHeadlineOfATrussDrawnWithTheMouse) {
  DrawTriangle();
  OpenCheck();
  EXPECT_THAT(LabelText("verdictLbl"),
              StartsWith("Members 1, 2 and 3 have no rigidity: their E and A are not above zero. The truss is a "));
  EXPECT_EQ(LabelText("rigidityLbl"), "The control board holds E = 200 kN/mm2 and A = 1000 mm2.");
  EXPECT_THAT(CureTexts(), testing::ElementsAre("Give members 1, 2 and 3 an E and an A above zero"));
}

TEST_F(RigidityFormTest, IsFilledInFromTheBoardAsOneStepThatCanBeUndone) {
  DrawTriangle();
  SetBoard("70", "500");
  OpenCheck();
  Push("btnFillRigidity");
  for (int m = 1; m <= 3; ++m) {
    EXPECT_EQ(GrMembers.Text(m, MemberE), "70");
    EXPECT_EQ(GrMembers.Text(m, MemberA), "500");
  }
  EXPECT_EQ(LabelText("verdictLbl"), "The truss is stable, but there are no results to judge.");
  EXPECT_FALSE(IsOffered());
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Fill In E and A");
  Command("mnuUndo").trigger();
  EXPECT_EQ(MemberTable(1, MemberE), 0.0F);
  EXPECT_EQ(MemberTable(3, MemberA), 0.0F);
  EXPECT_TRUE(IsOffered());
}

TEST_F(RigidityFormTest, LeavesWhatIsAboveZeroAsItIs) {
  EnterThreeBarTruss();
  GrMembers.SetText(1, MemberA, "0");
  GrMembers.SetText(2, MemberE, "-5");
  SetBoard("70", "500");
  OpenCheck();
  Push("btnFillRigidity");
  EXPECT_EQ(GrMembers.Text(1, MemberE), "200");
  EXPECT_EQ(GrMembers.Text(1, MemberA), "500");
  EXPECT_EQ(GrMembers.Text(2, MemberE), "70");
  EXPECT_EQ(GrMembers.Text(2, MemberA), "1000");
  EXPECT_EQ(GrMembers.Text(3, MemberE), "200");
}

TEST_F(RigidityFormTest, SaysWhatToTypeWhereTheBoardHoldsNoUsableNumbers) {
  DrawTriangle();
  OpenCheck();
  SetBoard("", "1000");
  EXPECT_EQ(LabelText("rigidityLbl"),
            "Type an E above zero into E Value on the control board; it can be filled in from there.");
  EXPECT_FALSE(CanFill());
  SetBoard("200", "0");
  EXPECT_EQ(LabelText("rigidityLbl"),
            "Type an area above zero into Area on the control board; it can be filled in from there.");
  SetBoard("", ".");
  EXPECT_EQ(LabelText("rigidityLbl"), "Type an E and an area above zero into E Value and Area on the control board; "
                                      "they can be filled in from there.");
  EXPECT_FALSE(CanFill());
  SetBoard("210", "800");
  EXPECT_EQ(LabelText("rigidityLbl"), "The control board holds E = 210 kN/mm2 and A = 800 mm2.");
  EXPECT_TRUE(CanFill());
}

TEST_F(RigidityFormTest, IsFilledInFromTheListOfCuresToo) {
  DrawTriangle();
  OpenCheck();
  SetBoard("", "");
  auto& list = Find<QListWidget>("curesList");
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(0)).center());
  EXPECT_FALSE(Find<QPushButton>("btnApplyCure").isEnabled()) << "there is nothing to fill in";
  SetBoard("200", "1000");
  Push("btnApplyCure");
  EXPECT_EQ(MemberTable(2, MemberA), 1000.0F);
  EXPECT_EQ(TheCheck.report.stability.mechanismCount, 0);
}

TEST_F(RigidityFormTest, IsNoMatterWhereEveryMemberHasSome) {
  EnterThreeBarTruss();
  OpenCheck();
  EXPECT_FALSE(IsOffered());
  EXPECT_THAT(LabelText("verdictLbl"), testing::Not(HasSubstr("rigidity")));
}

} // namespace
} // namespace strutwright
