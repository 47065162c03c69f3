#pragma once

#include "ClearScene.h"

namespace strutwright {

/// Gives each label of a scene, in their order, the first of its places where it touches no other label, no symbol, no
/// arrow and no member but its own, and where nothing of its own kind is nearer than what it belongs to.  In a scene of
/// few members a label that finds none may move another one to a further place of that one's own, and a force may
/// shorten its text where the scene's look allows it.  What is placed is added to what is occupied.
/// before: labels whose places are tried first, by kind and owner; nullptr where there are none.
/// Gives how many forces found no place; where those are more than mostMissing, the numbers are not placed any more.
int PlaceLabels(ClearScene& scene, const std::vector<ClearLabel>* before, int mostMissing);

/// Whether a box in the plane of the truss touches anything but members' own labels: for what the view adds.
bool TouchesAnything(const ClearScene& scene, const TurnedBox& box);

} // namespace strutwright
