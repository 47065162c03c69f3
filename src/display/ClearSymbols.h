#pragma once

#include "ClearTruss.h"
#include "OccupiedPlane.h"

#include <vector>

namespace strutwright {

/// A support as it is drawn: on the side of its node that is free.
struct ClearSupport {
  int node = 0;
  PixelPoint at;
  PixelPoint off;      ///< from the node to the ground, of length 1
  bool roller = false; ///< otherwise a pin
};

/// An arrow of a load or a reaction.
struct ClearArrow {
  int node = 0;
  bool reaction = false;
  float force = 0; ///< kN, along x to the right or along y upwards
  PixelPoint tail;
  PixelPoint tip;
  PixelPoint outer; ///< the end away from the node
};

/// How far a support reaches from its node towards the ground, and the box that it takes up.
double SupportReach(const ClearSupport& support);
TurnedBox BoxOfSupport(const ClearSupport& support);
TurnedBox BoxOfArrow(const ClearArrow& arrow);

/// Finds the side for each support: where its code puts it, or where members are in the way the other one; a pin also
/// beside its node.  A support that would stand on another one is left out.  Adds them to what is occupied.
std::vector<ClearSupport> PlaceSupports(const ClearTruss& truss, OccupiedPlane& plane);

/// Whether a direction leaves the truss: it lies in the widest angle between the node's members.
bool LeavesTruss(const ClearTruss& truss, int n, PixelPoint side);

/// Finds a place for each load and reaction: outside the truss where there is room, its head at the node, or where only
/// the other side lies outside, its tail.  One that would stand on a node, a support or another arrow everywhere is
/// left out.  Adds them to what is occupied. longest: as LongestArrow gives it; scale: pixels a metre.
/// leftOut: gets the node of each one that is left out.
std::vector<ClearArrow> PlaceArrows(const ClearTruss& truss, const std::vector<ClearSupport>& supports,
                                    float loadsScale, double scale, double longest, OccupiedPlane& plane,
                                    std::vector<int>& leftOut);

// Drawing; `by`: from the plane of the truss to the surface.

void DrawSupport(PixelSurface& surface, const ClearSupport& support, PixelPoint by);
void DrawArrow(PixelSurface& surface, PixelPoint tail, PixelPoint tip, Colour colour);
void DrawNodeDot(PixelSurface& surface, PixelPoint at);

} // namespace strutwright
