#include "PictureArea.h"

#include "EventGuard.h"
#include "modSketch.h"

#include <utility>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace strutwright {

namespace {

constexpr double ClickPixels = 5; // a shorter drag is a click
constexpr double StrokeReach = 4; // pixels within which a node counts as hit
constexpr QSize MinPicture{360, 320};

PixelPoint ToPoint(const QPointF& place) { return {place.x(), place.y()}; }

} // namespace

PictureArea::PictureArea(PictureNotices notices, QWidget* parent)
    : QWidget(parent), Notices(std::move(notices)), Surface(width(), height(), devicePixelRatioF()) {
  setObjectName("handPic");
  setAccessibleName("Figures of this step");
  // No tool tip: it would cover the figures, and what can be done stands below them.
  setAccessibleDescription("Arrows left and right step, N takes the next joint; click a node to see its joint");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(MinPicture);
}

void PictureArea::ShowSheet(SketchSheet sheet, bool takesStrokes) {
  Shown = std::move(sheet);
  TakesStrokes = takesStrokes;
  setCursor(takesStrokes ? Qt::CrossCursor : Qt::ArrowCursor);
  LitKey = 0;
  IsPressed = IsPlaced = IsDrawn = false;
  update();
}

void PictureArea::Light(int key) {
  if (key == LitKey) return;
  LitKey = key;
  IsDrawn = false;
  update();
}

DrawingSurface& PictureArea::Drawn() {
  BringUpToDate();
  return Surface;
}

void PictureArea::Copy() {
  BringUpToDate();
  QGuiApplication::clipboard()->setImage(Surface.Image());
}

QPointF PictureArea::PixelOf(int figure, double x, double y) {
  BringUpToDate();
  const PixelPoint at = Placed.at(static_cast<std::size_t>(figure)).At(x, y);
  return {at.x, at.y};
}

void PictureArea::BringUpToDate() {
  if (Surface.Image().devicePixelRatio() != devicePixelRatioF()) {
    Surface.Resize(width(), height(), devicePixelRatioF());
    IsDrawn = false;
  }
  if (!IsPlaced) Placed = PlaceSheet(Shown, Surface);
  if (!IsPlaced || !IsDrawn) {
    Surface.Clear();
    DrawSheet(Surface, Placed, LitKey);
  }
  IsPlaced = IsDrawn = true;
}

void PictureArea::paintEvent(QPaintEvent* /*event*/) {
  Guard([this] { BringUpToDate(); });
  QPainter painter(this);
  painter.drawImage(QPoint(0, 0), Surface.Image());
  if (IsPressed && TakesStrokes) {
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2, Qt::DashLine));
    painter.drawLine(Begin, End);
  }
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void PictureArea::resizeEvent(QResizeEvent* /*event*/) {
  Guard([this] { Surface.Resize(width(), height(), devicePixelRatioF()); });
  IsPlaced = IsDrawn = false;
}

void PictureArea::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  IsPressed = true;
  Begin = End = event->position();
}

void PictureArea::mouseMoveEvent(QMouseEvent* event) {
  if (IsPressed && TakesStrokes) {
    End = event->position();
    return update();
  }
  Guard([&] {
    BringUpToDate();
    const int figure = SketchAt(Placed, ToPoint(event->position()));
    Notices.pointed(figure < 0 ? 0 : KeyAt(Placed[static_cast<std::size_t>(figure)], ToPoint(event->position())));
  });
}

void PictureArea::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !IsPressed) return;
  IsPressed = false;
  update();
  Guard([&] { EndStroke(event->position()); });
}

void PictureArea::EndStroke(const QPointF& place) {
  BringUpToDate();
  if (Placed.empty()) return;
  if (QLineF(Begin, place).length() < ClickPixels) {
    const int point = PointAt(Placed.front(), ToPoint(place));
    if (point >= 0) Notices.clicked(point);
  } else if (TakesStrokes) {
    const PixelPoint from = ToSketch(Placed.front(), ToPoint(Begin));
    const PixelPoint to = ToSketch(Placed.front(), ToPoint(place));
    Notices.drawn({from.x, from.y, to.x, to.y}, StrokeReach / Placed.front().scale);
  }
}

void PictureArea::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  Guard([this] { Notices.pointed(0); });
}

void PictureArea::keyPressEvent(QKeyEvent* event) {
  bool isTaken = false;
  Guard([&] { isTaken = Notices.keyPressed(*event); });
  if (!isTaken) QWidget::keyPressEvent(event);
}

} // namespace strutwright
