#include "modCopies.h"

#include "modGenerators.h"
#include "modModelEditing.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>

namespace strutwright {

namespace {

constexpr double Micrometre = 1e-6; // m

struct Place {
  double x = 0;
  double y = 0;
};

/// What a copy does to a node.
struct CopyRule {
  std::function<Place(Place)> place;
  bool turnsForceX = false;
  bool turnsForceY = false;
};

bool IsNode(int n) { return n >= 1 && n <= NodeCount; }

int EndOf(int m, MemberField field) { return RoundNodeNumber(MemberTable(m, field)); }

/// The copied nodes in ascending order.
std::vector<int> NodesOfParts(const CopiedParts& parts) {
  std::set<int> nodes(parts.nodes.begin(), parts.nodes.end());
  for (const int m : parts.members) {
    if (m < 1 || m > MemberCount) continue;
    for (const MemberField end : {MemberNodeI, MemberNodeJ}) nodes.insert(EndOf(m, end));
  }
  std::erase_if(nodes, [](int n) { return !IsNode(n); });
  return {nodes.begin(), nodes.end()};
}

int NodeAt(Place place) {
  for (int n = 1; n <= NodeCount; ++n) {
    if (std::hypot(NodeTable(n, NodeX) - place.x, NodeTable(n, NodeY) - place.y) < Micrometre) return n;
  }
  return 0;
}

std::string TurnedText(const std::string& text, bool turns) {
  const float value = NumericValue(text).value_or(0.0F);
  return turns && value != 0 ? NumberText(-value) : text;
}

/// Adds the copy of a node, or finds the node that is there.
int CopyNode(int n, const CopyRule& rule) {
  const Place place = rule.place({NodeTable(n, NodeX), NodeTable(n, NodeY)});
  if (const int there = NodeAt(place); there != 0) return there;
  addNode(static_cast<float>(place.x), static_cast<float>(place.y));
  RebuildModelFromGrids();
  const int copy = NodeCount;
  GrJoints.SetText(copy, NodeForceX, TurnedText(GrJoints.Text(n, NodeForceX), rule.turnsForceX));
  GrJoints.SetText(copy, NodeForceY, TurnedText(GrJoints.Text(n, NodeForceY), rule.turnsForceY));
  GrJoints.SetText(copy, NodeSupport, GrJoints.Text(n, NodeSupport));
  return copy;
}

bool AreJoined(int i, int j) {
  for (int m = 1; m <= MemberCount; ++m) {
    const int a = EndOf(m, MemberNodeI);
    const int b = EndOf(m, MemberNodeJ);
    if ((a == i && b == j) || (a == j && b == i)) return true;
  }
  return false;
}

void CopyMember(int m, const std::map<int, int>& copies) {
  const auto i = copies.find(EndOf(m, MemberNodeI));
  const auto j = copies.find(EndOf(m, MemberNodeJ));
  if (i == copies.end() || j == copies.end() || AreJoined(i->second, j->second)) return;
  AddMember(static_cast<std::int16_t>(i->second), static_cast<std::int16_t>(j->second));
  RebuildModelFromGrids();
  for (const MemberField field : {MemberE, MemberA, MemberPS}) {
    GrMembers.SetText(MemberCount, field, GrMembers.Text(m, field));
  }
}

std::vector<int> CopyOnce(const std::vector<int>& nodes, const std::vector<int>& members, const CopyRule& rule) {
  std::map<int, int> copies;
  std::vector<int> made;
  for (const int n : nodes) made.push_back(copies[n] = CopyNode(n, rule));
  for (const int m : members) CopyMember(m, copies);
  return made;
}

/// The members that are there.
std::vector<int> MembersOfParts(const CopiedParts& parts) {
  std::vector<int> members = parts.members;
  std::erase_if(members, [](int m) { return m < 1 || m > MemberCount; });
  return members;
}

} // namespace

std::vector<int> RepeatParts(const CopiedParts& parts, double dx, double dy, int count) {
  RebuildModelFromGrids();
  const std::vector<int> nodes = NodesOfParts(parts);
  const std::vector<int> members = MembersOfParts(parts);
  std::vector<int> made = nodes;
  for (int copy = 1; copy <= count; ++copy) {
    made = CopyOnce(nodes, members, {[=](Place from) { return Place{from.x + copy * dx, from.y + copy * dy}; }});
  }
  AfterModelEdit();
  return made;
}

std::vector<int> MirrorParts(const CopiedParts& parts, double at, bool level) {
  RebuildModelFromGrids();
  const auto image = [=](Place from) {
    return level ? Place{from.x, 2 * at - from.y} : Place{2 * at - from.x, from.y};
  };
  std::vector<int> made = CopyOnce(NodesOfParts(parts), MembersOfParts(parts), {image, !level, level});
  AfterModelEdit();
  return made;
}

} // namespace strutwright
