#pragma once

#include <vector>

namespace strutwright {

// The numbers of the nodes decide how fast a truss is analysed, not what comes of it: where members join nodes of near
// numbers, elimination stays near the diagonal.  docs/performance.md has the figures.

/// Numbers the nodes of the data grids along the span: by x, of equal x by y, of equal places in their old order.  The
/// members' node numbers follow; what names no node stays as it is.  Rows behind the nodes keep their places.
/// The tables must hold what the grids do.  Ends like every change of the model, with AfterModelEdit.
/// Where the nodes are in that order already, a message says so and nothing has changed.
void RenumberNodesAlongSpan();

/// The nodes of the tables in that order: the old numbers, from the first new one on.
std::vector<int> NodesAlongSpan();

/// True where the members join numbers so far apart, and in that order would not, that an analysis would be many times
/// as fast.
bool RenumberingWouldHelp();

} // namespace strutwright
