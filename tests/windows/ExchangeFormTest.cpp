// File > Import, File > Export, and files that are dropped on the window.

#include "AnalysisState.h"
#include "FileState.h"
#include "FormFixture.h"
#include "modEditSnapshot.h"
#include "modModelFile.h"
#include "modModelStore.h"
#include "modSavedModels.h"

#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QUrl>
#include <QWindow>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string TwoBars = "x (m);y (m);Support;ForceY (kN);Colour\n0;0;3;;red\n4,5;0;3;;red\n2,25;3;0;-10;red\n"
                            "Node i;Node j;E (GPa);A (cm2)\n1;3;210;12\n2;3;210;12\n";

std::string Group(int code, const std::string& value) { return std::to_string(code) + "\n" + value + "\n"; }

std::string DrawnLine(const std::string& x1, const std::string& y1, const std::string& x2, const std::string& y2) {
  return Group(0, "LINE") + Group(8, "0") + Group(10, x1) + Group(20, y1) + Group(11, x2) + Group(21, y2);
}

/// Two diagonals of a square of 4 m, drawn in mm.
const std::string Cross = Group(0, "SECTION") + Group(2, "HEADER") + Group(9, "$INSUNITS") + Group(70, "4") +
                          Group(0, "ENDSEC") + Group(0, "SECTION") + Group(2, "ENTITIES") +
                          DrawnLine("0", "0", "4000", "4000") + DrawnLine("0", "4000", "4000", "0") +
                          Group(0, "ENDSEC") + Group(0, "EOF");

class ExchangeFormTest : public FormTest {
 protected:
  std::string File(const std::string& name, const std::string& bytes) {
    PutFile(folder.Path(name), bytes);
    return folder.Path(name);
  }

  /// Does something in the preview as soon as it is open.
  void InPreview(const std::function<void(QDialog&)>& work) {
    QTimer::singleShot(0, frame.get(), [this, work] {
      auto* preview = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (preview == nullptr) return InPreview(work);
      ++previews;
      ASSERT_TRUE(QTest::qWaitForWindowActive(preview));
      work(*preview);
      if (preview->isVisible()) preview->reject();
    });
  }

  void Import(const std::string& path, const std::function<void(QDialog&)>& work) {
    dialog.WillChoose(path);
    InPreview(work);
    Command("mnuImport").trigger();
  }

  void Import(const std::string& path) { Import(path, ClickImport); }

  /// The box with which a file is refused, without a preview.
  std::string RefusalOf(const std::string& path) {
    const EditSnapshot before = TakeSnapshot();
    dialog.WillChoose(path);
    Command("mnuImport").trigger();
    EXPECT_EQ(TakeSnapshot(), before);
    const std::vector<Message> boxes = TakeMessages();
    if (boxes.size() != 1 || boxes[0].icon != MessageIcon::Exclamation) return "no refusal";
    const std::string beginning = "The file " + path + " can't be imported: ";
    EXPECT_THAT(boxes[0].text, StartsWith(beginning));
    return boxes[0].text.substr(beginning.size());
  }

  void Export(const std::string& path) {
    dialog.WillChoose(path);
    Command("mnuExport").trigger();
  }

  static void ClickImport(QDialog& preview) {
    QTest::mouseClick(preview.findChild<QPushButton*>("btnImport"), Qt::LeftButton);
  }

  static std::string ContentsIn(const QDialog& preview) {
    return preview.findChild<QLabel*>("contentsLbl")->text().toStdString();
  }

  static std::string RemarksIn(const QDialog& preview) {
    return preview.findChild<QPlainTextEdit*>("remarksTxt")->toPlainText().toStdString();
  }

  static std::string FindingsIn(const QDialog& preview) {
    return preview.findChild<QPlainTextEdit*>("findingsTxt")->toPlainText().toStdString();
  }

  /// Types a text over a cell of the table of layers, as a user does.
  static void TypeOver(QDialog& preview, int row, int column, const QString& text) {
    auto* layers = preview.findChild<QTableWidget*>("layersGrd");
    layers->setFocus();
    layers->setCurrentCell(row, column);
    QTest::keyClick(layers, Qt::Key_F2);
    ASSERT_FALSE(layers->findChildren<QLineEdit*>().isEmpty());
    auto* editor = layers->findChildren<QLineEdit*>().last();
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
  }

  int previews = 0;
};

class ImportFormTest : public ExchangeFormTest {};

TEST_F(ImportFormTest, PutsATableInThePlaceOfTheModelAsOneStep) {
  EnterThreeBarTruss();
  const EditSnapshot before = TakeSnapshot();
  Import(File("bars.csv", TwoBars));
  EXPECT_EQ(NodeCount, 3);
  EXPECT_EQ(MemberCount, 2);
  EXPECT_EQ(GrJoints.RowCount(), 4);
  EXPECT_EQ(GrJoints.Text(2, NodeX), "4.5");
  EXPECT_EQ(GrMembers.Text(2, MemberA), "1200");
  EXPECT_EQ(Command("mnuUndo").text(), "&Undo Import");
  const EditSnapshot imported = TakeSnapshot();
  Command("mnuUndo").trigger();
  EXPECT_EQ(TakeSnapshot(), before);
  EXPECT_EQ(MemberCount, 3);
  EXPECT_FALSE(Command("mnuUndo").isEnabled());
  Command("mnuRedo").trigger();
  EXPECT_EQ(TakeSnapshot(), imported);
  EXPECT_EQ(MemberCount, 2);
}

TEST_F(ImportFormTest, ChangesNothingWhenCancelled) {
  EnterThreeBarTruss();
  const EditSnapshot before = TakeSnapshot();
  const std::string path = File("bars.csv", TwoBars);
  Import(path, [](QDialog& preview) { QTest::keyClick(&preview, Qt::Key_Escape); });
  Import(path,
         [](QDialog& preview) { QTest::mouseClick(preview.findChild<QPushButton*>("btnCancel"), Qt::LeftButton); });
  EXPECT_EQ(previews, 2);
  dialog.WillCancel();
  Command("mnuImport").trigger();
  EXPECT_EQ(TakeSnapshot(), before);
  EXPECT_FALSE(Command("mnuUndo").isEnabled());
}

TEST_F(ImportFormTest, ShowsBeforehandWhatTheFileBrings) {
  Import(File("bars.csv", TwoBars), [](QDialog& preview) {
    EXPECT_EQ(preview.windowTitle(), "Import - bars.csv");
    EXPECT_EQ(ContentsIn(preview), "3 nodes, 2 members, 2 supports, 1 loaded node");
    EXPECT_EQ(RemarksIn(preview), "The column \"Colour\" is left out");
    EXPECT_FALSE(preview.findChild<QComboBox*>("unitCmb")->isVisible());
  });
  Import(File("none.csv", "x,y\n0,0\nnode i,node j,E,A\n"), [](QDialog& preview) {
    EXPECT_EQ(ContentsIn(preview), "1 node, 0 members, 0 supports, 0 loaded nodes");
    EXPECT_EQ(RemarksIn(preview), "Everything in the file is taken as it stands there");
  });
  EXPECT_EQ(previews, 2);
  EXPECT_EQ(NodeCount, 0);
}

TEST_F(ImportFormTest, FollowsTheChoicesForADrawing) {
  Import(File("cross.dxf", Cross), [](QDialog& preview) {
    EXPECT_THAT(ContentsIn(preview), StartsWith("4 nodes, 2 members"));
    EXPECT_THAT(RemarksIn(preview), HasSubstr("get E = 200"));
    QTest::keyClick(preview.findChild<QCheckBox*>("splitChk"), Qt::Key_Space);
    EXPECT_THAT(ContentsIn(preview), StartsWith("5 nodes, 4 members"));
    QTest::keyClick(preview.findChild<QComboBox*>("unitCmb"), Qt::Key_C);
    ClickImport(preview);
  });
  EXPECT_EQ(MemberCount, 4);
  EXPECT_EQ(GrJoints.Text(2, NodeX), "40") << "4000 cm";
}

TEST_F(ImportFormTest, JoinsEndsWithinTheTolerance) {
  Import(File("cross.dxf", Cross), [](QDialog& preview) {
    auto* tolerance = preview.findChild<QLineEdit*>("toleranceTxt");
    auto* button = preview.findChild<QPushButton*>("btnImport");
    const auto enter = [tolerance](const QString& text) {
      tolerance->setFocus();
      tolerance->clear();
      QTest::keyClicks(tolerance, text);
    };
    for (const char* wrong : {"0", "0.0009", "1000001", "x", ""}) {
      enter(wrong);
      EXPECT_EQ(ContentsIn(preview), "The tolerance is no number from 0.001 to 1000000: type one in mm, such as 1");
      EXPECT_FALSE(button->isEnabled()) << wrong;
      QTest::keyClick(tolerance, Qt::Key_Return);
      EXPECT_TRUE(preview.isVisible()) << wrong;
    }
    enter("1000000");
    EXPECT_THAT(ContentsIn(preview), StartsWith("1 node, 0 members"));
    enter("0.001");
    EXPECT_TRUE(button->isEnabled());
  });
  EXPECT_EQ(previews, 1);
  EXPECT_EQ(NodeCount, 0);
}

TEST_F(ImportFormTest, ShowsWhatTheCheckFindsBeforeAnythingIsReplaced) {
  EnterThreeBarTruss();
  Press(Qt::Key_F5);
  const EditSnapshot before = TakeSnapshot();
  const AnalysisState results = TheAnalysis;
  Import(File("bars.csv", TwoBars), [](QDialog& preview) { EXPECT_EQ(FindingsIn(preview), "The truss is stable"); });
  Import(File("cross.dxf", Cross), [](QDialog& preview) {
    EXPECT_THAT(FindingsIn(preview), StartsWith("The truss is a mechanism: it can move in 6 independent ways"));
    EXPECT_THAT(FindingsIn(preview), HasSubstr("no member or support resists this\n"));
    EXPECT_THAT(FindingsIn(preview), HasSubstr("Members 1 and 2 cross"));
    QTest::keyClick(preview.findChild<QCheckBox*>("splitChk"), Qt::Key_Space);
    EXPECT_THAT(FindingsIn(preview), Not(HasSubstr("cross")));
  });
  EXPECT_EQ(TakeSnapshot(), before);
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_EQ(TheAnalysis.Displacements, results.Displacements);
}

TEST_F(ImportFormTest, TakesEAndAOfALayer) {
  Import(File("cross.dxf", Cross), [](QDialog& preview) {
    auto* layers = preview.findChild<QTableWidget*>("layersGrd");
    ASSERT_EQ(layers->rowCount(), 1);
    const auto cell = [layers](int column) { return layers->item(0, column)->text().toStdString(); };
    EXPECT_EQ(cell(0) + " " + cell(1) + " " + cell(2) + " " + cell(3), "0 2 200 1000");
    EXPECT_FALSE(layers->item(0, 1)->flags() & Qt::ItemIsEditable);
    TypeOver(preview, 0, 2, "x");
    EXPECT_EQ(ContentsIn(preview), "\"x\" is no number: type E and A of the layer \"0\", or leave both empty");
    EXPECT_FALSE(preview.findChild<QPushButton*>("btnImport")->isEnabled());
    TypeOver(preview, 0, 2, "70,5");
    EXPECT_THAT(RemarksIn(preview), Not(HasSubstr("get E = 200")));
    QTest::keyClick(preview.findChild<QCheckBox*>("splitChk"), Qt::Key_Space);
    EXPECT_EQ(cell(1) + " " + cell(2), "4 70,5") << "what was typed stays";
    ClickImport(preview);
  });
  EXPECT_EQ(GrMembers.Text(4, MemberE), "70.5");
  EXPECT_EQ(GrMembers.Text(4, MemberA), "1000");
}

TEST_F(ImportFormTest, LeadsToItsControlsByTheirKeys) {
  const std::string path = File("cross.dxf", Cross);
  Import(path, [](QDialog& preview) {
    const std::vector<std::pair<Qt::Key, QString>> keys{{Qt::Key_T, "toleranceTxt"},
                                                        {Qt::Key_U, "unitCmb"},
                                                        {Qt::Key_L, "layersGrd"},
                                                        {Qt::Key_R, "remarksTxt"},
                                                        {Qt::Key_H, "findingsTxt"}};
    for (const auto& [key, name] : keys) {
      QTest::keyClick(preview.windowHandle(), key, Qt::AltModifier);
      EXPECT_EQ(preview.focusWidget()->objectName().toStdString(), name.toStdString());
    }
    QTest::keyClick(preview.windowHandle(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return preview.findChild<QCheckBox*>("splitChk")->isChecked(); }));
    QTest::keyClick(preview.windowHandle(), Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !preview.isVisible(); }));
  });
  EXPECT_EQ(NodeCount, 0);
  Import(path, [](QDialog& preview) {
    QTest::keyClick(preview.windowHandle(), Qt::Key_I, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !preview.isVisible(); }));
  });
  EXPECT_EQ(NodeCount, 4);
}

TEST_F(ImportFormTest, RefusesWhatIsNoModel) {
  EnterThreeBarTruss();
  EXPECT_EQ(RefusalOf(File("a.csv", "x,y\n0,zero\nnode i,node j,E,A\n")),
            "Line 2: \"zero\" in column \"y(m)\" is not a number");
  EXPECT_EQ(RefusalOf(File("b.json", "{")), "Line 1: the JSON ends in the middle");
  EXPECT_EQ(RefusalOf(File("c.dxf", "  0\nSECTION\n")), "Line 2: the drawing ends in the middle");
  EXPECT_EQ(RefusalOf(File("model.stw", WriteModel())), "It holds no text; File > Open opens model files");
  EXPECT_EQ(RefusalOf(folder.Path("missing.csv")), "No such file or directory");
  EXPECT_EQ(RefusalOf(folder.Path("")), "It is no file");
}

TEST_F(ImportFormTest, RefusesALargerFileThanItReads) {
  const std::string path = File("large.csv", "x\n");
  std::filesystem::resize_file(path, (64U << 20) + 1);
  EXPECT_EQ(RefusalOf(path), "It has more than 64 MB");
  std::filesystem::resize_file(path, 64U << 20);
  EXPECT_EQ(RefusalOf(path), "It holds no text; File > Open opens model files");
}

TEST_F(ImportFormTest, KeepsTheFileOfTheModelAndTheSizeOfTheTables) {
  EnterThreeBarTruss();
  dialog.WillChoose(folder.Path("bridge.stw"));
  Command("mnuSaveAs").trigger();
  const auto capacity = GridCapacity;
  Import(File("bars.csv", TwoBars));
  EXPECT_EQ(CurrentFileName, folder.Path("bridge.stw"));
  EXPECT_EQ(frame->windowTitle(), "bridge.stw");
  EXPECT_EQ(GridCapacity, capacity);
  EXPECT_TRUE(IsUnsaved(ModelInGrids()));
  Command("mnuUndo").trigger();
  EXPECT_FALSE(IsUnsaved(ModelInGrids()));
}

TEST_F(ImportFormTest, EndsTheAnalysis) {
  EnterThreeBarTruss();
  Press(Qt::Key_F5);
  ASSERT_EQ(AnalysisDone, FlagTrue);
  Import(File("bars.csv", TwoBars));
  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
}

TEST_F(ImportFormTest, KeepsEveryDigit) {
  Import(File("third.csv", "x,y\n0.333333343,0\n16777215,1\nnode i,node j,E,A\n1,2,200,1000\n"));
  EXPECT_EQ(GrJoints.Text(1, NodeX), "0.33333334");
  RebuildModelFromGrids();
  EXPECT_EQ(NodeTable(1, NodeX), 0.333333343F);
  EXPECT_EQ(NodeTable(2, NodeX), 16777215.0F);
}

TEST_F(ImportFormTest, HasNamesTipsAndKeys) {
  Import(File("cross.dxf", Cross), [](QDialog& preview) {
    QStringList keys;
    for (const QPushButton* button : preview.findChildren<QPushButton*>()) {
      keys << QKeySequence::mnemonic(button->text()).toString();
      EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    }
    EXPECT_EQ(keys, QStringList({"Alt+I", "Alt+C"}));
    for (const char* name :
         {"contentsLbl", "remarksTxt", "findingsTxt", "unitCmb", "toleranceTxt", "splitChk", "layersGrd"}) {
      const auto* control = preview.findChild<QWidget*>(name);
      ASSERT_NE(control, nullptr) << name;
      EXPECT_FALSE(control->accessibleName().isEmpty()) << name;
      EXPECT_FALSE(control->toolTip().isEmpty()) << name;
    }
  });
  EXPECT_EQ(previews, 1);
  EXPECT_EQ(Command("mnuImport").text(), "&Import...");
  EXPECT_EQ(Command("mnuExport").text(), "Ex&port...");
}

/// What is dragged over the drawing and dropped there.
class ImportDropTest : public ExchangeFormTest {
 protected:
  bool Enters(const QList<QUrl>& files) {
    data.setUrls(files);
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Find<QWidget>("Disp"), &enter);
    return enter.isAccepted();
  }

  Qt::DropAction Drop() {
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Find<QWidget>("Disp"), &drop);
    EXPECT_TRUE(drop.isAccepted());
    return drop.dropAction();
  }

  static QUrl Url(const std::string& path) { return QUrl::fromLocalFile(QString::fromStdString(path)); }

  QMimeData data;
};

TEST_F(ImportDropTest, ImportsTheFile) {
  for (const char* name : {"bars.csv", "bars.TXT", "bars.tsv"}) {
    ASSERT_TRUE(Enters({Url(File(name, TwoBars))}));
    EXPECT_EQ(Drop(), Qt::CopyAction);
    EXPECT_EQ(MemberCount, 0) << "the other program does not wait for the answer";
    InPreview(ClickImport);
    ASSERT_TRUE(QTest::qWaitFor([] { return MemberCount == 2; }));
    EXPECT_EQ(Command("mnuUndo").text(), "&Undo Import");
    Command("mnuUndo").trigger();
    EXPECT_EQ(MemberCount, 0);
  }
}

TEST_F(ImportDropTest, LetsNothingElseIn) {
  const QUrl table = Url(File("bars.csv", TwoBars));
  EXPECT_FALSE(Enters({Url(File("model.stw", WriteModel()))}));
  EXPECT_FALSE(Enters({table, table}));
  EXPECT_FALSE(Enters({QUrl("https://models.example/bars.csv")}));
  EXPECT_FALSE(Enters({}));
  EXPECT_TRUE(Enters({Url(File("cross.dxf", Cross))}));
  EXPECT_TRUE(Enters({Url(File("model.json", "{}"))}));
}

TEST_F(ImportDropTest, WaitsForTheAnswerToAnotherQuestion) {
  const std::string path = File("bars.csv", TwoBars);
  Import(path, [&](QDialog&) { EXPECT_FALSE(Enters({Url(path)})); });
  EXPECT_EQ(previews, 1);
}

class ExportFormTest : public ExchangeFormTest {
 protected:
  static int CountOf(const std::string& part, const std::string& text) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
  }
};

TEST_F(ExportFormTest, WritesWhatImportMakesTheSameModelOf) {
  EnterThreeBarTruss();
  GrJoints.SetText(3, NodeX, "2.33333325");
  for (const char* name : {"truss.dxf", "truss.csv", "truss.JSON"}) {
    RebuildModelFromGrids();
    const ModelTables before = ReadGrids();
    Export(folder.Path(name));
    Command("mnuNew").trigger();
    ASSERT_EQ(NodeCount, 0);
    Import(folder.Path(name));
    const ModelTables after = ReadGrids();
    EXPECT_EQ(after.nodes, before.nodes) << name;
    EXPECT_EQ(after.members, before.members) << name;
  }
  EXPECT_EQ(previews, 3);
}

TEST_F(ExportFormTest, WritesTheDrawingAsTikz) {
  EnterThreeBarTruss();
  Export(folder.Path("truss.tex"));
  const std::string text = FileBytes(folder.Path("truss.tex"));
  EXPECT_THAT(text, HasSubstr("\\begin{tikzpicture}"));
  EXPECT_THAT(text, HasSubstr("\\end{document}"));
}

TEST_F(ExportFormTest, AsksForANameBesideTheModel) {
  dialog.WillCancel();
  Command("mnuExport").trigger();
  ASSERT_EQ(dialog.shown.size(), 1U);
  EXPECT_EQ(
      dialog.shown[0],
      (ShownFileDialog{"save", "Export", OverwritePrompt, "dxf", "",
                       "DXF drawings|*.dxf|Comma-separated tables|*.csv|JSON|*.json|TikZ pictures for LaTeX|*.tex",
                       "Untitled.dxf"}));
  dialog.WillChoose(folder.Path("bridge.stw"));
  Command("mnuSaveAs").trigger();
  dialog.WillCancel();
  Command("mnuExport").trigger();
  EXPECT_EQ(dialog.shown[2].fileName, folder.Path("bridge.dxf"));
}

TEST_F(ExportFormTest, DrawsTheDeflectedShapeOfAnAnalysis) {
  EnterThreeBarTruss();
  Export(folder.Path("before.dxf"));
  Press(Qt::Key_F5);
  Export(folder.Path("after.dxf"));
  EXPECT_EQ(AnalysisDone, FlagTrue);
  const std::string layer = "\ndeflected";
  EXPECT_EQ(CountOf(layer, FileBytes(folder.Path("before.dxf"))), 0);
  EXPECT_EQ(CountOf(layer, FileBytes(folder.Path("after.dxf"))), 1 + 3) << "the layer itself and three members";
}

TEST_F(ExportFormTest, SaysWhatADrawingCanNotHold) {
  EnterThreeBarTruss();
  GrMembers.SetText(3, MemberNodeJ, "9");
  Export(folder.Path("truss.dxf"));
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Information,
                              "The drawing does not hold the whole model:\n"
                              "Member 3 is not in the drawing, because it names a node that is not there")));
}

TEST_F(ExportFormTest, RefusesAnEndingThatSaysNothing) {
  EnterThreeBarTruss();
  Export(folder.Path("truss.dwg"));
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Exclamation, "The ending of the name says what is written: "
                                                                        "choose .dxf, .csv, .json or .tex")));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("truss.dwg")));
}

TEST_F(ExportFormTest, ReportsThatTheFileCouldNotBeWritten) {
  EnterThreeBarTruss();
  Export(folder.Path("missing/truss.csv"));
  const std::vector<Message> boxes = TakeMessages();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_THAT(boxes[0].text, StartsWith("Error while saving file " + folder.Path("missing/truss.csv") + "\n"));
}

} // namespace
} // namespace strutwright
