#include "ReportFixture.h"
#include "modWorkedFiles.h"
#include "modWorkedTruss.h"

#include <string>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

WorkedDocument SmallSolution() {
  return {"Worked: a&b",
          {WorkedHeading{2, "Step 1 %"}, WorkedParagraph{"Member 1_2 is < 3."},
           WorkedFormula{EquationOf(SymbolOf("L"), NumberOf("5"))},
           WorkedFormula{FractionOf(NumberOf("1"), NumberOf("2"))},
           WorkedTable{{{"Member"}, {"State", true}}, {{"1", "T"}, {"2", "C"}}},
           WorkedPicture{80, 60,
                         [](DrawingSurface& surface) {
                           surface.PixelLine({0, 0}, {8, 6}, {});
                         }}},
          false};
}

class WorkedFilesTest : public ReportTest {};

TEST_F(WorkedFilesTest, IsAPage) {
  const PaperDocument page = WorkedPage(SmallSolution());
  EXPECT_EQ(page.title, "Worked: a&b");
  for (const char* part :
       {"<h1>Worked: a&amp;b</h1>", "<h2>Step 1 %</h2>", "<p>Member 1_2 is &lt; 3.</p>", "<p><i>L</i>&nbsp;= 5</p>",
        "<td align=\"left\">C</td>", "<img alt=\"The truss\" width=\"80\""}) {
    EXPECT_THAT(page.html, HasSubstr(part));
  }
}

TEST_F(WorkedFilesTest, IsLatexWithItsPictureInTikz) {
  const std::string tex = WorkedLatex(SmallSolution());
  for (const char* part :
       {"\\documentclass[10pt,a4paper]{article}", "[margin=18mm]{geometry}", "\\section*{\\LARGE Worked: a\\&b}",
        "\\section*{Step 1 \\%}", "Member 1\\_2 is $<$ 3.\n\n", "\\workedformula{L = 5}", "\\frac{1}{2}",
        "\\begin{longtable}[l]{rl}\nMember & State \\\\\n\\hline\\endhead\n1 & T \\\\\n2 & C \\\\\n\\end{longtable}",
        "\\begin{tikzpicture}", "(0,0) -- (8,6);"}) {
    EXPECT_THAT(tex, HasSubstr(part));
  }
  EXPECT_THAT(tex, testing::EndsWith("\\end{document}\n"));
}

TEST_F(WorkedFilesTest, LiesOnItsSideWhenAsked) {
  WorkedDocument wide = SmallSolution();
  wide.landscape = true;
  EXPECT_THAT(WorkedLatex(wide), HasSubstr("[margin=18mm,landscape]{geometry}"));
  EXPECT_TRUE(WorkedPage(wide).landscape);
}

TEST_F(WorkedFilesTest, WritesWhatTheNameSays) {
  for (const char* name : {"a.pdf", "b.HTML", "c.Tex"}) {
    EXPECT_TRUE(IsNameOfWorked(name));
    WriteWorked(SmallSolution(), folder.Path(name));
  }
  for (const char* name : {"", "a", "a.txt", ".tex", "a.tex.gz"}) EXPECT_FALSE(IsNameOfWorked(name)) << name;
  EXPECT_EQ(FileBytes(folder.Path("a.pdf")), "%PDF of Worked: a&b");
  EXPECT_EQ(FileBytes(folder.Path("b.HTML")), WorkedPage(SmallSolution()).html);
  EXPECT_EQ(FileBytes(folder.Path("c.Tex")), WorkedLatex(SmallSolution()));
}

TEST_F(WorkedFilesTest, AsksForANameAndSavesThere) {
  dialog.WillChoose(folder.Path("a.tex"));
  SaveWorked(SmallSolution(), "/models/bridge.stw");
  EXPECT_EQ(FileBytes(folder.Path("a.tex")), WorkedLatex(SmallSolution()));
  EXPECT_THAT(dialog.shown,
              ElementsAre(ShownFileDialog{"save", "Save Worked Solution", OverwritePrompt, "pdf", "",
                                          "PDF documents|*.pdf|HTML pages|*.html|LaTeX documents|*.tex|All files|*.*",
                                          "/models/bridge.pdf"}));
}

TEST_F(WorkedFilesTest, DoesNothingWithoutANameAndReportsAFailure) {
  dialog.WillCancel();
  dialog.WillChoose(folder.Path("missing/a.html"));
  SaveWorked(SmallSolution(), "bridge.stw");
  EXPECT_EQ(TakeMessages().size(), 0U);
  SaveWorked(SmallSolution(), "bridge.stw");
  EXPECT_EQ(TakeMessages().size(), 1U);
}

TEST_F(WorkedFilesTest, IsSavedOfTheModelInTheGrids) {
  SetModel(Bar());
  CurrentFileName = "/models/bar.stw";
  dialog.WillChoose(folder.Path("bar.html"));
  SaveWorkedTruss("bar.stw");
  EXPECT_EQ(dialog.shown.at(0).fileName, "/models/bar.pdf");
  EXPECT_THAT(FileBytes(folder.Path("bar.html")), HasSubstr("<h1>Worked solution: bar.stw</h1>"));
}

TEST_F(WorkedFilesTest, IsNotMadeWithoutATruss) {
  SaveWorkedTruss("empty.stw");
  EXPECT_THAT(TakeMessages(), ElementsAre(Box(MessageIcon::Information,
                                              "There is no truss to work yet\nEnter nodes and members first.")));
}

} // namespace
} // namespace strutwright
