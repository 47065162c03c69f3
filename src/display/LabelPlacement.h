#pragma once

#include "ClearScene.h"

namespace strutwright {

// Labels get their places in the order of the scene: values of arrows and forces first, then numbers.  Each gets the
// first of its places where it touches no other label, no symbol, no arrow and no member but its own, and where
// nothing of its own kind is nearer than what it belongs to.  In a scene of few members a label that finds none may
// move another one to a further place of that one's own, and a force may shorten its text where the scene's look
// allows it.  What is placed is added to what is occupied. before: labels whose places are tried first, by kind and
// owner; nullptr where there are none.

struct PlacedForces {
  int missing = 0;      ///< forces that found no place
  bool triedAll = true; ///< otherwise there were too many, and those not tried yet count among them
};

/// Places the values of arrows and the forces.  Gives up where many more than mostMissing find no place.
PlacedForces PlaceForces(ClearScene& scene, const std::vector<ClearLabel>* before, int mostMissing);

/// Places the numbers, in a scene whose forces all were tried.
void PlaceNumbers(ClearScene& scene, const std::vector<ClearLabel>* before);

/// Whether a label surely finds no place: its member is very short on the screen or, in a scene of many members,
/// shorter than most of its force's text; or it is the number of a node where none is shown.
bool HasNoRoom(const ClearScene& scene, const ClearLabel& label);

/// Whether a box in the plane of the truss touches anything but members' own labels: for what the view adds.
bool TouchesAnything(const ClearScene& scene, const TurnedBox& box);

} // namespace strutwright
