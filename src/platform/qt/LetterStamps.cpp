#include "LetterStamps.h"

#include <algorithm>
#include <cmath>

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QRectF>

namespace strutwright {

namespace {

constexpr int TextSize = 13;    // pixels
constexpr double HaloWidth = 3; // pixels, half of it on either side of a letter's edge
constexpr int Margin = 3;       // pixels around a letter, for its halo and for what hangs over

QFont TextFont() {
  QFont font;
  font.setPixelSize(TextSize);
  return font;
}

void PaintHalo(QPainter& painter, const QPointF& baseline, const QString& text) {
  QPainterPath letters;
  letters.addText(baseline, TextFont(), text);
  painter.strokePath(letters, QPen(Qt::white, HaloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void PaintLetters(QPainter& painter, const QPointF& baseline, const QString& text, const QColor& colour) {
  painter.setFont(TextFont());
  painter.setPen(colour);
  painter.drawText(baseline, text);
}

/// Numbers: signs whose shape and place do not hang on their neighbours.
bool StandAlone(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar each) { return QStringView(u"0123456789.-").contains(each); });
}

/// An empty picture that takes one letter.
QImage Blank(const QFontMetricsF& metrics, const QString& letter, double ratio) {
  const QSizeF size(metrics.horizontalAdvance(letter) + 2 * Margin, metrics.height() + 2 * Margin);
  QImage blank((size * ratio).toSize() + QSize(1, 1), QImage::Format_ARGB32_Premultiplied);
  blank.setDevicePixelRatio(ratio);
  blank.fill(Qt::transparent);
  return blank;
}

} // namespace

void PaintText(QPainter& painter, const QPointF& corner, const QString& text, const QColor& colour, bool halo) {
  const QFontMetricsF metrics(TextFont());
  const QPointF baseline = corner + QPointF(0, metrics.ascent());
  if (halo) {
    PaintHalo(painter, baseline, text);
  } else {
    painter.fillRect(QRectF(corner, QSizeF(metrics.horizontalAdvance(text), metrics.height())), Qt::white);
  }
  PaintLetters(painter, baseline, text, colour);
}

void LetterStamps::PaintText(QPainter& painter, const QPointF& corner, const QString& text, const QColor& colour,
                             double ratio) {
  if (!StandAlone(text)) return strutwright::PaintText(painter, corner, text, colour, true);
  const auto whole = [ratio](double pixel) { return std::round(pixel * ratio) / ratio; };
  // All halos first: a letter must not disappear under its neighbour's.
  for (QImage Stamp::*layer : {&Stamp::halo, &Stamp::letter}) {
    double x = corner.x();
    for (const QChar letter : text) {
      const Stamp& stamp = StampOf(letter, colour, ratio);
      painter.drawImage(QPointF(whole(x - Margin), whole(corner.y() - Margin)), stamp.*layer);
      x += stamp.advance;
    }
  }
}

const LetterStamps::Stamp& LetterStamps::StampOf(QChar letter, const QColor& colour, double ratio) {
  if (ratio != Ratio) Stamps.clear();
  Ratio = ratio;
  Stamp& stamp = Stamps[{letter.unicode(), colour.rgb()}];
  if (!stamp.letter.isNull()) return stamp;
  const QFontMetricsF metrics(TextFont());
  const QPointF baseline(Margin, Margin + metrics.ascent());
  stamp = {Blank(metrics, letter, ratio), Blank(metrics, letter, ratio), metrics.horizontalAdvance(letter)};
  QPainter halo(&stamp.halo);
  halo.setRenderHint(QPainter::Antialiasing);
  PaintHalo(halo, baseline, letter);
  QPainter letters(&stamp.letter);
  PaintLetters(letters, baseline, letter, colour);
  return stamp;
}

} // namespace strutwright
