#include "FormFixture.h"

#include "AnalysisState.h"
#include "Pattern.h"
#include "modModelStore.h"

#include <chrono>
#include <filesystem>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QTimer>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ClassSetFormTest : public FormTest {
 protected:
  void Open() {
    EnterThreeBarTruss();
    Command("mnuRefresh").trigger();
    Command("mnuClassSet").trigger();
    Window().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
  }

  QDialog& Window() { return Find<QDialog>("frmClassSet"); }
  std::string Told() { return LabelText("classLbl"); }
  void Click(const QString& button) { QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton); }
  bool IsDrawn(int variant) {
    return !Find<QLabel>("variantPic_" + QString::number(variant)).pixmap(Qt::ReturnByValue).isNull();
  }

  void TypeInto(const QString& name, const QString& text) {
    auto& field = Find<QLineEdit>(name);
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
  }

  void TypeRange(const QString& name, const QString& from, const QString& to, const QString& step) {
    TypeInto(name + "FromTxt", from);
    TypeInto(name + "ToTxt", to);
    TypeInto(name + "StepTxt", step);
  }

  void TypeStudents(const QString& text) {
    auto& list = Find<QPlainTextEdit>("studentsTxt");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    for (const QString& line : text.split('\n')) {
      QTest::keyClicks(&list, line);
      if (!text.endsWith(line)) QTest::keyClick(&list, Qt::Key_Return);
    }
  }

  void Choose(const QString& box) {
    auto& check = Find<QCheckBox>(box);
    check.setFocus();
    QTest::keyClick(&check, Qt::Key_Space);
  }

  /// Leaves of the files those that take no time.
  void LeaveOutDocuments() {
    for (const char* box : {"pdfChk", "htmlChk", "texChk", "moodleChk"}) Choose(box);
  }

  bool Exists(const std::string& name) { return std::filesystem::exists(folder.Path(name)); }
};

TEST_F(ClassSetFormTest, ShowsWhatTheModelHas) {
  Open();
  EXPECT_EQ(LabelText("spanNowLbl"), "now 4 m");
  EXPECT_EQ(LabelText("heightNowLbl"), "now 2 m");
  EXPECT_EQ(LabelText("loadNowLbl"), "now 10 kN");
  EXPECT_EQ(LabelText("areaNowLbl"), "now 1000 mm2");
  EXPECT_EQ(LabelText("eNowLbl"), "now 200 kN/mm2");
  EXPECT_EQ(Told(), "");
}

TEST_F(ClassSetFormTest, FitsASmallScreen) {
  Open();
  EXPECT_LE(Window().minimumSizeHint().width(), 960);
  EXPECT_LE(Window().minimumSizeHint().height(), 700);
}

TEST_F(ClassSetFormTest, DescribesEveryControl) {
  Open();
  for (const QWidget* each : Window().findChildren<QWidget*>(QRegularExpression("(Txt|Chk|Spin)$|^btn"))) {
    EXPECT_FALSE(each->toolTip().isEmpty()) << each->objectName().toStdString();
    const auto* button = qobject_cast<const QAbstractButton*>(each);
    EXPECT_TRUE(!each->accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty()));
  }
}

TEST_F(ClassSetFormTest, PreviewsTheFirstThree) {
  Open();
  TypeRange("span", "4", "8", "1");
  TypeRange("load", "10", "40", "5");
  Click("btnPreview");
  EXPECT_EQ(Told(), "The first 3 of 20 students.");
  for (const int variant : {1, 2, 3}) EXPECT_TRUE(IsDrawn(variant));
  EXPECT_THAT(LabelText("variantLbl_2"), MatchesPattern("student-02: span [4-8] m, load [1-4][05] kN"));
  EXPECT_NE(LabelText("variantLbl_1"), LabelText("variantLbl_2"));
  TypeInto("spanToTxt", "9");
  EXPECT_FALSE(IsDrawn(1));
  EXPECT_EQ(LabelText("variantLbl_1"), "");
}

TEST_F(ClassSetFormTest, PreviewsWhatTheSeedGives) {
  Open();
  TypeRange("load", "10", "40", "1");
  Click("btnPreview");
  const std::string first = LabelText("variantLbl_1");
  Click("btnPreview");
  EXPECT_EQ(LabelText("variantLbl_1"), first);
  auto& seed = Find<QSpinBox>("seedSpin");
  seed.setFocus();
  seed.selectAll();
  QTest::keyClicks(&seed, "7");
  Click("btnPreview");
  EXPECT_NE(LabelText("variantLbl_1"), first);
}

TEST_F(ClassSetFormTest, MakesTheSetOfAListAndOpensItsFolder) {
  Open();
  TypeStudents("name\nAnn Lee\nBob");
  TypeRange("load", "10", "40", "5");
  TypeInto("forcesTxt", "1-3");
  EXPECT_TRUE(Find<QCheckBox>("forcesChk").isChecked());
  Choose("zero-membersChk");
  dialog.WillChoose(folder.Path("week-1"));
  Click("btnMake");
  EXPECT_EQ(Told(), "Made " + folder.Path("week-1") + ": 2 students, seed 1.");
  EXPECT_THAT(shell.opened, ElementsAre(folder.Path("week-1")));
  for (const char* name : {"key.csv", "key.pdf", "key.html", "key.tex", "moodle.xml", "Ann Lee/model.stw",
                           "Ann Lee/sheet.pdf", "Bob/sheet.tex", "Bob/sheet.html"}) {
    EXPECT_TRUE(Exists("week-1/" + std::string(name))) << name;
  }
  Click("btnMake");
  EXPECT_EQ(Told(),
            "The folder \"" + folder.Path("week-1") + "\" exists already: choose a new one, so that nothing is lost.");
}

TEST_F(ClassSetFormTest, MakesOnlyTheFilesThatAreChosen) {
  Open();
  TypeStudents("2");
  TypeRange("load", "10", "40", "5");
  LeaveOutDocuments();
  dialog.WillChoose(folder.Path("week-2"));
  Click("btnFolder");
  EXPECT_EQ(Find<QLineEdit>("folderTxt").text().toStdString(), folder.Path("week-2"));
  Click("btnMake");
  EXPECT_TRUE(Exists("week-2/student-01/model.stw"));
  EXPECT_FALSE(Exists("week-2/student-01/sheet.html"));
  EXPECT_FALSE(Exists("week-2/moodle.xml"));
}

TEST_F(ClassSetFormTest, MakesNothingWhereTheFolderIsNotChosen) {
  Open();
  dialog.WillCancel();
  Click("btnMake");
  EXPECT_EQ(Told(), "");
  EXPECT_THAT(shell.opened, IsEmpty());
}

TEST_F(ClassSetFormTest, RefusesInOneSentence) {
  Open();
  Click("btnPreview");
  EXPECT_EQ(Told(), "Nothing differs from student to student: give a range to some quantity.");
  TypeInto("spanFromTxt", "4");
  Click("btnPreview");
  EXPECT_EQ(Told(), "The range of the span is not whole: write where it begins, where it ends and a step.");
  TypeRange("span", "4", "many", "1");
  Click("btnPreview");
  EXPECT_EQ(Told(), "The range of the span holds \"many\", which is no number: write one such as 12.5.");
  TypeRange("span", "4", "5", "1");
  Choose("reactionsChk");
  Click("btnPreview");
  EXPECT_EQ(Told(), "Nothing is asked: choose a question.");
  TypeInto("forcesTxt", "9");
  Click("btnPreview");
  EXPECT_EQ(Told(), "There is no member 9: choose one from 1 to 3.");
  EXPECT_FALSE(IsDrawn(1));
}

TEST_F(ClassSetFormTest, SaysHowManyVariantsThereAreAndLeavesNothing) {
  Open();
  TypeRange("load", "10", "20", "5");
  dialog.WillChoose(folder.Path("class"));
  const auto before = folder.EntryCount();
  Click("btnMake");
  EXPECT_EQ(Told(), "There are only 3 usable variants for 20 students: widen the ranges or make their steps smaller.");
  EXPECT_EQ(folder.EntryCount(), before);
  EXPECT_THAT(shell.opened, IsEmpty());
}

TEST_F(ClassSetFormTest, RefusesToMakeNoFile) {
  Open();
  TypeRange("load", "10", "40", "1");
  LeaveOutDocuments();
  for (const char* box : {"stwChk", "csvChk"}) Choose(box);
  dialog.WillChoose(folder.Path("class"));
  Click("btnMake");
  EXPECT_EQ(Told(), "No file would be made: choose some kind of them.");
}

TEST_F(ClassSetFormTest, SaysThatTheFolderCanNotBeWritten) {
  Open();
  TypeRange("load", "10", "40", "1");
  PutFile(folder.Path("file"), "");
  const std::string below = folder.Path("file/class");
  dialog.WillChoose(below);
  Click("btnMake");
  EXPECT_THAT(Told(), testing::StartsWith("The folder \"" + below + "\" could not be written: "));
}

TEST_F(ClassSetFormTest, LeavesNothingWhenItIsCancelled) {
  Open();
  TypeRange("load", "10", "40", "1");
  dialog.WillChoose(folder.Path("class"));
  ThePlatform().now = [] {
    static std::chrono::steady_clock::time_point time;
    return time += std::chrono::seconds(2);
  };
  const auto before = folder.EntryCount();
  bool wasShown = false;
  QTimer::singleShot(0, frame.get(), [this, &wasShown] {
    wasShown = Find<QProgressBar>("workBar").isEnabled() && frame->IsWorking();
    Click("btnCancel");
  });
  Click("btnMake");
  EXPECT_TRUE(wasShown);
  EXPECT_EQ(Told(), "Cancelled: nothing was made.");
  EXPECT_EQ(folder.EntryCount(), before);
  EXPECT_FALSE(Find<QPushButton>("btnCancel").isEnabled());
  EXPECT_FALSE(frame->IsWorking());
  EXPECT_TRUE(frame->Status().ShowProgress("Solving the equations", 0.5));
  EXPECT_TRUE(Find<QProgressBar>("stsBar_Progress").isVisible()); // in the status bar again
  frame->Status().EndProgress();
}

TEST_F(ClassSetFormTest, MakesASetOfAFamily) {
  Open();
  EXPECT_FALSE(Find<QLineEdit>("baysFromTxt").isVisible());
  auto& source = Find<QComboBox>("sourceCmb");
  source.setFocus();
  QTest::keyClicks(&source, "Warren truss");
  EXPECT_EQ(source.currentText(), "Warren truss");
  EXPECT_EQ(Find<QLineEdit>("spanValueTxt").text(), "24");
  EXPECT_FALSE(Find<QLabel>("spanNowLbl").isVisible());
  EXPECT_FALSE(Find<QLineEdit>("vertical-areaFromTxt").isVisible()); // it has no verticals
  TypeInto("heightValueTxt", "4");
  TypeRange("bays", "4", "8", "1");
  TypeRange("load", "10", "40", "5");
  Click("btnPreview");
  EXPECT_EQ(Told(), "The first 3 of 20 students.");
  EXPECT_THAT(LabelText("variantLbl_1"), MatchesPattern("student-01: bays [4-8], load [1-4][05] kN"));
  for (const char* box : {"pdfChk", "htmlChk", "texChk", "moodleChk"}) Choose(box);
  dialog.WillChoose(folder.Path("family"));
  Click("btnMake");
  EXPECT_TRUE(Exists("family/student-20/model.stw"));
  EXPECT_EQ(NodeCount, 3); // the open model stays
  source.setFocus();
  QTest::keyClick(&source, Qt::Key_Home);
  EXPECT_TRUE(Find<QLabel>("spanNowLbl").isVisible());
  EXPECT_FALSE(Find<QLineEdit>("spanValueTxt").isVisible());
  EXPECT_FALSE(IsDrawn(1));
}

TEST_F(ClassSetFormTest, TakesNamesFromAFile) {
  Open();
  PutFile(folder.Path("class.csv"), "sep=;\nname;mail\nAnn Lee;a@b\nBob;c@d\n");
  dialog.WillChoose(folder.Path("class.csv"));
  Click("btnList");
  EXPECT_EQ(Find<QPlainTextEdit>("studentsTxt").toPlainText(), "Ann Lee\nBob\n");
  PutFile(folder.Path("class.csv"), "..\n");
  dialog.WillChoose(folder.Path("class.csv"));
  Click("btnList");
  EXPECT_EQ(Told(), "Line 1 of the list: the name \"..\" means another folder; give each student a name of one's own "
                    "that can be a folder's.");
  EXPECT_EQ(Find<QPlainTextEdit>("studentsTxt").toPlainText(), "Ann Lee\nBob\n");
  dialog.WillCancel();
  Click("btnList");
}

TEST_F(ClassSetFormTest, LeavesTheModelAndItsResultsAlone) {
  Open();
  frame->runAnalysis();
  const FieldTable nodes = NodeTable;
  const FieldTable members = MemberTable;
  const std::vector<float> displacements = Displacements;
  TypeStudents("2");
  TypeRange("load", "10", "40", "5");
  Click("btnPreview");
  LeaveOutDocuments();
  dialog.WillChoose(folder.Path("class"));
  Click("btnMake");
  EXPECT_TRUE(Exists("class/key.csv"));
  EXPECT_TRUE(NodeTable == nodes);
  EXPECT_TRUE(MemberTable == members);
  EXPECT_EQ(Displacements, displacements);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(LabelText("stsBar_Analysis"), "Analysis Done");
}

TEST_F(ClassSetFormTest, TakesTheModelFromTheGrids) {
  Open();
  TypeRange("load", "10", "40", "1");
  Click("btnPreview");
  EXPECT_TRUE(IsDrawn(1));
  ClickCell(View("GrJoints"), 2, 1);
  Type("6");
  Press(Qt::Key_Return);
  Click("btnPreview");
  EXPECT_EQ(LabelText("spanNowLbl"), "now 6 m");
  Command("mnuNew").trigger();
  Click("btnPreview");
  EXPECT_EQ(Told(), "The model has no nodes: build a truss first.");
  EXPECT_EQ(LabelText("spanNowLbl"), "none");
}

} // namespace
} // namespace strutwright
