#include "modJointOrder.h"

#include "AnalysisState.h"

#include <algorithm>

namespace strutwright {

JointOrder::JointOrder(const HandTruss& truss, bool knowsReactions)
    : Truss(truss), MemberKnown(truss.members.size(), 0), ReactionKnown(truss.fixed.size(), knowsReactions ? 1 : 0),
      Done(truss.x.size(), 0) {
  for (int node = 1; node <= truss.nodeCount; ++node) Consider(node);
}

std::optional<int> JointOrder::Next() const {
  if (Waiting.empty()) return std::nullopt;
  return Waiting.begin()->second;
}

std::vector<UnknownForce> JointOrder::UnknownsAt(int node) const {
  std::vector<UnknownForce> unknowns;
  const auto at = static_cast<std::size_t>(node);
  for (const int index : Truss.membersAt[at]) {
    if (!KnowsMember(index)) unknowns.push_back({index, 0, Truss.LineAt(index, node)});
  }
  const auto addReaction = [&](std::size_t freedom, double c, double s) {
    if (Truss.fixed[freedom] == 0 || KnowsReaction(freedom)) return;
    unknowns.push_back({-1, freedom, {Truss.x[at], Truss.y[at], c, s, 0}});
  };
  addReaction(XFreedom(node), 1, 0);
  addReaction(YFreedom(node), 0, 1);
  return unknowns;
}

int JointOrder::UnknownCountAt(int node) const {
  const std::vector<int>& members = Truss.membersAt[static_cast<std::size_t>(node)];
  auto count = std::count_if(members.begin(), members.end(), [this](int index) { return !KnowsMember(index); });
  for (const std::size_t freedom : {XFreedom(node), YFreedom(node)}) {
    if (Truss.fixed[freedom] != 0 && !KnowsReaction(freedom)) ++count;
  }
  return static_cast<int>(count);
}

void JointOrder::Consider(int node) {
  Waiting.erase({false, node});
  Waiting.erase({true, node});
  if (IsDone(node)) return;
  const std::vector<UnknownForce> unknowns = UnknownsAt(node);
  if (unknowns.size() > 2) return;
  if (unknowns.size() == 2 && LieAlong(unknowns[0].line, unknowns[1].line)) return;
  Waiting.emplace(unknowns.empty(), node);
}

void JointOrder::LearnMember(int index) {
  MemberKnown[static_cast<std::size_t>(index)] = 1;
  Consider(Truss.members[static_cast<std::size_t>(index)].i);
  Consider(Truss.members[static_cast<std::size_t>(index)].j);
}

void JointOrder::LearnReaction(std::size_t freedom) {
  ReactionKnown[freedom] = 1;
  Consider(static_cast<int>((freedom + 1) / 2));
}

void JointOrder::Learn(const UnknownForce& force) {
  if (force.IsMember()) LearnMember(force.member);
  if (!force.IsMember()) LearnReaction(force.freedom);
}

void JointOrder::MarkDone(int node) {
  Done[static_cast<std::size_t>(node)] = 1;
  Consider(node);
}

bool GoesByJointsAlone(const HandTruss& truss) {
  JointOrder order(truss, truss.RestraintCount() == 3);
  std::size_t known = 0;
  while (const std::optional<int> node = order.Next()) {
    for (const UnknownForce& force : order.UnknownsAt(*node)) {
      order.Learn(force);
      if (force.IsMember()) ++known;
    }
    order.MarkDone(*node);
  }
  return known == truss.members.size();
}

} // namespace strutwright
