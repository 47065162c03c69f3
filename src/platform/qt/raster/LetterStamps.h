#pragma once

#include "PixelPen.h"
#include "Stroke.h"

#include <array>
#include <map>
#include <span>
#include <vector>

#include <QColor>
#include <QPointF>
#include <QRect>
#include <QString>

class QPainter;

namespace strutwright {

/// Paints a text as letters over its halo or its white box.
void PaintText(QPainter& painter, const TextStroke& stroke);

/// A sign of a number on its halo, which goes on under it.
struct Letter {
  Stamp halo;
  Stamp ink;
  double advance = 0; ///< logical pixels
};

/// x, y: where in the picture the upper left corner of the letter's pictures lies.
struct PlacedLetter {
  const Letter* letter;
  int x;
  int y;
};

/// box: what the text takes up, ink: where its letters lie with their halos, in device pixels.
struct PlacedText {
  std::span<const PlacedLetter> letters;
  QRect box;
  QRect ink;
};

/// Keeps the letters of numbers: to trace the outline of a halo takes a hundred times as long as to copy it, and a
/// large model shows thousands of numbers.
class LetterStamps {
 public:
  static bool IsNumber(const TextStroke& stroke);

  /// The letters of a number in a picture with so many device pixels a logical one.  They begin at whole pixels of the
  /// picture, which leaves them as sharp as they were made.  The places last until the next call, the letters until one
  /// with another ratio.
  PlacedText Place(const TextStroke& number, double ratio);

 private:
  struct Alphabet {
    std::array<Letter, 12> letters;
    double height; ///< of a line of text, logical pixels
    QRect ink;     ///< of all letters' halos, one over the other
  };

  const Alphabet& AlphabetOf(QRgb colour, double ratio);

  double Ratio = 1; ///< of the letters below
  std::map<QRgb, Alphabet> Alphabets;
  std::vector<PlacedLetter> Placed;
};

} // namespace strutwright
