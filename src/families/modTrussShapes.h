#pragma once

#include "TrussShape.h"

namespace strutwright {

/// The supports of a truss's two supported nodes, the left one or the lower one first.
enum class SupportKind { PinRoller, RollerPin, PinPin };

/// The size of a truss, and how it is held.
struct TrussSize {
  double span = 0;   ///< m; of a tower the width at its base
  double height = 0; ///< m
  int bays = 0;
  SupportKind support = SupportKind::PinRoller;
};

// The shapes of the families.  A girder lies on y = 0 from x = 0 to the span; its end posts count as chords.

/// Diagonals fall towards midspan, so that loads from above stretch them.
/// Of an odd number of bays the one in the middle is braced as those to its left.
TrussShape PrattShape(const TrussSize& size);

/// Diagonals rise towards midspan, so that loads from above press them.
TrussShape HoweShape(const TrussSize& size);

/// Equal triangles; each upper node stands over the middle of a bay.
TrussShape WarrenShape(const TrussSize& size);

/// Diagonals rise and fall in turn, with a vertical between two bays.
TrussShape WarrenVerticalsShape(const TrussSize& size);

/// Verticals in two halves; from where these meet, two diagonals run towards midspan.  The vertical at midspan, or the
/// two beside the middle bay, is whole, since one more joint there would not be held sideways.
TrussShape KShape(const TrussSize& size);

/// The upper chord is a parabola that ends in the supports, the diagonals are a Pratt truss's.
TrussShape BowstringShape(const TrussSize& size);

/// A roof: each rafter has half of the bays, and every strut halves the part of the rafter that its ties hold.
/// bays: even, 4 or more.
TrussShape FinkShape(const TrussSize& size);

/// Parallel chords from a wall at x = 0, diagonals that fall away from it; a member along the wall only where the wall
/// does not hold both nodes entirely.
TrussShape CantileverShape(const TrussSize& size);

/// Two legs that lean towards each other until half of their distance is left, diagonals to and fro; a member along
/// the ground only where that does not hold both feet entirely.  The right leg is loaded: arrows to the right lie there
/// outside the tower.
TrussShape TowerShape(const TrussSize& size);

} // namespace strutwright
