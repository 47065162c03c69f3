#pragma once

#include "modHandSolution.h"

#include <string>
#include <vector>

namespace strutwright {

/// A space of the form diagram, which is a point of the force diagram.
struct DiagramSpace {
  std::string letter;   ///< "A", ..., "Z", "A1", ...; its point bears the small letter
  bool isOuter = false; ///< it lies between two outer forces
  double x = 0;         ///< of its point, kN
  double y = 0;
  double placeX = 0; ///< where its letter stands in the form diagram, m: the middle of an inner space, else on the rim
  double placeY = 0;
  double outX = 0; ///< direction from there away from the truss; none for an inner space
  double outY = 0;
};

/// A line of the force diagram, which is a force; it goes from the point of the space before it to that of the space
/// behind it, clockwise around the node.
struct DiagramLine {
  ForceKind kind = ForceKind::Member;
  int member = 0; ///< number; 0 for an outer force
  int node = 0;   ///< of an outer force; the start node of a member
  int from = 0;   ///< index of a space
  int to = 0;
  double force = 0;     ///< kN as measured in the diagram, of a member tension positive
  bool byHand = true;   ///< its new point is where two lines cross, not one computed before
  std::size_t step = 0; ///< of the hand solution that draws it, counted from 1; 0 for the outer forces
};

/// The reciprocal figure of a truss: one closed polygon for each node in one drawing.
struct ForceDiagram {
  std::string whyNot;                      ///< why there is none; empty where there is one
  std::vector<DiagramSpace> spaces;        ///< the outer ones first, clockwise
  std::vector<DiagramLine> lines;          ///< in the order in which one draws them
  std::vector<std::vector<int>> polygonOf; ///< (0..nodes): the spaces around a node, clockwise
  double closingError = 0;                 ///< how far lines miss their points, and the outer forces their first, kN
};

/// Draws the force diagram of a determinate truss without crossings whose loads and reactions stand outside.  Forces
/// are measured from crossings of lines, not taken from the joints, wherever a joint has two unknown ones.
/// Source: docs/method.md, 14.
ForceDiagram DrawForceDiagram(const HandTruss& truss, const HandSolution& solution);

} // namespace strutwright
