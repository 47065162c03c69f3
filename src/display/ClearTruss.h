#pragma once

#include "ClearSettings.h"
#include "PlaneGeometry.h"

#include <exception>
#include <span>
#include <vector>

namespace strutwright {

/// A member as it is drawn, in pixels from the world's origin.
struct ClearBar {
  int number = 0;
  int i = 0; ///< its nodes
  int j = 0;
  PixelPoint from;
  PixelPoint to;
  PixelPoint along{1, 0}; ///< from one to the other, of length 1
  double length = 0;
  float force = 0; ///< kN, tension positive; 0 for a zero bar and where forces are not shown
  double width = 0;
};

/// A node as it is drawn.
struct ClearJoint {
  PixelPoint at;
  float support = 0;
  float loadX = 0; ///< kN; 0 where it is too small to be drawn
  float loadY = 0;
  float reactionX = 0;
  float reactionY = 0;
};

/// The directions between which a node has room, in radians from the x axis downwards.
struct FreeAngle {
  double middle = 0;
  double width = 0;
};

/// A truss in pixels from the world's origin, y downwards.  It does not depend on where the view lies.
struct ClearTruss {
  std::vector<ClearJoint> joints;  ///< by node number; 0 is not used
  std::vector<ClearBar> bars;      ///< of the members that can be drawn, in their order
  double largestForce = 0;         ///< kN
  std::vector<double> directions;  ///< of the members at each node, in order from -pi to pi, node after node
  std::vector<int> firstDirection; ///< of a node, and one past the last
  std::exception_ptr failure;      ///< of the first member that could not be drawn

  std::span<const double> DirectionsAt(int n) const;
};

/// Takes the model and, where they are shown, its results from the tables.
/// A member whose node does not exist is left out; what was wrong with the first stands in `failure`.
ClearTruss TakeTruss(const ClearSettings& settings, double scaleX, double scaleY);

/// Fills in the directions of the bars at each joint: one list for all joints.
void SortDirections(ClearTruss& truss);

/// The angles between neighbouring directions, widest first; ties in the order of the angle.  The directions need not
/// be in order.  Without any there is one of a whole turn, whose middle points up to the right.
std::vector<FreeAngle> FreeAngles(std::vector<double> directions);

/// Whether two bars lie on one line and share more than a point of it, so that no label can be nearer to one.
bool LieOnEachOther(const ClearBar& a, const ClearBar& b);

/// Whether a force is none: as small as the tables call it, or below what the results can distinguish from zero.
bool IsZeroForce(float force, double largest);

} // namespace strutwright
