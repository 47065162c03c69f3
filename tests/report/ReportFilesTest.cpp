#include "FaultyFileSystem.h"
#include "ReportFixture.h"
#include "modReportFiles.h"

#include <string>

namespace strutwright {
namespace {

using testing::ElementsAre;

class ReportFilesTest : public ReportTest {
 protected:
  Report Made() {
    Analyse(Bar());
    return MakeReport("bridge.stw");
  }
};

TEST_F(ReportFilesTest, KnowsTheNamesOfReports) {
  for (const char* name : {"a.pdf", "a.html", "a.PDF", "/x.y/a.Html"}) EXPECT_TRUE(IsNameOfReport(name)) << name;
  for (const char* name : {"", "a", "a.htm", "a.pdf.txt", "pdf", ".pdf", "a.stw"}) {
    EXPECT_FALSE(IsNameOfReport(name)) << name;
  }
}

TEST_F(ReportFilesTest, WritesWhatTheNameSays) {
  const Report report = Made();
  WriteReport(report, folder.Path("a.PDF"));
  WriteReport(report, folder.Path("a.html"));
  EXPECT_EQ(FileBytes(folder.Path("a.PDF")), "%PDF of Truss report: bridge.stw");
  EXPECT_EQ(FileBytes(folder.Path("a.html")), report.document.html);
}

TEST_F(ReportFilesTest, LeavesNothingOfALongerFile) {
  PutFile(folder.Path("a.pdf"), std::string(100000, 'x'));
  WriteReport(Made(), folder.Path("a.pdf"));
  EXPECT_EQ(FileBytes(folder.Path("a.pdf")), "%PDF of Truss report: bridge.stw");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(ReportFilesTest, SuggestsTheNameOfTheModel) {
  CurrentFileName = "/models.old/bridge.v2.stw";
  const Report report = Made();
  dialog.fileName = "/models.old/bridge.v2.stw";
  dialog.WillCancel();
  dialog.WillCancel();
  SaveReportAsPdf(report);
  SaveReportAsHtml(report);
  EXPECT_THAT(dialog.shown,
              ElementsAre(ShownFileDialog{"save", "Save Report as PDF", OverwritePrompt, "pdf", "",
                                          "PDF documents|*.pdf|All files|*.*", "/models.old/bridge.v2.pdf"},
                          ShownFileDialog{"save", "Save Report as HTML", OverwritePrompt, "html", "",
                                          "HTML pages|*.html|All files|*.*", "/models.old/bridge.v2.html"}));
  EXPECT_EQ(dialog.fileName, "/models.old/bridge.v2.stw");
}

TEST_F(ReportFilesTest, SuggestsTheNameOfAModelWithoutAFile) {
  dialog.WillCancel();
  dialog.WillCancel();
  SaveReportAsPdf(Made());
  CurrentFileName = "/models.old/bridge";
  SaveReportAsPdf(Made());
  EXPECT_EQ(dialog.shown.at(0).fileName, "bridge.pdf");
  EXPECT_EQ(dialog.shown.at(1).fileName, "/models.old/bridge.pdf");
}

TEST_F(ReportFilesTest, SavesUnderTheNameThatIsChosen) {
  const Report report = Made();
  dialog.fileName = "/models/bridge.stw";
  dialog.WillChoose(folder.Path("a.pdf"));
  dialog.WillChoose(folder.Path("a.html"));
  SaveReportAsPdf(report);
  SaveReportAsHtml(report);
  EXPECT_EQ(FileBytes(folder.Path("a.pdf")), "%PDF of Truss report: bridge.stw");
  EXPECT_EQ(FileBytes(folder.Path("a.html")), report.document.html);
  EXPECT_EQ(dialog.fileName, "/models/bridge.stw") << "or a model would be saved over a report";
}

TEST_F(ReportFilesTest, DoesNothingWithoutAName) {
  dialog.WillChoose("");
  SaveReportAsPdf(Made());
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(ReportFilesTest, ReportsAFailureAndKeepsTheOldFile) {
  PutFile(folder.Path("a.html"), "old");
  FaultyFileSystem full(disk);
  full.before = [](const std::string& step, int /*number*/) {
    if (step == "Write") throw FileError("No space left on device");
  };
  ThePlatform().files = &full;
  dialog.WillChoose(folder.Path("a.html"));

  SaveReportAsHtml(Made());

  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::None, "Error while saving file " + folder.Path("a.html") +
                                                                     "\nNo space left on device")));
  EXPECT_EQ(FileBytes(folder.Path("a.html")), "old");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(ReportFilesTest, ReportsThatAFolderIsMissing) {
  dialog.WillChoose(folder.Path("missing/a.pdf"));
  SaveReportAsPdf(Made());
  EXPECT_EQ(TakeMessages().size(), 1U);
}

TEST_F(ReportFilesTest, PrintsTheDocument) {
  PrintReport(Made());
  EXPECT_THAT(paper.printed, ElementsAre("Truss report: bridge.stw"));
}

TEST_F(ReportFilesTest, ReportsThatItCouldNotBePrinted) {
  paper.printFailure = "The pages could not be made";
  PrintReport(Made());
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information,
                                              "The report could not be printed\nThe pages could not be made")));
}

} // namespace
} // namespace strutwright
