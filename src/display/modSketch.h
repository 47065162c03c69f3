#pragma once

#include "SketchPlacement.h"

#include <vector>

namespace strutwright {

/// The colour in which a tone's lines and texts stand.
Colour ToneColour(SketchTone tone);

/// Draws a sketch where it was placed.  Lines and arrows with the key `lit`, if that is not 0, are lit up.
void DrawSketch(PixelSurface& surface, const PlacedSketch& placed, int lit = 0);

/// Draws a sheet.
void DrawSheet(PixelSurface& surface, const std::vector<PlacedSketch>& sheet, int lit = 0);

/// Where a pixel lies in a sketch, in its units, y upwards.
PixelPoint ToSketch(const PlacedSketch& placed, PixelPoint pixel);

/// The sketch of a sheet that a pixel lies in; -1 where it lies in none.
int SketchAt(const std::vector<PlacedSketch>& sheet, PixelPoint pixel);

/// The index of the point that a pixel is on, or nearest within reach; -1 where there is none.
int PointAt(const PlacedSketch& placed, PixelPoint pixel);

/// The key of the line or arrow nearest to a pixel within reach; 0 where there is none with a key.
int KeyAt(const PlacedSketch& placed, PixelPoint pixel);

} // namespace strutwright
