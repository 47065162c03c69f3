#include "modVary.h"

#include "AnalysisState.h"
#include "LongWork.h"
#include "PreciseText.h"
#include "modAnalysis.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"
#include "modOtherModel.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <sstream>

namespace strutwright {

namespace {

constexpr int DigitsOfFloat = 7;

bool IsOfMembers(VariedKind kind) { return kind == VariedKind::MemberE || kind == VariedKind::MemberA; }

/// The field of a node or a member that a kind is about.
int FieldOf(VariedKind kind) {
  switch (kind) {
  case VariedKind::Span:
  case VariedKind::NodeX: return NodeX;
  case VariedKind::Height:
  case VariedKind::NodeY: return NodeY;
  case VariedKind::LoadX: return NodeForceX;
  case VariedKind::LoadY: return NodeForceY;
  case VariedKind::MemberE: return MemberE;
  case VariedKind::MemberA: break;
  }
  return MemberA;
}

std::optional<int> NumberIn(const std::string& text) {
  const std::string_view digits = TrimBlanks(text);
  int number = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (result.ec != std::errc() || result.ptr != digits.data() + digits.size() || number < 1) return std::nullopt;
  return number;
}

/// The numbers of a list such as "1-3,7", each not above count; nothing for any other text.
std::optional<std::vector<int>> NumbersIn(const std::string& list, int count) {
  std::vector<int> numbers;
  std::istringstream parts(list + (list.ends_with(',') ? "," : ""));
  for (std::string part; std::getline(parts, part, ',');) {
    const std::size_t dash = part.find('-');
    const std::optional<int> first = NumberIn(part.substr(0, dash));
    const std::optional<int> last = dash == std::string::npos ? first : NumberIn(part.substr(dash + 1));
    if (!first || !last || *first > *last || *last > count) return std::nullopt;
    for (int number = *first; number <= *last; ++number) numbers.push_back(number);
  }
  if (numbers.empty()) return std::nullopt;
  return numbers;
}

std::vector<int> Rows(const Varied& varied) {
  if (IsOfMembers(varied.kind)) return NumbersIn(varied.numbers, MemberCount).value_or(std::vector<int>{});
  std::vector<int> rows;
  for (int n = 1; n <= NodeCount && IsStretched(varied.kind); ++n) rows.push_back(n);
  if (!IsStretched(varied.kind)) rows.push_back(NumberIn(varied.numbers).value_or(0));
  return rows;
}

struct Range {
  double least = std::numeric_limits<double>::infinity();
  double most = -least;
};

Range RangeOf(int field) {
  Range range;
  for (int n = 1; n <= NodeCount; ++n) {
    range.least = std::min<double>(range.least, NodeTable(n, field));
    range.most = std::max<double>(range.most, NodeTable(n, field));
  }
  return range;
}

/// What stands in a row once the quantity has a value.
double Written(const Varied& varied, int row, double value, const Range& range) {
  if (!IsStretched(varied.kind)) return value;
  const double share = (NodeTable(row, FieldOf(varied.kind)) - range.least) / (range.most - range.least);
  constexpr double largest = std::numeric_limits<float>::max();
  return std::clamp(range.least + share * value, -largest, largest);
}

struct NewValue {
  int row;
  std::string text;
};

std::vector<NewValue> NewValues(const Varied& varied, double value) {
  const Range range = IsStretched(varied.kind) ? RangeOf(FieldOf(varied.kind)) : Range{};
  std::vector<NewValue> values;
  for (const int row : Rows(varied)) {
    values.push_back({row, NumberText(static_cast<float>(Written(varied, row, value, range)))});
  }
  return values;
}

/// The open model once the quantity has a value.
ModelTables ModelWith(const Varied& varied, double value) {
  ModelTables model{NodeTable, MemberTable};
  FieldTable& table = IsOfMembers(varied.kind) ? model.members : model.nodes;
  for (const NewValue& each : NewValues(varied, value)) {
    table(each.row, FieldOf(varied.kind)) = NumericValue(each.text).value_or(0.0F);
  }
  return model;
}

double Read(const ChosenResult& result) {
  switch (result.kind) {
  case ResultKind::MemberForce: return MemberForce(result.number);
  case ResultKind::DisplacementX: return NodeDisplacement(result.number, "x");
  case ResultKind::DisplacementY: return NodeDisplacement(result.number, "y");
  case ResultKind::ReactionX: return Reactions.at(XFreedom(result.number));
  case ResultKind::ReactionY: break;
  }
  return Reactions.at(YFreedom(result.number));
}

std::optional<double> FiniteResult(const ChosenResult& result) {
  const double value = Read(result);
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

bool IsReaction(ResultKind kind) { return kind == ResultKind::ReactionX || kind == ResultKind::ReactionY; }

bool IsHeld(const ChosenResult& result) {
  const float code = NodeTable(result.number, NodeSupport);
  return code != 0 && code != (result.kind == ResultKind::ReactionX ? 1.0F : 2.0F);
}

std::string ChooseUpTo(const std::string& what, int count) {
  if (count == 0) return "The model has no " + what + "s: enter a truss first";
  return "There is no such " + what + ": choose one from 1 to " + std::to_string(count);
}

} // namespace

std::string UnitOf(VariedKind kind) {
  if (kind == VariedKind::LoadX || kind == VariedKind::LoadY) return "kN";
  if (kind == VariedKind::MemberE) return "kN/mm2";
  return kind == VariedKind::MemberA ? "mm2" : "m";
}

std::string VariedFault(const Varied& varied) {
  if (IsStretched(varied.kind)) {
    const Range range = RangeOf(FieldOf(varied.kind));
    if (range.most > range.least) return "";
    return varied.kind == VariedKind::Span ? "The truss has no span to vary: enter nodes beside each other"
                                           : "The truss has no height to vary: enter nodes above each other";
  }
  if (IsOfMembers(varied.kind)) {
    if (NumbersIn(varied.numbers, MemberCount)) return "";
    if (MemberCount == 0) return ChooseUpTo("member", 0);
    return "The list names no members, or some that do not exist: write numbers up to " + std::to_string(MemberCount) +
           ", such as 1-3,7";
  }
  const std::optional<int> node = NumberIn(varied.numbers);
  return node && *node <= NodeCount ? "" : ChooseUpTo("node", NodeCount);
}

double ValueOf(const Varied& varied) {
  if (IsStretched(varied.kind)) {
    const Range range = RangeOf(FieldOf(varied.kind));
    return range.most - range.least;
  }
  const FieldTable& table = IsOfMembers(varied.kind) ? MemberTable : NodeTable;
  return table(Rows(varied).front(), FieldOf(varied.kind));
}

void PutValue(const Varied& varied, double value, CellEdits& edits) {
  Grid& grid = IsOfMembers(varied.kind) ? GrMembers : GrJoints;
  for (const NewValue& each : NewValues(varied, value)) edits.Put(grid, each.row, FieldOf(varied.kind), each.text);
}

std::string ResultFault(const ChosenResult& result) {
  const bool ofMember = result.kind == ResultKind::MemberForce;
  const int count = ofMember ? MemberCount : NodeCount;
  if (result.number < 1 || result.number > count) return ChooseUpTo(ofMember ? "member" : "node", count);
  if (!IsReaction(result.kind) || IsHeld(result)) return "";
  return "No support holds node " + std::to_string(result.number) +
         " in this direction: choose a node and a direction that one holds";
}

std::string ResultName(const ChosenResult& result) {
  const std::string number = std::to_string(result.number);
  switch (result.kind) {
  case ResultKind::MemberForce: return "Force of member " + number + " (kN)";
  case ResultKind::DisplacementX: return "Displacement of node " + number + " in x (mm)";
  case ResultKind::DisplacementY: return "Displacement of node " + number + " in y (mm)";
  case ResultKind::ReactionX: return "Reaction of node " + number + " in x (kN)";
  case ResultKind::ReactionY: break;
  }
  return "Reaction of node " + number + " in y (kN)";
}

std::string VariedName(const Varied& varied) {
  const std::string unit = " (" + UnitOf(varied.kind) + ")";
  switch (varied.kind) {
  case VariedKind::Span: return "Span" + unit;
  case VariedKind::Height: return "Height" + unit;
  case VariedKind::NodeX: return "x of node " + varied.numbers + unit;
  case VariedKind::NodeY: return "y of node " + varied.numbers + unit;
  case VariedKind::LoadX: return "Load in x at node " + varied.numbers + unit;
  case VariedKind::LoadY: return "Load in y at node " + varied.numbers + unit;
  case VariedKind::MemberE: return "E of members " + varied.numbers + unit;
  case VariedKind::MemberA: break;
  }
  return "A of members " + varied.numbers + unit;
}

std::vector<VaryPoint> PlotOf(const Varied& varied, const ChosenResult& result, double from, double to, int points) {
  LongWork work("Computing the plot");
  std::vector<VaryPoint> plot;
  for (int k = 0; k < points; ++k) {
    const double share = points == 1 ? 0 : static_cast<double>(k) / (points - 1);
    const double value = (1 - share) * from + share * to;
    plot.push_back({value, WithModel(ModelWith(varied, value), [&result]() -> std::optional<double> {
                      return AnalyseTruss() == AnalysisEnd::Done ? FiniteResult(result) : std::nullopt;
                    })});
    work.Done(share);
  }
  return plot;
}

std::optional<double> ResultNow(const ChosenResult& result) {
  if (AnalysisDone == FlagFalse || !ResultFault(result).empty()) return std::nullopt;
  return FiniteResult(result);
}

std::string PlotCsv(const Varied& varied, const ChosenResult& result, const std::vector<VaryPoint>& points) {
  std::string csv = "\"" + VariedName(varied) + "\",\"" + ResultName(result) + "\"\r\n";
  for (const VaryPoint& point : points) {
    csv += PreciseText(point.value, DigitsOfFloat) + "," +
           (point.result ? PreciseText(*point.result, DigitsOfFloat) : "") + "\r\n";
  }
  return csv;
}

} // namespace strutwright
