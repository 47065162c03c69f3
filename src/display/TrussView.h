#pragma once

#include "DrawingSurface.h"

#include <cstdint>
#include <functional>
#include <string>

namespace strutwright {

/// Which layers of the model there are to see.
struct ModelLayers {
  bool supports = true;
  bool loads = true;
  bool grid = true;
  bool memberNumbers = true;
  bool nodeNumbers = true;

  bool operator==(const ModelLayers&) const = default;
};

/// The bounding box of the nodes and the origin, m.
struct ModelExtents {
  float minX = 0;
  float maxX = 0;
  float minY = 0;
  float maxY = 0;
};

/// The drawing grid.
struct GridLines {
  float spacingX = 1; ///< m
  float spacingY = 1;
  LineStyle style = LineStyle::Dashed;
};

/// How the truss is drawn: in world metres, or clear, with symbols and labels in pixels that nothing stands on.
enum class DrawingStyle : std::uint8_t { Described, Clear };

class ClearMemory;

/// Takes the text of a drawing failure.
using FailureReport = std::function<void(const std::string& text)>;

/// Shows a drawing failure in a box; while another box is open there is none.
void ShowDrawingFailure(const std::string& text);

/// Everything that a drawing of the truss depends on besides the model and its results.
struct TrussView {
  ModelLayers layers = {};
  bool reactions = false;
  bool memberForces = false;
  bool deflectedShape = false;
  float deflectionScale = 100; ///< mm drawn per mm of displacement
  float loadsScale = 10;       ///< kN per m of arrow
  GridLines grid = {};
  float unit = 1;            ///< drawn m for a m of the truss
  ModelExtents extents = {}; ///< drawn m; numbers stand off their nodes by a part of the largest x
  bool frameExtents = false; ///< frame the extents first
  DrawingStyle style = DrawingStyle::Described;
  bool widthByForce = true;      ///< in the clear drawing a member is wider the larger its force
  bool legend = true;            ///< in the clear drawing
  bool onPaper = false;          ///< nobody can zoom in there or point at anything
  ClearMemory* memory = nullptr; ///< what the clear drawing kept on this surface; nullptr for one drawn once
  FailureReport failures = ShowDrawingFailure;
};

} // namespace strutwright
