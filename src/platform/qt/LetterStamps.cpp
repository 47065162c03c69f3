#include "LetterStamps.h"

#include <cstddef>
#include <string_view>

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

/// The signs of numbers: their shape and place do not hang on their neighbours.
constexpr std::string_view Signs = "0123456789.-";

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

bool LetterStamps::Print(QImage& picture, const QPointF& corner, const std::string& text, QRgb colour) {
  if (text.find_first_not_of(Signs) != std::string::npos) return false;
  const double ratio = picture.devicePixelRatio();
  const Alphabet& alphabet = AlphabetOf(colour, ratio);
  const int y = qRound((corner.y() - Margin) * ratio);
  const Pixels ground(picture);
  // All halos first: a letter must not disappear under its neighbour's.
  for (Stamp Letter::*layer : {&Letter::halo, &Letter::ink}) {
    double x = corner.x() - Margin;
    for (const char sign : text) {
      const Letter& letter = alphabet[Signs.find(sign)];
      (letter.*layer).CopyTo(ground, qRound(x * ratio), y);
      x += letter.advance;
    }
  }
  return true;
}

LetterStamps::Alphabet& LetterStamps::AlphabetOf(QRgb colour, double ratio) {
  if (ratio != Ratio) Alphabets.clear();
  Ratio = ratio;
  const auto [found, isNew] = Alphabets.try_emplace(colour);
  if (!isNew) return found->second;
  for (std::size_t i = 0; i < Signs.size(); ++i) {
    const QString sign(QChar::fromLatin1(Signs[i]));
    const QFontMetricsF metrics(TextFont());
    const QPointF baseline(Margin, Margin + metrics.ascent());
    QImage halo = Blank(metrics, sign, ratio);
    QPainter haloPainter(&halo);
    haloPainter.setRenderHint(QPainter::Antialiasing);
    PaintHalo(haloPainter, baseline, sign);
    QImage ink = Blank(metrics, sign, ratio);
    QPainter inkPainter(&ink);
    PaintLetters(inkPainter, baseline, sign, QColor(colour));
    found->second[i] = {Stamp(halo), Stamp(ink), metrics.horizontalAdvance(sign)};
  }
  return found->second;
}

} // namespace strutwright
