#include "QtFileDialog.h"

#include "ScratchFolder.h"
#include "WidgetsFixture.h"

#include <filesystem>

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QStandardPaths>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

class QtFileDialogTest : public WidgetsTest {
 protected:
  QtFileDialogTest() {
    fs::create_directory(folder.Path("papers"));
    PutFile(folder.Path("user-dirs.dirs"), "XDG_DOCUMENTS_DIR=\"" + folder.Path("papers") + "\"\n");
    qputenv("XDG_CONFIG_HOME", folder.Path("").c_str());
    dialog.title = "Save As";
    dialog.defaultExtension = "feb";
    dialog.initialFolder = folder.Path("models");
    dialog.filter = "Strutwright files|*.stw|All files|*.*";
  }

  ~QtFileDialogTest() override { qunsetenv("XDG_CONFIG_HOME"); }

  /// The folder of documents: papers, where the desktop's settings say so.
  static QDir Documents() { return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation); }

  QString InFolder(const std::string& name) const { return QString::fromStdString(folder.Path(name)); }

  static QLineEdit& NameField(QFileDialog& box) { return *box.findChild<QLineEdit*>("fileNameEdit"); }

  /// As if pasted: QTest types no letters but those of ASCII.
  static void Enter(QFileDialog& box, const QString& name) {
    NameField(box).setText(name);
    QTest::keyClick(&NameField(box), Qt::Key_Return);
  }

  /// The dialog's outcome when the user types this name.
  bool SavesAs(const std::string& name) {
    WhenShown<QFileDialog>([path = InFolder(name)](QFileDialog& box) { Enter(box, path); });
    return dialog.ShowSave();
  }

  bool Opens(const std::string& name) {
    WhenShown<QFileDialog>([path = InFolder(name)](QFileDialog& box) { Enter(box, path); });
    return dialog.ShowOpen();
  }

  QDir FolderShown() {
    QDir shown;
    WhenShown<QFileDialog>([&shown](QFileDialog& box) {
      shown = box.directory();
      QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_FALSE(dialog.ShowSave());
    return shown;
  }

  ScratchFolder folder;
  QtFileDialog dialog;
};

TEST_F(QtFileDialogTest, WritesFiltersAsQtDoes) {
  EXPECT_EQ(QtFileDialog::NameFilters("Strutwright files|*.stw|All files|*.*"),
            QStringList({"Strutwright files (*.stw)", "All files (*)"}));
  EXPECT_EQ(QtFileDialog::NameFilters("Pictures|*.png *.svg"), QStringList("Pictures (*.png *.svg)"));
  EXPECT_EQ(QtFileDialog::NameFilters("half a pair"), QStringList());
  EXPECT_EQ(QtFileDialog::NameFilters(""), QStringList());
}

TEST_F(QtFileDialogTest, ShowsTitleAndFilters) {
  WhenShown<QFileDialog>([](QFileDialog& box) {
    EXPECT_EQ(box.windowTitle(), "Save As");
    EXPECT_EQ(box.nameFilters(), QStringList({"Strutwright files (*.stw)", "All files (*)"}));
    EXPECT_EQ(box.selectedNameFilter(), "Strutwright files (*.stw)");
    EXPECT_EQ(box.acceptMode(), QFileDialog::AcceptSave);
    box.reject();
  });
  EXPECT_FALSE(dialog.ShowSave());
}

TEST_F(QtFileDialogTest, StartsInTheInitialFolder) {
  fs::create_directory(folder.Path("models"));
  EXPECT_EQ(FolderShown(), QDir(InFolder("models")));
}

TEST_F(QtFileDialogTest, StartsAmongTheDocumentsWhereTheInitialFolderDoesNotExist) {
  EXPECT_EQ(FolderShown(), Documents());
  dialog.initialFolder.clear();
  EXPECT_EQ(FolderShown(), Documents());
}

#ifndef _WIN32 // where every user has documents

TEST_F(QtFileDialogTest, TakesTheDocumentsFromTheDesktopsSettings) { EXPECT_EQ(Documents(), QDir(InFolder("papers"))); }

TEST_F(QtFileDialogTest, StartsInTheHomeFolderOfAUserWithoutDocumentsAndProposesNoName) {
  fs::remove(folder.Path("papers"));
  EXPECT_EQ(FolderShown(), QDir::home());
  WhenShown<QFileDialog>([](QFileDialog& box) {
    EXPECT_EQ(NameField(box).text(), "");
    box.reject();
  });
  EXPECT_FALSE(dialog.ShowSave());
}

#endif

TEST_F(QtFileDialogTest, StartsInTheFolderOfItsLastUseWhereTheInitialFolderDoesNotExist) {
  fs::create_directory(folder.Path("last"));
  ASSERT_TRUE(SavesAs("last/a.stw"));
  dialog.fileName.clear();
  EXPECT_EQ(FolderShown(), QDir(InFolder("last")));
  fs::remove(folder.Path("last"));
  EXPECT_EQ(FolderShown(), Documents());
  fs::create_directory(folder.Path("models"));
  EXPECT_EQ(FolderShown(), QDir(InFolder("models")));
}

TEST_F(QtFileDialogTest, AddsTheDefaultExtensionOnSavingOnly) {
  EXPECT_TRUE(SavesAs("bridge"));
  EXPECT_EQ(dialog.fileName, folder.Path("bridge.feb"));
  EXPECT_TRUE(SavesAs("bridge.stw"));
  EXPECT_EQ(dialog.fileName, folder.Path("bridge.stw"));
  PutFile(folder.Path("roof"), "");
  EXPECT_TRUE(Opens("roof"));
  EXPECT_EQ(dialog.fileName, folder.Path("roof"));
}

TEST_F(QtFileDialogTest, AddsTheEndingOfTheKindThatIsChosen) {
  const auto save = [this] {
    WhenShown<QFileDialog>([path = InFolder("papers/roof")](QFileDialog& box) {
      QTest::keyClick(box.findChild<QComboBox*>("fileTypeCombo"), Qt::Key_Down);
      Enter(box, path);
    });
    EXPECT_TRUE(dialog.ShowSave());
    return dialog.fileName;
  };
  dialog.filter = "Drawings|*.dxf|Tables|*.csv";
  dialog.defaultExtension = "dxf";
  EXPECT_EQ(save(), folder.Path("papers/roof.csv"));
  dialog.defaultExtension = "feb"; // no kind of the filter
  EXPECT_EQ(save(), folder.Path("papers/roof.feb"));
  dialog.defaultExtension = "dxf";
  dialog.filter = "Drawings|*.dxf|All files|*.*";
  EXPECT_EQ(save(), folder.Path("papers/roof.dxf"));
}

TEST_F(QtFileDialogTest, KeepsItsFileNameWhenCancelled) {
  ASSERT_TRUE(SavesAs("bridge.stw"));
  WhenShown<QFileDialog>([](QFileDialog& box) {
    QTest::keyClicks(&NameField(box), "another");
    QTest::keyClick(&box, Qt::Key_Escape);
  });
  EXPECT_FALSE(dialog.ShowSave());
  EXPECT_EQ(dialog.fileName, folder.Path("bridge.stw"));
}

TEST_F(QtFileDialogTest, OffersTheNameOfItsLastUse) {
  ASSERT_TRUE(SavesAs("bridge.stw"));
  WhenShown<QFileDialog>([](QFileDialog& box) {
    EXPECT_EQ(NameField(box).text(), "bridge.stw");
    box.reject();
  });
  EXPECT_FALSE(dialog.ShowSave());
}

TEST_F(QtFileDialogTest, OffersANameWithoutAFolderWhereItStarts) {
  dialog.fileName = "bridge.pdf";
  WhenShown<QFileDialog>([&](QFileDialog& box) {
    EXPECT_EQ(NameField(box).text(), "bridge.pdf");
    EXPECT_EQ(box.directory(), Documents());
    box.reject();
  });
  EXPECT_FALSE(dialog.ShowSave());
}

TEST_F(QtFileDialogTest, TakesAnyLettersInAName) {
  EXPECT_TRUE(SavesAs("br\xc3\xbc"
                      "cke \xe6\xa9\x8b.stw"));
  EXPECT_EQ(dialog.fileName, folder.Path("br\xc3\xbc"
                                         "cke \xe6\xa9\x8b.stw"));
}

TEST_F(QtFileDialogTest, AsksBeforeItTakesAFileThatIsThereOnlyWhenItShall) {
  PutFile(folder.Path("bridge.stw"), "");
  EXPECT_TRUE(SavesAs("bridge.stw"));
  dialog.flags = OverwritePrompt;
  for (const QMessageBox::StandardButton answer : {QMessageBox::No, QMessageBox::Yes}) {
    WhenShown<QFileDialog>([&](QFileDialog& box) {
      WhenShown<QMessageBox>([answer](QMessageBox& question) { question.button(answer)->click(); });
      Enter(box, InFolder("bridge.stw"));
      if (answer == QMessageBox::No) box.reject();
    });
    EXPECT_EQ(dialog.ShowSave(), answer == QMessageBox::Yes);
  }
}

TEST_F(QtFileDialogTest, OpensNothingThatIsNotThereWhereFilesMustExist) {
  EXPECT_TRUE(Opens("missing.stw"));
  dialog.flags = FileMustExist;
  WhenShown<QFileDialog>([&](QFileDialog& box) {
    WhenShown<QMessageBox>([](QMessageBox& warning) { warning.accept(); });
    Enter(box, InFolder("none.stw"));
    box.reject();
  });
  EXPECT_FALSE(dialog.ShowOpen());
  EXPECT_EQ(dialog.fileName, folder.Path("missing.stw"));
}

} // namespace
} // namespace strutwright
