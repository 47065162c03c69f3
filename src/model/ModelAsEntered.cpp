#include "ModelAsEntered.h"

#include "modModelStore.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace strutwright {

namespace {

std::span<const float> NodesInOrder() { return std::as_const(NodeTable).InOrder(); }

std::span<const float> EnteredOfMembers() {
  const std::span<const float> members = std::as_const(MemberTable).InOrder();
  return members.first(static_cast<std::size_t>(MemberFieldLength) * static_cast<std::size_t>(MemberTable.Count() + 1));
}

bool Equal(std::span<const float> one, std::span<const float> other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end());
}

} // namespace

ModelAsEntered ModelAsEntered::Now() {
  ModelAsEntered model;
  model.Nodes.assign(NodesInOrder().begin(), NodesInOrder().end());
  model.Members.assign(EnteredOfMembers().begin(), EnteredOfMembers().end());
  return model;
}

bool ModelAsEntered::IsCurrent() const { return Equal(Nodes, NodesInOrder()) && Equal(Members, EnteredOfMembers()); }

} // namespace strutwright
