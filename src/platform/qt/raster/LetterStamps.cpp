#include "LetterStamps.h"

#include "StrokeFonts.h"

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

constexpr int Margin = 3; // pixels around a letter, for its halo and for what hangs over

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

/// An empty picture that takes one letter.
QImage Blank(const QFontMetricsF& metrics, const QString& letter, double ratio) {
  const QSizeF size(metrics.horizontalAdvance(letter) + 2 * Margin, metrics.height() + 2 * Margin);
  QImage blank((size * ratio).toSize() + QSize(1, 1), QImage::Format_ARGB32_Premultiplied);
  blank.setDevicePixelRatio(ratio);
  blank.fill(Qt::transparent);
  return blank;
}

/// Leaves less than a quarter of a pixel at its edge, so that a dense picture has few pixels through which a hundred
/// things shine.
void Harden(QImage& halo) {
  constexpr int Quarter = 64;
  for (int y = 0; y < halo.height(); ++y) {
    for (int x = 0; x < halo.width(); ++x) {
      if (qAlpha(halo.pixel(x, y)) >= Quarter) halo.setPixel(x, y, qRgb(255, 255, 255));
    }
  }
}

void PaintSign(QImage& picture, const QPointF& baseline, const QString& sign, const QColor& colour, bool halo) {
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  if (halo) PaintHalo(painter, baseline, sign);
  PaintLetters(painter, baseline, sign, colour);
}

} // namespace

void PaintText(QPainter& painter, const TextStroke& stroke) {
  const QPointF baseline = BaselineOf(stroke);
  const QString text = QString::fromStdString(stroke.text);
  if (stroke.halo) {
    PaintHalo(painter, baseline, text);
  } else {
    painter.fillRect(TextArea(stroke), Qt::white);
  }
  PaintLetters(painter, baseline, text, QColor(stroke.colour));
}

bool LetterStamps::IsNumber(const TextStroke& stroke) {
  return std::all_of(stroke.text.begin(), stroke.text.end(),
                     [](char character) { return PlaceOf(character) < Signs.size(); });
}

PlacedText LetterStamps::Place(const TextStroke& number, double ratio) {
  Placed.clear();
  const Alphabet& alphabet = AlphabetOf(number.colour, ratio);
  const int y = qRound((number.corner.y() - Margin) * ratio);
  double x = number.corner.x() - Margin;
  for (const char character : number.text) {
    const Letter& letter = alphabet.letters[PlaceOf(character)];
    Placed.push_back({&letter, qRound(x * ratio), y});
    x += letter.advance;
  }
  const QPointF end(x + Margin, number.corner.y() + alphabet.height);
  const QRect box((number.corner * ratio).toPoint(), (end * ratio).toPoint() - QPoint(1, 1));
  if (Placed.empty()) return {Placed, box, QRect()};
  const QPoint first(Placed.front().x, y);
  return {Placed, box, alphabet.ink.translated(first).adjusted(0, 0, Placed.back().x - first.x(), 0)};
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
    QImage ink = Blank(metrics, sign, ratio);
    PaintSign(ink, baseline, sign, QColor(colour), false);
    QImage halo = Blank(metrics, sign, ratio);
    PaintSign(halo, baseline, sign, Qt::white, true);
    Harden(halo);
    alphabet.letters[i] = {Stamp(halo), Stamp(ink), metrics.horizontalAdvance(sign)};
    alphabet.ink |= alphabet.letters[i].halo.InkArea();
  }
  return alphabet;
}

} // namespace strutwright
