#include "FormFixture.h"
#include "ModelBuilder.h"
#include "WorkingPane.h"
#include "frmEquations.h"

#include <string>

#include <QCheckBox>
#include <QHeaderView>
#include <QPushButton>
#include <QSplitter>
#include <QTextBrowser>

namespace strutwright {
namespace {

using testing::HasSubstr;

class WorkingFormTest : public FormTest {
 protected:
  WorkingFormTest() {
    TheWorkingPlace = {};
    frame->ActivateEquations();
    Find<QWidget>("frmEquations").parentWidget()->showMaximized();
    SettleLayout();
  }

  static void SettleLayout() { QCoreApplication::processEvents(); }

  void Click(const QString& button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
  std::string Pane() { return Find<QTextBrowser>("txtWorking").toPlainText().toStdString(); }
  void Follow(const char* link) { emit Find<QTextBrowser>("txtWorking").anchorClicked(QUrl(link)); }
  QAction& EquationsCommand(const QString& name) { return *Find<QWidget>("frmEquations").findChild<QAction*>(name); }
};

TEST_F(WorkingFormTest, ShowsTheWorkingOfEachPress) {
  SetModel(Triangle());
  Click("btnAddMember");
  EXPECT_THAT(Pane(), HasSubstr("Member 1: node i = 1, node j = 2"));
  Click("btnShowGlobalK");
  Click("btnRestrict");
  EXPECT_THAT(Pane(), HasSubstr("node 1: support 3 holds x and y"));
  Click("btnSolve");
  EXPECT_THAT(Pane(), HasSubstr("Without the restrained freedoms K D = P is:"));
}

TEST_F(WorkingFormTest, GoesOnToForcesAndReactionsAndBack) {
  SetModel(Triangle());
  Click("btnShowGlobalK");
  EXPECT_FALSE(Find<QPushButton>("btnMemberForces").isEnabled());
  Click("btnRestrict");
  Click("btnSolve");
  Click("btnMemberForces");
  EXPECT_THAT(Pane(), HasSubstr("Each member's force follows"));
  Click("btnReactions");
  EXPECT_THAT(Pane(), HasSubstr("Each reaction balances"));
  Click("btnStepBack");
  EXPECT_THAT(Pane(), HasSubstr("Each member's force follows"));
  Click("btnStepBack");
  Click("btnStepBack");
  EXPECT_FALSE(Find<QPushButton>("btnReactions").isEnabled());
}

TEST_F(WorkingFormTest, ShowsWhereANumberComesFrom) {
  SetModel(Triangle());
  Click("btnShowGlobalK");
  Follow("K 3 4");
  const QModelIndex cell = View("grK").currentIndex();
  EXPECT_EQ(std::pair(cell.row(), cell.column()), std::pair(2, 3));
  Follow("P 2");
  EXPECT_EQ(View("grForce").currentIndex().row(), 1);
  Follow("node 3");
  Follow("nothing");
}

TEST_F(WorkingFormTest, ClosesAndOpensFromTheViewMenu) {
  EXPECT_TRUE(Find<QTextBrowser>("txtWorking").isVisibleTo(&Find<QWidget>("frmEquations")));
  EquationsCommand("mnuWorking").trigger();
  EXPECT_FALSE(Find<QTextBrowser>("txtWorking").isVisibleTo(&Find<QWidget>("frmEquations")));
  EquationsCommand("mnuWorking").trigger();
  EXPECT_TRUE(TheWorkingPlace.shown);
}

TEST_F(WorkingFormTest, StandsBesideKWhereThereIsRoom) {
  auto& split = Find<QSplitter>("splWorking");
  split.resize(600, 400);
  EXPECT_EQ(split.orientation(), Qt::Vertical);
  EXPECT_FALSE(Find<QTextBrowser>("txtWorking").isHidden());
  split.resize(600, 300);
  EXPECT_TRUE(Find<QTextBrowser>("txtWorking").isHidden()) << "K needs the room";
  split.resize(1100, 400);
  EXPECT_EQ(split.orientation(), Qt::Horizontal);
}

TEST_F(WorkingFormTest, ShowsZerosFaintAndColumnsAsWideAsTheirNumbers) {
  SetModel(Triangle());
  Click("btnShowGlobalK");
  const QAbstractItemModel& K = *View("grK").model();
  EXPECT_EQ(K.index(0, 0).data().toString().toStdString(), "75.6");
  EXPECT_FALSE(K.index(0, 0).data(Qt::ForegroundRole).isValid());
  EXPECT_EQ(K.index(3, 1).data().toString().toStdString(), "0.");
  EXPECT_TRUE(K.index(3, 1).data(Qt::ForegroundRole).isValid());
  EXPECT_LT(View("grK").columnWidth(1), View("grK").horizontalHeader()->defaultSectionSize());
}

TEST_F(WorkingFormTest, AsksForWhatAStepChanges) {
  SetModel(Triangle());
  Find<QCheckBox>("chkTryIt").click();
  Click("btnAddMember");
  EXPECT_EQ(LabelText("lblQuestion"), "K(1 x, 1 x) with member 1, in kN/mm?");
  EXPECT_EQ(View("grK").model()->index(0, 0).data().toString(), "");
  EXPECT_EQ(Focused().objectName(), "txtAnswer");
  Type("-50");
  Press(Qt::Key_Return);
  EXPECT_THAT(LabelText("lblVerdict"), HasSubstr("Wrong. Likely slip: "));
  Type("50");
  Press(Qt::Key_Return);
  EXPECT_EQ(LabelText("lblVerdict"), "\u2713 Right: 50 kN/mm.");
  EXPECT_EQ(View("grK").model()->index(0, 0).data().toString().toStdString(), "50. \u2713");
  EXPECT_THAT(LabelText("lblScore"), HasSubstr("Right 1 of 1, 0 at the first try; tries 2, hints 0"));
  Click("btnHint");
  EXPECT_THAT(LabelText("lblVerdict"), HasSubstr("Hint 1 of 3"));
  Find<QCheckBox>("chkTryIt").click();
  EXPECT_EQ(View("grK").model()->index(0, 2).data().toString().toStdString(), "-50.");
}

} // namespace
} // namespace strutwright
