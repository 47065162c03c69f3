#include "ClearTruss.h"

#include "AnalysisState.h"
#include "modMember.h"
#include "modModelStore.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace strutwright {

namespace {

constexpr float MinShownForce = 0.01F; // kN, of a load or a reaction
constexpr float NoForce = 0.0001F;     // kN, of a member
constexpr double Resolution = 1e-5;    // of the largest force: what 32-bit floats and a solution leave of it
constexpr double OnLine = 0.75;        // pixels

float ShownForce(float force) { return std::fabs(force) >= MinShownForce ? force : 0; }

float ReactionAt(std::size_t freedom) { return freedom < Reactions.size() ? ShownForce(Reactions[freedom]) : 0; }

ClearJoint TakeJoint(int n, const ClearSettings& settings, double scaleX, double scaleY) {
  ClearJoint joint;
  joint.at = {NodeTable(n, NodeX) * scaleX, -NodeTable(n, NodeY) * scaleY};
  const float code = NodeTable(n, NodeSupport);
  joint.support = code;
  if (settings.layers.loads) {
    joint.loadX = ShownForce(NodeTable(n, NodeForceX));
    joint.loadY = ShownForce(NodeTable(n, NodeForceY));
  }
  if (settings.reactions && (code == 2 || code == 3)) joint.reactionX = ReactionAt(XFreedom(n));
  if (settings.reactions && (code == 1 || code == 3)) joint.reactionY = ReactionAt(YFreedom(n));
  return joint;
}

/// A node that does not exist throws std::out_of_range, as reading its place in the table does.
const ClearJoint& JointOf(const ClearTruss& truss, int n) {
  static_cast<void>(NodeTable(n, NodeX));
  return truss.joints[static_cast<std::size_t>(n)];
}

ClearBar TakeBar(const ClearTruss& truss, int m) {
  ClearBar bar;
  bar.number = m;
  bar.i = RoundNodeNumber(MemberTable(m, MemberNodeI));
  bar.j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
  bar.from = JointOf(truss, bar.i).at;
  bar.to = JointOf(truss, bar.j).at;
  const PixelPoint line = bar.to - bar.from;
  bar.length = LengthOf(line);
  if (bar.length > 0) bar.along = (1 / bar.length) * line;
  return bar;
}

void TakeBars(ClearTruss& truss) {
  truss.bars.reserve(static_cast<std::size_t>(MemberCount));
  for (int m = 1; m <= MemberCount; ++m) {
    try {
      truss.bars.push_back(TakeBar(truss, m));
    } catch (const std::exception&) {
      if (!truss.failure) truss.failure = std::current_exception();
    }
  }
}

void TakeForces(ClearTruss& truss) {
  for (const ClearBar& bar : truss.bars) {
    truss.largestForce = std::max<double>(truss.largestForce, std::fabs(MemberForce(bar.number)));
  }
  for (ClearBar& bar : truss.bars) {
    const float force = MemberForce(bar.number);
    bar.force = IsZeroForce(force, truss.largestForce) ? 0 : force;
  }
}

double DistanceFromLine(PixelPoint point, const ClearBar& bar) {
  return std::fabs(Dot(point - bar.from, LeftOf(bar.along)));
}

} // namespace

double LongestArrow(double viewWidth, double viewHeight) {
  constexpr double Step = 8;
  const double longest = std::min(viewWidth, viewHeight) / ClearSize::ViewPerArrow;
  return std::max(ClearSize::MinArrow, std::floor(longest / Step) * Step);
}

double ArrowLength(float force, float loadsScale, double pixelsPerMetre, double longest) {
  const double length = std::fabs(static_cast<double>(force)) / loadsScale * pixelsPerMetre;
  if (!std::isfinite(length)) return longest;
  return std::clamp(length, ClearSize::MinArrow, longest);
}

std::span<const double> ClearTruss::DirectionsAt(int n) const {
  const auto begin = static_cast<std::size_t>(firstDirection[static_cast<std::size_t>(n)]);
  const auto end = static_cast<std::size_t>(firstDirection[static_cast<std::size_t>(n) + 1]);
  return std::span(directions).subspan(begin, end - begin);
}

/// Counts the members at each node, then gives each its place.
void SortDirections(ClearTruss& truss) {
  std::vector<int>& first = truss.firstDirection;
  first.assign(truss.joints.size() + 1, 0);
  for (const ClearBar& bar : truss.bars) {
    ++first[static_cast<std::size_t>(bar.i) + 1];
    ++first[static_cast<std::size_t>(bar.j) + 1];
  }
  for (std::size_t n = 1; n < first.size(); ++n) first[n] += first[n - 1];
  truss.directions.resize(2 * truss.bars.size());
  std::vector<int> next(first.begin(), first.end() - 1);
  const auto put = [&](int n, PixelPoint way) {
    truss.directions[static_cast<std::size_t>(next[static_cast<std::size_t>(n)]++)] = std::atan2(way.y, way.x);
  };
  for (const ClearBar& bar : truss.bars) {
    put(bar.i, bar.along);
    put(bar.j, -1 * bar.along);
  }
}

ClearTruss TakeTruss(const ClearSettings& settings, double scaleX, double scaleY) {
  ClearTruss truss;
  truss.joints.reserve(static_cast<std::size_t>(NodeCount) + 1);
  for (int n = 0; n <= NodeCount; ++n) truss.joints.push_back(TakeJoint(n, settings, scaleX, scaleY));
  TakeBars(truss);
  if (settings.memberForces) TakeForces(truss);
  SortDirections(truss);
  return truss;
}

std::vector<FreeAngle> FreeAngles(std::vector<double> directions) {
  constexpr double Turn = 2 * std::numbers::pi;
  if (directions.empty()) return {{-std::numbers::pi / 4, Turn}};
  std::sort(directions.begin(), directions.end());
  std::vector<FreeAngle> free;
  for (std::size_t k = 0; k < directions.size(); ++k) {
    const double next = k + 1 < directions.size() ? directions[k + 1] : directions.front() + Turn;
    free.push_back({(directions[k] + next) / 2, next - directions[k]});
  }
  const auto steps = [](const FreeAngle& angle) { return std::lround(angle.width * 1e4); };
  const auto isWider = [steps](const FreeAngle& a, const FreeAngle& b) { return steps(a) > steps(b); };
  std::stable_sort(free.begin(), free.end(), isWider);
  return free;
}

bool LieOnEachOther(const ClearBar& a, const ClearBar& b) {
  if (DistanceFromLine(b.from, a) > OnLine || DistanceFromLine(b.to, a) > OnLine) return false;
  const double first = Dot(b.from - a.from, a.along);
  const double second = Dot(b.to - a.from, a.along);
  return std::max(first, second) > OnLine && std::min(first, second) < a.length - OnLine;
}

bool IsZeroForce(float force, double largest) {
  return !(std::fabs(force) > NoForce) || std::fabs(force) < Resolution * largest;
}

} // namespace strutwright
