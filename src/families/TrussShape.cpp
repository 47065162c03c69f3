#include "TrussShape.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace strutwright {

namespace {

const ShapeNode& NodeOf(const TrussShape& shape, int index) { return shape.nodes.at(static_cast<std::size_t>(index)); }

/// The old indices in their new order.
std::vector<int> OrderAlong(const TrussShape& shape, bool upright) {
  std::vector<int> order(shape.nodes.size());
  std::iota(order.begin(), order.end(), 0);
  const auto place = [&](int index) {
    const ShapeNode& node = NodeOf(shape, index);
    return upright ? std::pair(node.y, node.x) : std::pair(node.x, node.y);
  };
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return place(a) < place(b); });
  return order;
}

} // namespace

int TrussShape::AddNode(double x, double y) {
  nodes.push_back({x, y});
  return static_cast<int>(nodes.size()) - 1;
}

int TrussShape::AddNodeBetween(int a, int b) {
  const ShapeNode& from = NodeOf(*this, a);
  const ShapeNode& to = NodeOf(*this, b);
  return AddNode((from.x + to.x) / 2, (from.y + to.y) / 2);
}

void TrussShape::AddChord(const std::vector<int>& line) {
  for (std::size_t i = 1; i < line.size(); ++i) AddMember(line[i - 1], line[i], MemberKind::Chord);
}

void TrussShape::MarkLoaded(const std::vector<int>& line) {
  for (const int index : line) nodes.at(static_cast<std::size_t>(index)).loaded = true;
}

TrussShape NumberedAlong(const TrussShape& shape, bool upright) {
  const std::vector<int> order = OrderAlong(shape, upright);
  std::vector<int> newIndex(order.size());
  TrussShape numbered{{}, shape.members};
  for (const int old : order) {
    newIndex[static_cast<std::size_t>(old)] = static_cast<int>(numbered.nodes.size());
    numbered.nodes.push_back(NodeOf(shape, old));
  }
  for (ShapeMember& member : numbered.members) {
    member.i = newIndex[static_cast<std::size_t>(member.i)];
    member.j = newIndex[static_cast<std::size_t>(member.j)];
    if (member.i > member.j) std::swap(member.i, member.j);
  }
  return numbered;
}

} // namespace strutwright
