#pragma once

#include "Stroke.h"

#include <span>
#include <string>

class QSize;

namespace strutwright {

/// Strokes on white as an SVG file: one user unit is a logical pixel, a text is a text, and the same strokes give the
/// same bytes in every locale.  size: in logical pixels.  Measuring texts needs a QGuiApplication.
std::string SvgPicture(std::span<const Stroke> strokes, const QSize& size);

} // namespace strutwright
