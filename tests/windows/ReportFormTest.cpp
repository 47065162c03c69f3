#include "FormFixture.h"

#include "AnalysisState.h"
#include "DisplayState.h"
#include "modModelStore.h"
#include "modReport.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class ReportFormTest : public FormTest {
 protected:
  void AnalyseThreeBars() {
    EnterThreeBarTruss();
    Press(Qt::Key_F5);
    ASSERT_EQ(AnalysisDone, FlagTrue);
  }

  void ShowReport() {
    Command("mnuResults").trigger();
    // A window counts as active as soon as the one that it belongs to is.
    ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &Window(); }));
  }

  QWidget& Window() { return Find<QWidget>("frmReport"); }
  QTextBrowser& Paper() { return Find<QTextBrowser>("reportTxt"); }
  std::string PaperText() { return Paper().toPlainText().toStdString(); }
  void Click(const QString& name) { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }
  void PressInReport(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&Paper(), key, modifiers);
  }

  /// What has been printed before changes the edges of Qt's letters by a shade.
  static std::string WithoutPicture(std::string html) {
    const std::size_t begin = html.find("base64,");
    return html.erase(begin, html.find('"', begin) - begin);
  }

  /// Types a text into a cell of the joints grid.
  void EnterCell(int row, int column, const QString& text) {
    frame->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == frame.get(); }));
    ClickCell(View("GrJoints"), row, column);
    Type(text);
    Press(Qt::Key_Return);
  }
};

TEST_F(ReportFormTest, IsNotThereWithoutAnAnalysis) {
  EnterThreeBarTruss();
  Command("mnuResults").trigger();
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "No results report available yet")));
  EXPECT_EQ(frame->findChild<QWidget*>("frmReport"), nullptr);
}

TEST_F(ReportFormTest, IsNotThereForAnUnstableTruss) {
  EnterThreeBarTruss();
  GrJoints.SetText(1, NodeSupport, "0");
  frame->runAnalysis();
  TakeMessages();
  Command("mnuResults").trigger();
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "No results report available yet")));
}

TEST_F(ReportFormTest, IsNotThereOnceTheGridsHaveChanged) {
  AnalyseThreeBars();
  GrJoints.SetText(3, NodeForceY, "-20"); // as a paste does, which leaves the results alone
  Command("mnuResults").trigger();
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "No results report available yet")));
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
}

TEST_F(ReportFormTest, SaysThatAListOfLoadsNeedsAnotherAnalysis) {
  AnalyseThreeBars();
  Find<QLineEdit>("nodesTxt").setText("3");
  Find<QLineEdit>("xnlTxt").setText("1");
  Find<QLineEdit>("ynlTxt").setText("-20");
  Click("nodeLoadBtn");
  ASSERT_EQ(AnalysisDone, FlagTrue);
  Command("mnuResults").trigger();
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Information, "The model has been changed since its analysis.\n"
                                                        "Analyse it again for a results report.")));
}

TEST_F(ReportFormTest, ShowsTheReport) {
  AnalyseThreeBars();
  ShowReport();
  EXPECT_TRUE(Window().isVisible());
  EXPECT_FALSE(Window().isModal());
  EXPECT_EQ(Window().windowTitle(), "Results Report - Untitled");
  EXPECT_THAT(PaperText(), StartsWith("Truss report: Untitled\n2026-11-21. 3 nodes, 3 members. The truss is stable"));
  for (const char* heading :
       {"\nModel\n", "\nDrawing\n", "\nResults\n", "\nSign conventions\n", "\nUnits\n", "\nCheck\n"}) {
    EXPECT_THAT(PaperText(), HasSubstr(heading));
  }
  EXPECT_FALSE(Find<QLabel>("lblState").isVisible());
}

TEST_F(ReportFormTest, IsNamedAsTheTitleIs) {
  EnterThreeBarTruss();
  dialog.WillChoose(folder.Path("bridge.stw"));
  Command("mnuSaveAs").trigger();
  frame->runAnalysis();
  ShowReport();
  EXPECT_EQ(Window().windowTitle(), "Results Report - bridge.stw");
  EXPECT_THAT(PaperText(), StartsWith("Truss report: bridge.stw\n"));
}

TEST_F(ReportFormTest, ShowsTheDrawing) {
  AnalyseThreeBars();
  ShowReport();
  Paper().find("Drawing");
  Paper().verticalScrollBar()->setValue(Paper().verticalScrollBar()->value() + 300);
  const QImage picture = Paper().grab().toImage();
  const QColor tension(0, 104, 163);
  int blue = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) blue += picture.pixelColor(x, y) == tension ? 1 : 0;
  }
  EXPECT_GT(blue, 100) << "of the members in tension";
}

TEST_F(ReportFormTest, LeavesTheDisplayAsItIs) {
  AnalyseThreeBars();
  View("GrJoints").setFocus(); // the display has a frame while it has the keyboard, which the report takes
  const QImage before = Find<QWidget>("Disp").grab().toImage();
  const ViewWindow view = DisplaySurface->Window();
  ShowReport();
  EXPECT_EQ(Find<QWidget>("Disp").grab().toImage(), before);
  EXPECT_EQ(DisplaySurface->Window(), view);
  EXPECT_EQ(LabelText("lblDeflectionScale"), "100 mm/mm");
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(ReportFormTest, IsOneWindow) {
  AnalyseThreeBars();
  ShowReport();
  const QWidget* first = &Window();
  ShowReport();
  EXPECT_EQ(frame->findChildren<QWidget*>("frmReport").size(), 1);
  EXPECT_EQ(&Window(), first);
}

TEST_F(ReportFormTest, SaysThatTheModelHasChangedSince) {
  AnalyseThreeBars();
  ShowReport();
  EnterCell(3, NodeForceY, "-20");
  EXPECT_TRUE(Find<QLabel>("lblState").isVisible());
  EXPECT_THAT(LabelText("lblState"), StartsWith("The model has been changed since this report was made."));
  Command("mnuUndo").trigger();
  EXPECT_FALSE(Find<QLabel>("lblState").isVisible());
}

TEST_F(ReportFormTest, SaysSoOfAnotherModelToo) {
  AnalyseThreeBars();
  ShowReport();
  Command("mnuNew").trigger();
  EXPECT_TRUE(Find<QLabel>("lblState").isVisible());
}

TEST_F(ReportFormTest, RenewsItself) {
  AnalyseThreeBars();
  ShowReport();
  EnterCell(3, NodeForceY, "-20");
  Click("btnRenew");
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information, "No results report available yet")));
  frame->runAnalysis();
  EXPECT_TRUE(Find<QLabel>("lblState").isVisible()); // it still shows the old results
  Click("btnRenew");
  EXPECT_FALSE(Find<QLabel>("lblState").isVisible());
  EXPECT_THAT(PaperText(), HasSubstr("-20"));
}

TEST_F(ReportFormTest, SavesPdf) {
  AnalyseThreeBars();
  ShowReport();
  dialog.WillChoose(folder.Path("a.pdf"));
  dialog.WillChoose(folder.Path("b.pdf"));
  Click("btnSavePdf");
  PressInReport(Qt::Key_S, Qt::ControlModifier);
  EXPECT_THAT(FileBytes(folder.Path("a.pdf")), StartsWith("%PDF-"));
  EXPECT_THAT(FileBytes(folder.Path("b.pdf")), StartsWith("%PDF-"));
}

TEST_F(ReportFormTest, SavesTheHtmlThatItShows) {
  AnalyseThreeBars();
  ShowReport();
  dialog.WillChoose(folder.Path("a.html"));
  Click("btnSaveHtml");
  EXPECT_EQ(WithoutPicture(FileBytes(folder.Path("a.html"))), WithoutPicture(MakeReport("Untitled").document.html));
}

TEST_F(ReportFormTest, SavesWhatItShowsAlsoAfterAnEdit) {
  AnalyseThreeBars();
  const std::string shown = WithoutPicture(MakeReport("Untitled").document.html);
  ShowReport();
  EnterCell(3, NodeForceY, "-20");
  dialog.WillChoose(folder.Path("a.html"));
  Click("btnSaveHtml");
  EXPECT_EQ(WithoutPicture(FileBytes(folder.Path("a.html"))), shown);
}

TEST_F(ReportFormTest, ReportsThatItCouldNotBeSaved) {
  AnalyseThreeBars();
  ShowReport();
  dialog.WillChoose(folder.Path("missing/a.pdf"));
  Click("btnSavePdf");
  const std::vector<Message> boxes = TakeMessages();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_THAT(boxes[0].text, StartsWith("Error while saving file " + folder.Path("missing/a.pdf") + "\n"));
}

TEST_F(ReportFormTest, Prints) {
  AnalyseThreeBars();
  ShowReport();
  Click("btnPrint");
  PressInReport(Qt::Key_P, Qt::ControlModifier);
  EXPECT_THAT(paper.printed, ElementsAre("Truss report: Untitled", "Truss report: Untitled"));
}

TEST_F(ReportFormTest, ClosesAndComesBack) {
  AnalyseThreeBars();
  ShowReport();
  Click("btnClose");
  EXPECT_FALSE(Window().isVisible());
  ShowReport();
  EXPECT_TRUE(Window().isVisible());
  PressInReport(Qt::Key_Escape);
  EXPECT_FALSE(Window().isVisible());
  EXPECT_TRUE(frame->isVisible());
}

TEST_F(ReportFormTest, IsPaperUnderADarkThemeToo) {
  AnalyseThreeBars();
  QPalette dark;
  dark.setColor(QPalette::Base, Qt::black);
  dark.setColor(QPalette::Text, Qt::white);
  frame->setPalette(dark);
  ShowReport();
  EXPECT_EQ(Paper().palette().color(QPalette::Base), QColor(Qt::white));
  EXPECT_EQ(Paper().palette().color(QPalette::Text), QColor(Qt::black));
}

TEST_F(ReportFormTest, HasItsKeysAndTips) {
  AnalyseThreeBars();
  ShowReport();
  QStringList keys;
  for (const QPushButton* button : Window().findChildren<QPushButton*>()) {
    keys << QKeySequence::mnemonic(button->text()).toString();
    EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
  }
  EXPECT_EQ(keys, QStringList({"Alt+R", "Alt+D", "Alt+H", "Alt+P", "Alt+C"}));
}

} // namespace
} // namespace strutwright
