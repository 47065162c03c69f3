#pragma once

#include "FreeBody.h"
#include "modHandSolution.h"
#include "modJointOrder.h"

#include <optional>
#include <vector>

namespace strutwright {

// What goes on where no joint has at most two unknown forces.

/// The section that goes on: around a simple part of a compound truss, with or without the hinge that it shares, or
/// around one joint of whose unknown forces all but one lie on a line.  Of those that find a force, the one with the
/// fewest unknown forces.  parts: the SimpleParts of the truss.
std::optional<HandStep> SectionThatGoesOn(const HandTruss& truss, const JointOrder& order, const HandSolution& solution,
                                          const std::vector<std::vector<int>>& parts);

/// The equations of all joints left, solved together.  The truss must be determinate.
HandStep SolveTogether(const HandTruss& truss, const JointOrder& order, const HandSolution& solution);

/// A force of a free body as the order of joints knows it.
UnknownForce ToUnknown(const BodyForce& force, const HandTruss& truss);

/// Puts a value where it belongs.
void Put(const UnknownForce& force, double value, const HandTruss& truss, HandForces& forces);

} // namespace strutwright
