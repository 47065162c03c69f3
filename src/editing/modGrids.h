#pragma once

#include "Grid.h"
#include "modColumns.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace strutwright {

/// Joint results, heading by heading: displacements, then reactions.
inline constexpr std::array<GridColumn, 5> JointResultColumns{{
    {"JOINTS"},
    {"Def x (mm)"},
    {"Def y (mm)"},
    {"ForceX (kN)"},
    {"ForceY (kN)"},
}};

/// Member results, heading by heading.
inline constexpr std::array<GridColumn, 5> MemberResultColumns{{
    {"MEMBERS"},
    {"Force (kN)"},
    {"T or C"},
    {"s (N/mm2)"},
    {"dL (mm)"},
}};

/// Clears all four grids and lays them out: headings, GridCapacity numbered rows in the data grids, one empty row in
/// the results grids.
void initGrids();

/// Gives a data grid which has fewer rows than these, its header row counted, so many and a spare one, all numbered.
/// Throws std::length_error where no grid has so many, and then nothing has changed.
void MakeRoom(Grid& grid, std::size_t rows);

/// Empties the results grids and gives each GridCapacity data rows.
void ClearResultGrids();

/// The texts of a row of the joint results and of one of the member results, its number first.
std::array<std::string, 5> JointResultTexts(int node);
std::array<std::string, 5> MemberResultTexts(int member);

/// Fills the results grids from the results of the analysis: displacements in mm, reactions and forces in kN, stresses
/// in N/mm2, elongations in mm.  A member that can't stretch is shown to the user as it is listed.
void resultGrids();

/// The same without a word on what can't stretch; only cells with another text are written.
void ListResultsQuietly();

/// Elongation of member m in mm; 0, with a message, where it can't stretch.
float StretchOrMessage(int m);

} // namespace strutwright
