#pragma once

#include "ClearScene.h"
#include "Sketch.h"

#include <string>
#include <vector>

namespace strutwright {

/// A text of a sketch where it found room.
struct PlacedSketchText {
  PixelPoint centre;
  std::string text;
  SketchTone tone{};
};

/// A sketch with a place on a surface for everything in it, in pixels.
struct PlacedSketch {
  Sketch sketch;
  Bounds area;       ///< of the surface
  PixelPoint origin; ///< where the sketch has its origin
  double scale = 1;  ///< pixels a unit
  ClearScene scene;  ///< joints: the points, counted from 1; bars: the lines; arrows and their labels
  std::vector<PlacedSketchText> texts;

  static constexpr int Beyond = -1; ///< owner of what is occupied beyond the area

  PixelPoint At(double x, double y) const { return {origin.x + scale * x, origin.y - scale * y}; }
};

/// Fits a sketch into an area, as large as its arrows and their labels allow, and gives its labels their places as in
/// the clear drawing: what finds none is left out.
PlacedSketch PlaceSketch(const Sketch& sketch, const Bounds& area, const PixelSurface& surface);

/// Places all sketches of a sheet that fills the surface.
std::vector<PlacedSketch> PlaceSheet(const SketchSheet& sheet, const PixelSurface& surface);

} // namespace strutwright
