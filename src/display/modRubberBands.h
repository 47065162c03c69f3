#pragma once

#include "MouseState.h"

namespace strutwright {

// The shapes that follow the mouse.  They are drawn on DisplaySurface in its inverting pen, so that drawing one again
// erases it, and the pen copies again afterwards.  A failure of the surface has been reported when a routine returns,
// and no shape is on the surface any more.

enum class RubberBand {
  ZoomBox,    ///< the zoom rectangle
  MemberLine, ///< from the first node of a member to the mouse
  SnapMark,   ///< round the grid point that a click would take
};

/// Erases this band where it is and draws it anew.  Without a surface there is none.
void ShowRubberBand(RubberBand band, const RubberShape& shape);

/// Erases this band, if it is shown.
void HideRubberBand(RubberBand band);

/// Erases all of them.
void HideRubberBands();

/// Counts all of them as erased without drawing: the surface has been cleared.
void ForgetRubberBands();

} // namespace strutwright
