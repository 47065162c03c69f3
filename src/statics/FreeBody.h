#pragma once

#include "HandTruss.h"

#include <cstddef>
#include <string>
#include <vector>

namespace strutwright {

/// The forces that are known so far.
struct HandForces {
  std::vector<double> members;     ///< (0..memberCount), kN, tension positive
  std::vector<double> reactions;   ///< (0..2 nodeCount), kN
  std::vector<char> memberKnown;   ///< (0..memberCount)
  std::vector<char> reactionKnown; ///< (0..2 nodeCount)

  HandForces() = default;
  /// Nothing is known yet.
  explicit HandForces(const HandTruss& truss);
  /// All are, as an analysis left them.  members: (0..memberCount), reactions: (0..2 nodeCount), kN.
  HandForces(std::vector<double> memberForces, std::vector<double> supportForces);
};

enum class ForceKind { Load, Reaction, Member };

/// One arrow on a free body.
struct BodyForce {
  ForceKind kind = ForceKind::Load;
  int node = 0;            ///< it acts at this node of the body
  int member = 0;          ///< number of the cut member; 0 for others
  std::size_t freedom = 0; ///< of a reaction: x of node n is 2n-1, y is 2n; 0 for others
  ForceLine line;          ///< where it acts, and which way it pushes the body where its value is positive
  std::string name;        ///< "F7", "R3y"; empty for a load
  bool isKnown = true;
  double value = 0; ///< kN; of a load its size; 0 where it is not known
  int farNode = 0;  ///< where a cut member goes; 0 for others
  double farX = 0;  ///< of that node, m
  double farY = 0;
};

/// Nodes cut free, and everything that acts on them.
struct FreeBody {
  std::vector<int> nodes; ///< ascending
  std::vector<BodyForce> forces;
  double nothing = 0; ///< a force no larger than this counts as none, kN
};

/// A free body's forces put end to end.
struct PolygonSide {
  int force = 0; ///< index in the free body
  double x0 = 0; ///< begin, kN
  double y0 = 0;
  double x1 = 0; ///< end, kN
  double y1 = 0;
};

/// Some nodes cut free: loads, reactions, and the members that join them to others.  nodes: ascending.
FreeBody CutFree(const HandTruss& truss, const std::vector<int>& nodes, const HandForces& forces);

/// The polygon of the known forces, clockwise around the body as their arrows stand, beginning with one that was known
/// before those in `later` (indices in the body).  It begins at (0, 0) and ends there where the forces balance.
std::vector<PolygonSide> ForcePolygon(const FreeBody& body, const std::vector<int>& later);

/// How far the polygon's end is from its beginning, kN.
double ClosingError(const std::vector<PolygonSide>& polygon);

} // namespace strutwright
