#include "InfluencePicture.h"

#include "EventGuard.h"
#include "modModelRendering.h"
#include "modRedraw.h"
#include "modViewTransform.h"

#include <utility>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace strutwright {

namespace {

constexpr double PickPixels = 8;
constexpr QSize MinSize{320, 240};

} // namespace

InfluencePicture::InfluencePicture(InfluencePictureNotices notices, QWidget* parent)
    : QWidget(parent), Notices(std::move(notices)), Surface(width(), height(), devicePixelRatioF()) {
  setObjectName("influencePic");
  setAccessibleName("Truss and influence line");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(MinSize);
}

void InfluencePicture::ShowShape(InfluenceShape shape) {
  Shape = std::move(shape);
  IsDrawn = false;
  update();
}

/// A truss that can't be drawn whole is no reason for a box each time that the mouse moves.
void InfluencePicture::Draw() {
  Surface.SetWindow(FrameInfluence(Surface, Shape));
  const ReadableNumbers readable = NumbersWithRoom(Surface);
  strutwright::Draw(
      Surface,
      {.layers = {.loads = false, .grid = false, .memberNumbers = readable.ofMembers, .nodeNumbers = readable.ofNodes},
       .extents = ExtentsOfModel(1),
       .style = DrawingStyle::Clear,
       .legend = false,
       .memory = &Memory,
       .failures = [](const std::string& /*failure*/) {}});
  DrawInfluence(Surface, Shape, &Memory);
  IsDrawn = true;
}

void InfluencePicture::paintEvent(QPaintEvent* /*event*/) {
  Guard([this] {
    if (Surface.Image().devicePixelRatio() != devicePixelRatioF()) {
      Surface.Resize(width(), height(), devicePixelRatioF());
      IsDrawn = false;
    }
    if (!IsDrawn) Draw();
  });
  QPainter painter(this);
  painter.drawImage(QPoint(0, 0), Surface.Image());
  if (!hasFocus()) return;
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void InfluencePicture::resizeEvent(QResizeEvent* /*event*/) {
  Guard([this] { Surface.Resize(width(), height(), devicePixelRatioF()); });
  IsDrawn = false;
}

void InfluencePicture::mouseMoveEvent(QMouseEvent* event) {
  Guard([&] { Notices.pointed(Surface.ToSurface(event->position()).x()); });
}

void InfluencePicture::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPointF place = Surface.ToSurface(event->position());
  const double reach = PickPixels * static_cast<double>(Surface.Window().width) / width();
  Guard([&] { Notices.clicked(place.x(), -place.y(), reach); });
}

void InfluencePicture::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  Guard([this] { Notices.left(); });
}

void InfluencePicture::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right) return QWidget::keyPressEvent(event);
  Guard([&] { Notices.stepped(event->key() == Qt::Key_Left ? -1 : 1); });
}

} // namespace strutwright
