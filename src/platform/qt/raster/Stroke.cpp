#include "Stroke.h"

#include "LabelStamps.h"
#include "LetterStamps.h"

#include <QBrush>
#include <QPainter>
#include <QPen>

namespace strutwright {

namespace {

QPen PenOf(const PenLook& look) {
  QPen pen(QColor(look.colour), look.width, look.dashed ? Qt::DashLine : Qt::SolidLine);
  pen.setCapStyle(look.dashed ? Qt::FlatCap : Qt::SquareCap);
  return pen;
}

struct StrokePainter {
  void operator()(const LineStroke& stroke) const {
    painter.setPen(PenOf(stroke.pen));
    painter.drawLine(stroke.line);
  }
  void operator()(const CircleStroke& stroke) const {
    painter.setPen(PenOf(stroke.pen));
    painter.setBrush(stroke.fill ? QBrush(QColor(*stroke.fill)) : QBrush());
    painter.drawEllipse(stroke.bounds);
  }
  void operator()(const BoxStroke& stroke) const { painter.fillRect(stroke.inside, QColor(stroke.fill)); }
  void operator()(const TextStroke& stroke) const { PaintText(painter, stroke); }
  void operator()(const DotStroke& stroke) const {
    painter.setPen(PenOf(stroke.edge));
    painter.setBrush(QColor(stroke.fill));
    painter.drawEllipse(stroke.centre, stroke.radius, stroke.radius);
  }
  void operator()(const PolygonStroke& stroke) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(stroke.fill));
    painter.drawPolygon(stroke.corners);
  }
  void operator()(const LabelStroke& stroke) const { PaintLabel(painter, stroke); }

  QPainter& painter;
};

} // namespace

void PaintStroke(QPainter& painter, const Stroke& stroke) { std::visit(StrokePainter{painter}, stroke); }

} // namespace strutwright
