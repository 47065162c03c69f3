#include "AnalysisState.h"
#include "DisplayState.h"
#include "EditingState.h"
#include "FileState.h"
#include "FormFixture.h"
#include "RecentFiles.h"
#include "frmOptions.h"
#include "modModelStore.h"

#include <functional>

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OptionsFormTest : public FormTest {
 protected:
  OptionsFormTest() { Open(); }

  /// Shows the dialog, or another one in its place.
  void Open() {
    options = std::make_unique<frmOptions>(*frame);
    options->show();
    options->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return options->isActiveWindow(); }));
  }

  template <class Control>
  Control& Part(const QString& name) {
    auto* part = options->findChild<Control*>(name);
    if (part == nullptr) throw std::runtime_error("There is no control " + name.toStdString());
    return *part;
  }

  QLineEdit& Field(const QString& name) { return Part<QLineEdit>(name); }
  std::string FieldText(const QString& name) { return Field(name).text().toStdString(); }
  QTabWidget& Tabs() { return Part<QTabWidget>("tbsOptions"); }

  void TypeInto(const QString& name, const QString& text) {
    Field(name).selectAll();
    QTest::keyClicks(&Field(name), text);
  }

  void Click(const QString& button) { QTest::mouseClick(&Part<QAbstractButton>(button), Qt::LeftButton); }

  std::unique_ptr<frmOptions> options;
};

TEST_F(OptionsFormTest, HasTwoPagesWithTheirFrames) {
  EXPECT_EQ(options->windowTitle(), "Options");
  ASSERT_EQ(Tabs().count(), 2);
  EXPECT_EQ(Tabs().tabText(0), "General");
  EXPECT_EQ(Tabs().tabText(1), "Node Snap Mode");
  const auto titles = [this](const QString& page) {
    std::vector<std::string> texts;
    for (const QGroupBox* group : Part<QWidget>(page).findChildren<QGroupBox*>()) {
      texts.push_back(group->title().remove('&').toStdString());
    }
    return texts;
  };
  EXPECT_THAT(titles("picOptions_0"),
              ElementsAre("File Handling", "Grid line style", "Maximum No. of Nodes or Members"));
  EXPECT_THAT(titles("picOptions_1"), ElementsAre("Node Snap Settings"));
}

TEST_F(OptionsFormTest, HasRoomForItsNoteInEveryFont) {
  const QFont before = QApplication::font();
  for (int pixels = 9; pixels <= 30; ++pixels) {
    QFont font = before;
    font.setPixelSize(pixels);
    QApplication::setFont(font);
    Open();
    const QLabel& note = Part<QLabel>("capacityNote");
    EXPECT_GE(note.height(), note.heightForWidth(note.width())) << pixels;
  }
  QApplication::setFont(before);
}

TEST_F(OptionsFormTest, CaptionsItsFields) {
  std::vector<std::string> captions;
  for (const QLabel* each : options->findChildren<QLabel*>())
    captions.push_back(each->text().remove('&').toStdString());
  EXPECT_THAT(captions, testing::IsSupersetOf({"No of files in most recently used list", "X spacing (m)",
                                               "Y spacing (m)", "Snap Radius (m)", "Start Node No.",
                                               "Keep this value as close to your expected requirement as possible "
                                               "for an economic performance (max: 5000)"}));
  EXPECT_EQ(Part<QRadioButton>("optGridline_0").text().remove('&'), "Solid linetype");
  EXPECT_EQ(Part<QRadioButton>("optGridline_1").text().remove('&'), "Dashed linetype");
  EXPECT_EQ(Part<QPushButton>("cmdCancel").text(), "Cancel");
  EXPECT_EQ(Part<QPushButton>("cmdApply").text().remove('&'), "Apply");
}

TEST_F(OptionsFormTest, OpensWithTheSettingsInForce) {
  EXPECT_EQ(FieldText("xSpaceTxt"), "1");
  EXPECT_EQ(FieldText("snapRtxt"), "0.1");
  EXPECT_EQ(FieldText("maxTxt"), "20");
  EXPECT_EQ(FieldText("txtMaxFiles"), "3");
  EXPECT_TRUE(Part<QRadioButton>("optGridline_1").isChecked());
  GridSpacingY = 2.5F;
  GridCapacity = 300;
  GridLineStyle = 0;
  Open();
  EXPECT_EQ(FieldText("ySpaceTxt"), "2.5");
  EXPECT_EQ(FieldText("maxTxt"), "300");
  EXPECT_TRUE(Part<QRadioButton>("optGridline_0").isChecked());
  Click("cmdOK");
  EXPECT_EQ(GrJoints.RowCount(), 21) << "opening is no change of the capacity";
}

TEST_F(OptionsFormTest, SwitchesTheWidthsAndTheLegendOfTheClearDrawing) {
  frame->SwitchStyle();
  EXPECT_TRUE(Part<QCheckBox>("widthChk").isChecked());
  EXPECT_TRUE(Part<QCheckBox>("legendChk").isChecked());
  Click("widthChk");
  Click("legendChk");
  EXPECT_TRUE(TheDisplay.WidthByForce && TheDisplay.ShowLegend) << "before Apply";
  Click("cmdApply");
  EXPECT_FALSE(TheDisplay.WidthByForce);
  EXPECT_FALSE(TheDisplay.ShowLegend);
  Open();
  EXPECT_FALSE(Part<QCheckBox>("widthChk").isChecked());
  EXPECT_FALSE(Part<QCheckBox>("legendChk").isChecked());
}

TEST_F(OptionsFormTest, ForgetsTheSwitchesOfTheClearDrawingOnCancel) {
  Click("legendChk");
  Click("cmdCancel");
  EXPECT_TRUE(TheDisplay.ShowLegend);
}

TEST_F(OptionsFormTest, KeepsTheSwitchesOfTheClearDrawingForTheNextRunOutsideOfTheSettings) {
  Click("cmdApply");
  const auto before = settings.texts;
  Click("widthChk");
  Click("cmdOK");
  options.reset();
  StartNextRun();
  TheDisplay.WidthByForce = true;
  TheDisplay.ShowLegend = false;
  frame->RestorePlace();
  EXPECT_FALSE(TheDisplay.WidthByForce);
  EXPECT_TRUE(TheDisplay.ShowLegend);
  EXPECT_EQ(settings.texts, before);
}

TEST_F(OptionsFormTest, TurnsItsPagesWithCtrlTab) {
  EXPECT_TRUE(Part<QWidget>("picOptions_0").isVisible());
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_TRUE(Part<QWidget>("picOptions_1").isVisible());
  EXPECT_FALSE(Part<QWidget>("picOptions_0").isVisible());
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Tabs().currentIndex(), 0);
}

TEST_F(OptionsFormTest, TurnsItsPagesFromItsButtonsToo) {
  Part<QPushButton>("cmdApply").setFocus();
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Tabs().currentIndex(), 1);
}

TEST_F(OptionsFormTest, AppliesASpacing) {
  Tabs().setCurrentIndex(1);
  TypeInto("xSpaceTxt", "2.50");
  EXPECT_EQ(GridSpacingX, 1.0F);
  Click("cmdApply");
  EXPECT_EQ(GridSpacingX, 2.5F);
  EXPECT_EQ(FieldText("xSpaceTxt"), "2.5");
  EXPECT_TRUE(options->isVisible());
}

TEST_F(OptionsFormTest, AppliesEachOfItsFields) {
  Tabs().setCurrentIndex(1);
  TypeInto("ySpaceTxt", "3");
  TypeInto("snapRtxt", ".25");
  TypeInto("snapSNtxt", "7");
  Tabs().setCurrentIndex(0);
  TypeInto("txtMaxFiles", "9");
  Click("cmdOK");
  EXPECT_EQ(GridSpacingY, 3.0F);
  EXPECT_EQ(PickRadius, 0.25F);
  EXPECT_EQ(StartNodeNumber, 7);
  EXPECT_EQ(MAX_FILES, 9);
  EXPECT_EQ(settings.texts["Config/MAX_FILES"], "9");
  EXPECT_FALSE(options->isVisible());
}

TEST_F(OptionsFormTest, BlocksKeysThatNoNumberIsWrittenWith) {
  Tabs().setCurrentIndex(1);
  for (const char* name : {"xSpaceTxt", "ySpaceTxt", "snapRtxt", "snapSNtxt"}) {
    TypeInto(name, "-a1,2e");
    EXPECT_EQ(FieldText(name), "12") << name;
  }
  TypeInto("txtMaxFiles", "abc");
  EXPECT_EQ(FieldText("txtMaxFiles"), "abc");
}

TEST_F(OptionsFormTest, LetsTheDeleteKeyOfAKeyboardThrough) {
  Tabs().setCurrentIndex(1);
  QLineEdit& field = Field("xSpaceTxt");
  field.setText("12");
  field.setCursorPosition(0);
  // A real keyboard sends the key with its control character, which the test's own helper leaves out.
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, "\x7f");
  QApplication::sendEvent(&field, &press);
  EXPECT_EQ(FieldText("xSpaceTxt"), "2");
}

TEST_F(OptionsFormTest, RevertsWhatIsNoNumber) {
  Tabs().setCurrentIndex(1);
  TypeInto("xSpaceTxt", "1.2.3");
  Click("cmdApply");
  EXPECT_EQ(FieldText("xSpaceTxt"), "1");
  EXPECT_THAT(messages.shown, IsEmpty());
}

TEST_F(OptionsFormTest, KeepsTheLineStyleThatWasChosenBeforeCancel) {
  Click("optGridline_0");
  EXPECT_EQ(GridLineStyle, 0);
  Click("cmdCancel");
  EXPECT_EQ(GridLineStyle, 0);
  EXPECT_FALSE(options->isVisible());
}

TEST_F(OptionsFormTest, KeepsTheCapacityThatWasTypedBeforeCancel) {
  TypeInto("maxTxt", "30");
  Click("cmdCancel");
  EXPECT_EQ(GridCapacity, 30);
  EXPECT_EQ(GrJoints.RowCount(), 21) << "the grids are laid out on Apply only";
}

TEST_F(OptionsFormTest, UndoesAnEditWithoutTheLayoutThatCameAfterIt) {
  options->hide();
  ClickCell(View("GrJoints"), 1, 1);
  Type("7");
  Press(Qt::Key_Return);
  Open();
  TypeInto("maxTxt", "30");
  Click("cmdOK");

  Command("mnuUndo").trigger();

  EXPECT_EQ(GrJoints.Text(1, 1), "");
  EXPECT_EQ(GridCapacity, 30);
  EXPECT_EQ(GrJoints.RowCount(), 31);
  EXPECT_EQ(GrJoints.Text(30, 0), "30");
}

TEST_F(OptionsFormTest, TakesTheCapacityAtOnceAndLaysTheGridsOutOnApply) {
  TypeInto("maxTxt", "30");
  EXPECT_EQ(GridCapacity, 30);
  EXPECT_EQ(GrJoints.RowCount(), 21);
  Click("cmdApply");
  EXPECT_EQ(GrJoints.RowCount(), 31);
  EXPECT_EQ(View("GrJoints").model()->rowCount(), 30);
}

TEST_F(OptionsFormTest, LeavesTheCapacityAtFiveThousandAndAtNoNumber) {
  TypeInto("maxTxt", "4999");
  EXPECT_EQ(GridCapacity, 4999);
  Field("maxTxt").setText("5000");
  EXPECT_EQ(GridCapacity, 4999);
  Field("maxTxt").setText("many");
  EXPECT_EQ(GridCapacity, 4999);
  Click("cmdOK");
  EXPECT_EQ(GrJoints.RowCount(), 21);
}

TEST_F(OptionsFormTest, KeepsTheModelAndItsResultsWhenTheCapacityChanges) {
  EnterThreeBarTruss();
  frame->runAnalysis();
  TypeInto("maxTxt", "2");
  Click("cmdOK");
  EXPECT_EQ(GrJoints.RowCount(), 4);
  EXPECT_EQ(GrJoints.Text(3, 4), "-10");
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(jResGr.RowCount(), 4);
  EXPECT_NE(jResGr.Text(3, 2), "");
  EXPECT_GT(Ink(Qt::blue), 0);
}

TEST_F(OptionsFormTest, DrawsTheNewGridAtOnce) {
  const auto drawing = [this] { return Find<QWidget>("Disp").grab().toImage(); };
  const QImage before = drawing();
  Click("optGridline_0");
  Click("cmdApply");
  EXPECT_NE(drawing(), before);
}

TEST_F(OptionsFormTest, ForgetsWhatWasNotApplied) {
  TypeInto("txtMaxFiles", "abc");
  Tabs().setCurrentIndex(1);
  TypeInto("xSpaceTxt", "7");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(options->isVisible());
  EXPECT_EQ(GridSpacingX, 1.0F);
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "3");
  Open();
  EXPECT_EQ(FieldText("xSpaceTxt"), "1");
  EXPECT_EQ(FieldText("txtMaxFiles"), "3");
}

TEST_F(OptionsFormTest, SaysThatALimitIsNoNumberAndTakesFour) {
  TypeInto("txtMaxFiles", "abc");
  Click("cmdOK");
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::None, "Please input a number in future, ok")));
  EXPECT_EQ(MAX_FILES, 4);
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "4") << "no later command asks again";
}

TEST_F(OptionsFormTest, TakesTheReturnKeyForOK) {
  TypeInto("txtMaxFiles", "7");
  QTest::keyClick(&Field("txtMaxFiles"), Qt::Key_Return);
  EXPECT_FALSE(options->isVisible());
  EXPECT_EQ(MAX_FILES, 7);
}

TEST_F(OptionsFormTest, LeadsToEveryFieldByItsKey) {
  const auto press = [this](Qt::Key key) { QTest::keyClick(options.get(), key, Qt::AltModifier); };
  press(Qt::Key_S);
  EXPECT_TRUE(QTest::qWaitFor([] { return GridLineStyle == 0; })) << "a button stays down for a moment";
  press(Qt::Key_M);
  EXPECT_TRUE(Field("maxTxt").hasFocus());
  press(Qt::Key_F);
  EXPECT_TRUE(Field("txtMaxFiles").hasFocus());
  Tabs().setCurrentIndex(1);
  press(Qt::Key_R);
  EXPECT_TRUE(Field("snapRtxt").hasFocus());
}

TEST_F(OptionsFormTest, DescribesEveryControl) {
  for (const char* name : {"xSpaceTxt", "ySpaceTxt", "snapRtxt", "snapSNtxt", "maxTxt", "txtMaxFiles"}) {
    EXPECT_FALSE(Field(name).accessibleName().isEmpty()) << name;
    EXPECT_FALSE(Field(name).toolTip().isEmpty()) << name;
  }
  for (const char* name : {"optGridline_0", "optGridline_1", "cmdOK", "cmdCancel", "cmdApply"}) {
    EXPECT_FALSE(Part<QAbstractButton>(name).toolTip().isEmpty()) << name;
  }
}

TEST_F(OptionsFormTest, ShowsEveryTextWhole) {
  for (int page = 0; page < 2; ++page) {
    Tabs().setCurrentIndex(page);
    for (const QLabel* label : options->findChildren<QLabel*>()) {
      if (!label->isVisible()) continue;
      const QSize needed = label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->sizeHint();
      EXPECT_GE(label->width(), needed.width()) << label->text().toStdString();
      EXPECT_GE(label->height(), needed.height()) << label->text().toStdString();
    }
  }
}

TEST_F(OptionsFormTest, OpensFromTheToolsMenuAndFromTheToolBar) {
  options.reset();
  for (QAction* opener : {&Command("mnuOptions"), Find<QWidget>("Toolbar1").actions().at(7)}) {
    std::string title;
    QTimer::singleShot(0, frame.get(), [&title] {
      QWidget* open = QApplication::activeModalWidget();
      if (open == nullptr) return;
      title = open->windowTitle().toStdString();
      QTest::keyClick(open, Qt::Key_Escape);
    });
    EXPECT_TRUE(opener->isEnabled());
    opener->trigger();
    EXPECT_EQ(title, "Options");
  }
}

} // namespace
} // namespace strutwright
