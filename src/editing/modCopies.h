#pragma once

#include <string>
#include <vector>

namespace strutwright {

// Copies of parts of the truss.  The copied nodes are those named and the ends of the members named; they bring their
// loads and supports.  A copy that falls on a node, to a micrometre, is that node; between two nodes that a member
// joins already no second one is made.  Each works on the model as it stands in the grids, ends the analysis and draws
// the truss.

/// What is copied.
struct CopiedParts {
  std::vector<int> nodes;
  std::vector<int> members;
};

/// Copies the parts so many times, each by (dx, dy), in m, farther than the one before.
/// Returns the node numbers of the last copy, in the order of the copied nodes.
/// More rows than a grid can have throw std::length_error.
std::vector<int> RepeatParts(const CopiedParts& parts, double dx, double dy, int count);

/// Adds the mirror image about the line x = at, or y = at where it lies level.  Loads in the direction that is mirrored
/// change their sign.  Returns as RepeatParts does.
std::vector<int> MirrorParts(const CopiedParts& parts, double at, bool level);

} // namespace strutwright
