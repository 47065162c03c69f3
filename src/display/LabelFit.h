#pragma once

#include "ClearScene.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace strutwright {

/// Looks whether one label may stand in a box.
class LabelFit {
 public:
  static constexpr double Clearance = 1; // pixels between a label and anything else

  /// nearerBy: pixels by which the label must be nearer to its own.
  LabelFit(const ClearScene& scene, const ClearLabel& label, const TurnedBox& box, double nearerBy)
      : Scene(scene), Label(label), Box(box), Grown(box.GrownBy(Clearance)), NearerBy(nearerBy),
        OwnDistance(DistanceToOwn()) {
    if (label.kind != LabelKind::Force) return;
    const ClearBar& bar = BarOf(label.owner);
    IsAlong = std::fabs(Dot(box.along, bar.along)) > 0.999;
    HalfDiagonal = LengthOf({box.halfLength, box.halfHeight});
  }

  static constexpr std::size_t Nothing = std::numeric_limits<std::size_t>::max();

  bool IsFree() const { return FirstInTheWay() == Nothing; }

  /// The index of something that is in the way; Nothing where there is none.
  std::size_t FirstInTheWay() const {
    std::size_t first = Nothing;
    AnyInTheWay([&](const OccupiedBox& item) {
      first = static_cast<std::size_t>(&item - &Scene.plane[0]);
      return true;
    });
    return first;
  }

  /// The one label that alone is in the way; -1 where there is none or anything else.
  int OnlyLabelInTheWay() const {
    int only = -1;
    const bool isBlocked = AnyInTheWay([&](const OccupiedBox& item) {
      if (item.kind != Occupant::Label || (only >= 0 && only != item.owner)) return true;
      only = item.owner;
      return false;
    });
    return isBlocked ? -1 : only;
  }

  bool IsInTheWay(const OccupiedBox& item) const {
    if (item.kind == Occupant::Bar) return IsForeignBar(item);
    const bool isOwnNode =
        item.kind == Occupant::Node && Label.kind == LabelKind::NodeNumber && item.owner == Label.owner;
    if (isOwnNode) return false; // its places keep off a round dot, not off the square around it
    if (item.kind == Occupant::Node) {
      return IsOnDot(item.box) || (Label.kind == LabelKind::NodeNumber && IsNearerNode(item.owner));
    }
    if (Overlap(Grown, item.box)) return true;
    return item.kind == Occupant::Arrow && Label.kind == LabelKind::Arrow && IsNearerArrow(item.box);
  }

 private:
  /// Whether anything that is in the way meets a condition.
  template <typename Condition>
  bool AnyInTheWay(Condition condition) const {
    const double reach = std::max(Clearance, OwnDistance + NearerBy);
    return Scene.plane.Any(BoundsOf(Box).GrownBy(reach),
                           [&](const OccupiedBox& item) { return IsInTheWay(item) && condition(item); });
  }

  /// Between a force and the line of its member.
  double OwnGap() const {
    if (Gap < 0) Gap = DistanceToBox(Box, BarOf(Label.owner).from, BarOf(Label.owner).to);
    return Gap;
  }

  const ClearBar& BarOf(int index) const { return Scene.truss.bars[static_cast<std::size_t>(index)]; }
  PixelPoint NodeOf(int n) const { return Scene.truss.joints[static_cast<std::size_t>(n)].at; }

  double DistanceToOwn() const {
    if (Label.kind == LabelKind::NodeNumber) return LengthOf(Box.centre - NodeOf(Label.owner));
    if (Label.kind == LabelKind::MemberNumber) return 0;
    if (Label.kind == LabelKind::Force) return DistanceToBar(BarOf(Label.owner));
    const ClearArrow& arrow = Scene.arrows[static_cast<std::size_t>(Label.owner)];
    return DistanceToLine(Box.centre, arrow.tail, arrow.tip);
  }

  /// From the middle of the label to the line of a member.
  double DistanceToBar(const ClearBar& bar) const {
    const PixelPoint way = Box.centre - bar.from;
    return LengthOf(way - std::clamp(Dot(way, bar.along), 0.0, bar.length) * bar.along);
  }

  /// Of members that lie on each other none can be nearer.
  bool IsForeignBar(const OccupiedBox& item) const {
    if (!BelongsToBar(Label)) return Overlap(Grown, item.box);
    if (item.owner == Label.owner) return false;
    const ClearBar& bar = BarOf(item.owner);
    return IsTooNear(bar, item.box) && !LieOnEachOther(BarOf(Label.owner), bar);
  }

  /// A force must be nearer to its own member, with its box and, where it stands along it, with its middle.
  bool IsTooNear(const ClearBar& bar, const TurnedBox& strip) const {
    if (Label.kind == LabelKind::MemberNumber) return Overlap(Grown, strip);
    const double distance = DistanceToBar(bar);
    if (distance < Box.halfHeight || (IsAlong && distance <= OwnDistance + NearerBy)) return true;
    if (distance > HalfDiagonal + std::max(OwnDistance + NearerBy, 2 * Clearance + bar.width)) return false;
    return Overlap(Grown, strip) || IsNearMiddleOf(strip, Box, OwnGap() + NearerBy);
  }

  /// A dot is round: what passes the corners of the square around it does not touch it.
  bool IsOnDot(const TurnedBox& dot) const {
    return Overlap(Grown, dot) && DistanceToBox(Box, dot.centre, dot.centre) < dot.halfLength + Clearance;
  }

  bool IsNearerNode(int n) const {
    return n != Label.owner && LengthOf(Box.centre - NodeOf(n)) <= OwnDistance + NearerBy;
  }

  bool IsNearerArrow(const TurnedBox& strip) const {
    const ClearArrow& own = Scene.arrows[static_cast<std::size_t>(Label.owner)];
    const PixelPoint half = strip.halfLength * strip.along;
    if (LengthOf(strip.centre - 0.5 * (own.tail + own.tip)) < 0.01) return false;
    return DistanceToLine(Box.centre, strip.centre - half, strip.centre + half) <= OwnDistance;
  }

  const ClearScene& Scene;
  const ClearLabel& Label;
  const TurnedBox& Box;
  TurnedBox Grown;
  double NearerBy;
  double OwnDistance;
  mutable double Gap = -1;
  double HalfDiagonal = 0;
  bool IsAlong = false;
};

} // namespace strutwright
