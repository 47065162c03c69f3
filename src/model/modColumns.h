#pragma once

#include "Grid.h"

#include <array>
#include <string_view>

namespace strutwright {

/// One column of a grid: its heading, which names the unit, and where scripts see it, its short name there.
struct GridColumn {
  std::string_view heading;
  std::string_view key{};
};

/// Node data, heading by heading; column c of the grid is field c of NodeTable.
inline constexpr std::array<GridColumn, 6> JointColumns{{
    {"JOINTS", "node"},
    {"x(m)", "x"},
    {"y(m)", "y"},
    {"ForceX (kN)", "fx"},
    {"ForceY (kN)", "fy"},
    {"Support", "support"},
}};

/// Member data; column c of the grid is field c of MemberTable.
inline constexpr std::array<GridColumn, 6> MemberColumns{{
    {"MEMBERS", "member"},
    {"Node i", "i"},
    {"Node j", "j"},
    {"E (kN/mm2)", "e"},
    {"A (mm2)", "a"},
    {"PS (kN)", "ps"},
}};

/// Gives a grid these columns and their headings in row 0; other texts stay.
void WriteHeadings(Grid& grid, const auto& columns) {
  grid.SetColumnCount(static_cast<int>(columns.size()));
  int column = 0;
  for (const GridColumn& each : columns) grid.SetText(0, column++, std::string(each.heading));
}

} // namespace strutwright
