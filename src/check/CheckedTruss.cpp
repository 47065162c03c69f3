#include "CheckedTruss.h"

#include "modModelStore.h"

#include <algorithm>
#include <cmath>

namespace strutwright {

namespace {

void ReadNode(int n, CheckedTruss& truss) {
  truss.x[At(n)] = NodeTable(n, NodeX);
  truss.y[At(n)] = NodeTable(n, NodeY);
  truss.load[AlongX(n)] = NodeTable(n, NodeForceX);
  truss.load[AlongY(n)] = NodeTable(n, NodeForceY);
  const float code = NodeTable(n, NodeSupport);
  truss.fixed[AlongX(n)] = code != 0.0F && code != 1.0F ? 1 : 0;
  truss.fixed[AlongY(n)] = code != 0.0F && code != 2.0F ? 1 : 0;
}

constexpr double MuchDoubt = 0.02;

/// rounding: how far a coordinate may be from what was meant.
double DoubtOf(const CheckedTruss& truss, const CheckedMember& member, double (*rounding)(double)) {
  const double x = rounding(truss.x[At(member.i)]) + rounding(truss.x[At(member.j)]);
  const double y = rounding(truss.y[At(member.i)]) + rounding(truss.y[At(member.j)]);
  return 1000 * (x * std::abs(member.s) + y * std::abs(member.c)) / member.length;
}

void ReadMember(int m, CheckedTruss& truss) {
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  if (std::min(i, j) < 1 || std::max(i, j) > truss.nodeCount) return;
  const double dx = truss.x[At(j)] - truss.x[At(i)];
  const double dy = truss.y[At(j)] - truss.y[At(i)];
  const double length = std::hypot(dx, dy);
  if (!(length > 0) || !std::isfinite(length)) return;
  const double E = MemberTable(m, MemberE);
  const double A = MemberTable(m, MemberA);
  const bool bears = E > 0 && A > 0;
  CheckedMember member{m, i, j, dx / length, dy / length, 1000 * length, bears ? E * A : 0, MemberTable(m, MemberPS)};
  member.doubt = DoubtOf(truss, member, RoundingOf);
  truss.members.push_back(member);
}

double Extent(const std::vector<double>& coordinates) {
  if (coordinates.size() < 2) return 0;
  const auto [low, high] = std::minmax_element(coordinates.begin() + 1, coordinates.end());
  return *high - *low;
}

} // namespace

bool CheckedTruss::IsFixed(int node) const { return fixed[AlongX(node)] != 0 && fixed[AlongY(node)] != 0; }

bool CheckedTruss::HasSupport(int node) const { return fixed[AlongX(node)] != 0 || fixed[AlongY(node)] != 0; }

std::vector<double> LoadsWithPrestress(const CheckedTruss& truss) {
  std::vector<double> P = truss.load;
  // P(i) += PS (c, s), P(j) -= PS (c, s).   Checked: a bar between fixed ends bears PS.
  for (const CheckedMember& member : truss.members) {
    if (!member.CanCarryForce()) continue;
    P[AlongX(member.i)] += member.prestress * member.c;
    P[AlongY(member.i)] += member.prestress * member.s;
    P[AlongX(member.j)] -= member.prestress * member.c;
    P[AlongY(member.j)] -= member.prestress * member.s;
  }
  return P;
}

double LargestCause(const CheckedTruss& truss) {
  double largest = 0;
  for (const double load : truss.load) largest = std::max(largest, std::abs(load));
  for (const CheckedMember& member : truss.members) largest = std::max(largest, std::abs(member.prestress));
  return largest;
}

double LargestTurn(const CheckedTruss& truss) {
  double largest = 0;
  for (const CheckedMember& member : truss.members) {
    if (!member.CanCarryForce()) continue;
    largest = std::max(largest, DoubtOf(truss, member, RoundingOfDecimal));
    // So far out, a float has no room for what was typed, and its shortest decimal number says nothing of it.
    if (member.doubt > MuchDoubt) largest = std::max(largest, member.doubt);
  }
  return largest;
}

CheckedTruss ReadTruss() {
  CheckedTruss truss;
  truss.nodeCount = NodeCount;
  truss.memberCount = MemberCount;
  truss.x.assign(At(NodeCount) + 1, 0);
  truss.y.assign(At(NodeCount) + 1, 0);
  truss.load.assign(truss.FreedomCount() + 1, 0);
  truss.fixed.assign(truss.FreedomCount() + 1, 0);
  for (int n = 1; n <= NodeCount; ++n) ReadNode(n, truss);
  truss.size = std::max(Extent(truss.x), Extent(truss.y));
  for (int m = 1; m <= MemberCount; ++m) ReadMember(m, truss);
  return truss;
}

} // namespace strutwright
