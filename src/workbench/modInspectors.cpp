#include "modInspectors.h"

#include "AnalysisState.h"
#include "AnalysisTexts.h"
#include "ModelEvents.h"
#include "Platform.h"
#include "modAnalysis.h"
#include "modGrids.h"
#include "modMember.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>

namespace strutwright {

namespace {

struct DetailRow {
  std::string_view label;
  std::string_view unit{};
};

constexpr std::array<DetailRow, 9> MemberProperties{{
    {"Mbr No."},
    {"Node i"},
    {"Node j"},
    {"Cos"},
    {"Sin"},
    {"E", "kN/mm2"},
    {"A", "mm2"},
    {"L", "m"},
    {"PS", "kN"},
}};

constexpr std::array<DetailRow, 4> MemberResults{{
    {"Force", "kN"},
    {"T or C"},
    {"Stretch", "mm"},
    {"Stress", "N/mm2"},
}};

constexpr std::array<DetailRow, 7> NodeProperties{{
    {"Node No."},
    {"x", "m"},
    {"y", "m"},
    {"Fx", "kN"},
    {"Fy", "kN"},
    {"Sup. X"},
    {"Sup. Y"},
}};

constexpr std::array<DetailRow, 2> NodeResults{{
    {"x def.", "mm"},
    {"y def.", "mm"},
}};

constexpr std::array<const char*, 4> EndFreedoms{"DOF i x", "DOF i y", "DOF j x", "DOF j y"};

constexpr int ValueColumn = 1;
constexpr int UnitColumn = 2;

void LayOut(Grid& grid, const auto& rows) {
  grid.SetRowCount(static_cast<int>(rows.size()) + 1);
  grid.SetColumnCount(UnitColumn + 1);
  grid.SetText(0, ValueColumn, "Value");
  grid.SetText(0, UnitColumn, "Units");
  int row = 1;
  for (const DetailRow& each : rows) {
    grid.SetText(row, 0, std::string(each.label));
    grid.SetText(row, ValueColumn, "");
    grid.SetText(row++, UnitColumn, std::string(each.unit));
  }
}

void LayOutMatrix(Grid& grid) {
  grid.SetRowCount(5);
  grid.SetColumnCount(5);
  for (int freedom = 1; freedom <= 4; ++freedom) {
    const std::string label = EndFreedoms[static_cast<std::size_t>(freedom - 1)];
    grid.SetText(freedom, 0, label);
    grid.SetText(0, freedom, label);
  }
}

template <std::size_t Count>
void FillValues(Grid& grid, const std::array<std::string, Count>& values) {
  int row = 1;
  for (const std::string& value : values) grid.SetText(row++, ValueColumn, value);
}

std::string ThreePlaces(float value) { return FormatNumber(value, "#0.0##"); }

/// Cosine or sine of a member; shows a message where it can be none.
float DirectionOrMessage(float (*direction)(int), int m) {
  if (m <= 0) ShowMessage(MessageIcon::Critical, NoSuchMemberText(m));
  return direction(m);
}

void FillMemberProperties(Grid& grid, std::int16_t m) {
  const auto stored = [m](MemberField field) { return NumberText(MemberTable(m, field)); };
  FillValues<MemberProperties.size()>(grid, {std::to_string(m), stored(MemberNodeI), stored(MemberNodeJ),
                                             ThreePlaces(DirectionOrMessage(MemberCos, m)),
                                             ThreePlaces(DirectionOrMessage(MemberSin, m)), stored(MemberE),
                                             stored(MemberA), ThreePlaces(MemberLength(m)), stored(MemberPS)});
}

void FillMatrix(Grid& grid, std::int16_t m) {
  MemberMatrix k;
  for (const MemberFault fault : MemberStiffness(k, m)) ShowMessage(MessageIcon::Critical, IgnoredText({m, fault}));
  for (int row = 1; row <= 4; ++row) {
    // Cell (row, column) shows element (column, row); the matrix is symmetric.
    for (int column = 1; column <= 4; ++column) grid.SetText(row, column, FormatNumber(k(column, row), "#0.0#"));
  }
}

void FillMemberResults(Grid& grid, std::int16_t m) {
  FillValues<MemberResults.size()>(grid, {FormatNumber(MemberForce(m), "#0.0#"), MemberState(m),
                                          ThreePlaces(StretchOrMessage(m)), ThreePlaces(MemberStress(m))});
}

void FillNodeProperties(Grid& grid, std::int16_t n) {
  const auto stored = [n](NodeField field) { return NumberText(NodeTable(n, field)); };
  // One code stands for both directions, and both rows show it.
  FillValues<NodeProperties.size()>(grid, {std::to_string(n), stored(NodeX), stored(NodeY), stored(NodeForceX),
                                           stored(NodeForceY), stored(NodeSupport), stored(NodeSupport)});
}

void FillNodeResults(Grid& grid, std::int16_t n) {
  FillValues<NodeResults.size()>(
      grid, {FormatNumber(NodeDisplacement(n, "x"), "#0.0#"), FormatNumber(NodeDisplacement(n, "y"), "#0.0#")});
}

/// The number that was typed; nothing, with a message, when it is none.
std::optional<float> TypedNumber(const std::string& what, const std::string& text) {
  const std::optional<float> value = NumericValue(text);
  if (!value) {
    ShowMessage(MessageIcon::Critical, what + " is not numeric: " + text + "\nNo force will be applied.");
  }
  return value;
}

struct Load {
  float x = 0;
  float y = 0;
};

// Fx = F cos(angle), Fy = F sin(angle).   Checked: 90 degrees leave a trace in x, because pi is kept in 32 bits.
Load Components(float force, float degrees) {
  constexpr auto RadiansPerDegree = static_cast<float>(6.2831855F / 360.0);
  const auto angle = static_cast<float>(static_cast<double>(degrees) * static_cast<double>(RadiansPerDegree));
  return {static_cast<float>(force * std::cos(static_cast<double>(angle))),
          static_cast<float>(force * std::sin(static_cast<double>(angle)))};
}

float LoadInCell(int n, NodeField field, float added, LoadMode mode) {
  if (mode == LoadMode::Overwrite) return added;
  const double present = NumericValue(GrJoints.Text(n, field)).value_or(0.0F);
  return static_cast<float>(present + static_cast<double>(added));
}

/// Writes both components into the joints grid, or reports that they do not fit and writes none.
bool WriteLoad(int n, const Load& added, LoadMode mode) {
  const float x = LoadInCell(n, NodeForceX, added.x, mode);
  const float y = LoadInCell(n, NodeForceY, added.y, mode);
  if (!std::isfinite(x) || !std::isfinite(y)) {
    ShowMessage(MessageIcon::Critical,
                "Overflow: the load at node " + std::to_string(n) + " is too large.\nNo force will be applied.");
    return false;
  }
  GrJoints.SetText(n, NodeForceX, NumberText(x));
  GrJoints.SetText(n, NodeForceY, NumberText(y));
  return true;
}

} // namespace

void LayOutMemberDetails(MemberDetails& details) {
  LayOut(details.grProperties, MemberProperties);
  LayOutMatrix(details.grStiffnessMatrix);
  LayOut(details.grResults, MemberResults);
}

void LayOutNodeDetails(NodeDetails& details) {
  LayOut(details.grProperties, NodeProperties);
  LayOut(details.grResults, NodeResults);
}

void ShowMemberDetails(MemberDetails& details, std::int16_t m) {
  FillMemberProperties(details.grProperties, m);
  FillMatrix(details.grStiffnessMatrix, m);
  LayOut(details.grResults, MemberResults);
  if (AnalysisDone != FlagFalse) FillMemberResults(details.grResults, m);
}

void ShowNodeDetails(NodeDetails& details, std::int16_t n) {
  FillNodeProperties(details.grProperties, n);
  LayOut(details.grResults, NodeResults);
  if (AnalysisDone != FlagFalse) FillNodeResults(details.grResults, n);
}

void ApplyNodeLoad(NodeDetails& details, std::int16_t n, const std::string& force, const std::string& angle,
                   LoadMode mode) {
  const std::optional<float> F = TypedNumber("Force", force);
  const std::optional<float> degrees = TypedNumber("Angle", angle);
  if (!F || !degrees) return;
  if (!WriteLoad(n, Components(*F, *degrees), mode)) return;
  EndAnalysis();
  RebuildModelFromGrids();
  FillNodeProperties(details.grProperties, n);
  LayOut(details.grResults, NodeResults); // what they said is about another load
  ModelEvents().ModelChanged();
}

} // namespace strutwright
