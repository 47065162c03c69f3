#pragma once

#include <string>

namespace strutwright {

// What a tip says of an element that the mouse points at, a fact a line, with units.  Results stand in it while an
// analysis is current.  Nothing is shown in a box, whatever is wrong with the element.

/// "Node 4", its coordinates, loads, support, displacement and, where it is held, reaction.
/// n: 1..NodeCount; any other number gives an empty text.
std::string NodeTip(int n);

/// "Member 7, nodes 4-5", its length, E, A, prestress where it has one, force, stress and change of length.
/// m: 1..MemberCount; any other number gives an empty text.
std::string MemberTip(int m);

} // namespace strutwright
