#include "LetterStamps.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
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

/// For each character below 128 its place among the signs, or as many as there are.
constexpr auto SignPlaces = [] {
  std::array<std::uint8_t, 128> places{};
  places.fill(Signs.size());
  for (std::size_t i = 0; i < Signs.size(); ++i) {
    places[static_cast<unsigned char>(Signs[i])] = static_cast<std::uint8_t>(i);
  }
  return places;
}();

std::size_t PlaceOf(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code < SignPlaces.size() ? SignPlaces[code] : Signs.size();
}

bool IsNumber(const std::string& text) {
  return std::all_of(text.begin(), text.end(), [](char character) { return PlaceOf(character) < Signs.size(); });
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

std::span<const PlacedLetter> LetterStamps::Place(const TextStroke& stroke, double ratio) {
  Placed.clear();
  if (!IsNumber(stroke.text)) return {};
  const Alphabet& alphabet = AlphabetOf(stroke.colour, ratio);
  const int y = qRound((stroke.corner.y() - Margin) * ratio);
  double x = stroke.corner.x() - Margin;
  for (const char character : stroke.text) {
    const Letter& letter = alphabet[PlaceOf(character)];
    Placed.push_back({&letter, qRound(x * ratio), y});
    x += letter.advance;
  }
  return Placed;
}

void PrintLetters(const Pixels& ground, std::span<const PlacedLetter> letters) {
  // All halos first: a letter must not disappear under its neighbour's.
  for (const Stamp Letter::*layer : {&Letter::halo, &Letter::ink}) {
    for (const PlacedLetter& each : letters) (each.letter->*layer).CopyTo(ground, each.x, each.y);
  }
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
