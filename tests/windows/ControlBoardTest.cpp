#include "FormFixture.h"

#include "DisplayState.h"
#include "modModelStore.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace strutwright {
namespace {

using BoardFormTest = FormTest;

TEST_F(BoardFormTest, HasItsCaptions) {
  const std::vector<std::pair<const char*, const char*>> captions{
      {"SupportsChk", "Show Supports"},    {"ReactionsChk", "Show Reactions"},  {"MbrForcesChk", "Show Member Forces"},
      {"DSDchk", "Show Deflected Shape"},  {"loadsChk", "Show Loads"},          {"gridChk", "Show Grid"},
      {"memberChk", "Show Member Nos."},   {"nodeChk", "Show Node Nos."},       {"animateBtn", "Animate"},
      {"DBbtn", "Minimise Control Board"}, {"maxCBbtn", "^^ Control Board ^^"}, {"nLineBtn", "Generate"},
      {"viewOpt_0", "Joints Data"},        {"viewOpt_1", "Member Data"},        {"viewOpt_2", "Joint Results"},
      {"viewOpt_3", "Member Results"},     {"clearChk", "Clear Drawing (Z)"},
  };
  for (const auto& [name, caption] : captions) {
    EXPECT_EQ(Find<QAbstractButton>(name).text().remove('&').toStdString(), caption) << name;
  }
}

TEST_F(BoardFormTest, DrawsAsDescribedUntilTheClearDrawingIsAskedFor) {
  EXPECT_EQ(TheDisplay.Style, DrawingStyle::Described);
  Find<QCheckBox>("clearChk").click();
  EXPECT_EQ(TheDisplay.Style, DrawingStyle::Clear);
  EXPECT_TRUE(Find<QAction>("mnuClearDrawing").isChecked());
  Find<QAction>("mnuClearDrawing").trigger();
  EXPECT_EQ(TheDisplay.Style, DrawingStyle::Described);
  EXPECT_FALSE(Find<QCheckBox>("clearChk").isChecked());
}

TEST_F(BoardFormTest, HasTheTextsOfAFreshProgramInItsBoxes) {
  const std::vector<std::pair<const char*, const char*>> texts{
      {"nLineNoTxt", "11"}, {"nLineX1Txt", "0"}, {"nLineY1Txt", "0"}, {"nLineX2Txt", "10"},
      {"nLineY2Txt", "0"},  {"xnlTxt", "0"},     {"ynlTxt", "-10"},   {"nodesTxt", "1-3,5"},
      {"eTxt", "200"},      {"aTxt", "1000"},    {"memTxt", "1-3,5"},
  };
  for (const auto& [name, text] : texts) EXPECT_EQ(Find<QLineEdit>(name).text().toStdString(), text) << name;
}

TEST_F(BoardFormTest, TicksThePlainSwitchesAndNoOthersAtTheStart) {
  for (const char* name : {"SupportsChk", "loadsChk", "gridChk", "memberChk", "nodeChk"}) {
    EXPECT_TRUE(Find<QCheckBox>(name).isChecked()) << name;
  }
  for (const char* name : {"ReactionsChk", "MbrForcesChk", "DSDchk"}) {
    EXPECT_FALSE(Find<QCheckBox>(name).isChecked()) << name;
  }
}

TEST_F(BoardFormTest, RedrawsWithoutALayerThatIsSwitchedOff) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  EXPECT_GT(Ink(Qt::green), 20);
  EXPECT_GT(Ink(Qt::red), 20);
  Find<QCheckBox>("SupportsChk").click();
  EXPECT_EQ(Ink(Qt::green), 0);
  Find<QCheckBox>("loadsChk").click();
  Find<QCheckBox>("memberChk").click();
  EXPECT_EQ(Ink(Qt::red), 0);
  const int withGrid = Ink(Qt::darkGray);
  Find<QCheckBox>("gridChk").click();
  EXPECT_LT(Ink(Qt::darkGray), withGrid);
}

TEST_F(BoardFormTest, MakesExactlyOneGridVisible) {
  const std::vector<QString> grids{"GrJoints", "GrMembers", "jResGr", "mResGr"};
  for (const int chosen : {1, 2, 3, 0}) {
    Find<QRadioButton>("viewOpt_" + QString::number(chosen)).click();
    for (int index = 0; index < 4; ++index) {
      EXPECT_EQ(View(grids[static_cast<std::size_t>(index)]).isVisible(), index == chosen) << chosen << index;
    }
  }
}

TEST_F(BoardFormTest, GivesItsRoomToTheDrawingAndComesBack) {
  QWidget& board = Find<QWidget>("CBpic");
  QWidget& strip = Find<QWidget>("BtnPic");
  const int height = Find<QWidget>("Disp").height();
  EXPECT_FALSE(strip.isVisible());
  Find<QPushButton>("DBbtn").click();
  QCoreApplication::processEvents();
  EXPECT_FALSE(board.isVisible());
  EXPECT_TRUE(strip.isVisible());
  EXPECT_GT(strip.y(), frame->centralWidget()->height() / 2);
  EXPECT_GT(Find<QWidget>("Disp").height(), height);
  Find<QPushButton>("maxCBbtn").click();
  QCoreApplication::processEvents();
  EXPECT_TRUE(board.isVisible());
  EXPECT_FALSE(strip.isVisible());
  EXPECT_EQ(Find<QWidget>("Disp").height(), height);
}

TEST_F(BoardFormTest, FramesTheModelWhenItComesBack) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  Find<QPushButton>("DBbtn").click();
  EXPECT_TRUE(KeepView);
  Find<QPushButton>("maxCBbtn").click();
  EXPECT_FALSE(KeepView);
}

TEST_F(BoardFormTest, ZoomsOutAndToTheExtents) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  Command("mnuZoomExtents").trigger();
  const float width = DisplaySurface->Window().width;
  Command("mnuZoomOut").trigger();
  EXPECT_FLOAT_EQ(DisplaySurface->Window().width, 1.25F * width);
  QTest::keyClick(frame.get(), Qt::Key_F3);
  EXPECT_FLOAT_EQ(DisplaySurface->Window().width, 1.5625F * width);
  QTest::keyClick(frame.get(), Qt::Key_F4);
  EXPECT_FLOAT_EQ(DisplaySurface->Window().width, width);
}

TEST_F(BoardFormTest, FramesTheModelWhenTheFrameIsResized) {
  EnterThreeBarTruss();
  Command("mnuRefresh").trigger();
  Command("mnuZoomOut").trigger();
  frame->resize(frame->width() - 40, frame->height());
  EXPECT_FALSE(KeepView);
}

TEST_F(BoardFormTest, LeavesEveryControlRoomAtAModestSize) {
  frame->resize(1024, 740);
  QCoreApplication::processEvents();
  EXPECT_LE(frame->width(), 1024);
  for (const QWidget* control : Find<QWidget>("CBpic").findChildren<QWidget*>()) {
    if (!control->isVisible() || control->objectName().isEmpty() || control->objectName().startsWith("qt_")) continue;
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    if (button == nullptr) continue;
    EXPECT_GT(button->width(), button->fontMetrics().horizontalAdvance(button->text()))
        << button->objectName().toStdString();
  }
}

} // namespace
} // namespace strutwright
