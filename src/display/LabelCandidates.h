#pragma once

#include "ClearScene.h"

#include <optional>

namespace strutwright {

/// The places that a label may take, best first.
/// A force stands along its member, upright to the reader, beside its middle, then along it, then on the other side;
/// where that fails, a little farther off, level, and last as close as it can be.  A member's number lies on its line,
/// at its middle first.  A node's number stands in the widest angle between its members and arrows, then in the others,
/// first close to it.  The value of an arrow stands beyond its outer end, then beside it.
class LabelCandidates {
 public:
  /// fine: also the places of a force that only pay where members are few.
  LabelCandidates(const ClearScene& scene, bool fine);

  /// How many places of a force stand along its member, the best ones.
  static constexpr int AlongPlaces = 36;

  /// The place of this index, 0 and up; nothing after the last.  One that is no place for this label, such as a point
  /// beyond its member, has no length.
  std::optional<TurnedBox> At(const ClearLabel& label, int place);

 private:
  std::optional<TurnedBox> AtForce(const ClearLabel& label, int place);
  std::optional<TurnedBox> AtMemberNumber(const ClearLabel& label, int place) const;
  std::optional<TurnedBox> AtNodeNumber(const ClearLabel& label, int place);
  std::optional<TurnedBox> AtArrow(const ClearLabel& label, int place) const;
  const std::vector<PixelPoint>& WaysFrom(int n);
  double FirstSide(int bar);
  double FreeSideOf(const ClearBar& bar) const;

  const ClearScene& Scene;
  bool Fine;
  std::vector<signed char> FirstSides;          ///< of each bar; 0 where it has not been asked for
  std::vector<std::vector<PixelPoint>> Blocked; ///< directions of supports and arrows, by node
  int WaysOf = -1;                              ///< the node of the ways below
  std::vector<PixelPoint> Ways;                 ///< in which its number may stand, best first
};

/// The direction in which a text along a line reads from left to right; upwards where the line is upright.
PixelPoint ReadingDirection(PixelPoint along);

} // namespace strutwright
