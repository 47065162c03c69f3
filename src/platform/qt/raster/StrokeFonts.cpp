#include "StrokeFonts.h"

#include <cmath>
#include <numbers>

#include <QFontMetricsF>
#include <QString>

namespace strutwright {

QFont TextFont() {
  QFont font;
  font.setPixelSize(TextSize);
  return font;
}

QFont LabelFont(int size) {
  QFont font;
  font.setPixelSize(size);
  font.setKerning(false);
  return font;
}

QPointF BaselineOf(const TextStroke& stroke) { return stroke.corner + QPointF(0, QFontMetricsF(TextFont()).ascent()); }

QRectF TextArea(const TextStroke& stroke) {
  const QFontMetricsF metrics(TextFont());
  return {stroke.corner, QSizeF(metrics.horizontalAdvance(QString::fromStdString(stroke.text)), metrics.height())};
}

QPointF BaselineOf(const LabelStroke& stroke) {
  const QFontMetricsF metrics(LabelFont(stroke.size));
  return {-metrics.horizontalAdvance(QString::fromStdString(stroke.text)) / 2, metrics.capHeight() / 2};
}

double DegreesOf(const QPointF& along) { return std::atan2(along.y(), along.x()) * 180 / std::numbers::pi; }

} // namespace strutwright
