#include "ClearSymbols.h"

#include "ClearPalette.h"

#include <array>
#include <cmath>
#include <span>

namespace strutwright {

namespace {

constexpr double TriangleHalfBase = 9;
constexpr double PinHeight = 17;
constexpr double RollerHeight = 12.5;
constexpr double WheelRadius = 2.4;
constexpr double HatchDepth = 5;
constexpr double HatchPitch = 5;
constexpr LineLook SupportLine{ClearPalette::Ink, 1.4};
constexpr LineLook HatchLine{ClearPalette::Ink, 1};

double GroundOf(const ClearSupport& support) { return support.roller ? RollerHeight + 2 * WheelRadius + 1 : PinHeight; }

/// A point of a support: `along` its ground, `off` away from the node.
class SupportFrame {
 public:
  SupportFrame(const ClearSupport& support, PixelPoint by)
      : Node(support.at + by), Off(support.off), Along(LeftOf(support.off)) {}

  PixelPoint At(double along, double off) const { return Node + off * Off + along * Along; }

 private:
  PixelPoint Node;
  PixelPoint Off;
  PixelPoint Along;
};

void DrawTriangle(PixelSurface& surface, const SupportFrame& frame, double height) {
  const std::array<PixelPoint, 3> corners{frame.At(0, 0), frame.At(-TriangleHalfBase, height),
                                          frame.At(TriangleHalfBase, height)};
  surface.PixelPolygon(corners, ClearPalette::Ground);
  for (std::size_t side = 0; side < corners.size(); ++side) {
    surface.PixelLine(corners.at(side), corners.at((side + 1) % corners.size()), SupportLine);
  }
}

void DrawHatch(PixelSurface& surface, const SupportFrame& frame, double ground) {
  constexpr double Half = ClearSize::SupportHalfWidth;
  constexpr int Strokes = static_cast<int>((2 * Half + 0.5) / HatchPitch);
  for (int stroke = 1; stroke <= Strokes; ++stroke) {
    const double along = -Half + stroke * HatchPitch;
    surface.PixelLine(frame.At(along, ground), frame.At(along - HatchDepth, ground + HatchDepth), HatchLine);
  }
}

/// A box on one side of a node where a support would stand, a little slimmer than it: members may pass its corners.
TurnedBox RoomOf(const ClearSupport& support) {
  constexpr double Begin = 5;
  return StripOf(support.at + Begin * support.off, support.at + SupportReach(support) * support.off,
                 2 * TriangleHalfBase - 2);
}

int CountHits(const OccupiedPlane& plane, const TurnedBox& box, Occupant kind) {
  int hits = 0;
  plane.Any(BoundsOf(box), [&](const OccupiedBox& item) {
    if (item.kind == kind && Overlap(item.box, box)) ++hits;
    return false;
  });
  return hits;
}

std::span<const PixelPoint> SidesOf(float code) {
  static constexpr PixelPoint Down{0, 1};
  static constexpr PixelPoint Up{0, -1};
  static constexpr PixelPoint Left{-1, 0};
  static constexpr PixelPoint Right{1, 0};
  static constexpr std::array<PixelPoint, 2> OnGround{Down, Up};
  static constexpr std::array<PixelPoint, 2> OnWall{Left, Right};
  static constexpr std::array<PixelPoint, 4> Anywhere{Down, Left, Right, Up};
  if (code == 1) return OnGround;
  if (code == 2) return OnWall;
  return Anywhere;
}

ClearSupport FreestSupport(const ClearJoint& joint, int n, const OccupiedPlane& plane) {
  ClearSupport best;
  int fewest = -1;
  for (const PixelPoint side : SidesOf(joint.support)) {
    const ClearSupport support{n, joint.at, side, joint.support == 1 || joint.support == 2};
    const int hits = CountHits(plane, RoomOf(support), Occupant::Bar);
    if (fewest >= 0 && hits >= fewest) continue;
    best = support;
    fewest = hits;
  }
  return best;
}

} // namespace

double SupportReach(const ClearSupport& support) { return GroundOf(support) + (support.roller ? 1 : HatchDepth); }

/// Without its tip, which the node's dot covers, so that an arrow may pass there.
TurnedBox BoxOfSupport(const ClearSupport& support) {
  constexpr double Tip = 5;
  return StripOf(support.at + Tip * support.off, support.at + SupportReach(support) * support.off,
                 2 * ClearSize::SupportHalfWidth);
}

std::vector<ClearSupport> PlaceSupports(const ClearTruss& truss, OccupiedPlane& plane) {
  std::vector<ClearSupport> supports;
  for (int n = 1; n < static_cast<int>(truss.joints.size()); ++n) {
    const ClearJoint& joint = truss.joints[static_cast<std::size_t>(n)];
    if (joint.support == 0) continue;
    const ClearSupport support = FreestSupport(joint, n, plane);
    const TurnedBox box = BoxOfSupport(support);
    if (CountHits(plane, box, Occupant::Support) > 0) continue;
    supports.push_back(support);
    plane.Add({box, Occupant::Support, n});
  }
  return supports;
}

void DrawSupport(PixelSurface& surface, const ClearSupport& support, PixelPoint by) {
  constexpr double Half = ClearSize::SupportHalfWidth;
  const SupportFrame frame(support, by);
  const double ground = GroundOf(support);
  if (support.roller) {
    for (const double along : {-6.0, 0.0, 6.0}) {
      surface.PixelDot(frame.At(along, RollerHeight + WheelRadius + 0.5), WheelRadius, {ClearPalette::Ink, 1.1},
                       ClearPalette::Ground);
    }
  } else {
    DrawHatch(surface, frame, ground);
  }
  DrawTriangle(surface, frame, support.roller ? RollerHeight : PinHeight);
  surface.PixelLine(frame.At(-Half, ground), frame.At(Half, ground), SupportLine);
}

void DrawArrow(PixelSurface& surface, PixelPoint tail, PixelPoint tip, Colour colour) {
  const PixelPoint way = tip - tail;
  const double length = LengthOf(way);
  if (!(length > 0)) return;
  const PixelPoint along = (1 / length) * way;
  const PixelPoint neck = tip - ClearSize::HeadLength * along;
  const PixelPoint side = ClearSize::HeadHalfWidth * LeftOf(along);
  surface.PixelLine(tail, neck, {colour, ClearSize::ArrowWidth});
  surface.PixelPolygon(std::array<PixelPoint, 3>{tip, neck + side, neck - side}, colour);
}

void DrawNodeDot(PixelSurface& surface, PixelPoint at) {
  surface.PixelDot(at, ClearSize::NodeRadius, {ClearPalette::Ink, ClearSize::NodeEdge}, ClearPalette::Ground);
}

} // namespace strutwright
