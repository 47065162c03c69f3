#pragma once

#include "HandTruss.h"

#include <vector>

namespace strutwright {

/// The parts of a truss that are simple in themselves: one bar, and then node after node held by two bars that are not
/// in line.  The nodes of each part of three nodes or more, ascending; two parts can share nodes, as a hinge does.
std::vector<std::vector<int>> SimpleParts(const HandTruss& truss);

/// Whether bars, simple parts and the ground can be joined, step by step, to one body: two bodies by a hinge and a bar,
/// three by three hinges that are not in line, or two by three bars that do not meet in a point.  The ground is a body;
/// a roller is a bar to it.
bool JoinsToOneBody(const HandTruss& truss);

} // namespace strutwright
