#pragma once

#include "FreeBody.h"
#include "modBalance.h"
#include "modDeterminacy.h"
#include "modReactions.h"

#include <string>
#include <vector>

namespace strutwright {

enum class HandStepKind {
  Joint,    ///< one joint with at most two unknown forces; without any it is a check
  Section,  ///< a section that goes on where no joint does
  Together, ///< all joints left at once
};

/// One step of the solution by hand.  The steps can be shown forward and back as they are: each holds what was known
/// before it as numbers, and what it finds as names.
struct HandStep {
  HandStepKind kind = HandStepKind::Joint;
  std::string reason;                  ///< why this step comes, in a sentence
  FreeBody body;                       ///< the joint or the part; what the step finds has its value in it
  std::vector<int> found;              ///< forces (indices in the body) that this step finds; of Together see below
  std::vector<HandEquation> equations; ///< written before anything was found
  std::vector<std::string> solution;   ///< "F4 = 10 kN (tension)"
  std::vector<PolygonSide> polygon;    ///< of a joint: known forces first, then those found; it closes
  std::vector<FreeBody> joints;        ///< of Together: the joint of every two equations, in their order
};

/// A truss taken apart by hand as far as equilibrium goes.
struct HandSolution {
  Determinacy determinacy;
  ReactionsFirst reactions;    ///< before any joint
  std::vector<HandStep> steps; ///< in their order
  HandForces forces;           ///< what is known at the end
  std::string stop;            ///< why some forces stay unknown; empty where none does
};

/// Solves: the reactions first where they can be found first, then joint after joint, the lowest-numbered first; where
/// no joint goes on, a section through a compound truss does, else all joints left are solved together.
/// A mechanism is only judged; an indeterminate truss is taken as far as joints go.  Source: docs/method.md, 12.
HandSolution SolveByHand(const HandTruss& truss);

/// A joint as any solution leaves it: its forces, the sums of x and y with their numbers, and the force polygon.
HandStep JointOf(const HandTruss& truss, int node, const HandForces& forces);

} // namespace strutwright
