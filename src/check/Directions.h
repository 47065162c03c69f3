#pragma once

#include <vector>

namespace strutwright {

struct CheckedTruss;

/// A direction, and how far the rounding of coordinates to 32 bits may have turned it.
struct Direction {
  double c = 1;
  double s = 0;
  double doubt = 0; ///< angle

  double Sine(const Direction& other) const { return c * other.s - s * other.c; }
};

/// How far a float may be from the number that was meant: half a unit in the last place.
double RoundingOf(double coordinate);

/// How far a float is from the shortest decimal number that becomes it, which is most likely what was typed.
double RoundingOfDecimal(double coordinate);

/// True when two directions are one line, or were before their coordinates were rounded.
bool AreInLine(const Direction& one, const Direction& other);

/// The direction of each member of the truss, from its node i to j, after those that are in line with each other or
/// with an axis were given one direction: coordinates in 32 bits bend a straight chain on a slope a little.
std::vector<Direction> AlignedDirections(const CheckedTruss& truss);

} // namespace strutwright
