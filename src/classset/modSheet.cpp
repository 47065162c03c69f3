#include "modSheet.h"

#include "ClearFraming.h"
#include "ClearSettings.h"
#include "PreciseText.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modRedraw.h"
#include "modReportDrawing.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

constexpr double HeightBeside = 150; // logical pixels for arrows, supports and labels above and below
constexpr double LeastHeight = 220;
constexpr double MostHeight = 520;
constexpr int LinesToWrite = 12;
constexpr const char* Blank = "____________";

/// As high as the truss needs when it fills the width.
int HeightOfPicture(const StoredModel& model) {
  double left = model.nodes(1, NodeX);
  double right = left;
  double bottom = model.nodes(1, NodeY);
  double top = bottom;
  for (int n = 2; n <= model.nodeCount; ++n) {
    left = std::min<double>(left, model.nodes(n, NodeX));
    right = std::max<double>(right, model.nodes(n, NodeX));
    bottom = std::min<double>(bottom, model.nodes(n, NodeY));
    top = std::max<double>(top, model.nodes(n, NodeY));
  }
  const double width = right - left;
  const double needed = width > 0 ? (top - bottom) / width * (ReportWidth - HeightBeside) + HeightBeside : MostHeight;
  return static_cast<int>(std::lround(std::clamp(needed, LeastHeight, MostHeight)));
}

void DrawProblem(DrawingSurface& surface) {
  TrussView view{.layers = {.grid = false},
                 .style = DrawingStyle::Clear,
                 .legend = false,
                 .onPaper = true,
                 .failures = [](const std::string& /*failure*/) {}};
  view.loadsScale = ScaleOfArrowsOn(surface, SettingsOf(view)).value_or(view.loadsScale);
  if (const auto frame = ClearFrame(surface, SettingsOf(view))) surface.SetWindow(*frame);
  Draw(surface, view);
}

std::string SupportText(float code) {
  if (code == 0) return "";
  if (code == 1) return "roller, held in y";
  return code == 2 ? "roller, held in x" : "pin, held in x and y";
}

std::string Cell(float value) { return NumberText(value); }

/// Zero loads are left out, so that the others stand out.
std::string LoadCell(float value) { return value == 0 ? "" : NumberText(value); }

WorkedTable NodesTable(const StoredModel& model) {
  WorkedTable table{{{"Node"}, {"x (m)"}, {"y (m)"}, {"Load in x (kN)"}, {"Load in y (kN)"}, {"Support", true}}, {}};
  for (int n = 1; n <= model.nodeCount; ++n) {
    table.rows.push_back({std::to_string(n), Cell(model.nodes(n, NodeX)), Cell(model.nodes(n, NodeY)),
                          LoadCell(model.nodes(n, NodeForceX)), LoadCell(model.nodes(n, NodeForceY)),
                          SupportText(model.nodes(n, NodeSupport))});
  }
  return table;
}

bool HasPrestress(const StoredModel& model) {
  for (int m = 1; m <= model.memberCount; ++m) {
    if (model.members(m, MemberPS) != 0) return true;
  }
  return false;
}

WorkedTable MembersTable(const StoredModel& model) {
  const bool prestressed = HasPrestress(model);
  WorkedTable table{{{"Member"}, {"From node"}, {"To node"}, {"E (kN/mm\u00B2)"}, {"A (mm\u00B2)"}}, {}};
  if (prestressed) table.columns.push_back({"Prestress (kN)"});
  for (int m = 1; m <= model.memberCount; ++m) {
    std::vector<std::string> row{std::to_string(m), Cell(model.members(m, MemberNodeI)),
                                 Cell(model.members(m, MemberNodeJ)), Cell(model.members(m, MemberE)),
                                 Cell(model.members(m, MemberA))};
    if (prestressed) row.push_back(Cell(model.members(m, MemberPS)));
    table.rows.push_back(row);
  }
  return table;
}

WorkedTable QuestionsTable(const ClassVariant& variant) {
  WorkedTable table{{{"Question", true}, {"What is asked", true}, {"Answer", true}, {"Unit", true}}, {}};
  for (const KeyedQuestion& each : variant.questions) {
    if (each.question.kind == AskKind::Stiffness) continue;
    table.rows.push_back({NameOf(each.question), TextOf(variant.model, each.question), Blank, UnitOf(each.question)});
  }
  return table;
}

/// The matrix of a member to fill in, with the freedoms that its rows and columns belong to.
void AddMatrix(WorkedDocument& sheet, const StoredModel& model, int member) {
  const std::string number = std::to_string(member);
  std::vector<std::string> freedoms;
  for (const MemberField field : {MemberNodeI, MemberNodeJ}) {
    const std::string node = std::to_string(RoundNodeNumber(model.members(member, field)));
    freedoms.push_back(node + "x");
    freedoms.push_back(node + "y");
  }
  WorkedTable table{{{"k " + number, true}}, {}};
  for (std::size_t column = 0; column < freedoms.size(); ++column) {
    table.columns.push_back({std::to_string(column + 1) + ": " + freedoms[column], true});
  }
  for (std::size_t row = 0; row < freedoms.size(); ++row) {
    table.rows.push_back({std::to_string(row + 1) + ": " + freedoms[row], Blank, Blank, Blank, Blank});
  }
  sheet.blocks.emplace_back(WorkedParagraph{"Stiffness matrix of member " + number + " in global axes, in kN/mm; k " +
                                            number + " 12 is its entry in row 1 and column 2."});
  sheet.blocks.emplace_back(table);
}

void AddMatrices(WorkedDocument& sheet, const ClassVariant& variant) {
  int last = 0;
  for (const KeyedQuestion& each : variant.questions) {
    if (each.question.kind != AskKind::Stiffness || each.question.number == last) continue;
    last = each.question.number;
    AddMatrix(sheet, variant.model, last);
  }
}

} // namespace

WorkedPicture ProblemPicture(const StoredModel& model) { return {ReportWidth, HeightOfPicture(model), DrawProblem}; }

std::vector<WorkedTable> DataTables(const StoredModel& model) { return {NodesTable(model), MembersTable(model)}; }

std::string SetName(const ClassPlan& plan) {
  return "Class set of " + plan.source.name + ", seed " + std::to_string(plan.seed);
}

WorkedDocument SheetOf(const ClassPlan& plan, const ClassVariant& variant, const WorkedPicture& picture) {
  WorkedDocument sheet{"Truss problem of " + variant.student, {}};
  const auto add = [&sheet](WorkedBlock block) { sheet.blocks.push_back(std::move(block)); };
  add(WorkedParagraph{SetName(plan)});
  add(picture);
  add(WorkedParagraph{"All joints are pins, and all members weigh nothing. x is positive to the right and y upwards, "
                      "also of loads, reactions and displacements. A member force is positive in tension."});
  add(WorkedHeading{2, "Questions"});
  const WorkedTable questions = QuestionsTable(variant);
  if (!questions.rows.empty()) add(questions);
  AddMatrices(sheet, variant);
  add(WorkedHeading{2, "Data"});
  for (const WorkedTable& table : DataTables(variant.model)) {
    add(WorkedParagraph{table.columns.front().heading + "s"});
    add(table);
  }
  add(WorkedHeading{2, "Working"});
  add(WorkedRoom{LinesToWrite});
  return sheet;
}

} // namespace strutwright
