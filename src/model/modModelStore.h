#pragma once

#include "FieldTable.h"
#include "Grid.h"

#include <cstdint>

namespace strutwright {

/// Fields of NodeTable; column of GrJoints alike.
enum NodeField : int {
  NodeX = 1,   ///< m
  NodeY,       ///< m, upward positive
  NodeForceX,  ///< applied load, kN
  NodeForceY,  ///< applied load, kN, upward positive
  NodeSupport, ///< 0 free; 1 restrained in y; 2 restrained in x; any other value in both
};

/// Fields of MemberTable; the first five are columns of GrMembers, the others are written by the analysis.
enum MemberField : int {
  MemberNodeI = 1,   ///< start node number, kept as a float
  MemberNodeJ,       ///< end node number, kept as a float
  MemberE,           ///< elastic modulus, kN/mm2
  MemberA,           ///< cross-section area, mm2
  MemberPS,          ///< prestress force, kN, tension positive
  MemberFieldLength, ///< mm
  MemberFieldCos,    ///< cosine of the direction from node i to node j
  MemberFieldSin,    ///< sine of that direction
  MemberFieldForce,  ///< axial force, kN, tension positive
};

/// True and false of the 16-bit flags.
inline constexpr std::int16_t FlagTrue = -1;
inline constexpr std::int16_t FlagFalse = 0;

/// The model, and the grids that a user edits it in.
struct ModelState {
  FieldTable NodeTable{6};               ///< (node 0..NodeCount, field 0..5); record 0 is not used
  FieldTable MemberTable{10};            ///< (member 0..MemberCount, field 0..9); record 0 is not used
  std::int16_t NodeCount = 0;            ///< nodes are numbered 1..NodeCount
  std::int16_t MemberCount = 0;          ///< members are numbered 1..MemberCount
  std::int16_t GridCapacity = 20;        ///< "Maximum No. of Nodes or Members": data rows of the data grids
  float PickRadius = 0.1F;               ///< m, for picking nodes and snapping to grid points
  std::int16_t AnalysisDone = FlagFalse; ///< there are results of the model in the tables, which may be shown
  Grid GrJoints;                         ///< node data as texts, columns as in JointColumns
  Grid GrMembers;                        ///< member data as texts, columns as in MemberColumns
};

inline ModelState TheModel;
inline auto& NodeTable = TheModel.NodeTable;
inline auto& MemberTable = TheModel.MemberTable;
inline auto& NodeCount = TheModel.NodeCount;
inline auto& MemberCount = TheModel.MemberCount;
inline auto& GridCapacity = TheModel.GridCapacity;
inline auto& PickRadius = TheModel.PickRadius;
inline auto& AnalysisDone = TheModel.AnalysisDone;
inline auto& GrJoints = TheModel.GrJoints;
inline auto& GrMembers = TheModel.GrMembers;

/// A model by itself, apart from the one that is open; its tables have a record for each node and each member.
struct ModelTables {
  FieldTable nodes{6};
  FieldTable members{10};
};

/// What RebuildModelFromGrids would make the model; the open one stays as it is.
ModelTables ReadGrids();

/// Reads the model from the cell texts of GrJoints and GrMembers.
/// A count is the number of data rows with a numeric text in column 1, wherever they stand; the rows copied are the
/// first so many.  A text that is not numeric gives 0.  Member fields 6 to 9 become 0.
void RebuildModelFromGrids();

/// Empties every cell but the headers, then gives the grid n data rows.
void ClearGrid(Grid& grid, std::int16_t n);

/// Writes the number of each data row into its column 0.
void NumberRows(Grid& grid);

/// Writes the model into GrJoints and GrMembers, which get exactly as many data rows as there are nodes and members.
void CopyModelToGrids();

/// A node number kept as a float, as the integer that it stands for: rounded to the nearest, ties to even.
/// What no 32-bit integer can hold gives the nearest one that can.
int RoundNodeNumber(float number);

} // namespace strutwright
