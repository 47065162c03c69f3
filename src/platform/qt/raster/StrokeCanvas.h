#pragma once

#include "Stroke.h"

#include <memory>
#include <span>
#include <string>

#include <QImage>
#include <QSize>

namespace strutwright {

class MarkPainter;

/// A picture on which strokes are painted, antialiased and on white.  Whoever draws needs this header and Stroke.h;
/// the other files of the folder are how it paints.
///
/// Qt alone takes 3.7 s to redraw a model of 5000 nodes, nearly all of it for the outlines of letters.  To keep the
/// letters as small pictures brings that down to 150 ms.  Lines and circles straight onto the pixels, eight at a time,
/// and nothing painted that would not be seen: 15 ms.  That is the difference between waiting and dragging.
class StrokeCanvas {
 public:
  StrokeCanvas();
  ~StrokeCanvas();
  StrokeCanvas(const StrokeCanvas&) = delete;
  StrokeCanvas& operator=(const StrokeCanvas&) = delete;

  /// size: in logical pixels; ratio: device pixels a logical one.  Throws std::runtime_error, and stays as it was,
  /// where there is no memory.
  void Resize(const QSize& size, double ratio);

  void Clear();

  /// Paints strokes one over the other, but not what would not be seen: much of what a large model consists of lies
  /// under the numbers that come last.
  void Paint(std::span<const Stroke> strokes);

  /// Inverts what lies under a stroke.
  void Invert(const Stroke& stroke);

  /// In device pixels.
  const QImage& Picture() const { return Image; }

  /// Width of a label in a font of this height, in logical pixels.
  double WidthOf(const std::string& text, int size) const;

 private:
  QImage Image;
  std::unique_ptr<MarkPainter> Painter;
};

} // namespace strutwright
