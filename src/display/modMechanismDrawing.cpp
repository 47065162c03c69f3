#include "modMechanismDrawing.h"

#include "modMarks.h"
#include "modModelStore.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace strutwright {

namespace {

/// The largest of a coordinate less the least.
double Extent(NodeField coordinate) {
  double least = std::numeric_limits<double>::infinity();
  double largest = -least;
  for (int n = 1; n <= NodeCount; ++n) {
    least = std::min<double>(least, NodeTable(n, coordinate));
    largest = std::max<double>(largest, NodeTable(n, coordinate));
  }
  return NodeCount == 0 ? 0 : largest - least;
}

/// The nodes of a model as a motion takes them along.
class MovedNodes {
 public:
  MovedNodes(const std::vector<double>& motion, double amplitude) : Motion(motion), Amplitude(amplitude) {}

  bool Moves(int n) const { return Motion[Along(n)] != 0 || Motion[Along(n) + 1] != 0; }
  double X(int n) const { return NodeTable(n, NodeX) + Amplitude * Motion[Along(n)]; }
  double Y(int n) const { return NodeTable(n, NodeY) + Amplitude * Motion[Along(n) + 1]; }

 private:
  static std::size_t Along(int n) { return static_cast<std::size_t>(2 * n - 1); }

  const std::vector<double>& Motion;
  double Amplitude;
};

bool IsNode(int n) { return n >= 1 && n <= NodeCount; }

} // namespace

double ModelSize() {
  const double size = std::max(Extent(NodeX), Extent(NodeY));
  return size > 0 ? size : 1;
}

void DrawMechanism(DrawingSurface& surface, const std::vector<double>& motion, double swing, DrawingStyle style) {
  if (motion.size() != 2 * static_cast<std::size_t>(NodeCount) + 1) return;
  const MovedNodes nodes(motion, swing * MotionShare * ModelSize());
  for (int m = 1; m <= MemberCount; ++m) {
    const int i = RoundNodeNumber(MemberTable(m, MemberNodeI));
    const int j = RoundNodeNumber(MemberTable(m, MemberNodeJ));
    if (!IsNode(i) || !IsNode(j) || (!nodes.Moves(i) && !nodes.Moves(j))) continue;
    MarkLine(surface, nodes.X(i), nodes.Y(i), nodes.X(j), nodes.Y(j), Violet, style);
  }
  for (int n = 1; n <= NodeCount; ++n) {
    if (nodes.Moves(n)) MarkPoint(surface, nodes.X(n), nodes.Y(n), Violet, style);
  }
}

} // namespace strutwright
