#include "FormFixture.h"

#include "AnalysisState.h"
#include "EditingState.h"
#include "WorkbenchState.h"
#include "modModelStore.h"

#include <fstream>
#include <sstream>

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class VaryFormTest : public FormTest {
 protected:
  void Open() {
    EnterThreeBarTruss();
    Command("mnuRefresh").trigger();
    Command("mnuVary").trigger();
    Window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
  }

  QDialog& Window() { return Find<QDialog>("frmVary"); }
  QSlider& Slider() { return Find<QSlider>("varySlider"); }
  std::string Value() { return LabelText("valueLbl"); }
  QString Field(const QString& name) { return Find<QLineEdit>(name).text(); }

  void Choose(const QString& list, int index) {
    auto& box = Find<QComboBox>(list);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Home);
    for (int step = 0; step < index; ++step) QTest::keyClick(&box, Qt::Key_Down);
  }

  std::string Saved(const QString& button, const std::string& name) {
    dialog.WillChoose(folder.Path(name));
    QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton);
    std::ifstream file(folder.Path(name), std::ios::binary);
    std::stringstream content;
    content << file.rdbuf();
    return content.str();
  }
};

// The rafters lie at 45 degrees and bear -10 / sqrt 2 each.
TEST_F(VaryFormTest, BeginsWithTheHeight) {
  Open();
  EXPECT_EQ(Field("fromTxt"), "1");
  EXPECT_EQ(Field("toTxt"), "4");
  EXPECT_EQ(Value(), "Height (m): 2   Force of member 1 (kN): -7.0711");
  EXPECT_FALSE(Find<QLineEdit>("numbersTxt").isEnabled());
}

// At twice the height a rafter rises by 4 on 2: F = -5 sqrt(5) / 2.
TEST_F(VaryFormTest, MovesTheTrussWithTheSlider) {
  Open();
  Slider().setFocus();
  QTest::keyClick(&Slider(), Qt::Key_End);
  EXPECT_EQ(GrJoints.Text(3, 2), "4");
  EXPECT_EQ(Value(), "Height (m): 4   Force of member 1 (kN): -5.5902");
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Vary");
  Command("mnuUndo").trigger();
  EXPECT_EQ(GrJoints.Text(3, 2), "2");
  EXPECT_THAT(Value(), StartsWith("Height (m): 2 "));
}

// The slider is dragged: each step starts from the truss as it was before.
TEST_F(VaryFormTest, StretchesTheTrussThatItFound) {
  Open();
  Slider().setSliderDown(true);
  Slider().setValue(Slider().minimum());
  Slider().setValue(Slider().maximum());
  EXPECT_EQ(GrJoints.Text(3, 2), "4");
  Slider().setValue(Slider().minimum());
  Slider().setSliderDown(false);
  EXPECT_EQ(GrJoints.Text(3, 2), "1");
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Vary");
}

TEST_F(VaryFormTest, KeepsHeightsAboveZero) {
  Open();
  for (const char* from : {"0", "-6"}) {
    auto& box = Find<QLineEdit>("fromTxt");
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, from);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(Value(), "A span or a height stays above zero: begin the range above 0.");
    EXPECT_FALSE(Slider().isEnabled());
  }
}

TEST_F(VaryFormTest, FollowsLive) {
  TheLive.mostTime = 1e9;
  Open();
  Command("mnuLive").trigger();
  Slider().setFocus();
  QTest::keyClick(&Slider(), Qt::Key_End);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(mResGr.Text(1, 1), "-5.59");
}

TEST_F(VaryFormTest, VariesTheAreasOfAListAndShowsADisplacement) {
  Open();
  Choose("variedCmb", 7);
  auto& list = Find<QLineEdit>("numbersTxt");
  list.setFocus();
  QTest::keyClicks(&list, "1-3");
  EXPECT_EQ(Field("fromTxt"), "500");
  Choose("resultCmb", 2);
  auto& number = Find<QSpinBox>("resultSpin");
  number.setFocus();
  number.selectAll();
  QTest::keyClicks(&number, "3");
  EXPECT_THAT(Value(), StartsWith("A of members 1-3 (mm2): 1000   Displacement of node 3 in y (mm): -"));
  Slider().setFocus();
  QTest::keyClick(&Slider(), Qt::Key_Home);
  EXPECT_EQ(GrMembers.Text(2, 4), "500");
}

TEST_F(VaryFormTest, SaysWhatIsWrong) {
  Open();
  Choose("variedCmb", 5);
  EXPECT_EQ(Value(), "There is no such node: choose one from 1 to 3.");
  EXPECT_FALSE(Slider().isEnabled());
  auto& node = Find<QLineEdit>("numbersTxt");
  node.setFocus();
  QTest::keyClicks(&node, "3");
  EXPECT_TRUE(Slider().isEnabled());
  Choose("resultCmb", 4);
  auto& number = Find<QSpinBox>("resultSpin");
  number.setFocus();
  number.selectAll();
  QTest::keyClicks(&number, "3");
  EXPECT_EQ(Value(), "No support holds node 3 in this direction: choose a node and a direction that one holds.");
}

TEST_F(VaryFormTest, ExportsThePoints) {
  Open();
  const std::string csv = Saved("btnCsv", "plot.csv");
  EXPECT_THAT(csv, StartsWith("\"Height (m)\",\"Force of member 1 (kN)\"\r\n1,"));
  EXPECT_THAT(csv, HasSubstr("\r\n4,-5.59017\r\n"));
}

TEST_F(VaryFormTest, ExportsThePlot) {
  Open();
  EXPECT_THAT(Saved("btnPicture", "plot.png"), HasSubstr("PNG"));
  EXPECT_THAT(Saved("btnPicture", "plot.svg"), HasSubstr("<svg"));
}

TEST_F(VaryFormTest, LeavesTheResultsOfTheModelAlone) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  const std::vector<float> before = Displacements;
  const FieldTable members = MemberTable;
  Command("mnuVary").trigger();
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(Displacements, before);
  EXPECT_TRUE(MemberTable == members);
}

} // namespace
} // namespace strutwright
