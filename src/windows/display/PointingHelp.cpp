#include "PointingHelp.h"

#include "DisplayArea.h"
#include "modTips.h"

#include <string>
#include <utility>

#include <QPainter>
#include <QToolTip>

namespace strutwright {

namespace {

constexpr double BandWidth = 11; // pixels, over a member
constexpr double RingRadius = 9; // round a node
constexpr double EdgeWidth = 1.5;
constexpr int BandAlpha = 110;
constexpr int WalkTipTime = 60000; // ms: whoever walks by keys reads at leisure
constexpr QPoint TipOffset{12, 12};

std::string TipOf(Element element) {
  switch (element.kind) {
  case ElementKind::Node: return NodeTip(element.number);
  case ElementKind::Member: return MemberTip(element.number);
  case ElementKind::None: break;
  }
  return {};
}

/// A line that assistive tools read without a break.
QString Spoken(const std::string& tip) { return QString::fromStdString(tip).replace('\n', "; "); }

QPointF PointOf(PixelPoint point) { return {point.x, point.y}; }

} // namespace

void PointingHelp::ShowTip(Element element, const QPoint& globalPlace) {
  Tipped = element;
  if (element.IsNone()) return QToolTip::hideText();
  QToolTip::showText(globalPlace, QString::fromStdString(TipOf(element)), &Area);
}

void PointingHelp::MouseRests(double x, double y, const QPoint& globalPlace) {
  ShowTip(ElementAt(Area.Surface(), x, y), globalPlace);
}

void PointingHelp::MouseMoved(double x, double y, const QPoint& globalPlace) {
  if (Tipped.IsNone()) return;
  if (!QToolTip::isVisible()) {
    Tipped = {};
    return;
  }
  const Element now = ElementAt(Area.Surface(), x, y);
  if (now != Tipped) ShowTip(now, globalPlace);
}

void PointingHelp::HideTip() {
  if (!Tipped.IsNone()) QToolTip::hideText();
  Tipped = {};
}

bool PointingHelp::BringWalkedIntoView() { return BringIntoView(Area.Surface(), Walked); }

void PointingHelp::ShowWalked() {
  Tipped = {};
  DrawingChanged();
  Area.update();
  const std::string tip = TipOf(Walked);
  Area.setAccessibleDescription(Spoken(tip));
  const auto place = PlaceOf(Area.Surface(), Walked);
  if (!place) return QToolTip::hideText();
  const QPoint middle = PointOf(0.5 * (place->from + place->to)).toPoint();
  QToolTip::showText(Area.mapToGlobal(middle + TipOffset), QString::fromStdString(tip), &Area, {}, WalkTipTime);
}

void PointingHelp::EndWalk() {
  if (Walked.IsNone()) return;
  Walked = {};
  DrawingChanged();
  Area.setAccessibleDescription({});
  QToolTip::hideText();
  Area.update();
}

void PointingHelp::Mark(std::vector<Element> elements) {
  if (elements == Marked) return;
  Marked = std::move(elements);
  DrawingChanged();
  Area.update();
}

/// Thousands of marks are painted once and kept: the mouse has the area painted again with each of its moves.
void PointingHelp::Paint(QPainter& painter) {
  if (Marked.empty() && Walked.IsNone()) return;
  const QSize pixels = Area.Surface().Image().size();
  if (Marks.size() != pixels) {
    Marks = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    Marks.setDevicePixelRatio(Area.Surface().Image().devicePixelRatio());
    Marks.fill(Qt::transparent);
    QPainter marks(&Marks);
    marks.setRenderHint(QPainter::Antialiasing);
    for (const Element& each : Marked) PaintMark(marks, each, false);
    if (!Walked.IsNone()) PaintMark(marks, Walked, true);
  }
  painter.drawImage(QPoint(0, 0), Marks);
}

void PointingHelp::PaintMark(QPainter& painter, Element element, bool walked) const {
  const auto place = PlaceOf(Area.Surface(), element);
  if (!place) return;
  const QColor edge = Area.palette().color(QPalette::Highlight);
  QColor band = edge;
  band.setAlpha(BandAlpha);
  painter.setPen(QPen(band, BandWidth, Qt::SolidLine, Qt::RoundCap));
  painter.setBrush(Qt::NoBrush);
  if (element.kind == ElementKind::Member) painter.drawLine(PointOf(place->from), PointOf(place->to));
  if (element.kind == ElementKind::Node || walked) {
    const PixelPoint middle = 0.5 * (place->from + place->to);
    painter.setPen(QPen(edge, walked ? 2 * EdgeWidth : EdgeWidth));
    painter.setBrush(band);
    painter.drawEllipse(PointOf(middle), RingRadius, RingRadius);
  }
}

} // namespace strutwright
