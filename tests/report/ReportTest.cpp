#include "AnalysisState.h"
#include "ReportFixture.h"
#include "modCheckAnswer.h"
#include "modNumberText.h"
#include "modReportText.h"

#include <chrono>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace strutwright {
namespace {

using testing::HasSubstr;
using testing::Not;

/// The part of a report below a heading, up to the next one that is as high.
std::string Section(const std::string& html, const std::string& heading, const std::string& level = "h2") {
  const std::string begin = "<" + level + ">" + heading + "</" + level + ">";
  const std::size_t from = html.find(begin);
  if (from == std::string::npos) return "";
  const std::size_t to = html.find("<" + level + ">", from + begin.size());
  return html.substr(from, to - from);
}

std::string NumberCell(const std::string& text) { return "<td align=\"right\">" + text + "</td>"; }

std::string WordCell(const std::string& text) { return "<td align=\"left\">" + text + "</td>"; }

/// The cells of a whole row, which are numbers but for the last where it is words.
std::string TableRow(const std::vector<std::string>& numbers, const std::string& words = "") {
  std::string row = ">";
  for (const std::string& number : numbers) row += NumberCell(number);
  return row + (words.empty() ? "" : WordCell(words)) + "</tr>";
}

TEST_F(ReportTest, NeedsResults) {
  SetModel(Triangle());
  EXPECT_FALSE(HasResultsToReport());
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  EXPECT_TRUE(HasResultsToReport());
  AnalysisDone = FlagFalse;
  EXPECT_FALSE(HasResultsToReport());
}

TEST_F(ReportTest, IsNotThereForAnUnstableTruss) {
  SetModel(Square());
  EXPECT_FALSE(runAnalysis(ScratchCopy::None));
  EndAnalysis();
  EXPECT_FALSE(HasResultsToReport());
  TakeMessages();
}

TEST_F(ReportTest, IsNotThereOnceARebuildHasTakenTheMemberForces) {
  Analyse(Triangle());
  RebuildModelFromGrids();
  EXPECT_EQ(AnalysisDone, FlagTrue);
  EXPECT_FALSE(HasResultsToReport());
}

TEST_F(ReportTest, IsThereWhereNoMemberHasALength) {
  SetModel({{{0, 0, 0, 0, 3}, {4, 0, 0, 0, 3}}, {{1, 1}}});
  ASSERT_TRUE(runAnalysis(ScratchCopy::None));
  TakeMessages(); // the member is ignored
  EXPECT_TRUE(HasResultsToReport());
}

TEST_F(ReportTest, BearsTheNameOfTheModel) {
  CurrentFileName = "/models/bridge.stw";
  Analyse(Bar());
  const Report report = MakeReport("bridge.stw");
  EXPECT_EQ(report.name, "bridge.stw");
  EXPECT_EQ(report.path, "/models/bridge.stw");
  EXPECT_EQ(report.date, "2026-11-21");
  EXPECT_EQ(report.document.title, "Truss report: bridge.stw");
  EXPECT_THAT(report.document.html, HasSubstr("<h1>Truss report: bridge.stw</h1>"));
  EXPECT_THAT(report.document.html, HasSubstr("<title>Truss report: bridge.stw</title>"));
}

TEST_F(ReportTest, WritesOutTheSpecialCharactersOfItsName) {
  Analyse(Bar());
  const std::string html = MakeReport("<b>&\"x\".stw").document.html;
  EXPECT_THAT(html, HasSubstr("<h1>Truss report: &lt;b&gt;&amp;&quot;x&quot;.stw</h1>"));
  EXPECT_THAT(html, Not(HasSubstr("<b>")));
}

TEST_F(ReportTest, BeginsWithDateCountsAndVerdict) {
  EXPECT_THAT(HtmlOf(Bar()), HasSubstr("<p>2026-11-21. 2 nodes, 1 member. The truss is stable and these results are "
                                       "right to 7 digits.</p>"));
}

TEST_F(ReportTest, ListsNodesWithLoadsAndSupports) {
  const std::string nodes = Section(HtmlOf(Bar()), "Model");
  EXPECT_THAT(nodes, HasSubstr("<th align=\"right\">Node</th><th align=\"right\">x(m)</th><th align=\"right\">y(m)</th>"
                               "<th align=\"right\">ForceX (kN)</th><th align=\"right\">ForceY (kN)</th>"
                               "<th align=\"left\">Support</th>"));
  EXPECT_THAT(nodes, HasSubstr(TableRow({"1", "0", "0", "0", "0"}, "3 held in x and y")));
  EXPECT_THAT(nodes, HasSubstr(TableRow({"2", "5", "0", "40", "0"}, "1 held in y")));
  EXPECT_THAT(nodes, Not(HasSubstr("No node bears a load.")));
}

TEST_F(ReportTest, NamesEverySupport) {
  const std::string nodes =
      Section(HtmlOf({{{0, 3, 0, 0, 2}, {4, 0, 0, 0, 7}, {0, 0, 5, -10, 0}}, {{1, 2}, {2, 3}, {1, 3}}}), "Model");
  EXPECT_THAT(nodes, HasSubstr(WordCell("2 held in x")));
  EXPECT_THAT(nodes, HasSubstr(WordCell("7 held in x and y")));
  EXPECT_THAT(nodes, HasSubstr(WordCell("0 free")));
}

TEST_F(ReportTest, ListsMembersWithTheirProperties) {
  const std::string html = HtmlOf({{{0, 0, 0, 0, 3}, {5, 0, 40, 0, 1}}, {{2, 1, 210.5F, 1000, -2.25F}}});
  const std::string members = Section(html, "Members", "h3");
  for (const char* heading : {"Member", "Node i", "Node j", "E (kN/mm2)", "A (mm2)", "PS (kN)"}) {
    EXPECT_THAT(members, HasSubstr("<th align=\"right\">" + std::string(heading) + "</th>"));
  }
  EXPECT_THAT(members, HasSubstr(TableRow({"1", "2", "1", "210.5", "1000", "-2.25"})));
}

TEST_F(ReportTest, SaysThatThereAreNoLoads) {
  EXPECT_THAT(Section(HtmlOf({{{0, 0, 0, 0, 3}, {5, 0, 0, 0, 1}}, {{1, 2}}}), "Model"),
              HasSubstr("<p>No node bears a load.</p>"));
}

TEST_F(ReportTest, HoldsTheDrawingAndItsScales) {
  const std::string drawing = Section(DescribedHtmlOf(Bar()), "Drawing");
  const ReportFrame frame = FrameReport();
  EXPECT_THAT(drawing, HasSubstr("<img alt=\"The truss\" width=\"640\" height=\"" + std::to_string(frame.height)));
  EXPECT_THAT(drawing, HasSubstr("data:image/png;base64,UE5H")); // "PNG", as the stand-in begins its picture
  EXPECT_THAT(drawing, HasSubstr("displacements drawn 200 times as large."));
  EXPECT_THAT(drawing, HasSubstr("An arrow as long as 1 m of the truss stands for 50 kN."));
  EXPECT_THAT(drawing, HasSubstr("Numbers of nodes are black"));
}

TEST_F(ReportTest, ShowsALargeDrawingAsWideAsTheOthers) {
  const std::string drawing = Section(DescribedHtmlOf(PrattTruss(40)), "Drawing");
  const ReportFrame frame = FrameReport();
  EXPECT_EQ(frame.width, 960);
  EXPECT_THAT(drawing, HasSubstr("width=\"640\" height=\"" + std::to_string(frame.height * 2 / 3) + "\""));
}

TEST_F(ReportTest, SaysWhatALargeDrawingLeavesOut) {
  const std::string drawing = Section(DescribedHtmlOf(PrattTruss(40)), "Drawing");
  EXPECT_THAT(drawing, HasSubstr("Numbers of nodes are black"));
  EXPECT_THAT(drawing, HasSubstr(" Member forces are left out for want of room.</p>"));
  EXPECT_THAT(Section(DescribedHtmlOf(PrattTruss(200)), "Drawing"),
              HasSubstr(" Numbers of nodes and members are left out: members are drawn too short for them."));
  EXPECT_THAT(Section(DescribedHtmlOf(Bar()), "Drawing"), HasSubstr(" Blue: member forces in kN, "));
}

TEST_F(ReportTest, DrawsTheTrussClearUnlessTheDescribedDrawingIsAskedFor) {
  const std::string drawing = Section(HtmlOf(Bar()), "Drawing");
  const ReportSheets sheets = LayOutSheets();
  EXPECT_THAT(drawing, HasSubstr("<img alt=\"The truss\" width=\"640\" height=\"" + std::to_string(sheets.height)));
  EXPECT_THAT(drawing,
              HasSubstr("T is tension, blue; C is compression, drawn as two lines; 0 is a member without force"));
  EXPECT_THAT(drawing, HasSubstr("displacements drawn 200 times as large.</p>"));
  EXPECT_THAT(drawing, Not(HasSubstr("Part 1")));
  EXPECT_THAT(drawing, Not(HasSubstr("Numbers of nodes are black")));
}

TEST_F(ReportTest, LaysThePagesOfALongTrussOnTheirSide) {
  Analyse(PrattTruss(20));
  const Report report = MakeReport("bridge.stw");
  EXPECT_TRUE(report.document.landscape);
  EXPECT_THAT(report.document.html, HasSubstr("<style>@page { size: A4 landscape; }</style>"));
  EXPECT_THAT(report.document.html, HasSubstr("width=\"940\""));
  EXPECT_FALSE(MakeReport("bridge.stw", DrawingStyle::Described).document.landscape);
  EXPECT_THAT(HtmlOf(Triangle()), Not(HasSubstr("landscape")));
}

TEST_F(ReportTest, NamesThePartsOfATrussThatIsTooLongForAPage) {
  const std::string drawing = Section(HtmlOf(PrattTruss(80)), "Drawing");
  const std::size_t count = LayOutSheets().sheets.size();
  ASSERT_GT(count, 1U);
  EXPECT_THAT(drawing, HasSubstr("<h3>Part 1 of " + std::to_string(count) + ": x from 0.0 to "));
  EXPECT_THAT(drawing, HasSubstr("<h3>Part " + std::to_string(count) + " of " + std::to_string(count) + ": x from "));
}

/// A row as the results grid has it.
std::string GridRow(const Grid& grid, int row, int first, int last) {
  std::vector<std::string> texts{grid.Text(row, 0)};
  for (int column = first; column <= last; ++column) texts.push_back(grid.Text(row, column));
  return TableRow(texts);
}

TEST_F(ReportTest, ShowsMemberResultsAsTheGridDoes) {
  const std::string members = Section(Section(HtmlOf(PrattTruss(10)), "Results"), "Members", "h3");
  for (int m = 1; m <= MemberCount; ++m) {
    std::string row = GridRow(mResGr, m, 1, 4);
    const std::string state = NumberCell(mResGr.Text(m, 2));
    row.replace(row.find(state), state.size(), WordCell(mResGr.Text(m, 2)));
    EXPECT_THAT(members, HasSubstr(row));
  }
}

TEST_F(ReportTest, ShowsDisplacementsAsTheGridDoes) {
  const std::string nodes = Section(HtmlOf(PrattTruss(10)), "Displacements and reactions", "h3");
  for (int n = 1; n <= NodeCount; ++n) {
    const std::string row = GridRow(jResGr, n, 1, 2);
    EXPECT_THAT(nodes, HasSubstr(row.substr(0, row.find("</tr>"))));
  }
}

TEST_F(ReportTest, HeadsResultsWithTheirUnits) {
  const std::string results = Section(HtmlOf(Bar()), "Results");
  for (const char* heading : {"Def x (mm)", "Def y (mm)", "Reaction ForceX (kN)", "Reaction ForceY (kN)", "Force (kN)",
                              "s (N/mm2)", "dL (mm)"}) {
    EXPECT_THAT(results, HasSubstr("<th align=\"right\">" + std::string(heading) + "</th>"));
  }
  EXPECT_THAT(results, HasSubstr("<th align=\"left\">T or C</th>"));
}

// The bar pulls node 1 with 40 kN; it becomes 40 * 5000 / (200 * 1000) = 1 mm longer and bears 40 N/mm2.
TEST_F(ReportTest, HasTheResultsOfAPulledBar) {
  const std::string results = Section(HtmlOf(Bar()), "Results");
  EXPECT_THAT(results, HasSubstr(TableRow({"1", "0.0", "0.0", "-40.0", "0.0"})));
  EXPECT_THAT(results, HasSubstr(NumberCell("40.0") + WordCell("T") + NumberCell("40.0") + NumberCell("1.0")));
}

std::string Reaction(std::size_t freedom) { return FormatNumber(Reactions.at(freedom), "#0.0"); }

TEST_F(ReportTest, ShowsReactionsWhereSupportsHoldANode) {
  const ModelData truss{{{0, 3, 0, 0, 2}, {4, 0, 0, 0, 3}, {0, 0, 5, -10, 0}}, {{1, 2}, {2, 3}, {1, 3}}};
  const std::string nodes = Section(HtmlOf(truss), "Displacements and reactions", "h3");
  EXPECT_THAT(nodes, HasSubstr(TableRow({"1", jResGr.Text(1, 1), jResGr.Text(1, 2), Reaction(XFreedom(1)), ""})));
  EXPECT_THAT(nodes, HasSubstr(TableRow({"2", "0.0", "0.0", Reaction(XFreedom(2)), Reaction(YFreedom(2))})));
  EXPECT_THAT(nodes, HasSubstr(TableRow({"3", jResGr.Text(3, 1), jResGr.Text(3, 2), "", ""})));
  EXPECT_THAT(Section(HtmlOf(Bar()), "Results"), HasSubstr(TableRow({"2", "1.0", "0.0", "", "0.0"})));
}

std::string ManualPage(const std::string& name) {
  std::ifstream file(MANUAL_DIR "/" + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(ReportTest, ExplainsSignsAsTheManualDoes) {
  const std::string signs = Section(HtmlOf(Bar()), "Sign conventions");
  const std::string manual = ManualPage("signs.md");
  for (const auto& [quantity, meaning] : SignConventions) {
    EXPECT_THAT(signs, HasSubstr(WordCell(std::string(quantity)) + WordCell(std::string(meaning))));
    EXPECT_THAT(manual, HasSubstr("| " + std::string(quantity) + " | " + std::string(meaning) + " |"));
  }
  EXPECT_THAT(signs, HasSubstr("<p>" + std::string(ReactionConvention) + "</p>"));
  EXPECT_THAT(manual, HasSubstr(std::string(ReactionConvention)));
}

TEST_F(ReportTest, NamesUnitsAsTheManualDoes) {
  const std::string units = Section(HtmlOf(Bar()), "Units");
  const std::string manual = ManualPage("signs.md");
  for (const auto& [quantity, unit] : UnitsOfReport) {
    EXPECT_THAT(units, HasSubstr(WordCell(std::string(quantity)) + WordCell(std::string(unit))));
    const std::size_t row = manual.find("\n| " + std::string(quantity));
    ASSERT_NE(row, std::string::npos) << quantity;
    EXPECT_THAT(manual.substr(row + 1, manual.find('\n', row + 1) - row - 1),
                testing::EndsWith("| " + std::string(unit) + " |"));
  }
}

TEST_F(ReportTest, EndsWithTheCheck) {
  const std::string check = Section(HtmlOf(Bar()), "Check");
  EXPECT_THAT(check, HasSubstr("<p>" + CheckAnswer(LastOutcome()).verdict + ".</p>"));
  for (const char* fact :
       {"Mechanisms: 0", "Static indeterminacy: 0", "Digits: 7", "Zero bars: 0", "Oddities of the model: 0"}) {
    EXPECT_THAT(check, HasSubstr("<li>" + std::string(fact) + "</li>"));
  }
}

TEST_F(ReportTest, CountsUnknownsAgainstEquations) {
  const std::string explanation = " (b members, r directions that supports hold, n nodes)</li>";
  EXPECT_THAT(Section(HtmlOf(Bar()), "Check"),
              HasSubstr("<ul>\n<li>Count: b + r - 2n = 1 + 3 - 2 \u00B7 2 = 0" + explanation));
  // Codes 2, 7 and 0 hold one, two and no direction.
  const ModelData truss{{{0, 3, 0, 0, 2}, {4, 0, 0, 0, 7}, {0, 0, 5, -10, 0}}, {{1, 2}, {2, 3}, {1, 3}, {1, 3}}};
  EXPECT_THAT(Section(HtmlOf(truss), "Check"), HasSubstr("b + r - 2n = 4 + 3 - 2 \u00B7 3 = 1" + explanation));
}

TEST_F(ReportTest, GivesTheFiguresOfTheCheckTheirUnits) {
  const std::string check = Section(HtmlOf(PrattTruss(10)), "Check");
  for (const char* line : {"Largest difference of displacements: [^<]* of the largest",
                           "Largest difference of member forces: [^<]* of the largest",
                           "Largest difference of reactions: [^<]* of the largest",
                           "Largest residual of a node: [^<]* kN", "Residual of the whole: [^<]* kN, [^<]* kN m",
                           "Work of loads and prestress: [^<]* J, stored energy: [^<]* J"}) {
    EXPECT_TRUE(std::regex_search(check, std::regex("<li>" + std::string(line)))) << line;
  }
}

TEST_F(ReportTest, PutsWhatTheCheckFoundBelowItsHeading) {
  // Nobody pulls the second bar.
  const ModelData truss{{{0, 0, 0, 0, 3}, {5, 0, 40, 0, 1}, {0, 5, 0, 0, 3}}, {{1, 2}, {1, 3}}};
  EXPECT_THAT(Section(HtmlOf(truss), "Check"), HasSubstr("<li>Zero bars: 1</li>\n<ul>\n<li>Member 2: "));
}

TEST_F(ReportTest, CanBeOfASupportWithoutAMember) {
  const std::string html = HtmlOf({{{2, 3, 4, -5, 3}}, {}});
  EXPECT_THAT(html, HasSubstr("1 node, 0 members."));
  EXPECT_THAT(html, HasSubstr(TableRow({"1", "0.0", "0.0", "-4.0", "5.0"})));
}

// Without one of its diagonals, and so stiff that what rounding leaves of its pivot passes.
TEST_F(ReportTest, SaysAtItsTopThatTheTrussIsAMechanism) {
  ModelData truss = PrattTruss(20);
  for (MemberData& member : truss.members) member.A = 5000000;
  truss.members.erase(truss.members.begin() + 7);
  const std::string html = HtmlOf(truss);
  const std::string verdict = CheckAnswer(LastOutcome()).verdict + ".</p>";
  EXPECT_THAT(verdict, testing::StartsWith("The truss is a mechanism: "));
  EXPECT_LT(html.find(verdict), html.find("<h2>Model</h2>"));
  EXPECT_THAT(Section(html, "Results"), HasSubstr(verdict));
  EXPECT_THAT(Section(html, "Check"), HasSubstr(verdict));
  EXPECT_THAT(Section(html, "Check"), HasSubstr("<li>Mechanisms: 1</li>\n<ul>\n<li>"));
}

TEST_F(ReportTest, WarnsOfNothingWhereThereAreDigitsEnough) {
  EXPECT_THAT(Section(HtmlOf(Bar()), "Results"), Not(HasSubstr("digits")));
}

TEST_F(ReportTest, SaysWhyThereIsNoCheck) {
  Analyse(Triangle());
  ReportParts parts;
  parts.frame = FrameReport();
  parts.checkFailure = "no such luck";
  const std::string html = ReportHtml(parts);
  for (const char* section : {"Results", "Check"}) {
    EXPECT_THAT(Section(html, section), HasSubstr("<p>The check could not be made: no such luck.</p>"));
  }
  EXPECT_THAT(html, Not(HasSubstr("Mechanisms: ")));
}

TEST_F(ReportTest, IsTheSameOfTheSameModelAndDate) {
  const std::string html = HtmlOf(PrattTruss(10));
  EXPECT_EQ(HtmlOf(PrattTruss(10)), html);
  ThePlatform().today = [] { return std::string("2026-11-22"); };
  EXPECT_NE(HtmlOf(PrattTruss(10)), html);
}

TEST_F(ReportTest, DoesNotDependOnWhatTheDisplayShows) {
  const std::string html = HtmlOf(PrattTruss(10));
  const std::vector<std::string> drawn = paper.drawn;
  DeflectionScale = 30;
  LoadsScale = 3;
  ShowReactions = ShowMemberForces = ShowDeflectedShape = false;
  TheDisplay.Layers = {false, false, true, false, false};
  EXPECT_EQ(MakeReport("bridge.stw").document.html, html);
  EXPECT_EQ(paper.drawn, drawn);
}

TEST_F(ReportTest, ChangesNothing) {
  Analyse(PrattTruss(10));
  const FieldTable nodes = NodeTable;
  const FieldTable members = MemberTable;
  static_cast<void>(MakeReport("bridge.stw"));
  EXPECT_EQ(NodeTable, nodes);
  EXPECT_EQ(MemberTable, members);
  EXPECT_EQ(AnalysisDone, FlagTrue);
}

TEST_F(ReportTest, IsOutOfDateOnceTheModelIsAnotherOne) {
  Analyse(Bar());
  const Report report = MakeReport("bridge.stw");
  EXPECT_TRUE(IsUpToDate(report));
  GrJoints.SetText(2, NodeForceX, "41");
  EXPECT_FALSE(IsUpToDate(report));
  GrJoints.SetText(2, NodeForceX, "40");
  EXPECT_TRUE(IsUpToDate(report));
  GridCapacity = 99; // room for a model is no part of it
  EXPECT_TRUE(IsUpToDate(report));
}

TEST_F(ReportTest, IsMadeOfThousandsOfNodes) {
  Analyse(PrattTruss(4998));
  const auto begin = std::chrono::steady_clock::now();
  const std::string html = MakeReport("bridge.stw").document.html;
  RecordProperty("ms", static_cast<int>((std::chrono::steady_clock::now() - begin) / std::chrono::milliseconds(1)));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(60));
  EXPECT_THAT(html, HasSubstr("\n4998  "));
}

} // namespace
} // namespace strutwright
