#include "HandStrokes.h"

#include "HandTexts.h"
#include "modNumberText.h"

#include <cstddef>
#include <optional>

namespace strutwright {

StrokeReading ReadStroke(const std::array<std::string, 4>& texts) {
  std::array<double, 4> values{};
  for (std::size_t k = 0; k < texts.size(); ++k) {
    const std::optional<float> value = NumericValue(texts.at(k));
    if (!value) return {{}, "Type the line's ends as four numbers in m, such as 4.5, 5 and 4.5, -1."};
    values.at(k) = *value;
  }
  return {{values[0], values[1], values[2], values[3]}, ""};
}

std::array<std::string, 4> StrokeTexts(const SectionStroke& stroke) {
  return {HandNumber(stroke.x0), HandNumber(stroke.y0), HandNumber(stroke.x1), HandNumber(stroke.y1)};
}

} // namespace strutwright
