#pragma once

#include "DrawingSurface.h"
#include "TrussView.h"

#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// A force that stands on the path, drawn as an arrow downward.
struct PathLoad {
  double x = 0;     ///< m
  double force = 0; ///< kN
};

/// A place on the line.
struct LineMark {
  double x = 0; ///< m
  double value = 0;
};

/// What is drawn of an influence line.
struct InfluenceShape {
  std::vector<int> nodes;            ///< the path; nodes of the model in the tables
  std::vector<double> values;        ///< the ordinate at each of them
  int member = 0;                    ///< what the line is of, orange in the truss: a member,
  int node = 0;                      ///< or a node; 0 where it is not
  std::vector<PathLoad> loads;       ///< those that are not over the path are not drawn
  std::vector<std::string> captions; ///< lines of text below
  std::optional<LineMark> mark{};    ///< a place that a dot shows, with its ordinate and its value
};

/// Where the view has to be so that the truss fills the surface with the line and its captions below.
ViewWindow FrameInfluence(const DrawingSurface& surface, const InfluenceShape& shape);

/// Which numbers can be read in a view, by how long a usual member is drawn.
struct ReadableNumbers {
  bool ofNodes = false;
  bool ofMembers = false;
};
ReadableNumbers NumbersWithRoom(const DrawingSurface& surface);

/// Draws the line below the truss as the surface shows it: each ordinate under its node, positive ones upward, in a
/// height that does not depend on the view, its extremes labelled; over it what it is of, and the loads on their path.
/// The truss itself is drawn before.  A failure has been reported by then, and nothing is thrown.
/// drawn: what that drawing kept, where it is the clear one; then no load's number stands on the truss's numbers.
void DrawInfluence(DrawingSurface& surface, const InfluenceShape& shape, const ClearMemory* drawn = nullptr);

} // namespace strutwright
