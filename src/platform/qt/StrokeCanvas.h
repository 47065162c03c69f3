#pragma once

#include "Cover.h"
#include "LabelStamps.h"
#include "LetterStamps.h"
#include "Stroke.h"

#include <span>
#include <vector>

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

  /// Paints strokes one over the other, but not what would not be seen: much of what a large model consists of lies
  /// under the numbers that come last.
  void Paint(std::span<const Stroke> strokes);

  /// Inverts what lies under a stroke.
  void Invert(const Stroke& stroke);

  /// In device pixels.
  const QImage& Picture() const { return Image; }

 private:
  /// What is to be painted: a stamp at a place, or a stroke.
  struct Mark {
    const Stamp* stamp;
    int x;
    int y;
    const Stroke* stroke;
  };

  void FindVisibleMarks(std::span<const Stroke> strokes);
  void FindVisibleLetters(const PlacedText& text);
  void PaintStrokeOf(const Mark& mark, const Pixels& ground);

  QImage Image;
  LetterStamps Stamps;
  LabelStamps Labels;
  Cover Above;                              ///< what the marks cover that were found so far
  std::vector<Mark> Marks;                  ///< the uppermost first
  std::vector<PlacedLetter> VisibleLetters; ///< of a text, the last first
};

} // namespace strutwright
