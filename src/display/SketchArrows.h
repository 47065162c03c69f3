#pragma once

#include "ClearScene.h"
#include "Sketch.h"

#include <vector>

namespace strutwright {

/// Length of the arrows of a sketch in an area: that of the longest, and of the shortest.
struct SketchArrowLengths {
  double longest = 0;
  double shortest = 0;

  double Of(const SketchArrow& arrow) const { return shortest + arrow.share * (longest - shortest); }
};
/// A sketch without lines has larger ones, as long as their labels leave room.
SketchArrowLengths ArrowLengthsOf(const Sketch& sketch, const Bounds& area, const PixelSurface& surface);

/// Stands the arrows of a sketch at the joints of its scene and adds them to what is occupied: first those that have
/// one place only, then each of the others where it touches least.
void PlaceSketchArrows(const Sketch& sketch, const SketchArrowLengths& lengths, ClearScene& scene);

/// Where an arrow stands if it stands on this side of its point.
ClearArrow StandArrow(const SketchArrow& arrow, PixelPoint at, double length, bool pulls, double shift = 0);

} // namespace strutwright
