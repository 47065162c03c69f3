#include "modRigidParts.h"

#include "AnalysisState.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

namespace strutwright {

namespace {

/// Sine of an angle below which three points count as in line, and three lines as meeting in a point.
constexpr double SmallSine = 1e-6;

std::size_t Place(int number) { return static_cast<std::size_t>(number); }

/// Lets one part grow by nodes that two bars hold.
class PartGrowth {
 public:
  explicit PartGrowth(const HandTruss& truss)
      : Truss(truss), Used(truss.members.size(), 0), FirstBar(truss.x.size(), -1), Seed(truss.x.size(), -1) {}

  bool IsUsed(int bar) const { return Used[Place(bar)] != 0; }

  /// The nodes of the part that begins with a bar.
  std::vector<int> From(int bar) {
    const HandMember& member = Truss.members[Place(bar)];
    Begun = bar;
    Inside = {member.i, member.j};
    Seed[Place(member.i)] = Seed[Place(member.j)] = bar;
    FirstBar[Place(member.i)] = FirstBar[Place(member.j)] = -1;
    Bars = {bar};
    for (std::size_t k = 0; k < Inside.size(); ++k) Spread(Inside[k]);
    if (Inside.size() > 2) {
      for (const int used : Bars) Used[Place(used)] = 1;
    }
    std::sort(Inside.begin(), Inside.end());
    return Inside;
  }

 private:
  bool IsInside(int node) const { return Seed[Place(node)] == Begun && FirstBar[Place(node)] == -1; }

  void Spread(int node) {
    for (const int bar : Truss.membersAt[Place(node)]) {
      const int end = Truss.members[Place(bar)].OtherEnd(node);
      if (IsUsed(bar) || IsInside(end)) continue;
      if (Seed[Place(end)] != Begun) {
        Seed[Place(end)] = Begun;
        FirstBar[Place(end)] = bar;
      } else if (!LieAlong(Truss.LineAt(bar, end), Truss.LineAt(FirstBar[Place(end)], end))) {
        Bars.push_back(bar);
        Bars.push_back(FirstBar[Place(end)]);
        FirstBar[Place(end)] = -1;
        Inside.push_back(end);
      }
    }
  }

  const HandTruss& Truss;
  std::vector<char> Used;    ///< bars that belong to a part
  std::vector<int> FirstBar; ///< the first bar from the part to a node outside; -1 for a node inside
  std::vector<int> Seed;     ///< the part that FirstBar of a node speaks of
  int Begun = -1;            ///< the bar that this part began with
  std::vector<int> Inside;
  std::vector<int> Bars;
};

/// Bodies that share points, and are joined to larger ones.
class BodyJoining {
 public:
  explicit BodyJoining(const HandTruss& truss)
      : X(truss.x), Y(truss.y), Size(truss.size > 0 ? truss.size : 1), BodiesAt(truss.x.size()) {
    for (const HandMember& member : truss.members) AddBody({member.i, member.j});
  }

  /// Joins what can be joined; whether it came to one body.
  bool EndsInOneBody() {
    bool goesOn = true;
    while (goesOn) {
      goesOn = false;
      for (std::size_t body = 0; body < Points.size(); ++body) {
        if (!Points[body].empty() && Grow(static_cast<int>(body))) goesOn = true;
      }
      if (!goesOn) goesOn = JoinByThreeBars();
    }
    return std::count_if(Points.begin(), Points.end(), [](const auto& points) { return !points.empty(); }) == 1;
  }

  /// The ground as one more body, and each roller as a bar to it.
  void AddGround(const HandTruss& truss) {
    std::vector<int> ground;
    std::vector<std::pair<int, int>> rollers;
    for (int node = 1; node <= truss.nodeCount; ++node) {
      const bool x = truss.fixed[XFreedom(node)] != 0;
      const bool y = truss.fixed[YFreedom(node)] != 0;
      if (x && y) ground.push_back(node);
      if (x == y) continue;
      ground.push_back(AddPoint(X[Place(node)] - (x ? Size : 0), Y[Place(node)] - (y ? Size : 0)));
      rollers.emplace_back(node, ground.back());
    }
    AddBody(ground);
    for (const auto& [node, point] : rollers) AddBody({node, point});
  }

 private:
  void AddBody(const std::vector<int>& points) {
    for (const int point : points) BodiesAt[Place(point)].push_back(static_cast<int>(Points.size()));
    Points.push_back(points);
  }

  int AddPoint(double x, double y) {
    X.push_back(x);
    Y.push_back(y);
    BodiesAt.emplace_back();
    return static_cast<int>(X.size()) - 1;
  }

  /// Sine of the angle at b, between a and c.
  double SineAt(int a, int b, int c) const {
    const double ux = X[Place(a)] - X[Place(b)];
    const double uy = Y[Place(a)] - Y[Place(b)];
    const double vx = X[Place(c)] - X[Place(b)];
    const double vy = Y[Place(c)] - Y[Place(b)];
    return std::abs(ux * vy - uy * vx) / (std::hypot(ux, uy) * std::hypot(vx, vy));
  }

  bool AreInRow(int a, int b, int c) const {
    return std::min({SineAt(a, b, c), SineAt(b, c, a), SineAt(c, a, b)}) <= SmallSine;
  }

  /// How a body touches the one that grows, and by which body an outside point is reached.
  struct Contact {
    std::map<int, int> pointOf; ///< of each touching body, the point that it shares
    std::map<int, int> bodyAt;  ///< of each outside point, a body that reaches it
  };

  /// Joins what can be joined to a body; whether there was anything.
  bool Grow(int body) {
    bool grew = false;
    Contact contact;
    for (std::size_t k = 0; k < Points[Place(body)].size(); ++k) {
      const int point = Points[Place(body)][k];
      const std::vector<int> bodies = BodiesAt[Place(point)];
      for (const int other : bodies) {
        if (other != body && !Points[Place(other)].empty() && Touch(body, other, point, contact)) grew = true;
      }
    }
    return grew;
  }

  bool Touch(int body, int other, int point, Contact& contact) {
    const auto touched = contact.pointOf.find(other);
    if (touched != contact.pointOf.end() && touched->second != point) return Absorb(body, other);
    contact.pointOf[other] = point;
    for (const int far : Points[Place(other)]) {
      if (far == point) continue;
      const auto [reached, isNew] = contact.bodyAt.emplace(far, other);
      const int third = reached->second;
      if (isNew || third == other || Points[Place(third)].empty()) continue;
      const int thirdPoint = contact.pointOf[third];
      if (thirdPoint == point || AreInRow(point, thirdPoint, far)) continue;
      Absorb(body, third);
      return Absorb(body, other);
    }
    return false;
  }

  bool Absorb(int body, int other) {
    const std::vector<int> taken = std::exchange(Points[Place(other)], {});
    for (const int point : taken) {
      std::vector<int>& bodies = BodiesAt[Place(point)];
      std::erase(bodies, other);
      if (std::find(bodies.begin(), bodies.end(), body) != bodies.end()) continue;
      bodies.push_back(body);
      Points[Place(body)].push_back(point);
    }
    return true;
  }

  /// The line of a bar, so that the product with three of them is zero where they meet in a point.
  std::array<double, 3> LineOf(int bar) const {
    const int a = Points[Place(bar)][0];
    const int b = Points[Place(bar)][1];
    const double dx = X[Place(b)] - X[Place(a)];
    const double dy = Y[Place(b)] - Y[Place(a)];
    const double length = std::hypot(dx, dy);
    const double arm = (X[Place(a)] - X[1]) * dy - (Y[Place(a)] - Y[1]) * dx;
    return {dx / length, dy / length, arm / (length * Size)};
  }

  bool MeetInAPoint(int one, int two, int three) const {
    const auto p = LineOf(one);
    const auto q = LineOf(two);
    const auto r = LineOf(three);
    const double volume =
        p[0] * (q[1] * r[2] - q[2] * r[1]) - p[1] * (q[0] * r[2] - q[2] * r[0]) + p[2] * (q[0] * r[1] - q[1] * r[0]);
    return std::abs(volume) <= SmallSine;
  }

  bool JoinByThreeBars() {
    std::map<std::pair<int, int>, std::vector<int>> between;
    for (std::size_t bar = 0; bar < Points.size(); ++bar) {
      if (Points[bar].size() != 2) continue;
      for (const int a : BodiesAt[Place(Points[bar][0])]) {
        for (const int b : BodiesAt[Place(Points[bar][1])]) {
          if (a == b || Points[Place(a)].size() < 3 || Points[Place(b)].size() < 3) continue;
          std::vector<int>& bars = between[std::minmax(a, b)];
          bars.push_back(static_cast<int>(bar));
          if (bars.size() >= 3 && JoinByLast(bars)) {
            Absorb(a, b);
            return true;
          }
        }
      }
    }
    return false;
  }

  /// Whether the last bar of the list and two others fix two bodies to each other.
  bool JoinByLast(const std::vector<int>& bars) const {
    for (std::size_t k = 0; k + 1 < bars.size(); ++k) {
      for (std::size_t l = k + 1; l + 1 < bars.size(); ++l) {
        if (!MeetInAPoint(bars[k], bars[l], bars.back())) return true;
      }
    }
    return false;
  }

  std::vector<double> X; ///< of each node, then of points of the ground
  std::vector<double> Y;
  double Size;                            ///< of the truss, m
  std::vector<std::vector<int>> BodiesAt; ///< of each point
  std::vector<std::vector<int>> Points;   ///< of each body; none where it has become part of another
};

} // namespace

std::vector<std::vector<int>> SimpleParts(const HandTruss& truss) {
  std::vector<std::vector<int>> parts;
  PartGrowth growth(truss);
  for (int bar = 0; bar < static_cast<int>(truss.members.size()); ++bar) {
    if (growth.IsUsed(bar)) continue;
    std::vector<int> part = growth.From(bar);
    if (part.size() > 2) parts.push_back(std::move(part));
  }
  return parts;
}

bool JoinsToOneBody(const HandTruss& truss) {
  BodyJoining joining(truss);
  // The members among themselves first: a bar between two supports is a bar, and not a part of the ground.
  if (joining.EndsInOneBody()) return true;
  joining.AddGround(truss);
  return joining.EndsInOneBody();
}

} // namespace strutwright
