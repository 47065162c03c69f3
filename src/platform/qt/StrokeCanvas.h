#pragma once

#include "LetterStamps.h"
#include "Stroke.h"

#include <span>

#include <QImage>
#include <QSize>

namespace strutwright {

/// A picture on which strokes are painted, antialiased and on white.
class StrokeCanvas {
 public:
  /// size: in logical pixels; ratio: device pixels a logical one.  Throws std::runtime_error, and stays as it was,
  /// where there is no memory.
  void Resize(const QSize& size, double ratio);

  void Clear();

  /// Paints strokes one over the other.
  void Paint(std::span<const Stroke> strokes);

  /// Inverts what lies under a stroke.
  void Invert(const Stroke& stroke);

  /// In device pixels.
  const QImage& Picture() const { return Image; }

 private:
  QImage Image;
  LetterStamps Stamps;
};

} // namespace strutwright
