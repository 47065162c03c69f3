#pragma once

#include "HandTruss.h"

#include <cstddef>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace strutwright {

/// One force that is not known yet: a member's, or a support's part along x or y.
struct UnknownForce {
  int member = -1;         ///< index in the truss; -1 for a reaction
  std::size_t freedom = 0; ///< of the reaction: x of node n is 2n-1, y is 2n
  ForceLine line;          ///< away from the joint; of a reaction along x or y

  bool IsMember() const { return member >= 0; }
};

/// Which joint comes next when one goes from joint to joint: the lowest-numbered one with one or two unknown forces
/// that do not lie on one line; those without any come last, to check.  Knows nothing of values.
class JointOrder {
 public:
  JointOrder(const HandTruss& truss, bool knowsReactions);

  /// The joint that comes next; nothing where every joint left has more unknown forces.
  std::optional<int> Next() const;

  /// The forces at a joint that are not known yet, members first.
  std::vector<UnknownForce> UnknownsAt(int node) const;

  /// How many those are.
  int UnknownCountAt(int node) const;

  void LearnMember(int index);
  void LearnReaction(std::size_t freedom);
  void Learn(const UnknownForce& force);
  void MarkDone(int node);

  bool KnowsMember(int index) const { return MemberKnown[static_cast<std::size_t>(index)] != 0; }
  bool KnowsReaction(std::size_t freedom) const { return ReactionKnown[freedom] != 0; }
  bool IsDone(int node) const { return Done[static_cast<std::size_t>(node)] != 0; }

 private:
  void Consider(int node);

  const HandTruss& Truss;
  std::vector<char> MemberKnown;          ///< by index in the truss
  std::vector<char> ReactionKnown;        ///< (0..2 nodeCount)
  std::vector<char> Done;                 ///< (0..nodeCount)
  std::set<std::pair<bool, int>> Waiting; ///< joints that can be taken; true for those that only check
};

/// Whether every force can be found joint after joint, the reactions first where there are three.
bool GoesByJointsAlone(const HandTruss& truss);

} // namespace strutwright
