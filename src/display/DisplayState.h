#pragma once

#include "DrawingSurface.h"
#include "Host.h"
#include "MouseState.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace strutwright {

/// What the truss display shows, and how.
struct DisplayState {
  DrawingSurface* DisplaySurface = nullptr; ///< the one surface; while it is unset, a redraw does nothing

  float MaxX = 0; ///< model extents, m: the bounding box of the nodes and the origin
  float MaxY = 0;
  float MinX = 0;
  float MinY = 0;
  bool KeepView = false; ///< false: the next model drawing frames the extents

  bool ShowReactions = false;
  bool ShowMemberForces = false;
  bool ShowDeflectedShape = false;
  float DeflectionScale = 100; ///< mm drawn per mm of displacement
  float LoadsScale = 10;       ///< kN per m of arrow

  float GridSpacingX = 1;           ///< m
  float GridSpacingY = 1;           ///< m
  float PickRadius = 0.1F;          ///< m, for picking nodes and snapping to grid points
  std::int16_t StartNodeNumber = 1; ///< kept and shown; nodes are numbered by their rows
  std::int16_t GridLineStyle = 1;   ///< 0 solid, 1 dashed

  bool DrawNodeMode = false;   ///< a click adds a node at the nearest grid point
  bool DrawMemberMode = false; ///< two clicks on nodes add a member
  MouseState Mouse;            ///< the other modes, and what the mouse is in the middle of

  std::optional<ModelLayers> OwnLayers; ///< while set, drawn instead of the layers that the user wants to see

  std::vector<std::string>* DrawingFailures = nullptr; ///< while set, failures are kept here and show no box
};

inline DisplayState TheDisplay;
inline auto& DisplaySurface = TheDisplay.DisplaySurface;
inline auto& MaxX = TheDisplay.MaxX;
inline auto& MaxY = TheDisplay.MaxY;
inline auto& MinX = TheDisplay.MinX;
inline auto& MinY = TheDisplay.MinY;
inline auto& KeepView = TheDisplay.KeepView;
inline auto& ShowReactions = TheDisplay.ShowReactions;
inline auto& ShowMemberForces = TheDisplay.ShowMemberForces;
inline auto& ShowDeflectedShape = TheDisplay.ShowDeflectedShape;
inline auto& DeflectionScale = TheDisplay.DeflectionScale;
inline auto& LoadsScale = TheDisplay.LoadsScale;
inline auto& GridSpacingX = TheDisplay.GridSpacingX;
inline auto& GridSpacingY = TheDisplay.GridSpacingY;
inline auto& PickRadius = TheDisplay.PickRadius;
inline auto& StartNodeNumber = TheDisplay.StartNodeNumber;
inline auto& GridLineStyle = TheDisplay.GridLineStyle;
inline auto& DrawNodeMode = TheDisplay.DrawNodeMode;
inline auto& DrawMemberMode = TheDisplay.DrawMemberMode;
inline auto& TheMouse = TheDisplay.Mouse;

} // namespace strutwright
