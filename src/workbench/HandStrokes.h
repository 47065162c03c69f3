#pragma once

#include "modSections.h"

#include <array>
#include <string>

namespace strutwright {

/// The ends of a section's line as they were typed.
struct StrokeReading {
  SectionStroke stroke;
  std::string fault; ///< a sentence; empty where there is none
};

/// Reads x and y of the beginning and of the end, in m.
StrokeReading ReadStroke(const std::array<std::string, 4>& texts);

/// The same as texts.
std::array<std::string, 4> StrokeTexts(const SectionStroke& stroke);

} // namespace strutwright
