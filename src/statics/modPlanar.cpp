#include "modPlanar.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace strutwright {

namespace {

/// How near a node may be to a member, beside the member's length, before it counts as on it.
constexpr double OnMember = 1e-6;

std::size_t Index(int number) { return static_cast<std::size_t>(number); }

struct Box {
  double left, right, low, high;
};

Box BoxOf(const HandTruss& truss, const HandMember& member) {
  const auto [left, right] = std::minmax(truss.x[Index(member.i)], truss.x[Index(member.j)]);
  const auto [low, high] = std::minmax(truss.y[Index(member.i)], truss.y[Index(member.j)]);
  const double rim = OnMember * member.length;
  return {left - rim, right + rim, low - rim, high + rim};
}

/// Distance of a node from the member's endless line, positive on its left.
double AsideOf(const HandTruss& truss, const HandMember& member, int node) {
  return (truss.y[Index(node)] - truss.y[Index(member.i)]) * member.c -
         (truss.x[Index(node)] - truss.x[Index(member.i)]) * member.s;
}

bool IsOnMember(const HandTruss& truss, const HandMember& member, int node) {
  const double along = (truss.x[Index(node)] - truss.x[Index(member.i)]) * member.c +
                       (truss.y[Index(node)] - truss.y[Index(member.i)]) * member.s;
  const double near = OnMember * member.length;
  return std::abs(AsideOf(truss, member, node)) <= near && along >= -near && along <= member.length + near;
}

std::string NodeOnMember(int node, const HandMember& member) {
  return "node " + std::to_string(node) + " lies on member " + std::to_string(member.number);
}

/// What is wrong between two members; empty where nothing is.
std::string Clash(const HandTruss& truss, const HandMember& a, const HandMember& b) {
  const std::string numbers = std::to_string(a.number) + " and " + std::to_string(b.number);
  for (const int node : {b.i, b.j}) {
    if (node == a.i || node == a.j) {
      const bool away = a.SignAt(node) * b.SignAt(node) * (a.c * b.c + a.s * b.s) > 0;
      const bool onTop = std::abs(a.c * b.s - a.s * b.c) <= OnMember && away;
      if (onTop) return "members " + numbers + " lie on each other";
    } else if (IsOnMember(truss, a, node)) {
      return NodeOnMember(node, a);
    }
  }
  for (const int node : {a.i, a.j}) {
    if (node != b.i && node != b.j && IsOnMember(truss, b, node)) return NodeOnMember(node, b);
  }
  if (a.i == b.i || a.i == b.j || a.j == b.i || a.j == b.j) return "";
  const bool apart = (AsideOf(truss, a, b.i) > 0) == (AsideOf(truss, a, b.j) > 0) ||
                     (AsideOf(truss, b, a.i) > 0) == (AsideOf(truss, b, a.j) > 0);
  return apart ? "" : "members " + numbers + " cross";
}

/// The first clash of two members, going through them from left to right.
std::string FirstClash(const HandTruss& truss) {
  std::vector<std::pair<Box, int>> boxes;
  for (int m = 0; m < static_cast<int>(truss.members.size()); ++m) {
    boxes.emplace_back(BoxOf(truss, truss.members[Index(m)]), m);
  }
  std::sort(boxes.begin(), boxes.end(), [](const auto& a, const auto& b) {
    return std::pair(a.first.left, a.second) < std::pair(b.first.left, b.second);
  });
  for (std::size_t k = 0; k < boxes.size(); ++k) {
    const auto& [box, a] = boxes[k];
    for (std::size_t l = k + 1; l < boxes.size() && boxes[l].first.left <= box.right; ++l) {
      const auto& [other, b] = boxes[l];
      if (other.low > box.high || other.high < box.low) continue;
      std::string clash = Clash(truss, truss.members[Index(std::min(a, b))], truss.members[Index(std::max(a, b))]);
      if (!clash.empty()) return clash;
    }
  }
  return "";
}

/// Two nodes at one place that no member tells apart; empty where there are none.
std::string SamePlace(const HandTruss& truss) {
  std::vector<int> order(Index(truss.nodeCount));
  std::iota(order.begin(), order.end(), 1);
  const auto place = [&truss](int node) { return std::pair(truss.x[Index(node)], truss.y[Index(node)]); };
  std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return place(a) < place(b); });
  for (std::size_t k = 1; k < order.size(); ++k) {
    if (place(order[k - 1]) != place(order[k])) continue;
    return "nodes " + std::to_string(order[k - 1]) + " and " + std::to_string(order[k]) + " lie at one place";
  }
  return "";
}

std::string LooseNode(const HandTruss& truss) {
  for (int node = 1; node <= truss.nodeCount; ++node) {
    if (truss.membersAt[Index(node)].empty()) return "node " + std::to_string(node) + " has no member";
  }
  return "";
}

bool HangsTogether(const HandTruss& truss) {
  std::vector<char> seen(truss.x.size(), 0);
  std::vector<int> reached{1};
  seen[1] = 1;
  for (std::size_t k = 0; k < reached.size(); ++k) {
    for (const int member : truss.membersAt[Index(reached[k])]) {
      const int end = truss.members[Index(member)].OtherEnd(reached[k]);
      if (seen[Index(end)] != 0) continue;
      seen[Index(end)] = 1;
      reached.push_back(end);
    }
  }
  return static_cast<int>(reached.size()) == truss.nodeCount;
}

std::vector<int> HalvesAround(const HandTruss& truss, int node) {
  std::vector<std::pair<double, int>> byAngle;
  for (const int member : truss.membersAt[Index(node)]) {
    const ForceLine line = truss.LineAt(member, node);
    const int half = 2 * member + (truss.members[Index(member)].i == node ? 0 : 1);
    byAngle.emplace_back(-std::atan2(line.s, line.c), half);
  }
  std::sort(byAngle.begin(), byAngle.end());
  std::vector<int> halves;
  for (const auto& [angle, half] : byAngle) halves.push_back(half);
  return halves;
}

/// Twice the area to the left, positive for a space inside.
double AreaOf(const HandTruss& truss, const std::vector<int>& face) {
  const int origin = TailOf(truss, face.front());
  double area = 0;
  for (const int half : face) {
    const int a = TailOf(truss, half);
    const int b = HeadOf(truss, half);
    const double ax = truss.x[Index(a)] - truss.x[Index(origin)];
    const double ay = truss.y[Index(a)] - truss.y[Index(origin)];
    area += ax * (truss.y[Index(b)] - truss.y[Index(origin)]) - ay * (truss.x[Index(b)] - truss.x[Index(origin)]);
  }
  return area;
}

} // namespace

int TailOf(const HandTruss& truss, int half) {
  const HandMember& member = truss.members[Index(half / 2)];
  return half % 2 == 0 ? member.i : member.j;
}

int HeadOf(const HandTruss& truss, int half) { return TailOf(truss, PlanarTruss::Twin(half)); }

ForceLine LineOfHalf(const HandTruss& truss, int half) { return truss.LineAt(half / 2, TailOf(truss, half)); }

std::string WhyNotPlanar(const HandTruss& truss) {
  for (std::string (*find)(const HandTruss&) : {LooseNode, SamePlace, FirstClash}) {
    std::string why = find(truss);
    if (!why.empty()) return why;
  }
  return HangsTogether(truss) ? "" : "its members do not hang together";
}

PlanarTruss FindSpaces(const HandTruss& truss) {
  PlanarTruss planar;
  planar.around.resize(truss.x.size());
  std::vector<int> after(2 * truss.members.size(), 0);
  for (int node = 1; node <= truss.nodeCount; ++node) {
    planar.around[Index(node)] = HalvesAround(truss, node);
    const std::vector<int>& halves = planar.around[Index(node)];
    // Who comes to the node goes on along the next one clockwise, and has the space between on the left.
    for (std::size_t k = 0; k < halves.size(); ++k) {
      after[Index(PlanarTruss::Twin(halves[k]))] = halves[(k + 1) % halves.size()];
    }
  }
  planar.faceOf.assign(after.size(), -1);
  double least = 0;
  for (int first = 0; first < static_cast<int>(after.size()); ++first) {
    if (planar.faceOf[Index(first)] >= 0) continue;
    std::vector<int> face;
    for (int half = first; planar.faceOf[Index(half)] < 0; half = after[Index(half)]) {
      planar.faceOf[Index(half)] = static_cast<int>(planar.faces.size());
      face.push_back(half);
    }
    if (const double area = AreaOf(truss, face); area < least) {
      least = area;
      planar.outer = static_cast<int>(planar.faces.size());
    }
    planar.faces.push_back(std::move(face));
  }
  return planar;
}

} // namespace strutwright
