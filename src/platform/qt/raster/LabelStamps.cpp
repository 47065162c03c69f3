#include "LabelStamps.h"

#include "StrokeFonts.h"

#include <algorithm>
#include <cmath>

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QString>

namespace strutwright {

namespace {

constexpr std::size_t MaxStamps = 8192; // kept at a time
constexpr double DirectionSteps = 1024;

/// Its frame lies on whole pixels, where the label does.
void PaintBox(QPainter& painter, const LabelStroke& label) {
  const QRectF box(QPointF(-label.box.width() / 2, -label.box.height() / 2), label.box);
  painter.setPen(QPen(QColor(label.frame), 1));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(box, BoxCorner, BoxCorner);
}

LabelStamp MakeStamp(const LabelStroke& label, double ratio) {
  const QFontMetricsF metrics(LabelFont(label.size));
  const double width = metrics.horizontalAdvance(QString::fromStdString(label.text));
  const int reach = static_cast<int>(std::ceil((std::hypot(width, metrics.height()) / 2 + HaloWidth) * ratio));
  QImage picture(2 * reach, 2 * reach, QImage::Format_ARGB32_Premultiplied);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  LabelStroke centred = label;
  centred.centre = QPointF(reach / ratio, reach / ratio);
  PaintLabel(painter, centred);
  painter.end();
  return {Stamp(picture), reach};
}

} // namespace

void PaintLabel(QPainter& painter, const LabelStroke& label) {
  const QString text = QString::fromStdString(label.text);
  const QFont font = LabelFont(label.size);
  const QPointF baseline = BaselineOf(label);
  painter.save();
  painter.translate(label.centre);
  if (label.along.y() != 0) painter.rotate(DegreesOf(label.along));
  if (label.box.isEmpty()) {
    QPainterPath letters;
    letters.addText(baseline, font, text);
    painter.strokePath(letters, QPen(Qt::white, HaloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  } else {
    PaintBox(painter, label);
  }
  painter.setFont(font);
  painter.setPen(QColor(label.colour));
  painter.drawText(baseline, text);
  painter.restore();
}

double LabelWidths::WidthOf(const std::string& text, int size) {
  const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 128; };
  const auto [found, isNew] = Advances.try_emplace(size);
  std::array<double, 128>& advances = found->second;
  if (isNew) {
    const QFontMetricsF metrics(LabelFont(size));
    for (char letter = ' '; letter < 127; ++letter) {
      advances.at(static_cast<std::size_t>(letter)) = metrics.horizontalAdvance(QLatin1Char(letter));
    }
    advances[0] = metrics.horizontalAdvance(QChar(0x2212)); // what labels have besides ASCII is the minus sign
  }
  double width = 0;
  for (const char byte : text) {
    if (isAscii(byte)) width += advances.at(static_cast<std::size_t>(byte));
    if ((static_cast<unsigned char>(byte) & 0xC0U) == 0xC0U) width += advances[0];
  }
  return width;
}

const Stamp& LabelStamps::Place(const LabelStroke& label, double ratio, QPoint& corner) {
  if (ratio != Ratio || Stamps.size() >= MaxStamps) Stamps.clear();
  Ratio = ratio;
  const auto step = [](double part) { return static_cast<int>(std::lround(part * DirectionSteps)); };
  const Key key{label.text, step(label.along.x()), step(label.along.y()), label.colour,
                label.size, !label.box.isEmpty()};
  auto found = Stamps.find(key);
  if (found == Stamps.end()) found = Stamps.emplace(key, MakeStamp(label, ratio)).first;
  const LabelStamp& stamp = found->second;
  corner = (label.centre * ratio).toPoint() - QPoint(stamp.reach, stamp.reach);
  return stamp.ink;
}

} // namespace strutwright
