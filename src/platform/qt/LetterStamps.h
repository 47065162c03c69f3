#pragma once

#include <map>
#include <utility>

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QString>

class QPainter;

namespace strutwright {

/// Paints a text as letters over a thin white halo, or over a white box where halo is false.
/// corner: its upper left one, in logical pixels.
void PaintText(QPainter& painter, const QPointF& corner, const QString& text, const QColor& colour, bool halo);

/// Paints the same, with halo, from letters that it keeps as small pictures: to trace the outline of a halo takes a
/// hundred times as long as to copy it, and a large model shows thousands of numbers.
class LetterStamps {
 public:
  /// Letters begin at whole device pixels, which leaves them as sharp as they were made.
  /// ratio: device pixels a logical one.
  void PaintText(QPainter& painter, const QPointF& corner, const QString& text, const QColor& colour, double ratio);

 private:
  struct Stamp {
    QImage halo;
    QImage letter;
    double advance = 0; ///< logical pixels
  };

  const Stamp& StampOf(QChar letter, const QColor& colour, double ratio);

  double Ratio = 1; ///< of the stamps below
  std::map<std::pair<char16_t, QRgb>, Stamp> Stamps;
};

} // namespace strutwright
