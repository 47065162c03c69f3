#pragma once

#include <optional>
#include <string>
#include <variant>

#include <QColor>
#include <QLineF>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>

class QPainter;

namespace strutwright {

/// How a line looks; the width is in logical pixels.
struct PenLook {
  QRgb colour = 0;
  double width = 1;
  bool dashed = false;
};

/// What a surface draws, in logical pixels.  A large model has a hundred thousand strokes, hence the plain structs.
struct LineStroke {
  QLineF line;
  PenLook pen;
};

struct CircleStroke {
  QRectF bounds;
  PenLook pen;
  std::optional<QRgb> fill;
};

struct BoxStroke {
  QRectF inside;
  QRgb fill = 0;
};

/// corner: the upper left one of the text.  It stands on a thin white halo, or on a white box where halo is false.
struct TextStroke {
  QPointF corner;
  std::string text;
  QRgb colour = 0;
  bool halo = true;
};

/// A small circle that hides what lies under it.
struct DotStroke {
  QPointF centre;
  double radius = 0;
  PenLook edge;
  QRgb fill = 0;
};

struct PolygonStroke {
  QPolygonF corners;
  QRgb fill = 0;
};

/// A text about its centre, reading along a direction of length 1, on a thin white halo.
struct LabelStroke {
  QPointF centre;
  QPointF along;
  std::string text;
  QRgb colour = 0;
  int size = 12; ///< height of the font
  QSizeF box;    ///< of a white box around it instead of the halo, where it is not empty
  QRgb frame = 0;
};

using Stroke = std::variant<LineStroke, CircleStroke, BoxStroke, TextStroke, DotStroke, PolygonStroke, LabelStroke>;

/// Draws a stroke the way of Qt, on anything that it can paint on.
void PaintStroke(QPainter& painter, const Stroke& stroke);

} // namespace strutwright
