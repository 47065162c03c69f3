#include "modSelection.h"

#include "DisplayState.h"
#include "modDrawing.h"
#include "modMarks.h"
#include "modModelStore.h"
#include "modPicking.h"

#include <algorithm>
#include <utility>

namespace strutwright {

namespace {

void Toggle(std::set<int>& numbers, int number) {
  if (numbers.erase(number) == 0) numbers.insert(number);
}

std::pair<int, int> EndsOf(int m) {
  return {RoundNodeNumber(MemberTable(m, MemberNodeI)), RoundNodeNumber(MemberTable(m, MemberNodeJ))};
}

bool IsThere(int n) { return n >= 1 && n <= NodeCount; }

} // namespace

void Selection::Clear() {
  nodes.clear();
  members.clear();
}

void DropMissing(Selection& selection) {
  std::erase_if(selection.nodes, [](int n) { return !IsThere(n); });
  std::erase_if(selection.members, [](int m) { return m < 1 || m > MemberCount; });
}

void Select(Selection& selection, Element element, bool add) {
  if (!add) selection.Clear();
  if (element.kind == ElementKind::Node) Toggle(selection.nodes, element.number);
  if (element.kind == ElementKind::Member) Toggle(selection.members, element.number);
}

void SelectInside(Selection& selection, double x1, double y1, double x2, double y2, bool add) {
  if (!add) selection.Clear();
  const auto isInside = [&](int n) {
    const double x = NodeTable(n, NodeX);
    const double y = NodeTable(n, NodeY);
    return x >= std::min(x1, x2) && x <= std::max(x1, x2) && y >= std::min(y1, y2) && y <= std::max(y1, y2);
  };
  for (int n = 1; n <= NodeCount; ++n) {
    if (isInside(n)) selection.nodes.insert(n);
  }
  for (int m = 1; m <= MemberCount; ++m) {
    const auto [i, j] = EndsOf(m);
    if (IsThere(i) && IsThere(j) && isInside(i) && isInside(j)) selection.members.insert(m);
  }
}

void SelectEverything(Selection& selection) {
  for (int n = 1; n <= NodeCount; ++n) selection.nodes.insert(n);
  for (int m = 1; m <= MemberCount; ++m) selection.members.insert(m);
}

void SelectNextNode(Selection& selection, int step, bool add) {
  if (NodeCount == 0) return;
  const int last = NodeCount;
  int next = step > 0 ? 1 : last;
  if (!selection.nodes.empty()) {
    next = (step > 0 ? *selection.nodes.rbegin() : *selection.nodes.begin()) + step;
    if (next > last) next = 1;
    if (next < 1) next = last;
  }
  if (!add) selection.Clear();
  selection.nodes.insert(next);
}

std::vector<int> NodesOf(const Selection& selection) {
  std::set<int> nodes = selection.nodes;
  for (const int m : selection.members) {
    const auto [i, j] = EndsOf(m);
    for (const int n : {i, j}) {
      if (IsThere(n)) nodes.insert(n);
    }
  }
  return {nodes.begin(), nodes.end()};
}

void DrawSelection(DrawingSurface& surface, const Selection& selection) {
  TryDrawing([&] {
    for (const int m : selection.members) MarkMember(surface, m, Orange, TheDisplay.Style);
    for (const int n : selection.nodes) MarkNode(surface, n, Orange, TheDisplay.Style);
  });
}

} // namespace strutwright
