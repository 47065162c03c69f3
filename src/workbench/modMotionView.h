#pragma once

#include "CheckReport.h"
#include "DrawingSurface.h"

#include <string>

namespace strutwright {

// The mechanisms of the last check, one of which may be shown swinging in the display.  They go with the report.

/// Steps of one swing to and fro, and the step at which it is widest.
inline constexpr int StepsOfASwing = 40;
inline constexpr int WidestStep = StepsOfASwing / 4;

/// How many mechanisms can be shown.
int MotionCount();

/// Shows mechanism `number`, 1..MotionCount(), at its widest; any other number shows none.
void ShowMotion(int number);

/// The mechanism that is shown; nullptr without one.
const Mechanism* ShownMechanism();

/// Swings the shown mechanism one step on, or back to where it is widest.
void SwingMotion();
void HoldMotion();

/// Draws the shown mechanism, if any, over the model.  One that can't be drawn is shown no longer.
void DrawShownMotion(DrawingSurface& surface);

/// Which motion is shown and what moves: "1 of 2: Node 2 can move up; ...", or in words that there is none.
std::string MotionText();

/// Whether this is one of the cures of the shown mechanism.
bool IsOffered(const Cure& cure);

} // namespace strutwright
