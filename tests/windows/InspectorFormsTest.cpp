#include "AnalysisState.h"
#include "DisplayArea.h"
#include "FormFixture.h"
#include "frmAbout.h"
#include "frmMemberDetails.h"
#include "frmNodeDetails.h"
#include "modModelStore.h"

#include <string>

#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class InspectorFormTest : public FormTest {
 protected:
  InspectorFormTest() {
    EnterThreeBarTruss();
    RebuildModelFromGrids();
  }

  static void Click(const QDialog& dialog, const QString& button) {
    QTest::mouseClick(dialog.findChild<QAbstractButton*>(button), Qt::LeftButton);
  }

  static std::string Cell(const QDialog& dialog, const QString& grid, int row, int column) {
    const QAbstractItemModel& model = *dialog.findChild<QTableView*>(grid)->model();
    return model.index(row - 1, column - 1).data().toString().toStdString();
  }

  /// Every label, cell and caption has the room that it needs, and no grid has to be scrolled.
  static void ExpectNothingCut(const QDialog& dialog) {
    for (const QTableView* view : dialog.findChildren<QTableView*>()) {
      const int rows = view->model()->rowCount();
      EXPECT_GE(view->viewport()->height(), rows * view->rowHeight(0)) << view->objectName().toStdString();
      for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < view->model()->columnCount(); ++column) {
          const QString text = view->model()->index(row, column).data().toString();
          EXPECT_LE(view->fontMetrics().horizontalAdvance(text), view->columnWidth(column)) << text.toStdString();
        }
        const QString label = view->model()->headerData(row, Qt::Vertical).toString();
        EXPECT_LE(view->fontMetrics().horizontalAdvance(label), view->verticalHeader()->width()) << label.toStdString();
      }
    }
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
      EXPECT_GE(label->height(), label->heightForWidth(label->width())) << label->text().toStdString();
    }
  }
};

TEST_F(InspectorFormTest, ShowsAMember) {
  frmMemberDetails details(*frame);

  details.setMember(3);
  details.show();

  EXPECT_EQ(details.windowTitle(), "Member Details");
  EXPECT_EQ(Cell(details, "grProperties", 1, 1), "3");
  EXPECT_EQ(Cell(details, "grProperties", 8, 1), "4.0");
  EXPECT_EQ(Cell(details, "grProperties", 8, 2), "m");
  EXPECT_EQ(Cell(details, "grStiffnessMatrix", 1, 3), "-50.0");
  EXPECT_EQ(Cell(details, "grResults", 1, 1), "");
  ExpectNothingCut(details);
}

TEST_F(InspectorFormTest, LabelsTheGridsOfAMember) {
  const frmMemberDetails details(*frame);

  QStringList captions;
  for (const QLabel* each : details.findChildren<QLabel*>()) {
    if (each->buddy() != nullptr) captions << each->text();
  }

  EXPECT_EQ(captions, (QStringList{"Properties", "Stiffness Matrix", "Results (if available)"}));
  EXPECT_EQ(details.findChild<QPushButton*>("cmdDelete")->text(), "Delete member");
}

TEST_F(InspectorFormTest, CentresEveryColumn) {
  frmMemberDetails details(*frame);
  details.setMember(1);

  for (const QTableView* view : details.findChildren<QTableView*>()) {
    for (int column = 0; column < view->model()->columnCount(); ++column) {
      EXPECT_EQ(view->model()->index(0, column).data(Qt::TextAlignmentRole).toInt(), Qt::AlignCenter);
    }
  }
}

TEST_F(InspectorFormTest, ShowsTheResultsOfAMember) {
  frame->runAnalysis();
  frmMemberDetails details(*frame);

  details.setMember(1);

  EXPECT_EQ(Cell(details, "grResults", 1, 1), "-7.07");
  EXPECT_EQ(Cell(details, "grResults", 2, 1), "C");
}

TEST_F(InspectorFormTest, DeletesTheMemberAfterAQuestion) {
  frmMemberDetails details(*frame);
  details.setMember(2);
  details.show();
  messages.WillAnswer(true);

  Click(details, "cmdDelete");

  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Question, "Are you sure you want to delete member 2?")));
  EXPECT_EQ(MemberCount, 2);
  EXPECT_FALSE(details.isVisible());
}

TEST_F(InspectorFormTest, KeepsTheMemberWhenTheUserDeclines) {
  frmMemberDetails details(*frame);
  details.setMember(2);
  details.show();
  messages.WillAnswer(false);

  Click(details, "cmdDelete");

  TakeMessages();
  EXPECT_EQ(MemberCount, 3);
  EXPECT_FALSE(details.isVisible());
}

TEST_F(InspectorFormTest, ClosesTheMemberOnEnter) {
  frmMemberDetails details(*frame);
  details.setMember(1);
  details.show();

  QTest::keyClick(&details, Qt::Key_Return);

  EXPECT_FALSE(details.isVisible());
  EXPECT_EQ(MemberCount, 3);
}

/// Clicks at a world point while a mouse mode is on, and takes the window that opens.
class PickTest : public InspectorFormTest {
 protected:
  std::string WindowOnClick(const QString& mode, double x, double y) {
    frame->Redraw(true);
    Command(mode).trigger();
    std::string found;
    QTimer::singleShot(0, frame.get(), [&found] {
      auto* open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (open == nullptr) return;
      found = open->windowTitle().toStdString() + " " + Cell(*open, "grProperties", 1, 1);
      open->reject();
    });
    auto& area = static_cast<DisplayArea&>(Find<QWidget>("Disp"));
    QTest::mouseClick(&area, Qt::LeftButton, {}, area.Surface().ToPixel(x, -y).toPoint());
    return found;
  }
};

TEST_F(PickTest, OpensTheNodeThatWasClicked) { EXPECT_EQ(WindowOnClick("mnuSelNode", 2, 2), "Node Details 3"); }

TEST_F(PickTest, OpensTheMemberThatWasClicked) { EXPECT_EQ(WindowOnClick("mnuSelMember", 1, 0), "Member Details 3"); }

class NodeFormTest : public InspectorFormTest {
 protected:
  NodeFormTest() {
    details.setNode(3);
    details.show();
  }

  void TypeInto(const QString& field, const QString& text) const {
    QTest::keyClicks(details.findChild<QLineEdit*>(field), text);
  }

  frmNodeDetails details{*frame};
};

TEST_F(NodeFormTest, ShowsANode) {
  EXPECT_EQ(details.windowTitle(), "Node Details");
  EXPECT_EQ(Cell(details, "grProperties", 1, 1), "3");
  EXPECT_EQ(Cell(details, "grProperties", 5, 1), "-10");
  EXPECT_EQ(Cell(details, "grProperties", 6, 1), "0");
  EXPECT_EQ(Cell(details, "grResults", 1, 1), "");
  EXPECT_EQ(details.findChild<QPushButton*>("cmdDelete")->text(), "Delete node");
  EXPECT_EQ(details.findChild<QGroupBox*>()->title(), "Specify Node Load");
  EXPECT_TRUE(details.findChild<QRadioButton*>("optForce_0")->isChecked());
  EXPECT_EQ(details.findChild<QRadioButton*>("optForce_0")->text(), "Overwrite previous loads");
  EXPECT_EQ(details.findChild<QRadioButton*>("optForce_1")->text(), "Add to previous loads");
  ExpectNothingCut(details);
}

TEST_F(NodeFormTest, OverwritesTheLoad) {
  TypeInto("txtForce", "5");
  TypeInto("txtAngle", "0");

  Click(details, "cmdApply");

  EXPECT_EQ(GrJoints.Text(3, NodeForceX), "5");
  EXPECT_EQ(GrJoints.Text(3, NodeForceY), "0");
  EXPECT_EQ(Cell(details, "grProperties", 4, 1), "5");
  EXPECT_TRUE(details.isVisible());
}

TEST_F(NodeFormTest, AddsToTheLoadOnEnter) {
  Click(details, "optForce_1");
  TypeInto("txtForce", "5");
  TypeInto("txtAngle", "90");

  QTest::keyClick(details.findChild<QLineEdit*>("txtAngle"), Qt::Key_Return);

  EXPECT_EQ(GrJoints.Text(3, NodeForceY), "-5");
}

TEST_F(NodeFormTest, OverwritesAgainWhenThatIsChosenAgain) {
  Click(details, "optForce_1");
  Click(details, "optForce_0");
  TypeInto("txtForce", "5");
  TypeInto("txtAngle", "90");

  Click(details, "cmdApply");

  EXPECT_EQ(GrJoints.Text(3, NodeForceY), "5");
}

TEST_F(NodeFormTest, SaysWhatIsNotNumeric) {
  TypeInto("txtForce", "abc");
  TypeInto("txtAngle", "x");

  Click(details, "cmdApply");

  EXPECT_THAT(TakeMessages(),
              ElementsAre(Box(MessageIcon::Critical, "Force is not numeric: abc\nNo force will be applied."),
                          Box(MessageIcon::Critical, "Angle is not numeric: x\nNo force will be applied.")));
  EXPECT_EQ(GrJoints.Text(3, NodeForceY), "-10");
}

TEST_F(NodeFormTest, EndsTheAnalysis) {
  frame->runAnalysis();
  details.setNode(3);
  EXPECT_NE(Cell(details, "grResults", 2, 1), "");
  TypeInto("txtForce", "5");
  TypeInto("txtAngle", "0");

  Click(details, "cmdApply");

  EXPECT_EQ(AnalysisDone, FlagFalse);
  EXPECT_EQ(LabelText("stsBar_Analysis"), "No Analysis");
  EXPECT_EQ(Cell(details, "grResults", 2, 1), "");
}

TEST_F(NodeFormTest, DeletesTheNodeAfterAQuestion) {
  messages.WillAnswer(true);

  Click(details, "cmdDelete");

  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Question,
                                              "Are you sure you want to delete node 3 and all connecting members?")));
  EXPECT_EQ(NodeCount, 2);
  EXPECT_EQ(MemberCount, 1);
  EXPECT_FALSE(details.isVisible());
}

TEST_F(NodeFormTest, KeepsTheNodeWhenTheUserDeclines) {
  messages.WillAnswer(false);

  Click(details, "cmdDelete");

  TakeMessages();
  EXPECT_EQ(NodeCount, 3);
  EXPECT_FALSE(details.isVisible());
}

TEST_F(NodeFormTest, AppliesALoadAsAStepThatCanBeUndone) {
  TypeInto("txtForce", "5");
  TypeInto("txtAngle", "0");
  Click(details, "cmdApply");

  Command("mnuUndo").trigger();

  EXPECT_EQ(GrJoints.Text(3, NodeForceY), "-10");
}

TEST_F(NodeFormTest, Closes) {
  Click(details, "cmdOK");

  EXPECT_FALSE(details.isVisible());
}

TEST(VersionTextTest, NamesMajorMinorAndRevision) {
  EXPECT_EQ(VersionText("3.0.12"), "Version 3.0.12");
  EXPECT_EQ(VersionText("0.1"), "Version 0.1.0");
}

class AboutTest : public FormTest {
 protected:
  static std::string Text(const QDialog& about, const QString& label) {
    return about.findChild<QLabel*>(label)->text().toStdString();
  }
};

TEST_F(AboutTest, SaysWhatProgramThisIs) {
  frmAbout about(frame.get());
  about.show();

  EXPECT_EQ(about.windowTitle(), "About Strutwright");
  EXPECT_EQ(Text(about, "lblTitle"), "Strutwright");
  EXPECT_EQ(Text(about, "lblVersion"), VersionText(STRUTWRIGHT_VERSION).toStdString());
  EXPECT_THAT(Text(about, "lblDescription"), HasSubstr("analysis of pin-jointed trusses"));
  EXPECT_THAT(Text(about, "Label1"), HasSubstr("contributors"));
  EXPECT_EQ(Text(about, "Label2"), "Feedback, good and bad, is welcome and forms this program's future.");
  EXPECT_THAT(Text(about, "Label3"), HasSubstr("reach the contributors"));
  EXPECT_THAT(Text(about, "Label4"), HasSubstr("stiffness matrix method step by step"));
  EXPECT_THAT(Text(about, "lblDisclaimer"), HasSubstr("without any warranty"));
  EXPECT_FALSE(about.findChild<QLabel*>("picIcon")->pixmap().isNull());
}

TEST_F(AboutTest, ClosesOnOK) {
  frmAbout about(frame.get());
  about.show();

  QTest::mouseClick(about.findChild<QPushButton*>("cmdOK"), Qt::LeftButton);

  EXPECT_FALSE(about.isVisible());
}

TEST_F(AboutTest, OpensFromHelpAndFromTheToolBar) {
  const QList<QAction*> tools = Find<QWidget>("Toolbar1").actions();
  for (QAction* opener : {&Command("mnuAbout"), tools.last()}) {
    std::string title;
    QTimer::singleShot(0, frame.get(), [&title] {
      QWidget* open = QApplication::activeModalWidget();
      if (open == nullptr) return;
      title = open->windowTitle().toStdString();
      QTest::keyClick(open, Qt::Key_Return);
    });

    opener->trigger();

    EXPECT_EQ(title, "About Strutwright");
  }
}

} // namespace
} // namespace strutwright
