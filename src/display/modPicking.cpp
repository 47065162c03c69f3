#include "modPicking.h"

#include "DisplayState.h"
#include "modModelStore.h"
#include "modNumberText.h"

#include <cmath>
#include <utility>

namespace strutwright {

namespace {

bool NodeExists(int n) { return n >= 0 && n <= NodeTable.Count(); }

/// The nodes of a member, in the order in which it names them.
std::pair<int, int> MemberNodes(int m) {
  return {RoundNodeNumber(MemberTable(m, MemberNodeI)), RoundNodeNumber(MemberTable(m, MemberNodeJ))};
}

/// Whether a coordinate lies between two others, or less than r outside; in either order of the two.
bool LiesBetween(double value, double a, double b, double r) {
  if (a > b) std::swap(a, b);
  return a - r <= value && value <= b + r;
}

/// Distance of (x, y) from the line through two points.
/// d = |dy (x - x1) - dx (y - y1)| / sqrt(dx^2 + dy^2).   Checked: 3-4-5 line, point (3, 0) is 2.4 off.
double DistanceFromLine(double x, double y, double x1, double y1, double x2, double y2) {
  const double dx = x2 - x1;
  const double dy = y2 - y1;
  const double length = std::sqrt(dx * dx + dy * dy);
  if (length == 0) return std::sqrt((x - x1) * (x - x1) + (y - y1) * (y - y1));
  return std::fabs(dy * (x - x1) - dx * (y - y1)) / length;
}

bool IsHit(int m, double x, double y) {
  const auto [i, j] = MemberNodes(m);
  if (!NodeExists(i) || !NodeExists(j)) return false;
  const double x1 = NodeTable(i, NodeX);
  const double y1 = NodeTable(i, NodeY);
  const double x2 = NodeTable(j, NodeX);
  const double y2 = NodeTable(j, NodeY);
  return LiesBetween(x, x1, x2, PickRadius) && LiesBetween(y, y1, y2, PickRadius) &&
         DistanceFromLine(x, y, x1, y1, x2, y2) < PickRadius;
}

bool Snaps(float spacing) { return spacing > 0 && std::isfinite(spacing); }

/// nearbyint takes halves to the even neighbour.
double NearestMultiple(double value, float spacing) { return std::nearbyint(value / spacing) * spacing; }

float SnappedCoordinate(float value, float spacing) {
  return Snaps(spacing) ? static_cast<float>(NearestMultiple(value, spacing)) : value;
}

bool IsNearMultiple(double value, float spacing) {
  return Snaps(spacing) && std::fabs(NearestMultiple(value, spacing) - value) < PickRadius;
}

std::string PositionText(float x, float y) { return "x: " + NumberText(x) + " y: " + NumberText(y); }

bool LieTogether(int i, int j) {
  return NodeTable(i, NodeX) == NodeTable(j, NodeX) && NodeTable(i, NodeY) == NodeTable(j, NodeY);
}

} // namespace

int FindMember(float x, float y) {
  for (int m = 1; m <= MemberCount; ++m) {
    if (IsHit(m, x, y)) return m;
  }
  return 0;
}

WorldPoint NearestGridPoint(float x, float y) {
  return {SnappedCoordinate(x, GridSpacingX), SnappedCoordinate(y, GridSpacingY)};
}

bool IsSnapped(float x, float y) { return IsNearMultiple(x, GridSpacingX) && IsNearMultiple(y, GridSpacingY); }

std::string NodeNotFoundText(float x, float y) {
  return "Node not found: \n" + PositionText(x, y) + "\nDo you want to add this node?";
}

std::string MemberNotFoundText(float x, float y) { return "Member not found: \n" + PositionText(x, y); }

std::string MemberHint(int i, int j) {
  if (!NodeExists(i) || !NodeExists(j)) return {};
  if (LieTogether(i, j)) return "The new member has no length";
  for (int m = 1; m <= MemberCount; ++m) {
    const auto [from, to] = MemberNodes(m);
    if ((from == i && to == j) || (from == j && to == i)) {
      return "The new member is parallel to member " + std::to_string(m);
    }
  }
  return {};
}

} // namespace strutwright
