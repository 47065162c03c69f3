#pragma once

#include "Cover.h"
#include "LabelStamps.h"
#include "LetterStamps.h"
#include "Stroke.h"

#include <span>
#include <string>
#include <vector>

#include <QImage>

namespace strutwright {

/// Paints strokes on pictures, and keeps what it can use again.
class MarkPainter {
 public:
  /// Paints strokes one over the other, but not what would not be seen.
  void Paint(std::span<const Stroke> strokes, QImage& picture);

  /// Width of a label in a font of this height, in logical pixels.
  double WidthOf(const std::string& text, int size) { return Widths.WidthOf(text, size); }

 private:
  /// What is to be painted: a stamp at a place, or a stroke.
  struct Mark {
    const Stamp* stamp;
    int x;
    int y;
    const Stroke* stroke;
  };

  void FindVisibleMarks(std::span<const Stroke> strokes, const QImage& picture);
  void FindVisibleLetters(const PlacedText& text);
  void PaintStrokeOf(const Mark& mark, const Pixels& ground, QImage& picture);

  LetterStamps Stamps;
  LabelStamps Labels;
  LabelWidths Widths;
  Cover Above;                              ///< what the marks cover that were found so far
  std::vector<Mark> Marks;                  ///< the uppermost first
  std::vector<PlacedLetter> VisibleLetters; ///< of a text, the last first
};

} // namespace strutwright
