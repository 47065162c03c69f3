#pragma once

#include "PixelPen.h"

#include <array>
#include <map>
#include <string>

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QString>

class QPainter;

namespace strutwright {

/// Paints a text as letters over a thin white halo, or over a white box where halo is false.
/// corner: its upper left one, in logical pixels.
void PaintText(QPainter& painter, const QPointF& corner, const QString& text, const QColor& colour, bool halo);

/// Paints numbers, with halo, from letters that it keeps as small pictures: to trace the outline of a halo takes a
/// hundred times as long as to copy it, and a large model shows thousands of numbers.
class LetterStamps {
 public:
  /// False, and nothing is done, where the text is no number.  Letters begin at whole pixels of the picture, which
  /// leaves them as sharp as they were made.
  bool Print(QImage& picture, const QPointF& corner, const std::string& text, QRgb colour);

 private:
  struct Letter {
    Stamp halo;
    Stamp ink;
    double advance = 0; ///< logical pixels
  };
  using Alphabet = std::array<Letter, 12>;

  Alphabet& AlphabetOf(QRgb colour, double ratio);

  double Ratio = 1; ///< of the letters below
  std::map<QRgb, Alphabet> Alphabets;
};

} // namespace strutwright
