#include "TikzSurface.h"
#include "RecordingSurface.h"
#include "ReportFixture.h"
#include "ScratchFolder.h"
#include "modRedraw.h"

#include <fstream>
#include <iterator>
#include <string>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::Not;

/// 800 by 600 pixels, a pixel 0.01 m in a window of 8 m by 6 m from (-2, -5).
class TikzSurfaceTest : public ReportTest {
 protected:
  TikzSurfaceTest() { tikz.SetWindow({-2, -5, 8, 6}); }

  std::string Commands() const {
    const std::string document = tikz.Document();
    const std::string begin = "\\clip (0,0) rectangle (800,600);\n";
    const std::size_t from = document.find(begin) + begin.size();
    return document.substr(from, document.find("\\end{tikzpicture}") - from);
  }

  RecordingSurface measure;
  TikzSurface tikz{measure};
};

TEST_F(TikzSurfaceTest, IsADocumentByItselfAndAPictureInAnother) {
  const std::string document = tikz.Document();
  EXPECT_THAT(document, testing::StartsWith("% A truss, drawn by Strutwright."));
  EXPECT_THAT(document, HasSubstr("\\ifx\\documentclass\\@notprerr\n  \\def\\trussbegin{}\\def\\trussend{}\n\\else\n"));
  EXPECT_THAT(document, HasSubstr("papersize={600bp,450bp}"));
  EXPECT_THAT(document, HasSubstr("\\begin{tikzpicture}[x=0.75bp,y=-0.75bp,\n"));
  EXPECT_THAT(document, testing::EndsWith("\\end{tikzpicture}%\n\\endgroup\n\\trussend\n"));
}

TEST_F(TikzSurfaceTest, NamesTheStylesThatItUsesAtItsTop) {
  tikz.PixelLine({0, 0}, {10, 20}, {{0, 104, 163}, 4, false});
  tikz.PixelLine({0, 0}, {10, 20}, {{1, 2, 3}, 1, true});
  const std::string document = tikz.Document();
  EXPECT_THAT(document, HasSubstr("\\definecolor{trusstension}{RGB}{0,104,163}%\n"));
  EXPECT_THAT(document, HasSubstr("  truss tension/.style={color=trusstension}"));
  EXPECT_THAT(document, HasSubstr("  truss colour 1 2 3/.style={color=trusscolour123}"));
  EXPECT_THAT(document, Not(HasSubstr("compression")));
}

TEST_F(TikzSurfaceTest, DrawsLinesAreasAndDots) {
  tikz.PixelLine({0, 0}, {10.126, 20}, {{190, 96, 150}, 1.3, true});
  const std::vector<PixelPoint> corners{{0, 0}, {10, 0}, {5, 8}};
  tikz.PixelPolygon(corners, {0, 112, 79});
  tikz.PixelDot({7, 8}, 3.5, {{26, 26, 26}, 1.5, false}, {255, 255, 255});
  EXPECT_EQ(Commands(), "\\draw[truss deflected,truss dashed,line width=0.98bp] (0,0) -- (10.13,20);\n"
                        "\\fill[truss reaction] (0,0) -- (10,0) -- (5,8) -- cycle;\n"
                        "\\filldraw[truss ink,line width=1.12bp,fill=trussground] (7,8) circle[radius=2.62bp];\n");
}

TEST_F(TikzSurfaceTest, WritesLabelsAsTextsToEdit) {
  tikz.PixelText({{100, 50}, {0.6, -0.8}, "\u22128.4 C", {179, 71, 0}, 12, {}, {}});
  tikz.PixelText({{1, 2}, {1, 0}, "a_b 5% \u00d7 2 -3 x-y <{", {26, 26, 26}, 11, {}, {}});
  tikz.PixelText({{3, 4}, {1, 0}, "7", {70, 70, 70}, 11, {6, 7}, {170, 170, 170}});
  EXPECT_EQ(Commands(),
            "\\node[truss label,truss compression,rotate=53.13] at (100,50) {\\trussfont{9}$-$8.4 C};\n"
            "\\node[truss label,truss ink] at (1,2) {\\trussfont{8.25}a\\_b 5\\% $\\times$ 2 $-$3 x-y $<$\\{};\n"
            "\\node[truss label,truss member number,truss boxed=trussframe,minimum width=9bp,minimum height=10.5bp] at "
            "(3,4) {\\trussfont{8.25}7};\n");
}

TEST_F(TikzSurfaceTest, KeepsTheLeftEdgeOfWords) {
  tikz.PixelText({{100, 50}, {1, 0}, "zero", {26, 26, 26}, 10, {}, {}}); // 24 pixels wide
  tikz.PixelText({{100, 50}, {1, 0}, "5 kN", {26, 26, 26}, 10, {}, {}});
  EXPECT_EQ(Commands(), "\\node[truss label,truss ink,anchor=west] at (88,50) {\\trussfont{7.5}zero};\n"
                        "\\node[truss label,truss ink] at (100,50) {\\trussfont{7.5}5 kN};\n");
}

TEST_F(TikzSurfaceTest, PrintsNoBlanksBesideThePicture) {
  tikz.PixelLine({0, 0}, {10, 20}, {{0, 104, 163}, 4, false});
  const std::string document = tikz.Document();
  const std::size_t from = document.find("\\trussbegin%\n");
  const std::string head = document.substr(from, document.find("\\begin{tikzpicture}") - from);
  for (std::size_t end = head.find('\n'); end != std::string::npos; end = head.find('\n', end + 1)) {
    EXPECT_EQ(head[end - 1], '%') << head;
  }
}

TEST_F(TikzSurfaceTest, CutsOffWhatTexCanNotCount) {
  tikz.PixelLine({-1e9, 10}, {1e9, 10}, {{26, 26, 26}, 1, false});
  tikz.PixelText({{1e6, 0}, {1, 0}, "far", {26, 26, 26}, 12, {}, {}});
  tikz.PixelDot({0, 0}, 1e7, {{26, 26, 26}, 1, false}, {255, 255, 255});
  tikz.PixelLine({0, 5000}, {10, 5000}, {{26, 26, 26}, 1, false});
  EXPECT_EQ(Commands(), "\\draw[truss ink,line width=0.75bp] (-100,10) -- (900,10);\n");
}

TEST_F(TikzSurfaceTest, DrawsWhatIsGivenInMetres) {
  tikz.SetPenWidth(2);
  tikz.SetPenColour(Red);
  tikz.DrawLine(0, 0, 1, -1);
  tikz.SetPenColour(Black);
  tikz.DrawCircle(0, 0, 0.1);
  tikz.SetTextColour(Blue);
  tikz.MoveTo(1, -2);
  tikz.DrawText("8.4");
  tikz.SetFillStyle(FillStyle::Solid);
  tikz.SetFillColour(Grey);
  tikz.SetPenWidth(1);
  tikz.DrawBox(0, 0, 0.1, 0.1);
  EXPECT_EQ(Commands(), "\\draw[truss red line,line width=1.5bp] (200,500) -- (300,400);\n"
                        "\\draw[truss black line,line width=1.5bp] (200,500) circle[radius=7.5bp];\n"
                        "\\node[truss label,anchor=north west,truss blue line] at (300,300) {\\trussfont{9.75}8.4};\n"
                        "\\fill[truss grey line] (200,500) -- (210,500) -- (210,510) -- (200,510) -- cycle;\n"
                        "\\draw[truss black line,line width=0.75bp] (200,500) -- (210,500);\n"
                        "\\draw[truss black line,line width=0.75bp] (210,500) -- (210,510);\n"
                        "\\draw[truss black line,line width=0.75bp] (210,510) -- (200,510);\n"
                        "\\draw[truss black line,line width=0.75bp] (200,510) -- (200,500);\n");
}

TEST_F(TikzSurfaceTest, LeavesOutWhatFollowsTheMouse) {
  tikz.SetPenMode(PenMode::Invert);
  tikz.DrawLine(0, 0, 1, 1);
  tikz.DrawBox(0, 0, 1, 1);
  EXPECT_EQ(Commands(), "");
}

TEST_F(TikzSurfaceTest, BeginsAnewWhenItIsCleared) {
  tikz.PixelLine({0, 0}, {1, 1}, {{26, 26, 26}, 1, false});
  tikz.Clear();
  EXPECT_EQ(Commands(), "");
}

TEST_F(TikzSurfaceTest, DrawsATrussInBothStylesWithoutTouchingTheSurfaceThatMeasures) {
  Analyse(Triangle());
  TrussView view{.reactions = true, .memberForces = true, .deflectedShape = true, .style = DrawingStyle::Clear};
  Draw(tikz, view);
  EXPECT_THAT(Commands(), HasSubstr("{\\trussfont{9}+6.3 T};\n"));
  view.style = DrawingStyle::Described;
  Draw(tikz, view);
  EXPECT_THAT(Commands(), HasSubstr("{\\trussfont{9.75}6.3};\n"));
  EXPECT_TRUE(measure.calls.empty());
  EXPECT_TRUE(measure.pixelLines.empty());
}

TEST_F(TikzSurfaceTest, SavesItsDocument) {
  const std::string path = folder.Path("truss.tex");
  tikz.SavePicture(path);
  std::ifstream file(path);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), tikz.Document());
}

} // namespace
} // namespace strutwright
