#pragma once

#include <cstdint>
#include <string>

namespace strutwright {

// The two scales of the drawing.  Each is driven by a spinner whose number means nothing: only the direction in which
// it changes counts.

/// Whether a spinner that now shows `value` went up.  last: what it showed at its previous change, 0 before the first;
/// becomes `value`.  At the first change, what lies above the spinner's start value of 500 is up.
bool SpinnerWentUp(std::int16_t& last, std::int16_t value);

/// Steps DeflectionScale by 10 within 1..5000 (1, 10, 20, ...), shows the deflected shape and redraws.
/// Nothing happens without results.
void stepDeflectionScale(bool up);

/// Steps LoadsScale by a factor of 1.25 within 1..5000 and redraws.
void stepLoadsScale(bool up);

/// The scales as the labels show them: "100 mm/mm", "12.5 kN/m".
std::string DeflectionScaleText();
std::string LoadsScaleText();

/// The scales of a fresh drawing: 100 mm drawn per mm, 10 kN per m of arrow.
void ResetScales();

} // namespace strutwright
