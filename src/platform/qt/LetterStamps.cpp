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
#include <QRect>
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

void FillWhite(const Pixels& ground, const QRect& area) {
  constexpr std::uint32_t White = 0xFFFFFFFF;
  const QRect part = area & QRect(0, 0, ground.width, ground.height);
  if (part.isEmpty()) return;
  for (int y = part.top(); y <= part.bottom(); ++y) std::fill_n(ground.Row(y) + part.left(), part.width(), White);
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

bool LetterStamps::Print(const Pixels& ground, const TextStroke& stroke, double ratio) {
  if (!IsNumber(stroke.text)) return false;
  const Alphabet& alphabet = AlphabetOf(stroke.colour, ratio);
  const double width = Place(stroke, alphabet);
  if (stroke.halo) {
    // All halos first: a letter must not disappear under its neighbour's.
    for (const PlacedLetter& each : Placed) each.letter->halo.CopyTo(ground, each.x, each.y);
  } else {
    const QPointF end = stroke.corner + QPointF(width, alphabet.height);
    FillWhite(ground, QRect((stroke.corner * ratio).toPoint(), (end * ratio).toPoint() - QPoint(1, 1)));
  }
  for (const PlacedLetter& each : Placed) each.letter->ink.CopyTo(ground, each.x, each.y);
  return true;
}

/// Finds the places of a text's letters and returns how wide it is, in logical pixels.
double LetterStamps::Place(const TextStroke& stroke, const Alphabet& alphabet) {
  Placed.clear();
  const QPointF corner = stroke.corner - QPointF(Margin, Margin);
  const int y = qRound(corner.y() * Ratio);
  double width = 0;
  for (const char character : stroke.text) {
    const Letter& letter = alphabet.letters[PlaceOf(character)];
    Placed.push_back({&letter, qRound((corner.x() + width) * Ratio), y});
    width += letter.advance;
  }
  return width;
}

const LetterStamps::Alphabet& LetterStamps::AlphabetOf(QRgb colour, double ratio) {
  if (ratio != Ratio) Alphabets.clear();
  Ratio = ratio;
  const auto [found, isNew] = Alphabets.try_emplace(colour);
  Alphabet& alphabet = found->second;
  if (!isNew) return alphabet;
  alphabet.height = QFontMetricsF(TextFont()).height();
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
    alphabet.letters[i] = {Stamp(halo), Stamp(ink), metrics.horizontalAdvance(sign)};
  }
  return alphabet;
}

} // namespace strutwright
