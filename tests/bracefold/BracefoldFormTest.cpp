// Bracefold's window, driven by keys and mouse.

#include "BracefoldFormFixture.h"
#include "DisplayState.h"
#include "TrussFixture.h"
#include "modPlaces.h"

#include <filesystem>
#include <set>

#include <QAbstractButton>
#include <QCheckBox>
#include <QWheelEvent>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

bool IsMarked(const QWidget& control) {
  return control.palette().color(QPalette::Base) != QApplication::palette().color(QPalette::Base);
}

TEST_F(BracefoldFormTest, OpensOnATruss) {
  EXPECT_EQ(window->windowTitle(), "Bracefold");
  EXPECT_FALSE(window->windowIcon().isNull());
  EXPECT_EQ(window->objectName(), "frmBracefold");
  EXPECT_EQ(Line("spanTxt").text(), "24");
  EXPECT_EQ(Find<QSpinBox>("baysSpin").value(), 8);
  EXPECT_EQ(Label("summaryLbl"), "16 nodes, 29 members, statically determinate");
  EXPECT_EQ(NodeCount, 16);
  EXPECT_TRUE(Button("btnSave").isEnabled());
  EXPECT_FALSE(Find<QLabel>("errorLbl").isVisible());
}

TEST_F(BracefoldFormTest, OpensOnTheTrussThatItIsGiven) {
  TrussTexts texts = WithBays(Family("k"), 6);
  texts[TrussField::Load] = "-7.5";
  texts.support = "roller-pin";
  window = std::make_unique<frmBracefold>(Family("k"), texts);

  EXPECT_EQ(Find<QComboBox>("familyBox").currentText(), "K truss");
  EXPECT_EQ(Find<QSpinBox>("baysSpin").value(), 6);
  EXPECT_EQ(Line("loadTxt").text(), "-7.5");
  EXPECT_EQ(Find<QComboBox>("supportBox").currentText(), "Roller at the left, pin at the right");
}

TEST_F(BracefoldFormTest, HasALabelWithAKeyForEveryField) {
  for (const char* name : {"familyBox", "spanTxt", "heightTxt", "baysSpin", "eTxt", "chordAreaTxt", "verticalAreaTxt",
                           "diagonalAreaTxt", "loadTxt", "supportBox"}) {
    const auto& control = Find<QWidget>(name);
    int labels = 0;
    for (const QLabel* label : window->findChildren<QLabel*>()) {
      if (label->buddy() != &control) continue;
      ++labels;
      EXPECT_THAT(label->text().toStdString(), HasSubstr("&"));
    }
    EXPECT_EQ(labels, 1) << name;
  }
}

TEST_F(BracefoldFormTest, HasNoKeyTwice) {
  std::set<QChar> keys;
  const auto take = [&keys](const QString& text) {
    if (!text.contains('&')) return;
    EXPECT_TRUE(keys.insert(text[text.indexOf('&') + 1].toLower()).second) << text.toStdString();
  };
  for (const QLabel* label : window->findChildren<QLabel*>()) take(label->text());
  for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) take(button->text());
  EXPECT_EQ(keys.size(), 14U);
}

TEST_F(BracefoldFormTest, ShowsWhatEveryControlIsFor) {
  for (const char* name : {"familyBox", "spanTxt", "heightTxt", "baysSpin", "eTxt", "chordAreaTxt", "verticalAreaTxt",
                           "diagonalAreaTxt", "loadTxt", "supportBox", "numbersChk", "preview"}) {
    EXPECT_NE(Find<QWidget>(name).accessibleName(), "") << name;
    EXPECT_NE(Find<QWidget>(name).toolTip(), "") << name;
  }
  for (const char* name : {"btnSave", "btnSaveOpen", "btnClose"}) EXPECT_NE(Button(name).toolTip(), "") << name;
}

TEST_F(BracefoldFormTest, GivesUnits) {
  QStringList units;
  for (const QLabel* label : window->findChildren<QLabel*>()) {
    if (label->buddy() == nullptr && label->objectName().isEmpty()) units << label->text();
  }
  const QString mm2 = QString::fromUtf8("mm\xc2\xb2");
  EXPECT_EQ(units, QStringList({"m", "m", "", "kN/" + mm2, mm2, mm2, mm2, "kN"}));
}

TEST_F(BracefoldFormTest, FollowsWhileOneTypes) {
  Type(Line("spanTxt"), "30");
  EXPECT_EQ(NodeTable(NodeCount, NodeX), 30.0F);
  QTest::keyClicks(&Line("spanTxt"), "0");
  EXPECT_EQ(NodeTable(NodeCount, NodeX), 300.0F);
  Type(Find<QSpinBox>("baysSpin"), "10");
  EXPECT_EQ(Label("summaryLbl"), "20 nodes, 37 members, statically determinate");
}

TEST_F(BracefoldFormTest, TakesEveryFieldIntoTheModel) {
  Type(Line("heightTxt"), "4");
  Type(Line("eTxt"), "70");
  Type(Line("chordAreaTxt"), "11");
  Type(Line("verticalAreaTxt"), "12");
  Type(Line("diagonalAreaTxt"), "13");
  Type(Line("loadTxt"), "2.5");

  std::set<float> areas;
  for (int m = 1; m <= MemberCount; ++m) areas.insert(MemberTable(m, MemberA));
  EXPECT_THAT(areas, ElementsAre(11, 12, 13));
  EXPECT_EQ(MemberTable(1, MemberE), 70);
  EXPECT_EQ(NodeTable(3, NodeY), 4);
  EXPECT_EQ(NodeTable(2, NodeForceY), -2.5F);
}

TEST_F(BracefoldFormTest, NamesAndMarksTheFieldThatIsWrong) {
  Type(Line("heightTxt"), "abc");

  EXPECT_EQ(Label("errorLbl"), "Height must be a number from 0.1 to 10000 m");
  EXPECT_TRUE(Find<QLabel>("errorLbl").isVisible());
  EXPECT_FALSE(Find<QLabel>("summaryLbl").isVisible());
  EXPECT_TRUE(IsMarked(Line("heightTxt")));
  EXPECT_FALSE(IsMarked(Line("spanTxt")));
  EXPECT_EQ(Line("heightTxt").accessibleDescription(), "must be a number from 0.1 to 10000 m");
  EXPECT_FALSE(Button("btnSave").isEnabled());
  EXPECT_FALSE(Button("btnSaveOpen").isEnabled());
  EXPECT_EQ(NodeCount, 16);
}

TEST_F(BracefoldFormTest, ForgetsAFaultThatIsMended) {
  Type(Line("loadTxt"), "1e9");
  ASSERT_TRUE(IsMarked(Line("loadTxt")));

  Type(Line("loadTxt"), "1");

  EXPECT_FALSE(IsMarked(Line("loadTxt")));
  EXPECT_EQ(Line("loadTxt").accessibleDescription(), "");
  EXPECT_FALSE(Find<QLabel>("errorLbl").isVisible());
  EXPECT_TRUE(Button("btnSave").isEnabled());
}

TEST_F(BracefoldFormTest, MarksBaysThatTheFamilyCannotHave) {
  Open("fink");
  EXPECT_EQ(Find<QSpinBox>("baysSpin").singleStep(), 2);

  Type(Find<QSpinBox>("baysSpin"), "7");

  EXPECT_TRUE(IsMarked(Find<QSpinBox>("baysSpin")));
  EXPECT_EQ(Label("errorLbl"), "Bays must be an even number from 4 to 200 for the family fink");
}

TEST_F(BracefoldFormTest, ChangesTheFamily) {
  Choose(Find<QComboBox>("familyBox"), "Tower");

  EXPECT_EQ(Line("spanTxt").text(), "4");
  EXPECT_EQ(Line("heightTxt").text(), "20");
  EXPECT_EQ(Find<QComboBox>("supportBox").currentText(), "Both feet pinned to the ground");
  EXPECT_EQ(Label("summaryLbl"), "18 nodes, 32 members, statically determinate");
}

TEST_F(BracefoldFormTest, KeepsWhatWasTypedForAnotherFamily) {
  Type(Line("eTxt"), "210");
  Type(Line("spanTxt"), "20");
  Choose(Find<QComboBox>("familyBox"), "Fink roof");
  EXPECT_EQ(Line("eTxt").text(), "210");
  EXPECT_EQ(Line("spanTxt").text(), "20");
}

TEST_F(BracefoldFormTest, KeepsWhatWasTypedEvenIfItIsAnotherFamilysStandard) {
  auto& family = Find<QComboBox>("familyBox");
  auto& support = Find<QComboBox>("supportBox");
  Type(Line("heightTxt"), "20");
  Choose(support, "Pins at both ends");
  Choose(family, "Tower");
  Choose(family, "Pratt truss");
  EXPECT_EQ(Line("heightTxt").text(), "20");
  EXPECT_EQ(support.currentText(), "Pins at both ends");
}

TEST_F(BracefoldFormTest, TakesNoTrussWithoutANumberOfBays) {
  auto& bays = Find<QSpinBox>("baysSpin");
  bays.setFocus();
  bays.selectAll();
  QTest::keyClick(&bays, Qt::Key_Backspace);
  EXPECT_FALSE(Button("btnSave").isEnabled());
  EXPECT_EQ(Label("errorLbl"), "Bays must be a whole number from 2 to 200 for the family pratt");

  QTest::keyClick(&bays, Qt::Key_Tab);
  EXPECT_EQ(bays.text(), "8");
  EXPECT_TRUE(Button("btnSave").isEnabled());
}

TEST_F(BracefoldFormTest, OffersEveryFamily) {
  const auto& box = Find<QComboBox>("familyBox");
  std::vector<std::string> families;
  for (int i = 0; i < box.count(); ++i) families.push_back(box.itemText(i).toStdString());
  EXPECT_THAT(families, ElementsAre("Pratt truss", "Howe truss", "Warren truss", "Warren truss with verticals",
                                    "K truss", "Fink roof", "Bowstring arch", "Cantilever", "Tower"));
}

TEST_F(BracefoldFormTest, TakesNoAreaOfVerticalsWhereThereAreNone) {
  Choose(Find<QComboBox>("familyBox"), "Warren truss");
  EXPECT_FALSE(Line("verticalAreaTxt").isEnabled());
  Choose(Find<QComboBox>("familyBox"), "Warren truss with verticals");
  EXPECT_TRUE(Line("verticalAreaTxt").isEnabled());
}

TEST_F(BracefoldFormTest, ChangesTheSupport) {
  Choose(Find<QComboBox>("supportBox"), "Pins at both ends");
  EXPECT_EQ(NodeTable(NodeCount, NodeSupport), 3);
  EXPECT_EQ(Label("summaryLbl"), "16 nodes, 29 members, statically indeterminate to degree 1");
}

TEST_F(BracefoldFormTest, DrawsTheTruss) {
  EXPECT_GT(Ink(Qt::black), 500);
  EXPECT_GT(Ink(Qt::red), 100);
  EXPECT_GT(Ink(Qt::green), 10);
}

TEST_F(BracefoldFormTest, DrawsNoLoadWhereThereIsNone) {
  Type(Line("loadTxt"), "0");
  EXPECT_EQ(Ink(Qt::red), 0);
}

TEST_F(BracefoldFormTest, DrawsNumbersWhereTheyAreWanted) {
  Type(Line("loadTxt"), "0");
  QTest::keyClick(&Find<QWidget>("numbersChk"), Qt::Key_Space);
  EXPECT_GT(Ink(Qt::red), 50);
}

TEST_F(BracefoldFormTest, ScalesTheLoadsToTheTruss) {
  EXPECT_FLOAT_EQ(LoadsScale, 10 / 2.4F);
  Type(Line("loadTxt"), "5000");
  EXPECT_FLOAT_EQ(LoadsScale, 5000 / 2.4F);
  Choose(Find<QComboBox>("familyBox"), "Tower");
  EXPECT_FLOAT_EQ(LoadsScale, 5000 / 2.0F);
}

/// Of everything in the preview that is not white.
/// Within the frame that the picture has while it has the keyboard.
int FirstInkedColumn(const QImage& whole) {
  constexpr int frame = 2;
  const QImage picture = whole.copy(whole.rect().adjusted(frame, frame, -frame, -frame));
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = 0; y < picture.height(); ++y) {
      if (picture.pixelColor(x, y) != Qt::white) return x;
    }
  }
  return picture.width();
}

TEST_F(BracefoldFormTest, ZoomsWithTheWheel) {
  auto& preview = Find<QWidget>("preview");
  const float before = DisplaySurface->Window().width;
  const QPointF middle(preview.width() / 2.0, preview.height() / 2.0);
  QWheelEvent turn(middle, preview.mapToGlobal(middle), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);

  QApplication::sendEvent(&preview, &turn);

  EXPECT_FLOAT_EQ(DisplaySurface->Window().width, before / 1.25F);
}

TEST_F(BracefoldFormTest, MovesAndZoomsThePictureByKeys) {
  auto& preview = Find<QWidget>("preview");
  const ViewWindow before = DisplaySurface->Window();

  QTest::keyClick(&preview, Qt::Key_Right);
  QTest::keyClick(&preview, Qt::Key_Minus);

  EXPECT_FLOAT_EQ(DisplaySurface->Window().width, before.width * 1.25F);
  EXPECT_GT(DisplaySurface->Window().left + DisplaySurface->Window().width / 2, before.left + before.width / 2);
}

TEST_F(BracefoldFormTest, MovesThePictureByDragging) {
  auto& preview = Find<QWidget>("preview");
  const int before = FirstInkedColumn(preview.grab().toImage());
  QTest::mouseMove(&preview, QPoint(200, 200));
  QTest::mousePress(&preview, Qt::LeftButton, {}, QPoint(200, 200));
  QMouseEvent move(QEvent::MouseMove, QPointF(240, 200), preview.mapToGlobal(QPointF(240, 200)), Qt::NoButton,
                   Qt::LeftButton, {});
  QApplication::sendEvent(&preview, &move);
  QTest::mouseRelease(&preview, Qt::LeftButton, {}, QPoint(240, 200));
  EXPECT_NEAR(FirstInkedColumn(preview.grab().toImage()), before + 40, 1);
}

TEST_F(BracefoldFormTest, FramesTheTrussAgainWhenItChanges) {
  const ViewWindow framed = DisplaySurface->Window();
  DisplaySurface->SetWindow({5, 5, 1, 1});
  Type(Line("eTxt"), "100");
  EXPECT_EQ(DisplaySurface->Window(), framed);
}

TEST_F(BracefoldFormTest, SavesAModel) {
  Type(Find<QSpinBox>("baysSpin"), "6");
  dialog.WillChoose(folder.Path("bridge.stw"));

  Click("btnSave");

  const StoredModel model = LoadModelFile(folder.Path("bridge.stw"));
  EXPECT_EQ(model.nodeCount, 12);
  EXPECT_EQ(model.memberCount, 21);
  EXPECT_EQ(model.capacity, 21);
  EXPECT_EQ(model.presentValues, model.promisedValues);
  EXPECT_EQ(Label("summaryLbl"), "Saved as bridge.stw: 12 nodes, 21 members, statically determinate");
}

TEST_F(BracefoldFormTest, AsksForTheNameOfAModel) {
  dialog.WillCancel();
  Click("btnSave");
  EXPECT_THAT(dialog.shown, ElementsAre(ShownFileDialog{"save", "Save As", OverwritePrompt, "stw", "",
                                                        "Strutwright files|*.stw|All files|*.*", ""}));
  EXPECT_EQ(folder.EntryCount(), 0);
  EXPECT_EQ(Label("summaryLbl"), "16 nodes, 29 members, statically determinate");
}

TEST_F(BracefoldFormTest, ForgetsThatItSavedOnceTheTrussChanges) {
  dialog.WillChoose(folder.Path("bridge.stw"));
  Click("btnSave");
  Type(Line("eTxt"), "100");
  EXPECT_EQ(Label("summaryLbl"), "16 nodes, 29 members, statically determinate");
}

TEST_F(BracefoldFormTest, ReportsWhenAModelCannotBeSaved) {
  const std::string path = folder.Path("missing/bridge.stw");
  dialog.WillChoose(path);
  Click("btnSave");
  const std::vector<Message> shown = TakeMessages();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_THAT(shown[0].text, HasSubstr("Error while saving file " + path + "\nNo such file"));
  EXPECT_EQ(Label("summaryLbl"), "16 nodes, 29 members, statically determinate");
}

TEST_F(BracefoldFormTest, SavesByKeys) {
  dialog.WillChoose(folder.Path("a.stw"));
  QTest::keyClick(&Line("spanTxt"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(folder.EntryCount(), 1);
}

constexpr char Separator = static_cast<char>(std::filesystem::path::preferred_separator);

TEST_F(BracefoldFormTest, SavesAndOpensTheModelInStrutwright) {
  EXPECT_EQ(Button("btnSaveOpen").text(), "Save and O&pen in Strutwright");
  ThePlatform().programFolder = "/opt/truss";
  const std::string path = folder.Path("my bridge.stw");
  dialog.WillChoose(path);
  Click("btnSaveOpen");
  EXPECT_EQ(LoadModelFile(path).nodeCount, 16);
  EXPECT_THAT(shell.started, ElementsAre(ElementsAre(MainProgram("/opt/truss", Separator), "--open", path)));
  EXPECT_EQ(Label("summaryLbl"), "Saved as my bridge.stw: 16 nodes, 29 members, statically determinate");
  EXPECT_TRUE(window->isVisible());
}

TEST_F(BracefoldFormTest, OpensNothingThatWasNotSaved) {
  dialog.WillCancel();
  Click("btnSaveOpen");
  dialog.WillChoose(folder.Path("missing/bridge.stw"));
  Click("btnSaveOpen");
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(dialog.shown.size(), 2U);
  EXPECT_TRUE(shell.started.empty());
}

TEST_F(BracefoldFormTest, SaysWhereStrutwrightIsMissing) {
  ThePlatform().programFolder = "/opt/truss";
  shell.startsPrograms = false;
  dialog.WillChoose(folder.Path("bridge.stw"));
  Click("btnSaveOpen");
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Information, "Strutwright can't be started. It would be at\n" +
                                                            MainProgram("/opt/truss", Separator))));
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(BracefoldFormTest, SavesNothingThatIsWrong) {
  Type(Line("spanTxt"), "");
  QTest::keyClick(&Line("spanTxt"), Qt::Key_S, Qt::ControlModifier);
  Click("btnSave");
  Click("btnSaveOpen");
  EXPECT_EQ(dialog.shown.size(), 0U);
}

TEST_F(BracefoldFormTest, Closes) {
  Click("btnClose");
  EXPECT_FALSE(window->isVisible());
  Open("howe");
  QTest::keyClick(&Line("spanTxt"), Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(BracefoldFormTest, LeadsThroughItsFieldsInTheirOrder) {
  std::vector<std::string> order;
  for (int i = 0; i < 10; ++i) {
    order.push_back(QApplication::focusWidget()->objectName().toStdString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("familyBox", "spanTxt", "heightTxt", "baysSpin", "eTxt", "chordAreaTxt",
                                 "verticalAreaTxt", "diagonalAreaTxt", "loadTxt", "supportBox"));
}

TEST_F(BracefoldFormTest, CutsNoTextOff) {
  for (const TrussFamily& family : TrussFamilies()) {
    Open(std::string(family.name));
    for (const QComboBox* box : window->findChildren<QComboBox*>()) {
      constexpr int Arrow = 20;
      for (int i = 0; i < box->count(); ++i) {
        EXPECT_LE(box->fontMetrics().horizontalAdvance(box->itemText(i)) + Arrow, box->width())
            << box->itemText(i).toStdString();
      }
    }
  }
}

} // namespace
} // namespace strutwright
