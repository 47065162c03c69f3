#pragma once

#include "Grid.h"

#include <cstdint>
#include <string>

namespace strutwright {

// What the two inspectors show, as grids of texts, and the load that the node inspector applies.  Every value is taken
// from the tables at the moment of filling; nothing is refreshed later.

/// The grids of the member inspector.  Row 0 and column 0 hold labels.
struct MemberDetails {
  Grid grProperties;      ///< columns: label, value, unit
  Grid grStiffnessMatrix; ///< kN/mm, freedoms by freedoms
  Grid grResults;         ///< columns: label, value, unit
};

/// The grids of the node inspector, columns: label, value, unit.
struct NodeDetails {
  Grid grProperties;
  Grid grResults;
};

/// Whether an applied load replaces what is there.
enum class LoadMode { Overwrite, Add };

/// Lays the grids out with their labels and units, without values.
void LayOutMemberDetails(MemberDetails& details);
void LayOutNodeDetails(NodeDetails& details);

/// Fills in member m: properties, matrix, and the results when an analysis is current.
/// m: 1..MemberCount.  What is wrong with the member is shown to the user as its values are computed.
void ShowMemberDetails(MemberDetails& details, std::int16_t m);

/// Fills in node n: properties, and the results when an analysis is current.  n: 1..NodeCount.
void ShowNodeDetails(NodeDetails& details, std::int16_t n);

/// Applies a load to node n, ends the analysis and draws anew.
/// force: size in kN; angle: degrees from the x axis, counter-clockwise; both as typed.  A text that is not numeric,
/// or a load that no cell can hold, is reported and nothing changes.
void ApplyNodeLoad(NodeDetails& details, std::int16_t n, const std::string& force, const std::string& angle,
                   LoadMode mode);

} // namespace strutwright
