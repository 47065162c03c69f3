#include "HandTruss.h"

#include "AnalysisState.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace strutwright {

namespace {

/// Coordinates that were computed, or scaled, have been rounded more than once.
constexpr double HandRoundings = 4;
/// Farther out, rounding would make one line of what is clearly two.
constexpr double MaxHandDoubt = 1e-3;
constexpr double MinHandDoubt = 1e-14;
/// Beside the largest load: what is smaller is rounding.
constexpr double NoForce = 1e-11;

void ReadHandNode(int n, HandTruss& truss) {
  truss.x[static_cast<std::size_t>(n)] = NodeTable(n, NodeX);
  truss.y[static_cast<std::size_t>(n)] = NodeTable(n, NodeY);
  truss.load[XFreedom(n)] = NodeTable(n, NodeForceX);
  truss.load[YFreedom(n)] = NodeTable(n, NodeForceY);
  const float code = NodeTable(n, NodeSupport);
  truss.fixed[XFreedom(n)] = code != 0.0F && code != 1.0F ? 1 : 0;
  truss.fixed[YFreedom(n)] = code != 0.0F && code != 2.0F ? 1 : 0;
}

/// Half a unit in the last place of a 32-bit float.
double HalfUnit(double coordinate) {
  const auto size = static_cast<float>(std::abs(coordinate));
  return (static_cast<double>(std::nextafter(size, std::numeric_limits<float>::infinity())) - size) / 2;
}

double TurnOf(const HandTruss& truss, const HandMember& member) {
  const auto i = static_cast<std::size_t>(member.i);
  const auto j = static_cast<std::size_t>(member.j);
  const double x = HalfUnit(truss.x[i]) + HalfUnit(truss.x[j]);
  const double y = HalfUnit(truss.y[i]) + HalfUnit(truss.y[j]);
  return (x * std::abs(member.s) + y * std::abs(member.c)) / member.length;
}

std::string LeftOut(int m, const std::string& reason) {
  return "Member " + std::to_string(m) + " " + reason + " and is left out";
}

void AddHandMember(HandMember member, HandTruss& truss) {
  member.doubt = TurnOf(truss, member);
  const auto index = static_cast<int>(truss.members.size());
  truss.members.push_back(member);
  truss.membersAt[static_cast<std::size_t>(member.i)].push_back(index);
  truss.membersAt[static_cast<std::size_t>(member.j)].push_back(index);
}

void ReadHandMember(int m, HandTruss& truss) {
  const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  for (const int node : {i, j}) {
    if (node >= 1 && node <= truss.nodeCount) continue;
    truss.notes.push_back(LeftOut(m, "names node " + std::to_string(node) + ", which does not exist,"));
    return;
  }
  const double dx = truss.x[static_cast<std::size_t>(j)] - truss.x[static_cast<std::size_t>(i)];
  const double dy = truss.y[static_cast<std::size_t>(j)] - truss.y[static_cast<std::size_t>(i)];
  const double length = std::hypot(dx, dy);
  if (!(length > 0) || !std::isfinite(length)) {
    truss.notes.push_back(LeftOut(m, "has no length"));
    return;
  }
  AddHandMember({m, i, j, dx / length, dy / length, length, 0, MemberTable(m, MemberPS)}, truss);
}

double ExtentOf(const std::vector<double>& coordinates) {
  if (coordinates.size() < 2) return 0;
  const auto [low, high] = std::minmax_element(coordinates.begin() + 1, coordinates.end());
  return *high - *low;
}

void NotePrestress(HandTruss& truss) {
  const bool any = std::any_of(truss.members.begin(), truss.members.end(),
                               [](const HandMember& member) { return member.prestress != 0; });
  if (!any) return;
  truss.notes.emplace_back("Prestress changes no force that statics alone can find: the pair of forces that it puts on "
                           "the two nodes and the member's own part cancel; only the forces that an indeterminate "
                           "truss leaves open change with it");
}

} // namespace

int HandTruss::RestraintCount() const { return static_cast<int>(std::count(fixed.begin(), fixed.end(), 1)); }

bool HandTruss::HasSupport(int node) const { return fixed[XFreedom(node)] != 0 || fixed[YFreedom(node)] != 0; }

bool HandTruss::HasLoad(int node) const { return load[XFreedom(node)] != 0 || load[YFreedom(node)] != 0; }

ForceLine HandTruss::LineAt(int index, int node) const {
  const HandMember& member = members[static_cast<std::size_t>(index)];
  const int sign = member.SignAt(node);
  return {x[static_cast<std::size_t>(node)], y[static_cast<std::size_t>(node)], sign * member.c, sign * member.s,
          member.doubt};
}

HandTruss ReadHandTruss() {
  HandTruss truss;
  truss.nodeCount = NodeCount;
  truss.memberCount = MemberCount;
  const auto places = static_cast<std::size_t>(NodeCount) + 1;
  truss.x.assign(places, 0);
  truss.y.assign(places, 0);
  truss.load.assign(2 * places - 1, 0);
  truss.fixed.assign(2 * places - 1, 0);
  truss.membersAt.resize(places);
  for (int n = 1; n <= NodeCount; ++n) ReadHandNode(n, truss);
  truss.size = std::max(ExtentOf(truss.x), ExtentOf(truss.y));
  for (const double load : truss.load) truss.nothing = std::max(truss.nothing, NoForce * std::abs(load));
  for (int m = 1; m <= MemberCount; ++m) ReadHandMember(m, truss);
  NotePrestress(truss);
  return truss;
}

bool LieAlong(const ForceLine& one, const ForceLine& other) {
  const double doubt = std::clamp(HandRoundings * (one.doubt + other.doubt), MinHandDoubt, MaxHandDoubt);
  return std::abs(one.Sine(other)) <= doubt;
}

} // namespace strutwright
