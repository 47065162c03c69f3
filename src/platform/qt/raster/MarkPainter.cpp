#include "MarkPainter.h"

#include "PixelPen.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <variant>

#include <QPainter>

namespace strutwright {

namespace {

constexpr double SmallRadius = 64; // pixels; PixelPen looks at all of a circle's square
constexpr double Roundness = 0.01; // pixels by which the radii of a circle may differ

QLineF InDevicePixels(const QLineF& line, double ratio) { return {line.p1() * ratio, line.p2() * ratio}; }

double DeviceWidth(const PenLook& pen, double ratio) { return std::max(pen.width, 1.0) * ratio; }

/// Whether the PixelPen can draw a circle.
bool IsPlain(const CircleStroke& stroke) {
  const double radius = stroke.bounds.width() / 2;
  const bool round = std::abs(stroke.bounds.height() / 2 - radius) <= Roundness;
  return round && radius <= SmallRadius && !stroke.fill && !stroke.pen.dashed;
}

void FillWhite(const Pixels& ground, const QRect& area) {
  constexpr std::uint32_t White = 0xFFFFFFFF;
  const QRect part = area & QRect(0, 0, ground.width, ground.height);
  if (part.isEmpty()) return;
  for (int y = part.top(); y <= part.bottom(); ++y) std::fill_n(ground.Row(y) + part.left(), part.width(), White);
}

/// Draws straight onto the picture what can be drawn so; it says whether it could.
class DirectPainter {
 public:
  DirectPainter(LetterStamps& stamps, LabelStamps& labels, const Pixels& ground, double ratio)
      : Stamps(stamps), Labels(labels), Ground(ground), Ratio(ratio) {}

  bool operator()(const LineStroke& stroke) const {
    PixelPen pen(Ground, stroke.pen.colour, DeviceWidth(stroke.pen, Ratio));
    const QLineF line = InDevicePixels(stroke.line, Ratio);
    if (stroke.pen.dashed) {
      pen.DashedLine(line);
    } else {
      pen.SolidLine(line);
    }
    return true;
  }

  bool operator()(const CircleStroke& stroke) const {
    if (!IsPlain(stroke)) return false;
    PixelPen(Ground, stroke.pen.colour, DeviceWidth(stroke.pen, Ratio))
        .Circle(stroke.bounds.center() * Ratio, stroke.bounds.width() / 2 * Ratio);
    return true;
  }

  bool operator()(const BoxStroke& /*stroke*/) const { return false; }

  /// Only on a box: a number on a halo consists of stamps of its own.
  bool operator()(const TextStroke& stroke) const {
    if (stroke.halo || !LetterStamps::IsNumber(stroke)) return false;
    const PlacedText text = Stamps.Place(stroke, Ratio);
    FillWhite(Ground, text.box);
    for (const PlacedLetter& each : text.letters) each.letter->ink.CopyTo(Ground, each.x, each.y);
    return true;
  }

  /// A ring whose pen reaches its middle fills it.
  bool operator()(const DotStroke& stroke) const {
    const double radius = stroke.radius * Ratio;
    PixelPen(Ground, stroke.fill, radius).Circle(stroke.centre * Ratio, radius / 2);
    PixelPen(Ground, stroke.edge.colour, DeviceWidth(stroke.edge, Ratio)).Circle(stroke.centre * Ratio, radius);
    return true;
  }

  bool operator()(const PolygonStroke& /*stroke*/) const { return false; }

  bool operator()(const LabelStroke& stroke) const {
    QPoint corner;
    const Stamp& stamp = Labels.Place(stroke, Ratio, corner);
    stamp.CopyTo(Ground, corner.x(), corner.y());
    return true;
  }

 private:
  LetterStamps& Stamps;
  LabelStamps& Labels;
  const Pixels& Ground;
  double Ratio;
};

/// Whether a stroke lies wholly under what is painted above it.  Only lines and circles are tested; a box or a text
/// counts as visible.
class HiddenStrokes {
 public:
  HiddenStrokes(const Cover& above, double ratio) : Above(above), Ratio(ratio) {}

  bool operator()(const LineStroke& stroke) const {
    const QLineF& line = stroke.line;
    return IsHidden(std::min(line.x1(), line.x2()), std::min(line.y1(), line.y2()), std::max(line.x1(), line.x2()),
                    std::max(line.y1(), line.y2()), stroke.pen);
  }

  bool operator()(const CircleStroke& stroke) const {
    const QRectF& bounds = stroke.bounds;
    return IsHidden(bounds.left(), bounds.top(), bounds.right(), bounds.bottom(), stroke.pen);
  }

  bool operator()(const BoxStroke& /*stroke*/) const { return false; }
  bool operator()(const TextStroke& /*stroke*/) const { return false; }
  bool operator()(const DotStroke& /*stroke*/) const { return false; }
  bool operator()(const PolygonStroke& /*stroke*/) const { return false; }
  bool operator()(const LabelStroke& /*stroke*/) const { return false; }

 private:
  /// Whether this rectangle is covered, grown by the pen's reach: half its width, or slightly more at a line's corner.
  bool IsHidden(double left, double top, double right, double bottom, const PenLook& pen) const {
    const double reach = 0.75 * DeviceWidth(pen, Ratio) + 0.5;
    return Above.Hides(
        QRect(QPoint(static_cast<int>(left * Ratio - reach), static_cast<int>(top * Ratio - reach)),
              QPoint(static_cast<int>(right * Ratio + reach), static_cast<int>(bottom * Ratio + reach))));
  }

  const Cover& Above;
  double Ratio;
};

} // namespace

void MarkPainter::Paint(std::span<const Stroke> strokes, QImage& picture) {
  FindVisibleMarks(strokes, picture);
  const Pixels ground(picture);
  for (auto mark = Marks.rbegin(); mark != Marks.rend(); ++mark) {
    if (mark->stamp != nullptr) {
      mark->stamp->CopyTo(ground, mark->x, mark->y);
    } else {
      PaintStrokeOf(*mark, ground, picture);
    }
  }
}

void MarkPainter::PaintStrokeOf(const Mark& mark, const Pixels& ground, QImage& picture) {
  const DirectPainter direct(Stamps, Labels, ground, picture.devicePixelRatio());
  if (ground.width >= MinWidth && std::visit(direct, *mark.stroke)) return;
  QPainter painter(&picture); // not kept: what is drawn directly goes past it
  painter.setRenderHint(QPainter::Antialiasing);
  PaintStroke(painter, *mark.stroke);
}

void MarkPainter::FindVisibleMarks(std::span<const Stroke> strokes, const QImage& picture) {
  Marks.clear();
  Above.Reset(picture.width(), picture.height());
  const double ratio = picture.devicePixelRatio();
  const HiddenStrokes isHidden(Above, ratio);
  for (auto stroke = strokes.rbegin(); stroke != strokes.rend(); ++stroke) {
    const auto* text = std::get_if<TextStroke>(&*stroke);
    if (text != nullptr && text->halo && LetterStamps::IsNumber(*text) && picture.width() >= MinWidth) {
      FindVisibleLetters(Stamps.Place(*text, ratio));
    } else if (!std::visit(isHidden, *stroke)) {
      Marks.push_back({nullptr, 0, 0, &*stroke});
    }
  }
}

/// All halos lie under the ink: a letter must not disappear under its neighbour's.
void MarkPainter::FindVisibleLetters(const PlacedText& text) {
  if (Above.Hides(text.ink)) return;
  const auto isVisible = [this](const PlacedLetter& each) {
    return !each.letter->halo.IsHidden(Above, each.x, each.y);
  };
  VisibleLetters.clear();
  std::copy_if(text.letters.rbegin(), text.letters.rend(), std::back_inserter(VisibleLetters), isVisible);
  for (const PlacedLetter& each : VisibleLetters) Marks.push_back({&each.letter->ink, each.x, each.y, nullptr});
  for (const PlacedLetter& each : VisibleLetters) {
    Marks.push_back({&each.letter->halo, each.x, each.y, nullptr});
    each.letter->halo.AddTo(Above, each.x, each.y);
  }
}

} // namespace strutwright
