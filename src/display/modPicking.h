#pragma once

#include "modNodeSearch.h"

#include <string>

namespace strutwright {

// What lies under the mouse.  All points are world points in m, y upwards; PickRadius is the one distance for nodes,
// members and grid points, and what lies exactly that far away is not hit.

struct WorldPoint {
  float x = 0;
  float y = 0;

  bool operator==(const WorldPoint&) const = default;
};

/// The first member, in number order, whose line passes closer than PickRadius within its ends; 0 when there is none.
/// The ends count by their coordinates, PickRadius farther in each direction.  A member without length is hit round
/// its point; one that names a node that does not exist is never hit.
int FindMember(float x, float y);

/// The nearest multiples of the grid spacings, halves to the even neighbour.
/// Where a spacing is not above zero the coordinate stays as it is.
WorldPoint NearestGridPoint(float x, float y);

/// Whether the point lies closer than PickRadius to the nearest grid point, in each direction.
/// Where a spacing is not above zero nothing does.
bool IsSnapped(float x, float y);

/// The question whether to add a node at a point where none was found.
std::string NodeNotFoundText(float x, float y);

/// The message that no member was found at a point.
std::string MemberNotFoundText(float x, float y);

/// What a user may want to know of a member before it is added from node i to node j: that it has no length, or that
/// it joins the same two nodes as another; empty when there is nothing to say.
std::string MemberHint(int i, int j);

} // namespace strutwright
