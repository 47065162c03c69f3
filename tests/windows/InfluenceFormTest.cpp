#include "FormFixture.h"

#include "InfluencePicture.h"
#include "ModelBuilder.h"
#include "Pattern.h"
#include "frmInfluence.h"
#include "modModelStore.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* Invitation = "Point at the line to see its values; click a member to see its line.";

class InfluenceFormTest : public FormTest {
 protected:
  void Open() {
    Command("mnuInfluence").trigger();
    Window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    Picture().grab(); // draws it
  }

  frmInfluence& Window() { return *static_cast<frmInfluence*>(&Find<QDialog>("frmInfluence")); }
  InfluencePicture& Picture() { return static_cast<InfluencePicture&>(Find<QWidget>("influencePic")); }
  QPoint At(double x, double y) { return Picture().PixelOf(x, y).toPoint(); }
  QString Path() { return Find<QLineEdit>("pathTxt").text(); }
  int Number() { return Find<QSpinBox>("numberSpin").value(); }
  std::string Line() { return LabelText("lineLbl"); }

  void TypePath(const QString& path) {
    auto& field = Find<QLineEdit>("pathTxt");
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, path);
  }
};

TEST_F(InfluenceFormTest, ProposesTheLoadedChord) {
  EnterThreeBarTruss();
  Open();
  EXPECT_EQ(Path(), "1,3,2"); // node 3 bears the load
  EXPECT_EQ(Number(), 1);
  EXPECT_EQ(Line(), Invitation);
}

TEST_F(InfluenceFormTest, ShowsTheValueWhereThePointerIs) {
  EnterThreeBarTruss();
  Open();
  QMouseEvent move(QEvent::MouseMove, At(2, 1), Picture().mapToGlobal(At(2, 1)), Qt::NoButton, {}, {});
  QCoreApplication::sendEvent(&Picture(), &move);
  EXPECT_THAT(Line(), MatchesPattern("x = (2|1[.]9[0-9]+|2[.]0[0-9]+) m: -0[.](69|70)[0-9]* kN per kN"));
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(&Picture(), &leave);
  EXPECT_EQ(Line(), Invitation);
}

TEST_F(InfluenceFormTest, ShowsTheLineOfAMemberThatIsClicked) {
  EnterThreeBarTruss();
  Open();
  const QImage before = Picture().grab().toImage();
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, At(2, 0));
  EXPECT_EQ(Number(), 3);
  EXPECT_NE(Picture().grab().toImage(), before);
}

TEST_F(InfluenceFormTest, LeavesTheLineWhereNothingIsClicked) {
  EnterThreeBarTruss();
  Open();
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, At(2, 0.8));
  EXPECT_EQ(Number(), 1);
}

TEST_F(InfluenceFormTest, TakesANodeForADisplacement) {
  EnterThreeBarTruss();
  Open();
  auto& quantity = Find<QComboBox>("quantityCmb");
  quantity.setFocus();
  QTest::keyClick(&quantity, Qt::Key_End); // displacement in y
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, At(2, 2));
  EXPECT_EQ(Number(), 3);
  EXPECT_EQ(quantity.currentText(), "Displacement in y of node");
  QTest::keyClick(&Picture(), Qt::Key_Right);
  EXPECT_THAT(Line(), HasSubstr("mm per kN"));
  QTest::mouseClick(&Picture(), Qt::LeftButton, {}, At(1, 1));
  EXPECT_EQ(quantity.currentText(), "Force of member");
}

TEST_F(InfluenceFormTest, StepsOverThePathWithTheArrowKeys) {
  EnterThreeBarTruss();
  Open();
  Picture().setFocus();
  QTest::keyClick(&Picture(), Qt::Key_Right);
  EXPECT_THAT(Line(), StartsWith("x = 0 m: 0 kN"));
  QTest::keyClick(&Picture(), Qt::Key_Right);
  EXPECT_THAT(Line(), StartsWith("x = 2 m: -0.7071"));
  QTest::keyClick(&Picture(), Qt::Key_Left);
  EXPECT_THAT(Line(), StartsWith("x = 0 m: 0 kN"));
}

TEST_F(InfluenceFormTest, WalksWithTheClockOfTheAnimation) {
  EnterThreeBarTruss();
  Open();
  const auto tick = [this] { QMetaObject::invokeMethod(&Find<QTimer>("Timer1"), "timeout"); };
  Find<QTimer>("Timer1").stop();
  tick();
  EXPECT_EQ(Line(), Invitation);
  QTest::mouseClick(&Find<QPushButton>("btnWalk"), Qt::LeftButton);
  tick();
  EXPECT_THAT(Line(), StartsWith("x = 0 m: 0 kN"));
  tick();
  EXPECT_THAT(Line(), StartsWith("x = 0.0666667 m: "));
  QTest::mouseClick(&Find<QPushButton>("btnWalk"), Qt::LeftButton);
  tick();
  EXPECT_EQ(Line(), Invitation);
}

TEST_F(InfluenceFormTest, SaysWhatIsWrongAndLosesNothing) {
  EnterThreeBarTruss();
  Open();
  TypePath("1,1");
  EXPECT_EQ(Line(), "The path names node 1 twice: name each node once.");
  TypePath("1,3,2");
  EXPECT_EQ(Line(), Invitation);
  auto& train = Find<QComboBox>("trainCmb");
  train.setFocus();
  QTest::keyClicks(&train, "50@-2");
  EXPECT_THAT(Line(), HasSubstr("has a negative distance"));
}

TEST_F(InfluenceFormTest, ShowsTheEnvelopeOfATeachingTrain) {
  EnterThreeBarTruss();
  Open();
  const QImage before = Picture().grab().toImage();
  auto& train = Find<QComboBox>("trainCmb");
  train.setFocus();
  QTest::keyClick(&train, Qt::Key_Down);
  EXPECT_EQ(train.currentText(), "100@0");
  EXPECT_EQ(Line(), Invitation);
  EXPECT_NE(Picture().grab().toImage(), before);
}

TEST_F(InfluenceFormTest, NeedsAStableTrussAndFollowsTheModel) {
  Open();
  EXPECT_EQ(Line(), "The model has no nodes, so it has no influence lines: enter a truss first.");
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  EXPECT_EQ(Path(), "1,3,2");
  EXPECT_EQ(Line(), Invitation);
  GrJoints.SetText(1, 5, "0");
  Command("mnuRefresh").trigger();
  EXPECT_THAT(Line(), StartsWith("Influence lines need a stable truss, but "));
}

} // namespace
} // namespace strutwright
