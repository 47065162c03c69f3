#pragma once

#include "PixelSurface.h"
#include "TrussView.h"

namespace strutwright {

/// What the clear drawing shows, and how.
struct ClearSettings {
  ModelLayers layers;
  bool reactions = false;
  bool memberForces = false;
  bool deflectedShape = false;
  float deflectionScale = 100; ///< mm drawn per mm of displacement
  float loadsScale = 10;       ///< kN per m of arrow
  bool widthByForce = true;    ///< a member is drawn wider the larger its force
  bool legend = true;
  bool onPaper = false;   ///< nobody can zoom in there or point at anything
  float gridSpacingX = 1; ///< m
  float gridSpacingY = 1;
  bool gridDashed = true;

  bool operator==(const ClearSettings&) const = default;
};

/// Where the world lies on the surface: the pixel of the world's origin, and pixels a metre.
struct PixelView {
  PixelPoint origin;
  double scaleX = 1;
  double scaleY = 1;
  double width = 0; ///< of the surface
  double height = 0;
};

/// Sizes in pixels, the same at every zoom.
namespace ClearSize {

inline constexpr double NodeRadius = 3.5;
inline constexpr double NodeEdge = 1.5;
inline constexpr double MinArrow = 24;
inline constexpr double ViewPerArrow = 6; ///< the longest arrow is this part of the view's shorter side
inline constexpr double ArrowWidth = 1.8;
inline constexpr double HeadLength = 9;
inline constexpr double HeadHalfWidth = 3.6;
inline constexpr double ArrowGap = 2.5;    ///< between an arrow and its node or support
inline constexpr double SupportReach = 23; ///< from the node to the far side of a support
inline constexpr double SupportHalfWidth = 13;
inline constexpr double LabelGap = 2.5; ///< between a text and what it belongs to
inline constexpr int LargestText = 12;
inline constexpr int SmallText = 11; ///< of axis values, legend and counts

} // namespace ClearSize

/// The longest that an arrow may get, in whole pixels, so that a pixel more of the view does not change every arrow.
double LongestArrow(double viewWidth, double viewHeight);

/// Length of an arrow in pixels: it follows the forces scale within MinArrow and LongestArrow.
double ArrowLength(float force, float loadsScale, double pixelsPerMetre, double longest);

} // namespace strutwright
