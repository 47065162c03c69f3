#pragma once

#include "DrawingSurface.h"
#include "MouseState.h"
#include "TrussView.h"
#include "modClearDrawing.h"
#include "modSelection.h"

#include <cstdint>

namespace strutwright {

/// What the truss display shows, and how.
struct DisplayState {
  DrawingSurface* DisplaySurface = nullptr; ///< the one surface; while it is unset, a redraw does nothing

  ModelExtents Extents;  ///< as they were when the model was last framed
  bool KeepView = false; ///< false: the next model drawing frames the extents

  ModelLayers Layers; ///< what the five plain switches show
  bool ShowReactions = false;
  bool ShowMemberForces = false;
  bool ShowDeflectedShape = false;
  float DeflectionScale = 100; ///< mm drawn per mm of displacement
  float LoadsScale = 10;       ///< kN per m of arrow

  float GridSpacingX = 1;           ///< m
  float GridSpacingY = 1;           ///< m
  std::int16_t StartNodeNumber = 1; ///< kept and shown; nodes are numbered by their rows
  std::int16_t GridLineStyle = 1;   ///< 0 solid, 1 dashed

  bool DrawNodeMode = false;   ///< a click adds a node at the nearest grid point
  bool DrawMemberMode = false; ///< two clicks on nodes add a member
  Selection Selected;          ///< by the mode Select and Move
  MouseState Mouse;            ///< the other modes, and what the mouse is in the middle of

  DrawingStyle Style = DrawingStyle::Described;
  bool WidthByForce = true; ///< in the clear drawing a member is wider the larger its force
  bool ShowLegend = true;   ///< in the clear drawing
  ClearMemory Memory;       ///< of the clear drawing on DisplaySurface
};

inline DisplayState TheDisplay;
inline auto& DisplaySurface = TheDisplay.DisplaySurface;
inline auto& MaxX = TheDisplay.Extents.maxX;
inline auto& MaxY = TheDisplay.Extents.maxY;
inline auto& MinX = TheDisplay.Extents.minX;
inline auto& MinY = TheDisplay.Extents.minY;
inline auto& KeepView = TheDisplay.KeepView;
inline auto& ShowReactions = TheDisplay.ShowReactions;
inline auto& ShowMemberForces = TheDisplay.ShowMemberForces;
inline auto& ShowDeflectedShape = TheDisplay.ShowDeflectedShape;
inline auto& DeflectionScale = TheDisplay.DeflectionScale;
inline auto& LoadsScale = TheDisplay.LoadsScale;
inline auto& GridSpacingX = TheDisplay.GridSpacingX;
inline auto& GridSpacingY = TheDisplay.GridSpacingY;
inline auto& StartNodeNumber = TheDisplay.StartNodeNumber;
inline auto& GridLineStyle = TheDisplay.GridLineStyle;
inline auto& DrawNodeMode = TheDisplay.DrawNodeMode;
inline auto& DrawMemberMode = TheDisplay.DrawMemberMode;
inline auto& TheMouse = TheDisplay.Mouse;

} // namespace strutwright
