#include "modReportText.h"

#include "AnalysisState.h"
#include "modCheckText.h"
#include "modColumns.h"
#include "modGrids.h"
#include "modHtml.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <array>
#include <sstream>
#include <vector>

namespace strutwright {

namespace {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

HtmlColumn Number(std::string_view heading) { return {std::string(heading), false}; }

HtmlColumn Words(std::string_view heading) { return {std::string(heading), true}; }

// Columns of the joint results.
constexpr std::size_t ReactionX = 3;
constexpr std::size_t ReactionY = 4;

std::string SupportWords(float code) {
  const std::string number = NumberText(code);
  if (code == 0) return number + " free";
  if (code == 1) return number + " held in y";
  return number + (code == 2 ? " held in x" : " held in x and y");
}

std::string Count(int count, const std::string& one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

bool HasLoads() {
  for (int n = 1; n <= NodeCount; ++n) {
    if (NodeTable(n, NodeForceX) != 0 || NodeTable(n, NodeForceY) != 0) return true;
  }
  return false;
}

std::string Verdict(const ReportParts& parts) {
  const std::string failure = "The check could not be made: " + parts.checkFailure;
  return (parts.checkFailure.empty() ? parts.check.verdict : failure) + ".";
}

std::string Head(const ReportParts& parts) {
  return HtmlHeading(1, ReportTitle(parts.name)) + HtmlParagraph(parts.date + ". " + Count(NodeCount, "node") + ", " +
                                                                 Count(MemberCount, "member") + ". " + Verdict(parts));
}

std::string NodeTableHtml() {
  Rows rows;
  for (int n = 1; n <= NodeCount; ++n) {
    Row row{std::to_string(n)};
    for (int field = NodeX; field < NodeSupport; ++field) row.push_back(NumberText(NodeTable(n, field)));
    row.push_back(SupportWords(NodeTable(n, NodeSupport)));
    rows.push_back(row);
  }
  std::vector<HtmlColumn> columns{Number("Node")};
  for (std::size_t field = NodeX; field < NodeSupport; ++field)
    columns.push_back(Number(JointColumns.at(field).heading));
  columns.push_back(Words(JointColumns.at(NodeSupport).heading));
  return HtmlTable(columns, rows);
}

std::string MemberTableHtml() {
  Rows rows;
  for (int m = 1; m <= MemberCount; ++m) {
    Row row{std::to_string(m)};
    for (int field = MemberNodeI; field <= MemberPS; ++field) row.push_back(NumberText(MemberTable(m, field)));
    rows.push_back(row);
  }
  std::vector<HtmlColumn> columns{Number("Member")};
  for (std::size_t field = MemberNodeI; field <= MemberPS; ++field) {
    columns.push_back(Number(MemberColumns.at(field).heading));
  }
  return HtmlTable(columns, rows);
}

std::string ModelSection() {
  return HtmlHeading(2, "Model") + HtmlHeading(3, "Nodes, loads and supports") + NodeTableHtml() +
         (HasLoads() ? "" : HtmlParagraph("No node bears a load.")) + HtmlHeading(3, "Members") + MemberTableHtml();
}

std::string Legend(const ReportFrame& frame) {
  std::string legend = "Green: supports, and reactions in kN. Red: loads in kN, and dashed the deflected shape, its "
                       "displacements drawn " +
                       NumberText(frame.deflectionScale) +
                       " times as large. An arrow as long as 1 m of the truss stands for " +
                       NumberText(frame.loadsScale) + " kN.";
  legend += frame.numbers ? " Numbers of nodes are black, those of members red."
                          : " Numbers of nodes and members are left out: members are drawn too short for them.";
  legend += frame.forces ? " Blue: member forces in kN, their arrows pulling at the nodes in tension and pressing on "
                           "them in compression."
                         : " Member forces are left out for want of room.";
  return legend;
}

std::string ClearLegendText(const ReportSheets& sheets) {
  return "Forces in kN stand beside their members: T is tension, blue; C is compression, drawn as two lines; 0 is a "
         "member without force, thin and grey. Members are wider the larger their force. Loads are black arrows, "
         "reactions green ones. The dashed line is the deflected shape, its displacements drawn " +
         NumberText(sheets.deflectionScale) + " times as large.";
}

/// What a part of a long truss shows, such as "Part 1 of 3: x from 0.0 to 24.5 m".
std::string PartText(const ReportSheets& sheets, std::size_t index) {
  const ReportSheet& sheet = sheets.sheets[index];
  const auto metres = [](double value) { return FormatNumber(static_cast<float>(value), "0.0#"); };
  return "Part " + std::to_string(index + 1) + " of " + std::to_string(sheets.sheets.size()) +
         (sheets.upwards ? ": y" : ": x") + " from " + metres(sheet.from) + " to " + metres(sheet.to) + " m";
}

std::string SheetsHtml(const ReportParts& parts) {
  const ReportSheets& sheets = parts.sheets;
  std::string html;
  for (std::size_t index = 0; index < parts.pictures.size(); ++index) {
    if (parts.pictures.size() > 1) html += HtmlHeading(3, PartText(sheets, index));
    html += HtmlPicture(parts.pictures[index].png, sheets.width, sheets.height);
  }
  return html + HtmlParagraph(ClearLegendText(sheets));
}

std::string DrawingSection(const ReportParts& parts) {
  if (parts.style == DrawingStyle::Clear) return HtmlHeading(2, "Drawing") + SheetsHtml(parts);
  const ReportFrame& frame = parts.frame;
  return HtmlHeading(2, "Drawing") +
         HtmlPicture(parts.pictures.front().png, ReportWidth, frame.height * ReportWidth / frame.width) +
         HtmlParagraph(Legend(frame));
}

Row RowOf(const std::array<std::string, 5>& texts) { return {texts.begin(), texts.end()}; }

std::string ReactionText(std::size_t freedom) { return FormatNumber(Reactions.at(freedom), "#0.0"); }

/// In a direction that no support holds, a node has no reaction, whatever its grid shows.  The grid's zero is a lone
/// point, which nobody would read as one in a document.
std::string NodeResultsHtml() {
  Rows rows;
  for (int n = 1; n <= NodeCount; ++n) {
    const float code = NodeTable(n, NodeSupport);
    Row row = RowOf(JointResultTexts(n));
    row[ReactionX] = code == 0 || code == 1 ? "" : ReactionText(XFreedom(n));
    row[ReactionY] = code == 0 || code == 2 ? "" : ReactionText(YFreedom(n));
    rows.push_back(row);
  }
  std::vector<HtmlColumn> columns{Number("Node")};
  for (std::size_t column = 1; column < JointResultColumns.size(); ++column) {
    columns.push_back(
        Number((column < ReactionX ? "" : "Reaction ") + std::string(JointResultColumns.at(column).heading)));
  }
  return HtmlTable(columns, rows);
}

std::string MemberResultsHtml() {
  Rows rows;
  for (int m = 1; m <= MemberCount; ++m) rows.push_back(RowOf(MemberResultTexts(m)));
  return HtmlTable({Number("Member"), Number(MemberResultColumns[1].heading), Words(MemberResultColumns[2].heading),
                    Number(MemberResultColumns[3].heading), Number(MemberResultColumns[4].heading)},
                   rows);
}

/// Results that can't be trusted come with the verdict above them.
std::string ResultsSection(const ReportParts& parts) {
  const std::string warning = parts.check.level == CheckLevel::Good ? "" : HtmlParagraph(Verdict(parts));
  return HtmlHeading(2, "Results") + warning + HtmlHeading(3, "Displacements and reactions") + NodeResultsHtml() +
         HtmlHeading(3, "Members") + MemberResultsHtml();
}

template <class Explanations>
std::string ExplanationsHtml(const std::string& quantity, const std::string& meaning,
                             const Explanations& explanations) {
  Rows rows;
  for (const Explanation& each : explanations) rows.push_back({std::string(each.quantity), std::string(each.meaning)});
  return HtmlTable({Words(quantity), Words(meaning)}, rows);
}

std::string ExplanationSections() {
  return HtmlHeading(2, "Sign conventions") + ExplanationsHtml("Quantity", "Positive means", SignConventions) +
         HtmlParagraph(std::string(ReactionConvention)) + HtmlHeading(2, "Units") +
         ExplanationsHtml("Quantity", "Unit", UnitsOfReport);
}

/// How many directions the supports hold.
int HeldDirections() {
  int held = 0;
  for (int n = 1; n <= NodeCount; ++n) {
    const float code = NodeTable(n, NodeSupport);
    if (code != 0) held += code == 1 || code == 2 ? 1 : 2;
  }
  return held;
}

/// The count that every course begins with: unknown forces less equations of equilibrium.
std::string CountLine() {
  const int held = HeldDirections();
  const int difference = MemberCount + held - 2 * NodeCount;
  return "Count: b + r - 2n = " + std::to_string(MemberCount) + " + " + std::to_string(held) + " - 2 \u00B7 " +
         std::to_string(NodeCount) + " = " + std::to_string(difference) +
         " (b members, r directions that supports hold, n nodes)";
}

/// The verdict, which is the first line of the check's text, the count, and then the check's facts.
std::string CheckSection(const ReportParts& parts) {
  std::string begin = HtmlHeading(2, "Check") + HtmlParagraph(Verdict(parts));
  if (!parts.checkFailure.empty()) return begin;
  std::istringstream text(CheckText(parts.check));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  lines.front() = CountLine();
  return begin + HtmlList(lines);
}

} // namespace

std::string ReportTitle(const std::string& name) { return "Truss report: " + name; }

std::string ReportHtml(const ReportParts& parts) {
  const bool landscape = parts.style == DrawingStyle::Clear && parts.sheets.landscape;
  return HtmlPage(ReportTitle(parts.name), landscape,
                  Head(parts) + ModelSection() + DrawingSection(parts) + ResultsSection(parts) + ExplanationSections() +
                      CheckSection(parts));
}

} // namespace strutwright
