#pragma once

#include "FreeBody.h"
#include "modHandSolution.h"
#include "modJointOrder.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace strutwright {

// What goes on where no joint has at most two unknown forces.

/// Looks for sections that go on: around a simple part of a compound truss, with or without a hinge that it shares, or,
/// where no part has one, around one joint of whose unknown forces all but one lie on a line.  What was tried
/// in vain is tried again only when more is known at its nodes, so a long chain of parts isn't searched again and
/// again.
class SectionSearch {
 public:
  /// The truss must outlive it.
  explicit SectionSearch(const HandTruss& truss);

  /// Of the sections that find a force, the one with the fewest unknown forces; nothing where none does.
  std::optional<HandStep> Next(const JointOrder& order, const HandSolution& solution);

 private:
  /// Nodes to cut free, and what came of it when so many forces were unknown at them.
  struct Candidate {
    std::vector<int> nodes;  ///< ascending
    int unknowns = -1;       ///< -1: it was not tried
    std::vector<int> best{}; ///< the nodes, or all but a hinge; none where that found no force
    std::size_t asked = 0;   ///< unknown forces of the best section
  };

  const Candidate* BestOf(std::vector<Candidate>& candidates, const JointOrder& order, const HandForces& forces) const;
  void Try(const std::vector<int>& nodes, const HandForces& forces, Candidate& candidate) const;
  void TryAgain(const JointOrder& order, const HandForces& forces, Candidate& candidate) const;
  bool LeadsOut(int node, const JointOrder& order, const std::vector<int>& part) const;

  const HandTruss& Truss;
  std::vector<Candidate> Parts;
  std::vector<Candidate> Joints;
};

/// The equations of all joints left, solved together.  The truss must be determinate.
HandStep SolveTogether(const HandTruss& truss, const JointOrder& order, const HandSolution& solution);

/// A force of a free body as the order of joints knows it.
UnknownForce ToUnknown(const BodyForce& force, const HandTruss& truss);

/// Puts a value where it belongs.
void Put(const UnknownForce& force, double value, const HandTruss& truss, HandForces& forces);

} // namespace strutwright
