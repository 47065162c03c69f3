#pragma once

#include <string>
#include <vector>

namespace strutwright {

/// The open model as a DXF file (release 12, in metres): members, nodes and supports, and texts with their numbers,
/// each on layers of their own.  Loads, numbers, E, A and prestress stand beside them as extended data, from which this
/// program makes the same model again.
/// deflected: how many times too large the deflected shape is drawn, of the displacements of an analysis that is
/// done; 0 for none.
/// remarks: takes a sentence for the members that can't be drawn, because they name nodes that are not there.
std::string ModelToDxf(float deflected, std::vector<std::string>& remarks);

} // namespace strutwright
